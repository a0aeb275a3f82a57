// A product whose files bear marks, as those copied from a disc are read-only: its copies are
// ordinary files, which every later operation can replace and take away.
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/endtoend/steps/Operations.h"

namespace kv::endtoend {

namespace {

constexpr DWORD kMarks = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
const std::string kPage = "server\\htdocs\\kv\\index.html";

}  // namespace

class MarkedFiles : public Operations, public testing::WithParamInterface<DWORD> {
protected:
    // Everything that is deployed. False where the disk keeps no such mark.
    bool markProduct() const {
        bool kept = true;
        for (const auto& [name, bytes] : place().tree()) {
            const bool deployed = name.starts_with("product\\web-root\\") ||
                                  (name.starts_with("product\\bin\\") &&
                                   name != "product\\bin\\kvwcfg.exe" && name != settingsPath());
            if (deployed && !name.ends_with('\\')) kept = place().mark(name, GetParam()) && kept;
        }
        return kept;
    }

    // The deployed files that bear any mark.
    Lines markedCopies() const {
        Lines marked;
        for (const auto& [name, bytes] : place().tree()) {
            const DWORD attributes = GetFileAttributesA(path(name).c_str());
            if (name.starts_with("server\\") && (attributes & kMarks) != 0) marked.push_back(name);
        }
        return marked;
    }
};

TEST_P(MarkedFiles, AreInstalledModifiedAndDeletedLikeAnyOthers) {
    if (!markProduct()) GTEST_SKIP() << "this disk does not keep the mark";
    const Tree installed = afterInstallation(place().tree(), old_);

    installNew(old_);
    expectTree(installed);
    EXPECT_EQ(markedCopies(), Lines{});

    modifyTo(old_);
    expectTree(installed);
    EXPECT_EQ(markedCopies(), Lines{});

    removeInstallation();
    expectTree(afterDeletion(installed, old_));
    expectNoLog();
}

TEST_P(MarkedFiles, AreInstalledOverAnEarlierInstallation) {
    if (!markProduct()) GTEST_SKIP() << "this disk does not keep the mark";
    installNew(old_);
    const Tree installed = place().tree();
    place().write(settingsPath(), freshSettings());

    installNew(old_);

    EXPECT_EQ(place().read(kPage), installed.at(kPage));
    EXPECT_EQ(markedCopies(), Lines{});
    expectNoLog();
}

TEST_P(MarkedFiles, AreBackedUpTwiceAndRestored) {
    haveInstallation(old_);
    for (const std::string& name : {kMainSettings, kAdministratorSettings, kAnonymousSettings})
        if (!place().mark(name, GetParam())) GTEST_SKIP() << "this disk does not keep the mark";
    backUp();
    place().mark(kMainSettings, FILE_ATTRIBUTE_NORMAL);
    place().write(kMainSettings, "changed since");
    const Tree expected = afterBackup(place().tree(), old_);

    backUp();

    expectTree(expected);
    expectNoLog();
}

INSTANTIATE_TEST_SUITE_P(All, MarkedFiles,
                         testing::Values(FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_HIDDEN,
                                         FILE_ATTRIBUTE_SYSTEM, kMarks),
                         [](const testing::TestParamInfo<DWORD>& which) -> std::string {
                             switch (which.param) {
                                 case FILE_ATTRIBUTE_READONLY: return "ReadOnly";
                                 case FILE_ATTRIBUTE_HIDDEN: return "Hidden";
                                 case FILE_ATTRIBUTE_SYSTEM: return "System";
                                 default: return "All";
                             }
                         });

// What an upgrade restores is written again by the product and by the next operation.
TEST_F(Operations, ReadOnlyBackupsAreRestoredAsOrdinaryFiles) {
    haveUpgradeAtHand(old_);
    for (const char* name : {"kvi.bak", "korvane.bak", "kvadm.bak", "kvan.bak"})
        place().makeReadOnly(kOriginal + name);
    place().remove(kAdministratorSettings);
    place().remove(kAnonymousSettings);
    upgrade();
    for (const std::string& name :
         {settingsPath(), kMainSettings, kAdministratorSettings, kAnonymousSettings})
        EXPECT_EQ(GetFileAttributesA(path(name).c_str()) & kMarks, 0U) << name;

    modifyTo(new_);

    EXPECT_EQ(place().read(settingsPath()), recordOf(new_));
    expectNoLog();
}

// A mark that somebody has set in the server is respected.
TEST_F(Operations, ACopyThatSomebodyHasMarkedReadOnlyIsLeftAlone) {
    if (!place().honoursReadOnly()) GTEST_SKIP() << "read-only files can be written here";
    installNew(old_);
    place().write(kPage, "edited by hand");
    place().makeReadOnly(kPage);
    const Tree expected = place().tree();

    goToModification(old_);
    confirm();

    expectTreeBesideLog(expected);
    EXPECT_NE(GetFileAttributesA(path(kPage).c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    expectLog(times(1, kRefusedDeletion) + times(1, kFolderNotEmpty) + times(1, kRefusedCopy));
}

}  // namespace kv::endtoend
