#include <string_view>

#include <gtest/gtest.h>

#include "PanelTexts.h"
#include "Scenario.h"

namespace kv::endtoend {

namespace {

struct Input {
    std::string_view typed;
    std::string_view accepted;  // as rewritten; unused when refused
};

constexpr Input kAcceptedAddresses[] = {
    {"", ""},
    {"   ", ""},
    {"192.168.0.1", "192.168.0.1"},
    {"192 .168.0.1", "192.168.0.1"},
    {"10 . 0.0. 1", "10.0.0.1"},
    {"  10.0.0.1  ", "10.0.0.1"},
    {"300.1.1.1", "300.1.1.1"},
    {"-1.0.0.0", "-1.0.0.0"},
    {"+1.2.3.4", "+1.2.3.4"},
    {"1e1.1.1.1", "1e1.1.1.1"},
};

constexpr std::string_view kRefusedAddresses[] = {
    "192.168.0", "192.168..1",  "1.2.3.4.5", ".",       "...",
    "a.b.c.d",   "192.168.0.x", "localhost", "1,2,3,4", "1.2.3. ",
};

constexpr Input kAcceptedPorts[] = {
    {"", ""},   {"   ", ""},        {"80", "80"}, {" 8080 ", "8080"},
    {"0", "0"}, {"70000", "70000"}, {"-5", "-5"}, {"1e3", "1e3"},
};

constexpr std::string_view kRefusedPorts[] = {"http", "80a", "8 0", "80:81", "-", "8080 x"};

}  // namespace

using Address = Scenario;

TEST_F(Address, AcceptedAddressIsRewrittenWithoutBlanks) {
    start();
    goToAddress();

    for (const Input& input : kAcceptedAddresses) {
        wizard().fillField(0, input.typed);
        next(wizard(), 10);
        back(wizard(), 14);
        EXPECT_EQ(wizard().fieldText(0), input.accepted) << "\"" << input.typed << "\"";
    }
}

TEST_F(Address, RefusedAddressStaysAsTyped) {
    start();
    goToAddress();

    for (const std::string_view typed : kRefusedAddresses) {
        wizard().fillField(0, typed);
        wizard().click(kNext);
        expectWarning(kWrongAddress);
        EXPECT_EQ(wizard().currentPanel(), 14);
        EXPECT_EQ(wizard().fieldText(0), typed);
    }
}

TEST_F(Address, AcceptedPortIsRewrittenWithoutBlanks) {
    start();
    goToAddress();

    for (const Input& input : kAcceptedPorts) {
        wizard().fillField(1, input.typed);
        next(wizard(), 10);
        back(wizard(), 14);
        EXPECT_EQ(wizard().fieldText(1), input.accepted) << "\"" << input.typed << "\"";
    }
}

TEST_F(Address, RefusedPortStaysAsTyped) {
    start();
    goToAddress();

    for (const std::string_view typed : kRefusedPorts) {
        wizard().fillField(1, typed);
        wizard().click(kNext);
        expectWarning(kWrongPort);
        EXPECT_EQ(wizard().currentPanel(), 14);
        EXPECT_EQ(wizard().fieldText(1), typed);
    }
}

TEST_F(Address, BothRefusalsComeFromOneClickTheAddressFirst) {
    start();
    goToAddress();
    wizard().type(0, " 192.168.0");
    wizard().type(1, " http ");

    wizard().click(kNext);

    expectWarning(kWrongAddress);
    expectWarning(kWrongPort);
    EXPECT_EQ(wizard().currentPanel(), 14);
    EXPECT_EQ(wizard().fieldText(0), " 192.168.0");
    EXPECT_EQ(wizard().fieldText(1), " http ");
}

TEST_F(Address, GoodPortIsRewrittenThoughTheAddressIsRefused) {
    start();
    goToAddress();
    wizard().type(0, "192.168.0");
    wizard().type(1, " 81 ");

    wizard().click(kNext);

    expectWarning(kWrongAddress);
    EXPECT_EQ(wizard().fieldText(1), "81");
    EXPECT_EQ(wizard().currentPanel(), 14);
}

TEST_F(Address, GoodAddressIsRewrittenThoughThePortIsRefused) {
    start();
    goToAddress();
    wizard().type(0, "10 .0.0.1");
    wizard().type(1, "http");

    wizard().click(kNext);

    expectWarning(kWrongPort);
    EXPECT_EQ(wizard().fieldText(0), "10.0.0.1");
    EXPECT_EQ(wizard().currentPanel(), 14);
}

}  // namespace kv::endtoend
