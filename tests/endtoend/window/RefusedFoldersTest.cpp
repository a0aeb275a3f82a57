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

#include "PanelTexts.h"
#include "Scenario.h"
#include "SettingsText.h"

namespace kv::endtoend {

namespace {

constexpr int kStoppedShort = (255 + 700 + 4000 + 100) / 15;

constexpr std::string_view kMakeDenied = "WARN  75, Path/File access error, ioMakeDirectory";
constexpr std::string_view kMakeNoPath = "WARN  76, Path not found, ioMakeDirectory";
constexpr std::string_view kCopyDenied = "WARN  75, Path/File access error, ioCopyFile";
constexpr std::string_view kCopyNoPath = "WARN  76, Path not found, ioCopyFile";
constexpr std::string_view kWriteDenied = "WARN  75, Path/File access error, iocCfgWriteFile";
constexpr std::string_view kWriteNoPath = "WARN  76, Path not found, iocCfgWriteFile";

struct Repeated {
    std::size_t count;
    std::string_view entry;
};

std::vector<std::string> entries(const std::vector<Repeated>& groups) {
    std::vector<std::string> all;
    for (const Repeated& group : groups) {
        all.insert(all.end(), group.count, std::string(group.entry));
    }
    return all;
}

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
    if (!honoured(place().home())) {
        GTEST_SKIP() << "rights are not honoured here";
    }
    start();
    installInto(place().home(), place().scripts());

    confirm(kProgressDone);

    expectLog(entries({{2, kMakeDenied},
                       {3, kMakeNoPath},
                       {3, kCopyNoPath},
                       {3, kCopyDenied},
                       {21, kCopyNoPath}}));
}

TEST_F(RefusedFolders, AScriptsFolderThatMayNotEvenBeLookedInto) {
    const Refusal refusal(place().scripts(), kNothing);
    if (!honoured(place().scripts())) {
        GTEST_SKIP() << "rights are not honoured here";
    }
    start();
    installInto(place().home(), place().scripts());

    confirm(kStoppedShort);

    expectLog(entries({{2, kMakeDenied}, {13, kCopyDenied}, {1, kWriteDenied}}));
}

TEST_F(RefusedFolders, ALogFolderThatMayOnlyBeLookedAtStopsNothing) {
    place().remove("product\\bin\\kv.exe");
    const Refusal refusal(place().path("product\\log"), kLookOnly);
    if (!honoured(place().path("product\\log"))) {
        GTEST_SKIP() << "rights are not honoured here";
    }
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

    if (!place().honoursReadOnly()) {
        GTEST_SKIP() << "rights are not honoured here";
    }
    expectLog(entries({{1, kWriteDenied}}));
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
    if (!lend()) {
        GTEST_SKIP() << "this system lends no drive letter K";
    }
    start();
    installInto("K:\\server\\htdocs", "K:\\server\\cgi-bin");
    takeBack();

    confirm(kStoppedShort);

    expectLog(entries({{7, kMakeNoPath}, {40, kCopyNoPath}, {1, kWriteNoPath}}));
}

TEST_F(LeavingDrive, BeforeTheFoldersAreChecked) {
    if (!lend()) {
        GTEST_SKIP() << "this system lends no drive letter K";
    }
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
    if (!lend()) {
        GTEST_SKIP() << "this system lends no drive letter K";
    }
    startFrom("K:\\product\\bin\\kvwcfg.exe", place().root());
    wizard().waitForPanel(0);
    installInto(place().home(), place().scripts());
    const Tree before = place().tree();
    takeBack();

    confirm(kProgressDone);

    Tree expected = before;
    for (const char* folder :
         {"htdocs\\kv\\", "htdocs\\images\\", "htdocs\\images\\kv\\", "htdocs\\images\\kv\\cimg\\",
          "htdocs\\images\\kv\\kvimg\\", "cgi-bin\\kv\\", "cgi-bin\\kv\\kvi\\"}) {
        expected["server\\" + std::string(folder)] = "";
    }
    expected["server\\cgi-bin\\kv\\kvi\\kvi.cfg"] =
        settingsText({"1", "K:\\product\\", {place().home() + "\\"}});
    EXPECT_EQ(differences(expected, place().tree()), "");
}

}  // namespace kv::endtoend
