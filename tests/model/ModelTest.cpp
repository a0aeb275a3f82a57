// The model's own facts, in numbers and in the rows that its lists cannot show: all other tests
// take their counts from the model.
#include <gtest/gtest.h>

#include "tests/model/Operations.h"

namespace kv {
namespace {

const Site kSite{Server::IIS, UrlStyle::SiteRoot, "C:\\www", "C:\\srv\\cgi", "10.0.0.1", "8080"};

Site underKv(Site site) {
    site.style = UrlStyle::Kv;
    return site;
}

TEST(Model, CountsWhatIsDeployed) {
    EXPECT_EQ(programCopies(kSite).size(), 13u);
    EXPECT_EQ(copies(kSite).size(), 40u);
    EXPECT_EQ(copies(underKv(kSite)).size(), 37u);
    EXPECT_EQ(deployedFiles(kSite).size(), 38u);
    EXPECT_EQ(deployedFolders(kSite).size(), 6u);
    EXPECT_EQ(foldersMade(kSite).size(), 8u);
    EXPECT_EQ(kBackups.size(), 4u);
}

TEST(Model, CountsTheCallsOfEachOperation) {
    EXPECT_EQ(installationCalls(kSite).size(), 59u + 9u);
    EXPECT_EQ(modificationCalls(kSite, kSite).size(), 103u + 9u);
    EXPECT_EQ(deletionCalls(kSite).size(), 49u);
    EXPECT_EQ(backupCalls(kSite).size(), 4u);
    EXPECT_EQ(upgradeCalls(kSite, "", "").size(), 27u);
    EXPECT_EQ(failingCalls(installationCalls(kSite)), 59u);
    EXPECT_EQ(failingCalls(modificationCalls(kSite, kSite)), 103u);
}

TEST(Model, CountsTheStepsOfTheProgressLine) {
    EXPECT_EQ(kProgramFileCount, 13u);
    EXPECT_EQ(kDeletedFileCount, 38u);
    EXPECT_EQ(kRemovedFolderCount, 6u);
    EXPECT_EQ(kMadeFolderCount, 7u);
    EXPECT_EQ(copiedFileCount(UrlStyle::SiteRoot), 40u);
    EXPECT_EQ(copiedFileCount(UrlStyle::Kv), 37u);
    EXPECT_EQ(progressBeforeRecord(Operation::New), 4955);
    EXPECT_EQ(progressBeforeRecord(Operation::New, UrlStyle::Kv), 4655);
    EXPECT_EQ(progressBeforeRecord(Operation::Modify), 4805);
    EXPECT_EQ(progressBeforeRecord(Operation::Modify, UrlStyle::Kv), 4655);
    EXPECT_EQ(progressBeforeRecord(Operation::Delete), 4655);
}

TEST(Model, DeletesInTheOrderOfTheCopiesButForOneProgram) {
    const Lines files = deployedFiles(kSite);
    EXPECT_EQ(
        Lines(files.begin(), files.begin() + 17),
        (Lines{"C:\\srv\\cgi\\kv\\kvi\\kvi.cfg", "C:\\srv\\cgi\\kv\\kv.exe",
               "C:\\srv\\cgi\\kv\\kvcfg.exe", "C:\\srv\\cgi\\kv\\kvclpbd.exe",
               "C:\\srv\\cgi\\kv\\kvdir.exe", "C:\\srv\\cgi\\kv\\kvfile.exe",
               "C:\\srv\\cgi\\kv\\kvhlp.exe", "C:\\srv\\cgi\\kv\\kvimg.exe",
               "C:\\srv\\cgi\\kv\\kvjs.exe", "C:\\srv\\cgi\\kv\\kvlogon.exe",
               "C:\\srv\\cgi\\kv\\kvabout.exe", "C:\\srv\\cgi\\kv\\kvwlcm.exe",
               "C:\\srv\\cgi\\kv\\qtmdb.dll", "C:\\srv\\cgi\\kv\\QTnbwB.dll",
               "C:\\www\\kv\\favicon.ico", "C:\\www\\kv\\index.html", "C:\\www\\kv\\Default.htm"}));
    EXPECT_EQ(files.back(), "C:\\www\\images\\kv\\kvimg\\red_v1x2.gif");
}

TEST(Model, WritesARecordByteForByte) {
    EXPECT_EQ(recordOf(kSite),
              "#\r\n"
              "# *This file contains characters which cannot be displayed, please edit it with "
              "KORVANE only.\r\n"
              "#\r\n"
              "# *Header Section\r\n"
              "#\r\n"
              "00\017T\0201008\r\n"
              "01\017V\0201.3.0\r\n"
              "02\017P\0201\r\n"
              "03\017D1\0207\r\n"
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
              "10\017*kvi\020C:\\Korvane\\\r\n"
              "#\r\n"
              "# *Data Section 1\r\n"
              "#\r\n"
              "20\0172\020C:\\www\\\r\n"
              "21\0172\020C:\\srv\\cgi\\\r\n"
              "22\0172\020C:\\Korvane\\\r\n"
              "23\0172\0200\r\n"
              "24\0172\0200\r\n"
              "25\0172\02010.0.0.1\r\n"
              "26\0172\0208080\r\n");
}

// A failure is read in these lines, so they say which byte, in which file.
TEST(Model, TellsWhereTreesDiffer) {
    const Tree expected{{"a\\", ""}, {"a\\b.cfg", "10\017n\020value\r\n"}, {"gone", ""}};
    const Tree actual{{"a\\", ""}, {"a\\b.cfg", "10\017n\020values\r\n"}, {"new\\", ""}};

    EXPECT_EQ(differences(expected, expected), "");
    EXPECT_EQ(differences(expected, actual),
              "a\\b.cfg differs from byte 10 on\n"
              "  holds    10|n|values\\r\\n\n"
              "  not      10|n|value\\r\\n\n"
              "missing: gone\n"
              "too much: new\\\n");
}

TEST(Model, TellsTheFirstLineThatDiffers) {
    EXPECT_EQ(firstDifference({"a", "b"}, {"a", "b"}), "");
    EXPECT_EQ(firstDifference({"a", "b"}, {"a", "c"}), "line 1 is b\nand not c");
    EXPECT_EQ(firstDifference({"a"}, {"a", "c"}), "line 1 is missing\nand not c");
    EXPECT_EQ(firstDifference({"a", "b"}, {"a"}), "line 1 is b\nand not missing");
}

}  // namespace
}  // namespace kv
