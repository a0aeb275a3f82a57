// Modification, backup and upgrade of products and servers that are not as they should be.
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "Damage.h"
#include "Operations.h"

namespace kv::endtoend {

namespace {

constexpr std::string_view kLockedDeletion = "SERV  55, File already open, ioDeleteFile";
constexpr std::string_view kRefusedDeletion = "WARN  75, Path/File access error, ioDeleteFile";
constexpr std::string_view kFolderNotEmpty = "SERV  75, Path/File access error, ioDeleteDirectory";

const std::string kOldProgram = "server\\cgi-bin\\kv\\kvdir.exe";
const std::string kOldPage = "server\\htdocs\\kv\\index.html";
const std::string kNewProgram = "other\\cgi-bin\\kv\\kv.exe";
const std::string kNewPage = "other\\htdocs\\kv\\index.html";
const std::string kOwnSettings = "product\\bin\\kvi\\kvi.cfg";

// A file that could not be deleted keeps its folder.
auto staying(std::string file) {
    return [file = std::move(file)](Tree& expected, const Tree& before) {
        expected[file] = before.at(file);
        expected[file.substr(0, file.rfind('\\') + 1)] = "";
    };
}

auto withoutAllBelow(std::string folder) {
    return [folder = std::move(folder)](Tree& expected, const Tree&) {
        std::erase_if(expected,
                      [&folder](const auto& item) { return item.first.starts_with(folder); });
    };
}

auto writing(std::string path, std::string bytes) {
    return [path = std::move(path), bytes = std::move(bytes)](const Workplace& place) {
        place.write(path, bytes);
    };
}

auto writingReadOnly(std::string path, std::string bytes) {
    return [path = std::move(path), bytes = std::move(bytes)](const Workplace& place) {
        place.write(path, bytes);
        place.makeReadOnly(path);
    };
}

void nothingBefore(const Workplace&) {}

void removeDeployedFiles(const Workplace& place) {
    for (const std::string& file : deployedFiles(kOld)) {
        place.remove(file);
    }
}

// From the old server to the new one.
const Damage kDamagesOfAMove[] = {
    {"FilesInUse",
     writing(kNewProgram, "running"),
     lockingAll({kOldProgram, kNewProgram, "product\\bin\\kvjs.exe"}),
     {std::string(kLockedDeletion), std::string(kFolderNotEmpty), std::string(kLockedCopy),
      std::string(kLockedCopy)},
     all(staying(kOldProgram), unchanged(kNewProgram), without("other\\cgi-bin\\kv\\kvjs.exe"))},
    {"ReadOnlyFiles",
     all(makingReadOnly(kOldPage), writingReadOnly(kNewPage, "the administrator's own"),
         makingReadOnly(kOwnSettings)),
     nothing,
     {std::string(kRefusedDeletion), std::string(kFolderNotEmpty), std::string(kRefusedCopy),
      "WARN  75, Path/File access error, iocCfgWriteFile"},
     all(staying(kOldPage), unchanged(kNewPage), unchanged(kOwnSettings)),
     kProgressDone,
     true},
    {"OwnSettingsInUse",
     nothingBefore,
     locking(kOwnSettings, FILE_SHARE_READ),
     {"WARN  55, File already open, iocCfgWriteFile"},
     unchanged(kOwnSettings)},
    {"FilesRemovedByHand", all(removeDeployedFiles, removing("product\\cfg\\original")), nothing,
     times(38, "SERV  53, File not found, ioDeleteFile"), asUsual},
    {"UsersFile", writing("server\\htdocs\\kv\\own.html", "the administrator's own"), nothing,
     times(1, kFolderNotEmpty), staying("server\\htdocs\\kv\\own.html")},
};

// Within the old server: what cannot be deleted cannot be replaced either.
const Damage kDamagesOfAStay[] = {
    {"ProgramInUse",
     nothingBefore,
     locking(kOldProgram),
     {std::string(kLockedDeletion), std::string(kFolderNotEmpty), std::string(kLockedCopy)},
     asUsual},
    {"ReadOnlyPage",
     writingReadOnly(kOldPage, "edited by hand"),
     nothing,
     {std::string(kRefusedDeletion), std::string(kFolderNotEmpty), std::string(kRefusedCopy)},
     unchanged(kOldPage),
     kProgressDone,
     true},
};

const Damage kDamagesOfABackup[] = {
    {"SourcesMissing",
     all(removing(kMainSettings), removing(kAdministratorSettings),
         removing("product\\cfg\\user\\anony")),
     removingMeanwhile(kOwnSettings), times(3, kMissingSource) + times(1, kMissingPath),
     all(without(kOriginal + "kvi.bak"), without(kOriginal + "korvane.bak"),
         without(kOriginal + "kvadm.bak"), without(kOriginal + "kvan.bak"), without(kOwnSettings))},
    {"FilesInUseAndReadOnly",
     all(writing(kOriginal + "kvi.bak", "earlier"),
         writingReadOnly(kOriginal + "kvan.bak", "earlier")),
     lockingAll({kOriginal + "kvi.bak", kMainSettings}),
     times(2, kLockedCopy) + times(1, kRefusedCopy),
     all(unchanged(kOriginal + "kvi.bak"), without(kOriginal + "korvane.bak"),
         unchanged(kOriginal + "kvan.bak")),
     kProgressDone, true},
};

void oneMoreLineEnd(Tree& expected, const Tree& before) {
    expected[kMainSettings] = before.at(kMainSettings) + "\r\n";
}

// The old main settings, kept for the upgrade, without any of the lines that it looks for.
constexpr const char* kNoProperties =
    "#\r\n"
    "# *Header Section\r\n"
    "#\r\n"
    "00\017T\0201001\r\n"
    "02\017P\0200\r\n"
    "#\r\n"
    "# *Data Section 1\r\n"
    "#\r\n"
    "20\0172\020mhansen\r\n";

const Damage kDamagesOfAnUpgrade[] = {
    {"SavedMainSettingsGone",
     nothingBefore,
     removingMeanwhile(kOriginal + "korvane.bak"),
     {"SERV  53, File not found, iocCfgReadFile"},
     all(oneMoreLineEnd, without(kOriginal + "korvane.bak"))},
    {"SavedMainSettingsWithoutProperties",
     writing(kOriginal + "korvane.bak", kNoProperties),
     nothing,
     {},
     oneMoreLineEnd},
    {"SavedRecordGone", nothingBefore, removingMeanwhile(kOriginal + "kvi.bak"),
     times(1, kMissingSource), all(unchanged(kOwnSettings), without(kOriginal + "kvi.bak"))},
    {"SavedFolderGone", nothingBefore, removingMeanwhile("product\\cfg\\original"),
     times(1, kMissingPath) + Entries{"WARN  76, Path not found, iocCfgReadFile"} +
         times(2, kMissingPath),
     all(oneMoreLineEnd, unchanged(kOwnSettings), unchanged(kAdministratorSettings),
         unchanged(kAnonymousSettings), withoutAllBelow(kOriginal))},
    {"FilesInUse",
     nothingBefore,
     lockingAll(
         {"server\\cgi-bin\\kv\\kv.exe", kOriginal + "korvane.bak", kOriginal + "kvadm.bak"}),
     {std::string(kLockedCopy), "WARN  55, File already open, iocCfgReadFile",
      std::string(kLockedCopy)},
     all(unchanged("server\\cgi-bin\\kv\\kv.exe"), oneMoreLineEnd,
         unchanged(kAdministratorSettings))},
    {"OwnSettingsInUse", nothingBefore, locking(kOwnSettings, FILE_SHARE_READ),
     times(1, kLockedCopy), unchanged(kOwnSettings)},
    {"ReadOnlyFiles",
     all(makingReadOnly("server\\cgi-bin\\kv\\kv.exe"), makingReadOnly(kMainSettings),
         makingReadOnly(kAdministratorSettings)),
     nothing,
     {std::string(kRefusedCopy), "WARN  75, Path/File access error, wcpConfigMigrateMain",
      std::string(kRefusedCopy)},
     all(unchanged("server\\cgi-bin\\kv\\kv.exe"), unchanged(kMainSettings),
         unchanged(kAdministratorSettings)),
     kProgressDone,
     true},
    {"MainSettingsMissing",
     all(removing(kMainSettings), removing("product\\cfg\\user\\anony")),
     nothing,
     {"SERV  53, File not found, iocCfgReadFile", std::string(kMissingPath)},
     [](Tree& expected, const Tree&) {
         expected[kMainSettings] = "";
         expected.erase(kAnonymousSettings);
     }},
    {"ProgramsRemoved", removing("server\\cgi-bin\\kv"), nothing, times(13, kMissingPath),
     withoutAllBelow("server\\cgi-bin\\kv\\")},
};

}  // namespace

class DamagedOperation : public Operations, public testing::WithParamInterface<Damage> {
protected:
    void SetUp() override {
        if (GetParam().needsReadOnly && !place().honoursReadOnly()) {
            GTEST_SKIP() << "read-only files can be written here";
        }
    }

