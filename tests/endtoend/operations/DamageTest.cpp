// Products and servers that are not as they should be, in the ways in which a real disk says so:
// each failure is logged once, and everything else is done.
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/Operations.h"

namespace kv::endtoend {

namespace {

using Locks = std::vector<std::unique_ptr<FileLock>>;

constexpr int kStoppedShort = progressWithoutCopy(Operation::New);

const std::string kHome = "server\\htdocs";
const std::string kScripts = "server\\cgi-bin";
const std::string kOldProgram = kScripts + "\\kv\\kvdir.exe";
const std::string kOldPage = kHome + "\\kv\\index.html";
const std::string kNewProgram = "other\\cgi-bin\\kv\\kv.exe";
const std::string kOwnSettings = "product\\bin\\kvi\\kvi.cfg";

// What is wrong, what is logged for it, and what of a sound outcome is otherwise.
struct Damage {
    std::string_view name;
    Operation operation;
    std::function<void(const Workplace&)> before;      // the wizard starts
    std::function<Locks(const Workplace&)> meanwhile;  // while the wizard waits on panel 10
    Lines log;
    std::function<void(Tree& expected, const Tree& before)> outcome;
    int progress = kProgressDone;
    bool needsReadOnly = false;
};

void PrintTo(const Damage& which, std::ostream* out) { *out << which.name; }

auto removing(std::string path) {
    return [path = std::move(path)](const Workplace& place) { place.remove(path); };
}

auto removingMeanwhile(std::string path) {
    return [path = std::move(path)](const Workplace& place) {
        place.remove(path);
        return Locks{};
    };
}

auto makingReadOnly(std::string path) {
    return [path = std::move(path)](const Workplace& place) { place.makeReadOnly(path); };
}

auto writing(std::string path) {
    return
        [path = std::move(path)](const Workplace& place) { place.write(path, "somebody else's"); };
}

auto makingFolder(std::string path) {
    return [path = std::move(path)](const Workplace& place) { place.makeFolder(path); };
}

auto locking(Lines paths) {
    return [paths = std::move(paths)](const Workplace& place) {
        Locks locks;
        for (const std::string& path : paths) locks.push_back(place.lock(path));
        return locks;
    };
}

// Several at once: preparations or outcomes.
template <class... Steps>
auto all(Steps... steps) {
    return [steps...](auto&&... arguments) { (steps(arguments...), ...); };
}

void nothingBefore(const Workplace&) {}
Locks nothing(const Workplace&) { return {}; }

auto without(std::string path) {
    return [path = std::move(path)](Tree& expected, const Tree&) { expected.erase(path); };
}

auto withoutAllBelow(std::string folder) {
    return [folder = std::move(folder)](Tree& expected, const Tree&) {
        std::erase_if(expected, [&](const auto& item) { return item.first.starts_with(folder); });
    };
}

auto unchanged(std::string path) {
    return [path = std::move(path)](Tree& expected, const Tree& before) {
        expected[path] = before.at(path);
    };
}

// A file that could not be deleted keeps its folder.
auto staying(std::string file) {
    return [file = std::move(file)](Tree& expected, const Tree& before) {
        expected[file] = before.at(file);
        expected[file.substr(0, file.rfind('\\') + 1)] = "";
    };
}

void asUsual(Tree&, const Tree&) {}

void spelledInCapitals(Tree& expected, const Tree&) {
    const std::string folder = kHome + "\\images\\";
    Tree renamed;
    for (const auto& [path, bytes] : expected) {
        const bool inside = path.starts_with(folder);
        renamed[inside ? kHome + "\\Images\\" + path.substr(folder.size()) : path] = bytes;
    }
    expected = renamed;
}

Lines entries(std::initializer_list<std::string_view> list) { return {list.begin(), list.end()}; }

const Damage kDamages[] = {
    {"SourcesMissing", Operation::New,
     all(removing("product\\bin\\kvdir.exe"), removing("product\\bin\\QTnbwB.dll"),
         removing("product\\web-root\\images\\kvimg"), removing("product\\hlp")),
     nothing, times(2, kMissingSource) + times(kImages.size() + 1, kMissingPath), asUsual},
    {"ReadOnlyFileInTheWay", Operation::New,
     all(writing(kHome + "\\index.html"), makingReadOnly(kHome + "\\index.html"),
         makingReadOnly(kOwnSettings)),
     nothing, entries({kRefusedCopy, kRecordRefused}),
     all(unchanged(kHome + "\\index.html"), unchanged(kOwnSettings)), kProgressDone, true},
    {"FoldersWhereFilesBelong", Operation::New,
     all(makingFolder(kOldPage), removing("product\\bin\\kvhlp.exe"),
         makingFolder("product\\bin\\kvhlp.exe")),
     nothing, times(2, kRefusedCopy),
     all(without(kOldPage), without(kScripts + "\\kv\\kvhlp.exe"))},
    {"FileWhereAHomeFolderBelongs", Operation::New, writing(kHome + "\\kv"), nothing,
     times(3, kMissingPath), withoutAllBelow(kHome + "\\kv\\")},
    {"FileWhereTheScriptsFolderBelongs", Operation::New, writing(kScripts + "\\kv"), nothing,
     times(1, kMakeNoPath) + times(kProgramFileCount, kMissingPath) + times(1, kRecordNoPath),
     withoutAllBelow(kScripts + "\\kv\\"), kStoppedShort},
    {"FolderOfOtherLetterCase", Operation::New, makingFolder(kHome + "\\Images"), nothing,
     times(1, kMakeDenied), spelledInCapitals},
    {"ScriptsFolderGoneMeanwhile", Operation::New, nothingBefore, removingMeanwhile(kScripts),
     times(2, kMakeNoPath) + times(kProgramFileCount, kMissingPath) + times(1, kRecordNoPath),
     withoutAllBelow(kScripts + "\\"), kStoppedShort},
    {"DocumentRootGoneMeanwhile", Operation::New, nothingBefore, removingMeanwhile(kHome),
     times(5, kMakeNoPath) + times(2 * kWebFiles.size() + kImages.size(), kMissingPath),
     withoutAllBelow(kHome + "\\")},
    {"FilesInUse", Operation::Modify, writing(kNewProgram),
     locking({kOldProgram, kNewProgram, "product\\bin\\kvjs.exe"}),
     entries({kLockedDeletion, kFolderNotEmpty, kLockedCopy, kLockedCopy}),
     all(staying(kOldProgram), unchanged(kNewProgram), without("other\\cgi-bin\\kv\\kvjs.exe"))},
    {"ReadOnlyPageAndRecord", Operation::Modify,
     all(makingReadOnly(kOldPage), makingReadOnly(kOwnSettings)), nothing,
     entries({kRefusedDeletion, kFolderNotEmpty, kRecordRefused}),
     all(staying(kOldPage), unchanged(kOwnSettings)), kProgressDone, true},
    {"FilesInUseAndSourcesMissing", Operation::Backup, removing(kAdministratorSettings),
     locking({kMainSettings}), entries({kLockedCopy, kMissingSource}),
     without(kOriginal + "korvane.bak")},
    {"SavedFolderGone", Operation::Upgrade, nothingBefore,
     removingMeanwhile("product\\cfg\\original"),
     times(1, kMissingPath) + entries({"WARN  76, Path not found, iocCfgReadFile"}) +
         times(2, kMissingPath),
     [](Tree& expected, const Tree& before) {
         for (const Backup& file : kBackups)
             unchanged(std::string("product\\") + file.source)(expected, before);
         expected[kMainSettings] += "\r\n";
         withoutAllBelow(kOriginal)(expected, before);
     }},
    {"SavedFilesInUse", Operation::Upgrade, nothingBefore,
     locking({kScripts + "\\kv\\kv.exe", kOriginal + "korvane.bak", kOriginal + "kvadm.bak"}),
     entries({kLockedCopy, "WARN  55, File already open, iocCfgReadFile", kLockedCopy}),
     all(unchanged(kScripts + "\\kv\\kv.exe"), unchanged(kAdministratorSettings))},
    {"ReadOnlyFiles", Operation::Upgrade,
     all(makingReadOnly(kMainSettings), makingReadOnly(kAdministratorSettings)), nothing,
     entries({"WARN  75, Path/File access error, wcpConfigMigrateMain", kRefusedCopy}),
     all(unchanged(kMainSettings), unchanged(kAdministratorSettings)), kProgressDone, true},
};

}  // namespace

class EveryDamage : public Operations, public testing::WithParamInterface<Damage> {
protected:
    void prepare() {
        switch (GetParam().operation) {
            case Operation::New: break;
            case Operation::Upgrade: haveUpgradeAtHand(old_); break;
            default: haveInstallation(old_);
        }
        GetParam().before(place());
    }

