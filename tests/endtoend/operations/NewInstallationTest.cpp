#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "DeployedFiles.h"
#include "Deployment.h"
#include "PanelTexts.h"
#include "Scenario.h"
#include "SettingsText.h"

namespace kv::endtoend {

namespace {

struct InstallationCase {
    const ServerRoad* road;
    bool siteRoot;
    bool repeated;
    std::string_view typedAddress;
    std::string_view recordedAddress;
    std::string_view typedPort;
    std::string_view recordedPort;
};

void PrintTo(const InstallationCase& which, std::ostream* out) { *out << which.road->name; }

const std::string kScriptsSettings = "server\\cgi-bin\\kv\\kvi\\kvi.cfg";

// What an older version of the product left in the server: every file is longer than its
// successor, and the administrator has files of his own beside them.
void leaveEarlierDeployment(const Workplace& place, bool siteRoot) {
    Tree deployed = place.tree();
    const Tree before = deployed;
    deploy(deployed, {"server\\htdocs", "server\\cgi-bin", siteRoot, false});
    for (const auto& [path, bytes] : deployed) {
        if (before.contains(path)) {
            continue;
        }
        if (path.ends_with('\\')) {
            place.makeFolder(path);
        } else {
            place.write(path, bytes + "the older version was longer\r\n");
        }
    }
    place.write(
        kScriptsSettings,
        settingsText({"1", "Q:\\older\\", {"Q:\\some\\older\\htdocs\\"}}) + std::string(2000, 'x'));
    place.write("server\\htdocs\\images\\own.gif", "the administrator's own");
    place.write("server\\htdocs\\kv\\own.html", "the administrator's own");
    place.write("server\\cgi-bin\\kv\\own.exe", "the administrator's own");
}

}  // namespace

class NewInstallation : public Scenario {
protected:
    // Ends the installation begun and compares everything with what it was before.
    void expectInstalled(const Tree& before, const DeploymentPlan& plan,
                         const std::string& recorded) {
        Tree expected = before;
        deploy(expected, plan);
        replaceHelpPage(expected);
        overwrite(expected, settingsPath(), recorded);
        expected[kScriptsSettings] =
            settingsText({"1", place().product() + "\\", {place().home() + "\\"}});
        EXPECT_EQ(differences(expected, place().tree()), "");
    }

    Entry entry(const ServerRoad& road, bool siteRoot) const {
        return {place().home(),
                place().scripts(),
                place().product(),
                std::string(road.code),
                siteRoot ? "0" : "1",
                "",
                ""};
    }

