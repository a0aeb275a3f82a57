#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Damage.h"
#include "DeployedFiles.h"
#include "Deployment.h"
#include "PanelTexts.h"
#include "Scenario.h"
#include "SettingsText.h"

namespace kv::endtoend {

namespace {

constexpr std::string_view kFolderExists = "WARN  75, Path/File access error, ioMakeDirectory";
constexpr std::string_view kFolderNoPath = "WARN  76, Path not found, ioMakeDirectory";

// Widths of the progress line that stopped short: 255 twips, a step of 100 per folder and file and
// one for the wizard's own settings.
constexpr int kStoppedShort = (255 + 700 + 4000 + 100) / 15;

const std::string kHome = "server\\htdocs";
const std::string kScripts = "server\\cgi-bin";
const std::string kScriptsSettings = kScripts + "\\kv\\kvi\\kvi.cfg";

void removeBelow(Tree& tree, const std::string& folder) {
    std::erase_if(tree, [&folder](const auto& item) { return item.first.starts_with(folder); });
}

const Damage kDamages[] = {
    {"ProgramMissing", removing("product\\bin\\kvdir.exe"), nothing, times(1, kMissingSource),
     without(kScripts + "\\kv\\kvdir.exe")},
    {"LibraryMissing", removing("product\\bin\\QTnbwB.dll"), nothing, times(1, kMissingSource),
     without(kScripts + "\\kv\\QTnbwB.dll")},
    {"SiteRootPageMissing", removing("product\\web-root\\index.html"), nothing,
     times(1, kMissingSource), without(kHome + "\\index.html")},
    {"ImageMissing", removing("product\\web-root\\images\\kvimg\\quest_b.gif"), nothing,
     times(1, kMissingSource), without(kHome + "\\images\\kv\\kvimg\\quest_b.gif")},
    {"ImageFolderMissing", removing("product\\web-root\\images\\kvimg"), nothing,
     times(21, kMissingPath), [](Tree&, const Tree&) {}},
    {"WebFolderMissing", removing("product\\web-root"), nothing, times(27, kMissingPath),
     [](Tree&, const Tree&) {}},
    {"HelpEntryPageMissing", removing("product\\hlp\\eng\\kvhentryeng.html"), nothing,
     times(1, kMissingSource), unchanged("product\\hlp\\eng\\kvhexiteng.html")},
    {"HelpFolderMissing", removing("product\\hlp"), nothing, times(1, kMissingPath),
     [](Tree&, const Tree&) {}},
    {"HelpExitPageMissing",
     removing("product\\hlp\\eng\\kvhexiteng.html"),
     nothing,
     {},
     [](Tree&, const Tree&) {}},
    {"HelpExitPageReadOnly",
     [](const Workplace& place) { place.makeReadOnly("product\\hlp\\eng\\kvhexiteng.html"); },
     nothing, times(1, kRefusedCopy), unchanged("product\\hlp\\eng\\kvhexiteng.html"),
     kProgressDone, true},
    {"ReadOnlyFileInTheWay",
     [](const Workplace& place) {
         place.write(kHome + "\\index.html", "the administrator's own");
         place.makeReadOnly(kHome + "\\index.html");
     },
     nothing, times(1, kRefusedCopy), unchanged(kHome + "\\index.html"), kProgressDone, true},
    {"ProgramInUse",
     [](const Workplace& place) { place.write(kScripts + "\\kv\\kv.exe", "running"); },
     locking(kScripts + "\\kv\\kv.exe"), times(1, kLockedCopy),
     unchanged(kScripts + "\\kv\\kv.exe")},
    {"SourceLocked", [](const Workplace&) {}, locking("product\\bin\\kvjs.exe"),
     times(1, kLockedCopy), without(kScripts + "\\kv\\kvjs.exe")},
    {"FolderWhereAFileBelongs",
     [](const Workplace& place) { place.makeFolder(kHome + "\\kv\\index.html"); }, nothing,
     times(1, kRefusedCopy),
     [](Tree& expected, const Tree&) { expected.erase(kHome + "\\kv\\index.html"); }},
    {"FolderWhereASourceBelongs",
     [](const Workplace& place) {
         place.remove("product\\bin\\kvhlp.exe");
         place.makeFolder("product\\bin\\kvhlp.exe");
     },
     nothing, times(1, kRefusedCopy), without(kScripts + "\\kv\\kvhlp.exe")},
    {"FileWhereAHomeFolderBelongs",
     [](const Workplace& place) { place.write(kHome + "\\kv", "a file"); }, nothing,
     times(3, kMissingPath),
     [](Tree& expected, const Tree&) { removeBelow(expected, kHome + "\\kv\\"); }},
    {"FileWhereTheScriptsFolderBelongs",
     [](const Workplace& place) { place.write(kScripts + "\\kv", "a file"); }, nothing,
     times(1, kFolderNoPath) + times(13, kMissingPath) +
         Entries{"WARN  76, Path not found, iocCfgWriteFile"},
     [](Tree& expected, const Tree&) { removeBelow(expected, kScripts + "\\kv\\"); },
     kStoppedShort},
    {"FolderOfOtherLetterCase",
     [](const Workplace& place) { place.makeFolder(kHome + "\\Images"); }, nothing,
     times(1, kFolderExists),
     [](Tree& expected, const Tree&) {
         Tree renamed;
         for (const auto& [path, bytes] : expected) {
             const std::string folder = kHome + "\\images\\";
             renamed[path.starts_with(folder) ? kHome + "\\Images\\" + path.substr(folder.size())
                                              : path] = bytes;
         }
         expected = renamed;
     }},
    {"ScriptsSettingsLocked",
     [](const Workplace& place) { place.write(kScriptsSettings, "older"); },
     locking(kScriptsSettings), Entries{"WARN  55, File already open, iocCfgWriteFile"},
     unchanged(kScriptsSettings), kStoppedShort},
    {"OwnSettingsLockedForWriters", [](const Workplace&) {},
     locking("product\\bin\\kvi\\kvi.cfg", FILE_SHARE_READ),
     Entries{"WARN  55, File already open, iocCfgWriteFile"},
     unchanged("product\\bin\\kvi\\kvi.cfg")},
    {"OwnSettingsReadOnly",
     [](const Workplace& place) { place.makeReadOnly("product\\bin\\kvi\\kvi.cfg"); }, nothing,
     Entries{"WARN  75, Path/File access error, iocCfgWriteFile"},
     unchanged("product\\bin\\kvi\\kvi.cfg"), kProgressDone, true},
    {"DocumentRootGoneMeanwhile", [](const Workplace&) {},
     [](const Workplace& place) {
         place.remove(kHome);
         return Locks{};
     },
     times(5, kFolderNoPath) + times(27, kMissingPath),
     [](Tree& expected, const Tree&) { removeBelow(expected, kHome + "\\"); }},
    {"ScriptsFolderGoneMeanwhile", [](const Workplace&) {},
     [](const Workplace& place) {
         place.remove(kScripts);
         return Locks{};
     },
     times(2, kFolderNoPath) + times(13, kMissingPath) +
         Entries{"WARN  76, Path not found, iocCfgWriteFile"},
     [](Tree& expected, const Tree&) { removeBelow(expected, kScripts + "\\"); }, kStoppedShort},
    {"ProductEmpty",
     [](const Workplace& place) {
         for (const std::string_view name : kPrograms) {
             place.remove("product\\bin\\" + std::string(name));
         }
         for (const std::string_view name : kLibraries) {
             place.remove("product\\bin\\" + std::string(name));
         }
         place.remove("product\\web-root");
         place.remove("product\\hlp");
     },
     nothing, times(13, kMissingSource) + times(28, kMissingPath), [](Tree&, const Tree&) {}},
};

}  // namespace

class DamagedProduct : public Scenario {
protected:
    void installTo(const std::function<Locks(const Workplace&)>& meanwhile) {
        goToAddress();
        next(wizard(), 10);
        const Locks locks = meanwhile(place());
        wizard().click(kNext);
        wizard().waitForOperationEnd();
    }

