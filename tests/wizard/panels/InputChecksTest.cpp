#include "wizard/panels/InputChecks.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/support/Wizard.h"

namespace kv {
namespace {

constexpr const char* kIpMessage = "The Web site IP address is incorrect.";
constexpr const char* kPortMessage = "The Web site Port is incorrect.";

class WebsiteTest : public testing::Test {
protected:
    WebsiteTest() {
        wizard_.load();
        wizard_.goToWebsite(Server::Apache);
    }

    void enter(const std::string& ip, const std::string& port) {
        form_.txtWebsiteIP.typed(ip);
        form_.txtWebsitePort.typed(port);
        form_.cmdNext.click();
    }

    SampleDisk disk_;
    Wizard wizard_{disk_};
    frmWebConfig& form_ = wizard_.form;
};

struct Accepted {
    const char* typed;
    const char* kept;
};

void PrintTo(const Accepted& row, std::ostream* out) { *out << '"' << row.typed << '"'; }

class AcceptedIpTest : public WebsiteTest, public testing::WithParamInterface<Accepted> {};

TEST_P(AcceptedIpTest, LeadsOnAndLosesItsBlanks) {
    enter(GetParam().typed, "");

    EXPECT_EQ(wizard_.currentPanel(), 10);
    EXPECT_EQ(form_.txtWebsiteIP.text(), GetParam().kept);
    EXPECT_EQ(wizard_.messages.informations, Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    InputChecks, AcceptedIpTest,
    testing::Values(Accepted{"", ""}, Accepted{"   ", ""}, Accepted{"192.168.0.1", "192.168.0.1"},
                    Accepted{"  192.168.0.1 ", "192.168.0.1"},
                    Accepted{"192 .168.0.1", "192.168.0.1"},
                    Accepted{" 192 .168.0.1 ", "192.168.0.1"}, Accepted{"10 . 0.0. 1", "10.0.0.1"},
                    Accepted{"300.1.1.1", "300.1.1.1"}, Accepted{"-1.0.0.0", "-1.0.0.0"},
                    Accepted{"+1.0.0.0", "+1.0.0.0"}, Accepted{"1e2.0.0.1", "1e2.0.0.1"},
                    Accepted{"010.0.0.001", "010.0.0.001"}));

class RejectedIpTest : public WebsiteTest, public testing::WithParamInterface<const char*> {};

TEST_P(RejectedIpTest, StaysOnThePanelAsTypedWithItsMessage) {
    enter(GetParam(), "");

    EXPECT_EQ(wizard_.currentPanel(), 14);
    EXPECT_EQ(form_.txtWebsiteIP.text(), GetParam());
    EXPECT_EQ(wizard_.messages.informations, Lines{kIpMessage});
}

INSTANTIATE_TEST_SUITE_P(InputChecks, RejectedIpTest,
                         testing::Values("192.168.0", " 192.168.0 ", "192.168..1", "192.168. .1",
                                         ".168.0.1", "192.168.0.", "1.2.3.4.5", "...", ".", "1",
                                         "localhost", "a.b.c.d", "192.168.0.x", "192.168.0.1a",
                                         "1e.0.0.1", "-.0.0.1", "192,168,0,1", "1 2.0.0.1"));

class AcceptedPortTest : public WebsiteTest, public testing::WithParamInterface<Accepted> {};

TEST_P(AcceptedPortTest, LeadsOnAndLosesItsBlanks) {
    enter("", GetParam().typed);

    EXPECT_EQ(wizard_.currentPanel(), 10);
    EXPECT_EQ(form_.txtWebsitePort.text(), GetParam().kept);
    EXPECT_EQ(wizard_.messages.informations, Lines{});
}

INSTANTIATE_TEST_SUITE_P(InputChecks, AcceptedPortTest,
                         testing::Values(Accepted{"", ""}, Accepted{"  ", ""}, Accepted{"80", "80"},
                                         Accepted{" 8080  ", "8080"}, Accepted{"0", "0"},
                                         Accepted{"70000", "70000"}, Accepted{"-80", "-80"},
                                         Accepted{"+1", "+1"}, Accepted{"1e2", "1e2"},
                                         Accepted{".5", ".5"}, Accepted{"80.5", "80.5"},
                                         Accepted{"0080", "0080"}));

class RejectedPortTest : public WebsiteTest, public testing::WithParamInterface<const char*> {};

TEST_P(RejectedPortTest, StaysOnThePanelAsTypedWithItsMessage) {
    enter("", GetParam());

    EXPECT_EQ(wizard_.currentPanel(), 14);
    EXPECT_EQ(form_.txtWebsitePort.text(), GetParam());
    EXPECT_EQ(wizard_.messages.informations, Lines{kPortMessage});
}

INSTANTIATE_TEST_SUITE_P(InputChecks, RejectedPortTest,
                         testing::Values("http", " http ", "80a", "a80", ".", "-", "+", "e2", "1e",
                                         "1.2.3", "--1", "80:80"));

TEST_F(WebsiteTest, ThePortIsCheckedEvenAfterTheIpAddressFailedAndTheIpMessageComesFirst) {
    enter("192.168.0", "http");

    EXPECT_EQ(wizard_.messages.informations, (Lines{kIpMessage, kPortMessage}));
    EXPECT_EQ(wizard_.currentPanel(), 14);
}

TEST_F(WebsiteTest, AGoodPortIsTrimmedBesideARejectedIpAddress) {
    enter(" 192.168.0 ", " 80 ");

    EXPECT_EQ(form_.txtWebsiteIP.text(), " 192.168.0 ");
    EXPECT_EQ(form_.txtWebsitePort.text(), "80");
    EXPECT_EQ(wizard_.messages.informations, Lines{kIpMessage});
    EXPECT_EQ(wizard_.currentPanel(), 14);
}

TEST_F(WebsiteTest, AGoodIpAddressIsTrimmedBesideARejectedPort) {
    enter(" 10 .0.0.1 ", " http ");

    EXPECT_EQ(form_.txtWebsiteIP.text(), "10.0.0.1");
    EXPECT_EQ(form_.txtWebsitePort.text(), " http ");
    EXPECT_EQ(wizard_.messages.informations, Lines{kPortMessage});
    EXPECT_EQ(wizard_.currentPanel(), 14);
}

TEST_F(WebsiteTest, CorrectedTextsLeadOn) {
    enter("192.168.0", "http");

    enter("192.168.0.1", "80");

    EXPECT_EQ(wizard_.history(), (Panels{0, 1, 6, 7, 14, 10}));
}

class FoldersTest : public testing::TestWithParam<Server> {
protected:
    FoldersTest() {
        wizard_.load();
        wizard_.goToFolders(GetParam());
    }

    void enter(const std::string& home, const std::string& scripts) {
        home_.typed(home);
        scripts_.typed(scripts);
        form_.cmdNext.click();
    }

    SampleDisk disk_;
    Wizard wizard_{disk_};
    frmWebConfig& form_ = wizard_.form;
    const SampleServer& server_ = sampleServer(GetParam());
    TextBox& home_ = form_.*server_.homeBox;
    TextBox& scripts_ = form_.*server_.scriptsBox;
};

TEST_P(FoldersTest, GoodFoldersLeadToTheWebsitePanel) {
    enter(server_.home, server_.scripts);

    EXPECT_EQ(wizard_.currentPanel(), 14);
    EXPECT_EQ(wizard_.messages.informations, Lines{});
}

TEST_P(FoldersTest, AnEmptyHomeFolderStopsBeforeTheScriptsFolderIsChecked) {
    enter("", "");

    EXPECT_EQ(wizard_.currentPanel(), server_.folderPanel);
    EXPECT_EQ(wizard_.messages.informations, Lines{"Please enter folder's full path name."});
}

TEST_P(FoldersTest, AMissingHomeFolderStopsBeforeTheScriptsFolderIsChecked) {
    enter("C:\\nowhere", "C:\\nothing\\at all");

    EXPECT_EQ(wizard_.currentPanel(), server_.folderPanel);
    EXPECT_EQ(wizard_.messages.informations, Lines{"\"C:\\nowhere\" does not exist."});
    EXPECT_EQ(home_.text(), "C:\\nowhere");
}

TEST_P(FoldersTest, AnEmptyScriptsFolderStops) {
    enter(server_.home, "  ");

    EXPECT_EQ(wizard_.currentPanel(), server_.folderPanel);
    EXPECT_EQ(wizard_.messages.informations, Lines{"Please enter folder's full path name."});
    EXPECT_EQ(scripts_.text(), "  ");
}

TEST_P(FoldersTest, AMissingScriptsFolderIsMissedExceptByIisWhichOnlyNeedsItsParent) {
    enter(server_.home, "C:\\Korvane\\not there");

    const bool parentIsEnough = GetParam() == Server::IIS;
    EXPECT_EQ(wizard_.currentPanel(), parentIsEnough ? 14 : server_.folderPanel);
    EXPECT_EQ(wizard_.messages.informations,
              parentIsEnough ? Lines{} : Lines{"\"C:\\Korvane\\not there\" does not exist."});
}

TEST_P(FoldersTest, AScriptsFolderBelowAMissingParentIsNamedByIisByThatParent) {
    enter(server_.home, "C:\\nothing\\scripts");

    EXPECT_EQ(wizard_.currentPanel(), server_.folderPanel);
    EXPECT_EQ(wizard_.messages.informations,
              GetParam() == Server::IIS ? Lines{"\"C:\\nothing\" does not exist."}
                                        : Lines{"\"C:\\nothing\\scripts\" does not exist."});
}

TEST_P(FoldersTest, OneTrailingBackslashIsTakenOffBothTexts) {
    enter(server_.home + "\\", server_.scripts + "\\");

    EXPECT_EQ(wizard_.currentPanel(), 14);
    EXPECT_EQ(home_.text(), server_.home);
    EXPECT_EQ(scripts_.text(), server_.scripts);
}

TEST_P(FoldersTest, ATextThatIsNoFullPathStops) {
    const std::string focus = std::string(home_.name()) + " Focus";
    for (const auto& [typed, kept] : {std::pair{"www", "www"}, {"C:", "C:"}, {"C:\\", "C:"}}) {
        wizard_.messages.informations.clear();
        wizard_.observer.changes.clear();

        enter(typed, server_.scripts);

        EXPECT_EQ(wizard_.currentPanel(), server_.folderPanel);
        EXPECT_EQ(wizard_.messages.informations,
                  Lines{"\"" + std::string(kept) +
                        "\" cannot be used. Please enter folder's full path name, such as "
                        "C:\\Inetpub\\scripts."});
        EXPECT_EQ(home_.text(), kept);
        EXPECT_EQ(wizard_.observer.changes.back(), focus);
    }
    EXPECT_EQ(wizard_.closeAndReadLog(), Lines{});
}

TEST_P(FoldersTest, AScriptsFolderOnABareDriveHasNoParentThatIisCouldLookFor) {
    const std::string focus = std::string(scripts_.name()) + " Focus";
    disk_.disk.makeFolder("C:\\scripts");

    enter(server_.home, "C:\\scripts");

    if (GetParam() != Server::IIS) {
        EXPECT_EQ(wizard_.currentPanel(), 14);
        return;
    }
    EXPECT_EQ(wizard_.currentPanel(), 8);
    EXPECT_EQ(wizard_.messages.informations,
              Lines{"\"C:\\scripts\" cannot be used. Please enter folder's full path name, such as "
                    "C:\\Inetpub\\scripts."});
    EXPECT_EQ(scripts_.text(), "C:\\scripts");
    EXPECT_EQ(wizard_.observer.changes.back(), focus);
}

TEST_P(FoldersTest, WhenNoKindIsChosenAnyMoreTheCheckPasses) {
    (form_.*server_.installed).setValue(false);

    enter("", "");

    EXPECT_EQ(wizard_.currentPanel(), 14);
}

INSTANTIATE_TEST_SUITE_P(InputChecks, FoldersTest,
                         testing::Values(Server::Apache, Server::IIS, Server::Other), ServerName());

}  // namespace
}  // namespace kv