    std::string recordOf(const Entry& entry) const {
        return settingsText({"7", place().product() + "\\", rowsOf(entry)});
    }
};

class EveryInstallation : public NewInstallation,
                          public testing::WithParamInterface<InstallationCase> {};

TEST_P(EveryInstallation, DeploysAndRecordsAndTouchesNothingElse) {
    const InstallationCase& which = GetParam();
    const bool makesScriptsFolder = which.road->code == "0" && !which.repeated;
    if (which.repeated) {
        leaveEarlierDeployment(place(), which.siteRoot);
        place().write("product\\cfg\\original\\korvane.bak", freshSettings());
    }
    if (makesScriptsFolder) {
        place().remove("server\\cgi-bin");
    }
    const Tree before = place().tree();
    start();

    if (which.repeated) {
        next(wizard(), 13);
        wizard().clickPictureButtonBeside(kNewLabel);
        wizard().waitForPanel(1);
    } else {
        next(wizard(), 1);
    }
    chooseServer(wizard(), *which.road);
    chooseUrl(wizard(), which.siteRoot ? kUrlDefault : kUrlKv, which.road->folderPanel);
    enterFolders(wizard(), place().home(), place().scripts());
    wizard().type(0, which.typedAddress);
    wizard().type(1, which.typedPort);
    install();

    EXPECT_EQ(wizard().progressWidth(), kProgressDone);
    EXPECT_TRUE(wizard().shows(kCompletedTitle));
    EXPECT_TRUE(wizard().shows(kCompleted));
    finish();
    Entry recorded = entry(*which.road, which.siteRoot);
    recorded.address = which.recordedAddress;
    recorded.port = which.recordedPort;
    expectInstalled(before,
                    {"server\\htdocs", "server\\cgi-bin", which.siteRoot, makesScriptsFolder},
                    recordOf(recorded));
    expectNoLog();
}

INSTANTIATE_TEST_SUITE_P(
    ServersStylesAndTimes, EveryInstallation,
    testing::Values(
        InstallationCase{&kApacheInstalled, true, false, "", "", "", ""},
        InstallationCase{&kNoPreference, false, false, "10 . 0.0. 1", "10.0.0.1", " 8080 ", "8080"},
        InstallationCase{&kApacheToInstall, true, true, "192 .168.0.1", "192.168.0.1", "", ""},
        InstallationCase{&kApacheInstalled, false, true, "", "", "81", "81"},
        InstallationCase{&kIisInstalled, true, false, "", "", "", ""},
        InstallationCase{&kIisToInstall, false, false, "300.1.1.1", "300.1.1.1", "0", "0"},
        InstallationCase{&kIisToInstall, true, true, "", "", "70000", "70000"},
        InstallationCase{&kIisInstalled, false, true, "-1.0.0.0", "-1.0.0.0", "", ""},
        InstallationCase{&kOtherInstalled, true, false, " 127.0.0.1 ", "127.0.0.1", "", ""},
        InstallationCase{&kOtherToInstall, false, false, "", "", "", ""},
        InstallationCase{&kOtherToInstall, true, true, "", "", "8000", "8000"},
        InstallationCase{&kOtherInstalled, false, true, "", "", "", ""}),
    [](const testing::TestParamInfo<InstallationCase>& which) {
        return std::string(which.param.road->name) + (which.param.siteRoot ? "SiteRoot" : "Kv") +
               (which.param.repeated ? "Again" : "First");
    });

TEST_F(NewInstallation, ProductHasEveryFileThatIsDeployed) {
    const auto expectFiles = [this](const std::string& folder, const auto& names) {
        for (const std::string_view name : names) {
            EXPECT_TRUE(place().exists("product\\" + folder + "\\" + std::string(name))) << name;
        }
    };

    expectFiles("bin", kPrograms);
    expectFiles("bin", kLibraries);
    expectFiles("web-root", kWebFiles);
    expectFiles("web-root\\kv", kWebFiles);
    expectFiles("web-root\\images\\kvimg", kImages);
}

TEST_F(NewInstallation, BothSettingsFilesAreWrittenByteForByte) {
    start();

    goToAddress();
    install();

    const std::string head =
        "#\r\n"
        "# *This file contains characters which cannot be displayed, please edit it with KORVANE "
        "only.\r\n"
        "#\r\n"
        "# *Header Section\r\n"
        "#\r\n"
        "00\017T\0201008\r\n"
        "01\017V\0201.3.0\r\n"
        "02\017P\0201\r\n";
    const std::string middle =
        "04\017D2\0200\r\n"
        "05\017D3\0200\r\n"
        "06\017D4\0200\r\n"
        "07\017D5\0200\r\n"
        "08\017D6\0200\r\n"
        "09\017D7\0200\r\n"
        "010\017D8\0200\r\n"
        "#\r\n"
        "# *Peoperty Section\r\n"
        "#\r\n"
        "10\017*kvi\020" +
        place().product() +
        "\\\r\n"
        "#\r\n"
        "# *Data Section 1\r\n"
        "#\r\n"
        "20\0172\020" +
        place().home() + "\\\r\n";
    EXPECT_EQ(place().read(settingsPath()), head + "03\017D1\0207\r\n" + middle + "21\0172\020" +
                                                place().scripts() + "\\\r\n" + "22\0172\020" +
                                                place().product() +
                                                "\\\r\n"
                                                "23\0172\0201\r\n"
                                                "24\0172\0200\r\n"
                                                "25\0172\020\r\n"
                                                "26\0172\020\r\n");
    EXPECT_EQ(place().read(kScriptsSettings), head + "03\017D1\0201\r\n" + middle);
}

TEST_F(NewInstallation, LongerSettingsFileKeepsItsRemainingBytes) {
    place().write(settingsPath(), freshSettings() + "#" + std::string(1500, '-') + "\r\n");
    const Tree before = place().tree();
    start();

    goToAddress();
    install();
    finish();

    expectInstalled(before, {"server\\htdocs", "server\\cgi-bin", true, false},
                    recordOf(entry(kApacheInstalled, true)));
    EXPECT_TRUE(place().read(settingsPath()).ends_with("---\r\n"));
}

TEST_F(NewInstallation, RecordedProductFolderOfTheFileReadIsKept) {
    place().write(settingsPath(), settingsText({"0", "  Q:\\elsewhere\\  ", {}}));
    start();

    goToAddress();
    install();

    EXPECT_NE(place().read(settingsPath()).find("10\017*kvi\020Q:\\elsewhere\\\r\n"),
              std::string::npos);
    EXPECT_NE(place().read(settingsPath()).find("22\0172\020" + place().product() + "\\\r\n"),
              std::string::npos);
    EXPECT_NE(place().read(kScriptsSettings).find("10\017*kvi\020Q:\\elsewhere\\\r\n"),
              std::string::npos);
}

TEST_F(NewInstallation, ScriptsSettingsOfOtherLetterCaseAreOverwrittenNotDeleted) {
    place().write("server\\cgi-bin\\kv\\kvi\\KVI.CFG", std::string(3000, 'x'));
    start();

    goToAddress();
    install();
    finish();

    const std::string written =
        settingsText({"1", place().product() + "\\", {place().home() + "\\"}});
    EXPECT_EQ(place().read("server\\cgi-bin\\kv\\kvi\\KVI.CFG"),
              written + std::string(3000 - written.size(), 'x'));
    expectNoLog();
}

// Reading the saved configuration for an upgrade and going back to New is how earlier entries and
// a new installation come together.
class FurtherInstallation : public NewInstallation {
protected:
    Entry earlier(int number) const {
        const std::string drive = "Q:\\" + std::to_string(number);
        return {drive + "\\htdocs",
                drive + "\\cgi-bin",
                drive + "\\product",
                "2",
                "1",
                "10.0.0." + std::to_string(number),
                std::to_string(8000 + number)};
    }

