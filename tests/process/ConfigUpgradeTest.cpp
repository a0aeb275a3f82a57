// The customer's properties come back into the new main configuration file.
#include "process/ConfigUpgrade.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Deployment.h"

namespace kv {
namespace {

// The main file as it is newly unpacked, with all thirteen properties and two data rows.
const Lines kNewLines{
    "#",
    "# *This file contains characters which cannot be displayed, please edit it with KORVANE only.",
    "#",
    "# *Header Section",
    "#",
    "00|T|1001",
    "01|V|1.3.0",
    "02|P|13",
    "03|D1|2",
    "04|D2|0",
    "05|D3|0",
    "06|D4|0",
    "07|D5|0",
    "08|D6|0",
    "09|D7|0",
    "010|D8|0",
    "#",
    "# *Peoperty Section",
    "#",
    "10|*Default Administrator|new 0",
    "11|*Administrator|new 1",
    "12|*User|new 2",
    "13|*Anonymous|new 3",
    "14|*Default Language|new 4",
    "15|*Optional Language 1|new 5",
    "16|*Optional Language 2|new 6",
    "17|*Optional Language 3|new 7",
    "18|*Optional Language 4|new 8",
    "19|*Using Unicode|new 9",
    "110|*Session expire time|new 10",
    "111|*Upload Temp Folder|new 11",
    "112|*User Home Folder|new 12",
    "#",
    "# *Data Section 1",
    "#",
    "20|2|new row 0",
    "21|2|new row 1",
};

Lines withLine(Lines lines, const std::string& from, const std::string& to) {
    for (std::string& line : lines) {
        if (line == from) line = to;
    }
    return lines;
}

class MigrationTest : public testing::Test {
protected:
    MigrationTest() {
        bench_.disk.makeFolder("C:\\Korvane\\cfg\\original");
        bench_.disk.write(kSampleMain, cfgBytes(kNewLines));
    }

    // Migrates with the saved file's lines and returns the bytes of the main file.
    std::string migrate(const Lines& savedLines) {
        bench_.disk.write(kSavedMain, cfgBytes(savedLines));
        return migrate();
    }
    std::string migrate() {
        upgrade_.wcpConfigMigrateMain("C:\\Korvane");
        return bench_.disk.read(kSampleMain);
    }