    Tree soundInstallation(Tree before) const {
        deploy(before, {kHome, kScripts, true, false});
        if (before.contains("product\\hlp\\eng\\kvhentryeng.html")) {
            replaceHelpPage(before);
        }
        overwrite(before, settingsPath(),
                  settingsText({"7", place().product() + "\\",
                                rowsOf({place().home(), place().scripts(), place().product(), "1",
                                        "0", "", ""})}));
        before[kScriptsSettings] =
            settingsText({"1", place().product() + "\\", {place().home() + "\\"}});
        return before;
    }

    void expectClosingTexts() const {
        EXPECT_TRUE(wizard().shows(kCompletedTitle));
        EXPECT_TRUE(wizard().shows(kCompleted));
        EXPECT_TRUE(wizard().frameButton(kFinish).enabled);
    }
};

class EveryDamage : public DamagedProduct, public testing::WithParamInterface<Damage> {};

TEST_P(EveryDamage, IsLoggedOncePerFailureAndTheRestIsDone) {
    const Damage& which = GetParam();
    if (which.needsReadOnly && !place().honoursReadOnly()) {
        GTEST_SKIP() << "read-only files can be written here";
    }
    which.before(place());
    const Tree before = place().tree();
    start();

    installTo(which.meanwhile);

    expectClosingTexts();
    EXPECT_EQ(wizard().progressWidth(), which.progress);
    finish();
    if (which.log.empty()) {
        expectNoLog();
    } else {
        expectLog(which.log);
    }
    Tree expected = soundInstallation(before);
    which.outcome(expected, before);
    Tree actual = place().tree();
    actual.erase("product\\log\\kvwcfg00.log");
    EXPECT_EQ(differences(expected, actual), "");
}

INSTANTIATE_TEST_SUITE_P(All, EveryDamage, testing::ValuesIn(kDamages),
                         [](const testing::TestParamInfo<Damage>& which) {
                             return std::string(which.param.name);
                         });

TEST_F(DamagedProduct, MissingLogFolderIsNotMadeAndStopsNothing) {
    place().remove("product\\log");
    place().remove("product\\bin\\kv.exe");
    Tree expected = soundInstallation(place().tree());
    start();

    installTo(nothing);

    expectClosingTexts();
    EXPECT_EQ(wizard().progressWidth(), kProgressDone);
    finish();
    EXPECT_EQ(differences(expected, place().tree()), "");
}

}  // namespace kv::endtoend
