#include <ostream>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

namespace {

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

// What is no full path cannot be looked for: the user is told what one looks like.
struct UnusableFolder {
    std::string_view name;
    std::string_view entered;
    std::string_view quoted;  // as it is in the box once one backslash is taken off its end
};

void PrintTo(const UnusableFolder& which, std::ostream* out) { *out << which.name; }

const UnusableFolder kWithoutBackslash[] = {
    {"BareName", "www", "www"},
    {"DrivesRoot", "C:\\", "C:"},
};

const UnusableFolder kWithoutParent[] = {
    {"BareName", "scripts", "scripts"},
    {"InADrivesRootAndBackslash", "C:\\scripts\\", "C:\\scripts"},
    {"InTheRootOfNoDrive", "\\scripts", "\\scripts"},
};

class UnusableFolders : public FolderCheck, public testing::WithParamInterface<UnusableFolder> {
protected:
    // The message; then everything is as it was, the box in question has the focus, and a folder
    // that can be used leads on.
    void expectRefusalOfBox(std::size_t index, int panel) {
        const std::string quoted(GetParam().quoted);
        expectWarning("\"" + quoted +
                      "\" cannot be used. Please enter folder's full path name, such as "
                      "C:\\Inetpub\\scripts.");
        EXPECT_EQ(wizard().currentPanel(), panel);
        EXPECT_EQ(wizard().fieldText(index), quoted);
        wizard().waitForFocus(wizard().textBoxes().at(index).handle);

        wizard().fillField(index, index == 0 ? place().home() : place().scripts());
        next(wizard(), 14);
        wizard().closeWindow();
        EXPECT_EQ(wizard().waitForExit(), 0U);
        expectNoLog();
    }
};

class HomeFolders : public UnusableFolders {};
class IisScriptsFolders : public UnusableFolders {};

TEST_P(HomeFolders, WithoutABackslashAreRefusedWithAnExample) {
    start();
    goToFolders();

    tryFolders(std::string(GetParam().entered), place().scripts());

    expectRefusalOfBox(0, 7);
}

TEST_P(IisScriptsFolders, WithoutAParentAreRefusedWithAnExample) {
    start();
    goToFolders(kIisInstalled);

    tryFolders(place().home(), std::string(GetParam().entered));

    expectRefusalOfBox(1, 8);
}

constexpr auto kUnusableName = [](const testing::TestParamInfo<UnusableFolder>& which) {
    return std::string(which.param.name);
};

INSTANTIATE_TEST_SUITE_P(All, HomeFolders, testing::ValuesIn(kWithoutBackslash), kUnusableName);
INSTANTIATE_TEST_SUITE_P(All, IisScriptsFolders, testing::ValuesIn(kWithoutParent), kUnusableName);

TEST_F(FolderCheck, HiddenAndSystemFoldersAreFound) {
    for (const auto& [name, mark] : {std::pair{"server\\hidden", FILE_ATTRIBUTE_HIDDEN},
                                     std::pair{"server\\system", FILE_ATTRIBUTE_SYSTEM}}) {
        place().makeFolder(name);
        if (!place().mark(name, mark)) GTEST_SKIP() << "this disk does not keep the mark";
    }
    start();
    goToFolders();

    enterFolders(wizard(), place().path("server\\hidden"), place().path("server\\system"));

    EXPECT_EQ(wizard().currentPanel(), 14);
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

TEST_F(DefaultFolders, FolderOnAnotherDriveIsProposedAfterTheFirst) {
    place().makeFolder("drive\\Inetpub\\scripts");
    place().makeFolder("drive\\Inetpub\\wwwroot");
    const BorrowedDrive drive('D', place().path("drive"));
    if (!drive.works()) GTEST_SKIP() << "this system lends no drive letter D";
    const BorrowedFolder home("C:\\Inetpub\\wwwroot");
    start();
    goToFolders(kIisInstalled);

    EXPECT_EQ(wizard().fieldText(0), "C:\\Inetpub\\wwwroot");
    EXPECT_EQ(wizard().fieldText(1), "D:\\Inetpub\\scripts");
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
    while (wizard().chooseOnDesktop(browser, item))
        ++item;  // in the end a failure, where all are folders
    EnableWindow(GetDlgItem(browser, IDOK), TRUE);
    wizard().leaveFolderBrowser(browser, IDOK);

    EXPECT_EQ(wizard().fieldText(0), "D:\\own");
}

}  // namespace kv::endtoend