    Workbench bench_;
    ConfigUpgrade upgrade_{bench_.io, bench_.configuration, bench_.log, bench_.progress};
};

TEST_F(MigrationTest, WithoutOldPropertiesTheFileGrowsByOneLineEnd) {
    EXPECT_EQ(migrate({"#", "00|T|1001", "03|D1|1", "20|2|old row"}), cfgBytes(kNewLines) + "\r\n");
    EXPECT_EQ(bench_.logEntries(), Lines{});
}

TEST_F(MigrationTest, EachPropertyTakesItsOldLineWhole) {
    const Lines old{
        "10|old name|a",
        "11|old name|b",
        "12|old name|c",
        "13|old name|d",
        "14|old name|e",
        "15|old name|f",
        "16|old name|g",
        "17|old name|h",
        "18|old name|i",
        "19|old name|j",
        "110|old name|k",
        "111|old name|l",
        "112|old name|m with a longer value than before",
    };
    Lines expected(kNewLines.begin(), kNewLines.begin() + 19);
    expected = joined(
        {expected, old, {"#", "# *Data Section 1", "#", "20|2|new row 0", "21|2|new row 1", ""}});
    // Nothing is cut off: what is shorter leaves the end of the file as it was.
    std::string bytes = cfgBytes(expected);
    const std::string before = cfgBytes(kNewLines);
    if (bytes.size() < before.size()) bytes += before.substr(bytes.size());

    EXPECT_EQ(migrate(old), bytes);
}

TEST_F(MigrationTest, AShorterResultKeepsTheLastBytesOfTheFile) {
    bench_.disk.write(kSampleMain, cfgBytes({"15|*Optional Language 1|a long value", "20|2|row"}));

    EXPECT_EQ(migrate({"15|s|v"}), cfgBytes({"15|s|v", "20|2|row", ""}) +
                                       "e 1\x10"
                                       "a long value\r\n20\x0F"
                                       "2\x10row\r\n");
}

TEST_F(MigrationTest, HeaderAndDataStayAsTheNewFileHasThem) {
    EXPECT_EQ(migrate({"00|T|9", "01|V|old", "02|P|9", "03|D1|9", "010|D8|9", "20|2|old row",
                       "21|2|old row"}),
              cfgBytes(kNewLines) + "\r\n");
}

TEST_F(MigrationTest, AKeyThatOnlyTheOldFileHasIsNotAdded) {
    EXPECT_EQ(migrate({"113|*More|old", "1|*More|old", "100|*More|old", "22|2|old"}),
              cfgBytes(kNewLines) + "\r\n");
}

struct Replaced {
    const char* name;
    Lines old;
    const char* from;
    const char* to;
};

void PrintTo(const Replaced& replaced, std::ostream* out) { *out << replaced.name; }

class MigrationOfOneLine : public MigrationTest, public testing::WithParamInterface<Replaced> {};

INSTANTIATE_TEST_SUITE_P(Lines, MigrationOfOneLine,
                         testing::Values(Replaced{"TheLanguage",
                                                  {"15|*Other name|old"},
                                                  "15|*Optional Language 1|new 5",
                                                  "15|*Other name|old"},
                                         Replaced{"Key110",
                                                  {"110|*Session expire time|old 10"},
                                                  "110|*Session expire time|new 10",
                                                  "110|*Session expire time|old 10"},
                                         Replaced{"Key111",
                                                  {"111|*Upload Temp Folder|old 11"},
                                                  "111|*Upload Temp Folder|new 11",
                                                  "111|*Upload Temp Folder|old 11"},
                                         Replaced{"Key112",
                                                  {"112|*User Home Folder|old 12"},
                                                  "112|*User Home Folder|new 12",
                                                  "112|*User Home Folder|old 12"},
                                         Replaced{"Key11AndNot111",
                                                  {"11|*Administrator|old"},
                                                  "11|*Administrator|new 1",
                                                  "11|*Administrator|old"},
                                         Replaced{"TheFirstOfARepeatedLine",
                                                  {"12|*User|first", "12|*User|second"},
                                                  "12|*User|new 2",
                                                  "12|*User|first"},
                                         Replaced{"NotAComment",
                                                  {"#13|*Anonymous|comment", "13|*Anonymous|old"},
                                                  "13|*Anonymous|new 3",
                                                  "13|*Anonymous|old"},
                                         Replaced{"BehindAnEmptyLine",
                                                  {"", "   ", "10|*A|old"},
                                                  "10|*Default Administrator|new 0",
                                                  "10|*A|old"},
                                         Replaced{"BlanksInTheValue",
                                                  {"14|*Default Language|  old  "},
                                                  "14|*Default Language|new 4",
                                                  "14|*Default Language|  old  "},
                                         Replaced{"WithoutAValueSeparator",
                                                  {"16|old"},
                                                  "16|*Optional Language 2|new 6",
                                                  "16|old"}),
                         [](const auto& row) { return row.param.name; });

TEST_P(MigrationOfOneLine, ReplacesJustIt) {
    std::string expected =
        cfgBytes(joined({withLine(kNewLines, GetParam().from, GetParam().to), {""}}));
    const std::string before = cfgBytes(kNewLines);
    if (expected.size() < before.size()) expected += before.substr(expected.size());

    EXPECT_EQ(migrate(GetParam().old), expected);
    EXPECT_EQ(bench_.logEntries(), Lines{});
}

TEST_F(MigrationTest, ALineThatTheNewFileRepeatsIsReplacedEachTime) {
    bench_.disk.write(kSampleMain, cfgBytes({"12|*User|a", "12|*User|b"}));

    EXPECT_EQ(migrate({"12|*User|longer"}), cfgBytes({"12|*User|longer", "12|*User|longer", ""}));
}

TEST_F(MigrationTest, AKeyWithBlanksBeforeItIsNoPropertyKey) {
    bench_.disk.write(kSampleMain, cfgBytes({" 12|*User|a"}));

    EXPECT_EQ(migrate({"12|*User|old", " 12|*User|old"}), cfgBytes({" 12|*User|a", ""}));
}

TEST_F(MigrationTest, ALineWithoutASeparatorIsAllKey) {
    bench_.disk.write(kSampleMain, "12\r\n1\r\n");

    EXPECT_EQ(migrate({"12|*User|old"}), cfgBytes({"12|*User|old", "1", ""}));
    bench_.disk.write(kSampleMain, cfgBytes({"12|*User|a"}));
    bench_.disk.write(kSavedMain, "12");
    EXPECT_EQ(migrate(),
              "12\r\n\r\ner\x10"
              "a\r\n");
}

TEST_F(MigrationTest, BlankLinesOfTheNewFileStay) {
    bench_.disk.write(kSampleMain, cfgBytes({"", "   ", "12|*User|a", ""}));

    EXPECT_EQ(migrate({"12|*User|b"}), cfgBytes({"", "   ", "12|*User|b", "", ""}));
}

TEST_F(MigrationTest, ANewFileWithoutALastLineEndGetsOne) {
    bench_.disk.write(kSampleMain,
                      "12\x0F*User\x10"
                      "a");

    EXPECT_EQ(migrate({"12|*User|b"}), cfgBytes({"12|*User|b"}));
}

TEST_F(MigrationTest, BytesOfTheCodePageComeThroughUnchanged) {
    bench_.disk.write(kSampleMain, cfgBytes({"12|*User|a", "20|2|\xE4\xF6\xFC"}));

    EXPECT_EQ(migrate({"12|*User|\x80\xFF"}),
              cfgBytes({"12|*User|\x80\xFF", "20|2|\xE4\xF6\xFC", ""}));
}

TEST_F(MigrationTest, WithoutTheSavedFileTheFileGrowsByOneLineEnd) {
    EXPECT_EQ(migrate(), cfgBytes(kNewLines) + "\r\n");
    EXPECT_EQ(bench_.logEntries(), Lines{"SERV  53, File not found, iocCfgReadFile"});
}

TEST_F(MigrationTest, ALockedSavedFileLeavesTheLines) {
    bench_.disk.write(kSavedMain, cfgBytes({"15|*Language|old"}));
    std::string bytes;
    {
        const auto lock = bench_.disk.lock(kSavedMain);
        bytes = migrate();
    }

    EXPECT_EQ(bytes, cfgBytes(kNewLines) + "\r\n");
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  55, File already open, iocCfgReadFile"});
}

TEST_F(MigrationTest, AnEmptySavedFileLeavesTheLines) {
    bench_.disk.write(kSavedMain, "");

    EXPECT_EQ(migrate(), cfgBytes(kNewLines) + "\r\n");
    EXPECT_EQ(bench_.logEntries(), Lines{});
}

class UnreadableMainFile : public MigrationTest, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Calls, UnreadableMainFile,
                         testing::Values("fileLength", "openForRead", "read", "close"),
                         [](const auto& row) { return std::string(row.param); });

TEST_P(UnreadableMainFile, HasNoLinesToWriteAndStaysAsItIs) {
    bench_.files.add({.text = std::string(GetParam()) + ' ' + kSampleMain});

    EXPECT_EQ(migrate({"15|*Language|old"}), cfgBytes(kNewLines));
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  57, Device I/O error, iocCfgReadFile"});
}

TEST_F(MigrationTest, AMissingMainFileIsMadeEmpty) {
    bench_.disk.remove(kSampleMain);

    EXPECT_EQ(migrate({"15|*Language|old"}), "");
    EXPECT_EQ(bench_.logEntries(), Lines{"SERV  53, File not found, iocCfgReadFile"});
}

class MigrationWithAFailingWrite : public MigrationTest,
                                   public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Calls, MigrationWithAFailingWrite,
                         testing::Values("openForWrite", "write"),
                         [](const auto& row) { return std::string(row.param); });