    void damage() const { GetParam().before(place()); }

    void confirmMeanwhile(std::string_view title = kCompletedTitle,
                          std::string_view instruction = kCompleted) {
        const Locks locks = GetParam().meanwhile(place());
        confirm(title, instruction, GetParam().progress);
    }

    void expectOutcome(Tree sound, const Tree& before) const {
        GetParam().outcome(sound, before);
        if (GetParam().log.empty()) {
            expectTree(sound);
        } else {
            expectTreeBesideLog(sound);
            expectLog(GetParam().log);
        }
    }

    void modifyDamaged(const Server& to) {
        haveInstallation(kOld);
        damage();
        const Tree before = place().tree();
        Tree sound = before;
        takeAway(sound, kOld);
        addInstallation(sound, to);

        goToModification(to);
        confirmMeanwhile();

        expectOutcome(sound, before);
    }
};

class DamagedMove : public DamagedOperation {};
class DamagedStay : public DamagedOperation {};
class DamagedBackup : public DamagedOperation {};
class DamagedUpgrade : public DamagedOperation {};

TEST_P(DamagedMove, IsLoggedOncePerFailureAndTheRestIsMoved) { modifyDamaged(kNew); }

TEST_P(DamagedStay, IsLoggedOncePerFailureAndTheRestIsDeployedAnew) { modifyDamaged(kOld); }

TEST_P(DamagedBackup, IsLoggedOncePerFailureAndTheRestIsSaved) {
    haveInstallation(kOld);
    damage();
    const Tree before = place().tree();
    Tree sound = before;
    addBackup(sound);

    pick(kBackupLabel, 10);
    confirmMeanwhile(kBackupTitle, kBackupCompleted);

    expectOutcome(sound, before);
}

TEST_P(DamagedUpgrade, IsLoggedOncePerFailureAndTheRestIsRestored) {
    haveUpgradeAtHand();
    damage();
    const Tree before = place().tree();

    pick(kUpgradeLabel, 10);
    confirmMeanwhile();

    expectOutcome(upgraded(before), before);
}

const auto kDamageName = [](const testing::TestParamInfo<Damage>& which) {
    return std::string(which.param.name);
};

INSTANTIATE_TEST_SUITE_P(All, DamagedMove, testing::ValuesIn(kDamagesOfAMove), kDamageName);
INSTANTIATE_TEST_SUITE_P(All, DamagedStay, testing::ValuesIn(kDamagesOfAStay), kDamageName);
INSTANTIATE_TEST_SUITE_P(All, DamagedBackup, testing::ValuesIn(kDamagesOfABackup), kDamageName);
INSTANTIATE_TEST_SUITE_P(All, DamagedUpgrade, testing::ValuesIn(kDamagesOfAnUpgrade), kDamageName);

TEST_F(Operations, AnUpgradeWhoseSavedRecordIsLockedEndsOnTheErrorPanel) {
    haveUpgradeAtHand();
    const Tree before = place().tree();
    auto lock = place().lock(kOriginal + "kvi.bak");

    pick(kUpgradeLabel, 12);

    EXPECT_TRUE(wizard().shows(kUpgradeUnavailable));
    finish();
    lock.reset();
    expectTreeBesideLog(before);
    expectLog({"WARN  55, File already open, iocCfgReadFile"});
}

TEST_F(Operations, WithoutTheSavedMainSettingsNoUpgradeIsOffered) {
    haveUpgradeAtHand();
    place().remove(kOriginal + "korvane.bak");
    const Tree before = place().tree();
    start();

    next(wizard(), 1);

    wizard().closeWindow();
    EXPECT_EQ(wizard().waitForExit(), 0U);
    expectTree(before);
    expectNoLog();
}

}  // namespace kv::endtoend
