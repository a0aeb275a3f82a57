#include "process/ShellServices.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/Wizard.h"

namespace kv {
namespace {

class ShellServicesTest : public testing::Test {
protected:
    ShellServicesTest() {
        bench_.disk.addDrive('D');
        bench_.disk.addDrive('E');
    }

    Workbench bench_;
    TextBox& box_ = bench_.form.txtFolderScriptsIIS;
    ShellServices services_{bench_.shell, bench_.files};
};

TEST_F(ShellServicesTest, ADocumentIsOpenedWithTheOpenOperationInShowModeTen) {
    services_.wcpOpenDocument("https://example.com/a.html");

    EXPECT_EQ(bench_.shell.opened,
              (std::vector<FakeShell::Opened>{{"https://example.com/a.html", "Open", 10}}));
}

TEST_F(ShellServicesTest, TheShellsResultIsReturnedUnchanged) {
    bench_.shell.result = 31;

    EXPECT_EQ(services_.wcpOpenDocument("x"), 31);
    EXPECT_EQ(services_.wcpOpenApacheDownloadPage(), 31);
}

TEST_F(ShellServicesTest, TheDownloadPageIsOnTheProductsWebSite) {
    services_.wcpOpenApacheDownloadPage();

    EXPECT_EQ(bench_.shell.opened,
              (std::vector<FakeShell::Opened>{
                  {std::string(texts::kWebSite) + "/download/kvddapache.html", "Open", 10}}));
}

TEST_F(ShellServicesTest, BrowsingReturnsTheChosenFolder) {
    bench_.shell.folders = {"D:\\chosen"};

    EXPECT_EQ(services_.wcpBrowseForFolder(), "D:\\chosen");
}

TEST_F(ShellServicesTest, ACancelledBrowserReturnsAnEmptyText) {
    EXPECT_EQ(services_.wcpBrowseForFolder(), "");
}

TEST_F(ShellServicesTest, TheBrowserIsAskedForFoldersOfTheFileSystemWithItsTitle) {
    services_.wcpBrowseForFolder();

    EXPECT_EQ(bench_.shell.browsed,
              (std::vector<FakeShell::Browsed>{{"Choose a directory from the list.", 1}}));
}

TEST_F(ShellServicesTest, BrowsingIntoABoxReplacesItsText) {
    box_.setText("before");
    bench_.shell.folders = {"D:\\chosen"};

    services_.wcpBrowseIntoTextBox(box_);

    EXPECT_EQ(box_.text(), "D:\\chosen");
}

TEST_F(ShellServicesTest, ACancelledBrowserLeavesTheBoxAsItWas) {
    box_.setText("before");

    services_.wcpBrowseIntoTextBox(box_);

    EXPECT_EQ(box_.text(), "before");
}

TEST_F(ShellServicesTest, AFilledBoxKeepsItsTextAndNothingIsLookedUp) {
    bench_.disk.makeFolder("C:\\Inetpub\\scripts");
    box_.setText("D:\\mine");

    services_.wcpSuggestFolderOnDrive(box_, "C:\\Inetpub\\scripts");

    EXPECT_EQ(box_.text(), "D:\\mine");
    EXPECT_TRUE(bench_.files.journal().empty());
}

TEST_F(ShellServicesTest, ABoxOfBlanksIsFilledAlready) {
    bench_.disk.makeFolder("C:\\Inetpub\\scripts");
    box_.setText(" ");

    services_.wcpSuggestFolderOnDrive(box_, "C:\\Inetpub\\scripts");

    EXPECT_EQ(box_.text(), " ");
}

TEST_F(ShellServicesTest, DriveCIsTriedFirst) {
    for (const char* folder : {"C:\\Inetpub\\scripts", "D:\\Inetpub\\scripts"})
        bench_.disk.makeFolder(folder);

    services_.wcpSuggestFolderOnDrive(box_, "C:\\Inetpub\\scripts");

    EXPECT_EQ(box_.text(), "C:\\Inetpub\\scripts");
}

TEST_F(ShellServicesTest, DriveDIsTriedSecond) {
    for (const char* folder : {"D:\\Inetpub\\scripts", "E:\\Inetpub\\scripts"})
        bench_.disk.makeFolder(folder);

    services_.wcpSuggestFolderOnDrive(box_, "C:\\Inetpub\\scripts");

    EXPECT_EQ(box_.text(), "D:\\Inetpub\\scripts");
}

TEST_F(ShellServicesTest, DriveEIsTriedLast) {
    bench_.disk.makeFolder("E:\\Inetpub\\scripts");

    services_.wcpSuggestFolderOnDrive(box_, "C:\\Inetpub\\scripts");

    EXPECT_EQ(box_.text(), "E:\\Inetpub\\scripts");
}

TEST_F(ShellServicesTest, TheDrivesAreLookedUpInOrder) {
    services_.wcpSuggestFolderOnDrive(box_, "C:\\Program Files\\Apache Group\\Apache2\\htdocs");

    EXPECT_EQ(
        bench_.files.journal(),
        (Lines{"findName C:\\Program Files\\Apache Group\\Apache2\\htdocs, files and folders",
               "findName D:\\Program Files\\Apache Group\\Apache2\\htdocs, files and folders",
               "findName E:\\Program Files\\Apache Group\\Apache2\\htdocs, files and folders"}));
}

TEST_F(ShellServicesTest, WhereNoDriveHasTheFolderTheBoxStaysEmpty) {
    services_.wcpSuggestFolderOnDrive(box_, "C:\\Inetpub\\scripts");

    EXPECT_EQ(box_.text(), "");
}

TEST_F(ShellServicesTest, AFolderOfAnotherLetterCaseIsNotProposed) {
    bench_.disk.makeFolder("C:\\Inetpub\\Scripts");

    services_.wcpSuggestFolderOnDrive(box_, "C:\\Inetpub\\scripts");

    EXPECT_EQ(box_.text(), "");
}

TEST_F(ShellServicesTest, TheDefaultsOwnDriveIsNotTriedUnlessItIsOneOfTheThree) {
    bench_.disk.addDrive('F');
    bench_.disk.makeFolder("F:\\Inetpub\\scripts");

    services_.wcpSuggestFolderOnDrive(box_, "F:\\Inetpub\\scripts");

    EXPECT_EQ(box_.text(), "");
}

TEST_F(ShellServicesTest, ADefaultPathWithoutABackslashIsAnInvalidArgument) {
    EXPECT_EQ(failureOf([&] { services_.wcpSuggestFolderOnDrive(box_, "scripts"); }), 5);
    EXPECT_EQ(failureOf([&] { services_.wcpSuggestFolderOnDrive(box_, "\\scripts"); }), 5);
    EXPECT_EQ(bench_.files.journal(), Lines{});
}

}  // namespace
}  // namespace kv