    void goToConfirmation() {
        switch (GetParam().operation) {
            case Operation::New: goToInstallation(old_); break;
            case Operation::Modify: goToModification(new_); break;
            case Operation::Delete: pick(kDeleteLabel, 10); break;
            case Operation::Backup: pick(kBackupLabel, 10); break;
            case Operation::Upgrade: pick(kUpgradeLabel, 10); break;
        }
    }
};

TEST_P(EveryDamage, IsLoggedOncePerFailureAndTheRestIsDone) {
    const Damage& which = GetParam();
    if (which.needsReadOnly && !place().honoursReadOnly())
        GTEST_SKIP() << "read-only files can be written here";
    prepare();
    const Tree before = place().tree();
    goToConfirmation();

    {
        const Locks locks = which.meanwhile(place());
        if (which.operation == Operation::Backup)
            confirm(kBackupTitle, kBackupCompleted, which.progress);
        else
            confirm(kCompletedTitle, kCompleted, which.progress);
    }

    expectLog(which.log);
    Tree expected = afterOperation(which.operation, before, old_, new_);
    which.outcome(expected, before);
    expectTreeBesideLog(expected);
}

INSTANTIATE_TEST_SUITE_P(All, EveryDamage, testing::ValuesIn(kDamages),
                         [](const testing::TestParamInfo<Damage>& which) {
                             return std::string(which.param.name);
                         });

TEST_F(Operations, AMissingLogFolderIsNotMadeAndStopsNothing) {
    place().remove("product\\log");
    place().remove("product\\bin\\kv.exe");
    const Tree before = place().tree();

    installNew(old_);

    expectTree(afterInstallation(before, old_));
}

TEST_F(Operations, AnUpgradeWhoseSavedRecordIsLockedEndsOnTheErrorPanel) {
    haveUpgradeAtHand(old_);
    const Tree before = place().tree();
    auto lock = place().lock(kOriginal + "kvi.bak");

    pick(kUpgradeLabel, 12);

    EXPECT_TRUE(wizard().shows(kUpgradeUnavailable));
    finish();
    lock.reset();
    expectTreeBesideLog(before);
    expectLog({"WARN  55, File already open, iocCfgReadFile"});
}

}  // namespace kv::endtoend
