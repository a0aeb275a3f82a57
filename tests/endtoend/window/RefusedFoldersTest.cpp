// Folders that the wizard may not write to or not even look into, and a drive that goes away while
// it waits: every step that fails is logged under its own number, and the work goes on to its end.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include <aclapi.h>
#include <sddl.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"
#include "tests/model/LogEntries.h"

namespace kv::endtoend {

namespace {

constexpr int kStoppedShort = progressWithoutCopy(Operation::New);

// Takes rights to a folder away from everybody, the owner included, as long as the object lives.
class Refusal {
public:
    // In the system's language for such lists; "FR" and "FX" are reading and passing through.
    Refusal(const std::string& folder, const char* rights) : folder_(folder) { allow(rights); }
    ~Refusal() { allow("D:(A;;FA;;;WD)"); }
    Refusal(const Refusal&) = delete;
    Refusal& operator=(const Refusal&) = delete;

private:
    void allow(const char* rights) {
        PSECURITY_DESCRIPTOR descriptor = nullptr;
        ConvertStringSecurityDescriptorToSecurityDescriptorA(rights, SDDL_REVISION_1, &descriptor,
                                                             nullptr);
        SetFileSecurityA(folder_.c_str(), DACL_SECURITY_INFORMATION, descriptor);
        LocalFree(descriptor);
    }

    std::string folder_;
};

constexpr const char* kLookOnly = "D:(A;;FRFX;;;WD)";
constexpr const char* kNothing = "D:";

}  // namespace

class RefusedFolders : public Scenario {
protected:
    void installInto(const std::string& home, const std::string& scripts) {
        goToFolders();
        enterFolders(wizard(), home, scripts);
        next(wizard(), 10);
    }

    void confirm(int progress) {
        wizard().click(kNext);
        wizard().waitForOperationEnd();
        EXPECT_EQ(wizard().progressWidth(), progress);
        EXPECT_TRUE(wizard().shows(kCompletedTitle));
        EXPECT_TRUE(wizard().shows(kCompleted));
        finish();
    }

    // Whether somebody to whom nothing is allowed can still write, as a Unix superuser can.
    bool honoured(const std::string& folder) const {
        const bool made = CreateDirectoryA((folder + "\\probe").c_str(), nullptr) != FALSE;
        RemoveDirectoryA((folder + "\\probe").c_str());
        return !made;
    }
};

TEST_F(RefusedFolders, ADocumentRootThatMayOnlyBeLookedAt) {
    const Refusal refusal(place().home(), kLookOnly);
    if (!honoured(place().home())) GTEST_SKIP() << "rights are not honoured here";
    start();
    installInto(place().home(), place().scripts());

    confirm(kProgressDone);

    expectLog(times(2, kMakeDenied) + times(3, kMakeNoPath) + times(3, kMissingPath) +
              times(3, kRefusedCopy) + times(kImages.size(), kMissingPath));
}

TEST_F(RefusedFolders, AScriptsFolderThatMayNotEvenBeLookedInto) {
    const Refusal refusal(place().scripts(), kNothing);
    if (!honoured(place().scripts())) GTEST_SKIP() << "rights are not honoured here";
    start();
    installInto(place().home(), place().scripts());

    confirm(kStoppedShort);

    expectLog(times(2, kMakeDenied) + times(kProgramFileCount, kRefusedCopy) +
              times(1, kRecordRefused));
}

TEST_F(RefusedFolders, ALogFolderThatMayOnlyBeLookedAtStopsNothing) {
    place().remove("product\\bin\\kv.exe");
    const Refusal refusal(place().path("product\\log"), kLookOnly);
    if (!honoured(place().path("product\\log"))) GTEST_SKIP() << "rights are not honoured here";
    start();
    installInto(place().home(), place().scripts());

    confirm(kProgressDone);

    expectNoLog();
    EXPECT_TRUE(place().exists("server\\cgi-bin\\kv\\kvjs.exe"));
}

// Of the wizard's own settings: an installation is made, but cannot be recorded.
TEST_F(RefusedFolders, SettingsThatMayOnlyBeRead) {
    const Refusal refusal(place().path(settingsPath()), kLookOnly);
    start();
    installInto(place().home(), place().scripts());

    confirm(kProgressDone);

    if (!place().honoursReadOnly()) GTEST_SKIP() << "rights are not honoured here";
    expectLog(times(1, kRecordRefused));
    EXPECT_EQ(place().read(settingsPath()), freshSettings());
}

class LeavingDrive : public RefusedFolders {
protected:
    bool lend() {
        drive_.emplace('K', place().root());
        return drive_->works();
    }
    void takeBack() { drive_.reset(); }

private:
    std::optional<BorrowedDrive> drive_;
};

TEST_F(LeavingDrive, OfTheWebServer) {
    if (!lend()) GTEST_SKIP() << "this system lends no drive letter K";
    start();
    installInto("K:\\server\\htdocs", "K:\\server\\cgi-bin");
    takeBack();

    confirm(kStoppedShort);

    expectLog(times(kMadeFolderCount, kMakeNoPath) +
              times(copiedFileCount(UrlStyle::SiteRoot), kMissingPath) + times(1, kRecordNoPath));
}

TEST_F(LeavingDrive, BeforeTheFoldersAreChecked) {
    if (!lend()) GTEST_SKIP() << "this system lends no drive letter K";
    start();
    goToFolders();
    wizard().fillField(0, "K:\\server\\htdocs");
    wizard().fillField(1, "K:\\server\\cgi-bin");
    takeBack();

    wizard().click(kNext);

    expectWarning("\"K:\\server\\htdocs\" does not exist.");
}

// Nothing is left of the product, its log included; the window stays with the user all the same.
TEST_F(LeavingDrive, OfTheProduct) {
    if (!lend()) GTEST_SKIP() << "this system lends no drive letter K";
    startFrom("K:\\product\\bin\\kvwcfg.exe", place().root());
    wizard().waitForPanel(0);
    installInto(place().home(), place().scripts());
    const Tree before = place().tree();
    takeBack();

    confirm(kProgressDone);

    Tree expected = before;
    for (const std::string& folder : foldersMade(site())) expected[folder + "\\"] = "";
    expected[scriptsFile(site())] = settingsBytes({place().home() + "\\"}, "K:\\product\\");
    expectTree(expected);
}

}  // namespace kv::endtoend
