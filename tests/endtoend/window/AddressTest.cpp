#include <string_view>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

using Address = Scenario;

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