    void save(const Settings& settings) const {
        place().write("product\\cfg\\original\\korvane.bak", freshSettings());
        place().write("product\\cfg\\original\\kvi.bak", settingsText(settings));
    }

    void installAfterReadingSaved() {
        start();
        next(wizard(), 13);
        wizard().clickPictureButtonBeside(kUpgradeLabel);
        wizard().waitForPanel(10);
        back(wizard(), 13);
        wizard().clickPictureButtonBeside(kNewLabel);
        wizard().waitForPanel(1);
        chooseServer(wizard(), kApacheInstalled);
        chooseUrl(wizard(), kUrlDefault, 7);
        enterFolders(wizard(), place().home(), place().scripts());
        install();
        finish();
    }
};

TEST_F(FurtherInstallation, SecondEntryIsLaidThreeRowsAfterTheFirst) {
    save({"7", "Q:\\saved\\", rowsOf(earlier(1))});

    installAfterReadingSaved();

    EXPECT_EQ(place().read(settingsPath()),
              settingsText({"14",
                            "Q:\\saved\\",
                            {"Q:\\1\\htdocs\\", "Q:\\1\\cgi-bin\\", "Q:\\1\\product\\",
                             place().home() + "\\", place().scripts() + "\\",
                             place().product() + "\\", "1", "0", "", "", "", "", "", ""}}));
}

TEST_F(FurtherInstallation, ThirdEntryIsLaidSixRowsAfterTheFirst) {
    std::vector<std::string> rows = rowsOf(earlier(1));
    const std::vector<std::string> more = rowsOf(earlier(2));
    rows.insert(rows.end(), more.begin(), more.end());
    save({"14", "", rows});

    installAfterReadingSaved();

    EXPECT_EQ(
        place().read(settingsPath()),
        settingsText({"21",
                      place().product() + "\\",
                      {"Q:\\1\\htdocs\\", "Q:\\1\\cgi-bin\\", "Q:\\1\\product\\", "Q:\\2\\htdocs\\",
                       "Q:\\2\\cgi-bin\\", "Q:\\2\\product\\", place().home() + "\\",
                       place().scripts() + "\\", place().product() + "\\", "1", "0", "", "",
                       // nothing is laid on the rest
                       "", "", "", "", "", "", "", ""}}));
}

}  // namespace kv::endtoend