TEST_P(MigrationWithAFailingWrite, IsLoggedUnderItsNameAndLeavesTheFile) {
    bench_.files.add({.text = std::string(GetParam()) + ' ' + kSampleMain});

    EXPECT_EQ(migrate({"15|*Language|old"}), cfgBytes(kNewLines));
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  57, Device I/O error, wcpConfigMigrateMain"});
}

// The restore steps

class RestoreTest : public MigrationTest {
protected:
    RestoreTest() {
        bench_.disk.makeFolder("C:\\Korvane\\bin\\kvi");
        bench_.disk.makeFolder("C:\\Korvane\\cfg\\user\\dadmin");
        bench_.disk.makeFolder("C:\\Korvane\\cfg\\user\\anony");
        bench_.disk.write(kSavedInstallation, "old kvi");
        bench_.disk.write(kSavedMain, cfgBytes({"#"}));
        bench_.disk.write(kSavedAdministrator, "old kvadm");
        bench_.disk.write(kSavedAnonymous, "old kvan");
    }
};

TEST_F(RestoreTest, BringsTheFilesBackAndTakesItsShareOfTheProgressLine) {
    upgrade_.wcpConfigRestore("C:\\Korvane", 300);

    EXPECT_EQ(bench_.disk.read("C:\\Korvane\\bin\\kvi\\kvi.cfg"), "old kvi");
    EXPECT_EQ(bench_.disk.read(kSampleMain), cfgBytes(kNewLines) + "\r\n");
    EXPECT_EQ(bench_.disk.read(kSampleAdministrator), "old kvadm");
    EXPECT_EQ(bench_.disk.read(kSampleAnonymous), "old kvan");
    EXPECT_EQ(bench_.form.lblProgress.box().width, 555);
}

