#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "PanelTexts.h"
#include "Scenario.h"

namespace kv::endtoend {

namespace {

constexpr DWORD kFirstCrashCode = 0x80000000;

std::string missing(const std::string& path) {
    return "\"" + path + "\"" + std::string(kDoesNotExist);
}

}  // namespace

class FolderCheck : public Scenario {
protected:
    void tryFolders(const std::string& home, const std::string& scripts) const {
        wizard().fillField(0, home);
        wizard().fillField(1, scripts);
        wizard().click(kNext);
    }

    // The folder fields are refused with this message and keep these texts.
    void expectRefusal(const std::string& message, const std::string& homeAfter,
                       const std::string& scriptsAfter) const {
        expectWarning(message);
        EXPECT_EQ(wizard().fieldText(0), homeAfter);
        EXPECT_EQ(wizard().fieldText(1), scriptsAfter);
    }

    // What the wizard cannot work with at all ends it with one message, not with a crash.
    void expectFatalMessage() const {
        const MessageBoxView box = wizard().waitForMessageBox();
        EXPECT_EQ(box.title, kWizardTitle);
        EXPECT_NE(box.text, "");
        EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
        wizard().answer(box, IDOK);
        EXPECT_LT(wizard().waitForExit(), kFirstCrashCode);
    }
};

TEST_F(FolderCheck, HomeFolderIsRefused) {
    const std::string home = place().home();
    const std::string scripts = place().scripts();
    const std::string absent = place().path("server\\absent");
    const std::string otherCase = place().path("server\\HTDOCS");
    start();
    goToFolders();

    tryFolders("", "");
    expectRefusal(std::string(kEnterFolder), "", "");
    tryFolders("   ", scripts);
    expectRefusal(std::string(kEnterFolder), "   ", scripts);
    tryFolders(absent, scripts);
    expectRefusal(missing(absent), absent, scripts);
    tryFolders(absent + "\\", scripts);
    expectRefusal(missing(absent), absent, scripts);
    tryFolders(home + "\\\\", scripts);
    expectRefusal(missing(home + "\\"), home + "\\", scripts);
    tryFolders(" " + home, scripts);
    expectRefusal(missing(" " + home), " " + home, scripts);
    tryFolders(home + " ", scripts);
    expectRefusal(missing(home + " "), home + " ", scripts);
    tryFolders(otherCase, scripts);
    expectRefusal(missing(otherCase), otherCase, scripts);
    EXPECT_EQ(wizard().currentPanel(), 7);
}

TEST_F(FolderCheck, ScriptsFolderIsCheckedOnlyAfterTheHomeFolder) {
    const std::string absent = place().path("server\\absent");
    start();
    goToFolders(kOtherInstalled);

    tryFolders(absent, absent);
    expectRefusal(missing(absent), absent, absent);
    tryFolders(place().home(), "");
    expectRefusal(std::string(kEnterFolder), place().home(), "");
    tryFolders(place().home(), absent + "\\");
    expectRefusal(missing(absent), place().home(), absent);
    EXPECT_EQ(wizard().currentPanel(), 9);
}

TEST_F(FolderCheck, OneBackslashAtTheEndIsTakenAway) {
    start();
    goToFolders();

    enterFolders(wizard(), place().home() + "\\", place().scripts() + "\\");

    back(wizard(), 7);
    EXPECT_EQ(wizard().fieldText(0), place().home());
    EXPECT_EQ(wizard().fieldText(1), place().scripts());
}

TEST_F(FolderCheck, FileOfThatNameIsTakenForTheFolder) {
    place().write("server\\plain", "a file");
    start();
    goToFolders();

    enterFolders(wizard(), place().path("server\\plain"), place().scripts());

    EXPECT_EQ(wizard().currentPanel(), 14);
}

TEST_F(FolderCheck, OnlyTheParentOfTheIisScriptsFolderIsChecked) {
    const std::string absentParent = place().path("absent");
    start();
    goToFolders(kIisInstalled);

    tryFolders(place().home(), "");
    expectRefusal(std::string(kEnterFolder), place().home(), "");
    tryFolders(place().home(), absentParent + "\\scripts\\");
    expectRefusal(missing(absentParent), place().home(), absentParent + "\\scripts");
    tryFolders(place().path("absent"), place().path("server\\scripts"));
    expectRefusal(missing(absentParent), absentParent, place().path("server\\scripts"));

    enterFolders(wizard(), place().home(), place().path("server\\scripts"));
    EXPECT_FALSE(place().exists("server\\scripts"));
}

TEST_F(FolderCheck, NameWithoutABackslashEndsTheProgram) {
    start();
    goToFolders();

    tryFolders("htdocs", place().scripts());

    expectFatalMessage();
}

TEST_F(FolderCheck, BareDriveEndsTheProgram) {
    start();
    goToFolders();

    tryFolders("C:\\", place().scripts());

    expectFatalMessage();
}

TEST_F(FolderCheck, IisScriptsFolderInADrivesRootEndsTheProgram) {
    start();
    goToFolders(kIisInstalled);

    tryFolders(place().home(), "C:\\scripts");

    expectFatalMessage();
}

class DefaultFolders : public Scenario {
protected:
    // Leaves the URL panel for the folder panel once more.
    void prepareAgain(int folderPanel) const {
        back(wizard(), 6);
        next(wizard(), folderPanel);
    }
};

TEST_F(DefaultFolders, ApacheFoldersAreProposedWhereTheyExist) {
    const std::string apache = "C:\\Program Files\\Apache Group\\Apache2\\";
    const BorrowedFolder group("C:\\Program Files\\Apache Group\\Apache2\\htdocs");
    start();
    goToFolders();

    EXPECT_EQ(wizard().fieldText(0), apache + "htdocs");
    EXPECT_EQ(wizard().fieldText(1), "");
    EXPECT_TRUE(wizard().shows(kHomeApacheFilled));
    EXPECT_TRUE(wizard().shows(kScriptsApacheEmpty));

    const BorrowedFolder scripts(apache + "cgi-bin");
    prepareAgain(7);
    EXPECT_EQ(wizard().fieldText(1), apache + "cgi-bin");
    EXPECT_TRUE(wizard().shows(kScriptsApacheFilled));
}

TEST_F(DefaultFolders, IisFoldersAreProposedWhereTheyExist) {
    const BorrowedFolder scripts("C:\\Inetpub\\scripts");
    const BorrowedFolder home("C:\\Inetpub\\wwwroot");
    start();
    goToFolders(kIisInstalled);

    EXPECT_EQ(wizard().fieldText(0), "C:\\Inetpub\\wwwroot");
    EXPECT_EQ(wizard().fieldText(1), "C:\\Inetpub\\scripts");
    EXPECT_TRUE(wizard().shows(kHomeIisFilled));
    EXPECT_TRUE(wizard().shows(kScriptsIisFilled));
}

TEST_F(DefaultFolders, FolderOnAnotherDriveIsProposedAfterTheFirst) {
    place().makeFolder("drive\\Inetpub\\scripts");
    place().makeFolder("drive\\Inetpub\\wwwroot");
    const BorrowedDrive drive('D', place().path("drive"));
    if (!drive.works()) {
        GTEST_SKIP() << "this system lends no drive letter D";
    }
    const BorrowedFolder home("C:\\Inetpub\\wwwroot");
    start();
    goToFolders(kIisInstalled);

    EXPECT_EQ(wizard().fieldText(0), "C:\\Inetpub\\wwwroot");
    EXPECT_EQ(wizard().fieldText(1), "D:\\Inetpub\\scripts");
}

TEST_F(DefaultFolders, FilledFieldIsNeverOverwritten) {
    const BorrowedFolder home("C:\\Inetpub\\wwwroot");
    start();
    goToFolders(kIisInstalled);
    wizard().fillField(0, "D:\\own");
    wizard().fillField(1, "D:\\own too");

    prepareAgain(8);

    EXPECT_EQ(wizard().fieldText(0), "D:\\own");
    EXPECT_EQ(wizard().fieldText(1), "D:\\own too");
    EXPECT_TRUE(wizard().shows(kHomeIisFilled));
    EXPECT_TRUE(wizard().shows(kScriptsIisFilled));

    wizard().clearField(0);
    wizard().clearField(1);
    prepareAgain(8);
    EXPECT_EQ(wizard().fieldText(0), "C:\\Inetpub\\wwwroot");
    EXPECT_EQ(wizard().fieldText(1), "");
    EXPECT_TRUE(wizard().shows(kScriptsIisEmpty));
}

TEST_F(DefaultFolders, OtherServersFieldsKeepWhatTheyHold) {
    start();
    goToFolders(kOtherInstalled);
    wizard().fillField(0, "D:\\own");

    prepareAgain(9);

    EXPECT_EQ(wizard().fieldText(0), "D:\\own");
    EXPECT_EQ(wizard().fieldText(1), "");
    EXPECT_TRUE(wizard().shows(texts::kOtherFolders[1]));
    EXPECT_TRUE(wizard().shows(texts::kOtherFolders[2]));
}

using FolderBrowser = Scenario;

TEST_F(FolderBrowser, CancelledLeavesTheTextAlone) {
    start();
    goToFolders();
    wizard().fillField(1, "D:\\own");

    wizard().clickBrowseButton(1);
    const HWND browser = wizard().waitForFolderBrowser();

    EXPECT_TRUE(wizard().dialogShows(browser, kBrowserTitle));
    EXPECT_EQ(GetWindow(browser, GW_OWNER), wizard().window());
    wizard().leaveFolderBrowser(browser, IDCANCEL);
    EXPECT_EQ(wizard().fieldText(0), "");
    EXPECT_EQ(wizard().fieldText(1), "D:\\own");
}

TEST_F(FolderBrowser, ChosenFolderReplacesTheText) {
    start();
    goToFolders();
    wizard().fillField(0, "D:\\own");

    wizard().clickBrowseButton(0);
    // The desktop is the one folder that stands chosen from the beginning.
    wizard().leaveFolderBrowser(wizard().waitForFolderBrowser(), IDOK);

    wizard().waitForFocus(wizard().textBoxes()[0].handle);
    EXPECT_TRUE(wizard().fieldText(0).ends_with("\\Desktop")) << wizard().fieldText(0);
    EXPECT_EQ(wizard().fieldText(1), "");
}

// My Computer, say: the browser keeps its OK button disabled, and were it pressed all the same,
// there is no path to enter.
TEST_F(FolderBrowser, WhatIsNoFolderCannotBeChosenAndChangesNothing) {
    start();
    goToFolders();
    wizard().fillField(0, "D:\\own");

    wizard().clickBrowseButton(0);
    const HWND browser = wizard().waitForFolderBrowser();
    int item = 0;
    while (wizard().chooseOnDesktop(browser, item)) {
        ++item;  // in the end a failure, where all are folders
    }
    EnableWindow(GetDlgItem(browser, IDOK), TRUE);
    wizard().leaveFolderBrowser(browser, IDOK);

    EXPECT_EQ(wizard().fieldText(0), "D:\\own");
}

}  // namespace kv::endtoend