TEST_F(RestoreTest, WithoutAnySavedFolderLogsEachStepAndTakesItsShareAllTheSame) {
    bench_.disk.remove("C:\\Korvane\\cfg\\original");

    upgrade_.wcpConfigRestore("C:\\Korvane", 300);

    EXPECT_EQ(
        bench_.logEntries(),
        (Lines{"WARN  76, Path not found, ioCopyFile", "WARN  76, Path not found, iocCfgReadFile",
               "WARN  76, Path not found, ioCopyFile", "WARN  76, Path not found, ioCopyFile"}));
    EXPECT_EQ(bench_.form.lblProgress.box().width, 555);
}

TEST_F(RestoreTest, WithoutTheGeneralFolderTheMigrationFailsAndTheNextFilesComeBack) {
    bench_.disk.remove("C:\\Korvane\\cfg\\general");

    upgrade_.wcpConfigRestore("C:\\Korvane", 300);

    const Lines log = bench_.logEntries();
    ASSERT_EQ(log.size(), 2U);
    EXPECT_EQ(log[0], "WARN  76, Path not found, iocCfgReadFile");
    EXPECT_TRUE(log[1].ends_with(" 76, Path not found, wcpConfigMigrateMain")) << log[1];
    EXPECT_EQ(bench_.disk.read(kSampleAdministrator), "old kvadm");
    EXPECT_EQ(bench_.disk.read(kSampleAnonymous), "old kvan");
}

// One line

std::string bytesOf(const std::string& line) {
    std::string bytes = cfgBytes({line});
    return bytes.substr(0, bytes.size() - 2);
}

std::string replaced(std::string_view line, const Lines& lines, std::string_view key) {
    const std::vector<std::string_view> parts(lines.begin(), lines.end());
    wcpConfigReplaceLine(line, parts, key);
    return std::string(line);
}

TEST(ReplacingALine, WithoutLinesLeavesIt) {
    EXPECT_EQ(replaced("15\x0F*Language\x10new", {}, "15"), "15\x0F*Language\x10new");
}

TEST(ReplacingALine, GoesByTheGivenKeyAndNotByTheLine) {
    EXPECT_EQ(replaced(bytesOf("15|*Language|new"),
                       {bytesOf("15|*Language|old"), bytesOf("16|*More|old")}, "16"),
              bytesOf("16|*More|old"));
}

TEST(ReplacingALine, TakesTheFirstWithTheWholeKey) {
    EXPECT_EQ(replaced(bytesOf("11|*Administrator|new"),
                       {"#11", bytesOf("# 11|a|b"), bytesOf("111|a|b"), bytesOf("1|a|b"),
                        bytesOf("11|first|c"), bytesOf("11|second|d")},
                       "11"),
              bytesOf("11|first|c"));
}

TEST(ReplacingALine, NeverTakesAComment) {
    EXPECT_EQ(replaced("new", {bytesOf("#15|*Language|old")}, "#15"), "new");
}

TEST(ReplacingALine, EndsAKeyAtTheFirstSeparator) {
    EXPECT_EQ(replaced("new", {"12\x0Fname\x0Fmore\x10value"}, "12"),
              "12\x0Fname\x0Fmore\x10value");
}

TEST(ReplacingALine, TakesALineWithoutASeparatorForAKey) {
    EXPECT_EQ(replaced("new", {"1", "12"}, "12"), "12");
}

}  // namespace
}  // namespace kv
