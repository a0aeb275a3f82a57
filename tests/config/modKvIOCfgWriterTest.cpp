// In the expected bytes "\017" is the separator before an item's name, "\020" the one before its
// value.
#include <cstdint>
#include <functional>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "common/RunTimeError.h"
#include "tests/support/ServicesTest.h"

namespace kv {
namespace {

constexpr char kFile[] = "C:\\cfg\\name.ext";
constexpr char kEmptyPropertySection[] = "#\r\n# *Peoperty Section\r\n#\r\n";

class modKvIOCfgWriterTest : public ServicesTest {
protected:
    modKvIOCfgWriterTest() { disk_.makeFolder("C:\\cfg"); }

    static CfgHeader header(const std::string& type, const std::string& propertyCount,
                            const std::string& rowCount) {
        return {type, "1.3.0", propertyCount, rowCount, "two",  "three",
                "",   "five",  "six",         "seven",  "eight"};
    }

    // What is in the file before its property section.
    static std::string headerText(const std::string& type, const std::string& propertyCount,
                                  const std::string& rowCount) {
        return "#\r\n"
               "# *This file contains characters which cannot be displayed, please edit it with "
               "KORVANE only.\r\n"
               "#\r\n"
               "# *Header Section\r\n"
               "#\r\n"
               "00\017T\020" +
               type + "\r\n01\017V\0201.3.0\r\n02\017P\020" + propertyCount + "\r\n03\017D1\020" +
               rowCount +
               "\r\n"
               "04\017D2\020two\r\n"
               "05\017D3\020three\r\n"
               "06\017D4\020\r\n"
               "07\017D5\020five\r\n"
               "08\017D6\020six\r\n"
               "09\017D7\020seven\r\n"
               "010\017D8\020eight\r\n";
    }

    int write(const CfgHeader& values, const Lines& properties, const Lines& data,
              bool backup = false) {
        return cfg_.iocCfgWriteFile("C:\\cfg", "name", "ext", values, properties, data, backup);
    }

    // What a section writer leaves in a file that has nothing else.
    std::string written(const std::function<void(std::int16_t)>& section) {
        const std::int16_t file = io_.ioOpenFileBinaryWrite(kFile);
        section(file);
        io_.ioCloseFile(file);
        return disk_.read(kFile);
    }
};

// Whole files

TEST_F(modKvIOCfgWriterTest, AFileHasHeaderPropertiesAndData) {
    const CfgHeader values{"1008", "1.3.0", "1", "2", "7", "", "", "", "", "", ""};

    EXPECT_EQ(write(values, {"yes"}, {"C:\\www\\", "second row"}), 0);

    EXPECT_EQ(disk_.read(kFile),
              "#\r\n"
              "# *This file contains characters which cannot be displayed, please edit it with "
              "KORVANE only.\r\n"
              "#\r\n"
              "# *Header Section\r\n"
              "#\r\n"
              "00\017T\0201008\r\n"
              "01\017V\0201.3.0\r\n"
              "02\017P\0201\r\n"
              "03\017D1\0202\r\n"
              "04\017D2\0207\r\n"
              "05\017D3\020\r\n"
              "06\017D4\020\r\n"
              "07\017D5\020\r\n"
              "08\017D6\020\r\n"
              "09\017D7\020\r\n"
              "010\017D8\020\r\n"
              "#\r\n"
              "# *Peoperty Section\r\n"
              "#\r\n"
              "10\017*kvi\020yes\r\n"
              "#\r\n"
              "# *Data Section 1\r\n"
              "#\r\n"
              "20\0172\020C:\\www\\\r\n"
              "21\0172\020second row\r\n");
    EXPECT_EQ(logged(), Lines{});
}

struct TypeRow {
    const char* type;
    const char* properties;  // the lines of one value "v" for each name
    const char* count;
};
class FileOfType : public modKvIOCfgWriterTest, public testing::WithParamInterface<TypeRow> {};

TEST_P(FileOfType, HasTheNamesOfItsProperties) {
    const TypeRow& row = GetParam();

    EXPECT_EQ(write(header(row.type, row.count, "0"), Lines(26, "v"), {}), 0);

    EXPECT_EQ(disk_.read(kFile), headerText(row.type, row.count, "0") +
                                     "#\r\n# *Peoperty Section\r\n#\r\n" + row.properties);
    EXPECT_EQ(logged(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(modKvIOCfgWriter, FileOfType,
                         testing::Values(TypeRow{"1001",
                                                 "10\017*Default Administrator\020v\r\n"
                                                 "11\017*Administrator\020v\r\n"
                                                 "12\017*User\020v\r\n"
                                                 "13\017*Anonymous\020v\r\n"
                                                 "14\017*Default Language\020v\r\n"
                                                 "15\017*Optional Language 1\020v\r\n"
                                                 "16\017*Optional Language 2\020v\r\n"
                                                 "17\017*Optional Language 3\020v\r\n"
                                                 "18\017*Optional Language 4\020v\r\n"
                                                 "19\017*Using Unicode\020v\r\n"
                                                 "110\017*Session expire time\020v\r\n"
                                                 "111\017*Upload Temp Folder\020v\r\n"
                                                 "112\017*User Home Folder\020v\r\n",
                                                 "13"},
                                         TypeRow{"1002",
                                                 "10\017*Account Type\020v\r\n"
                                                 "11\017*Password\020v\r\n"
                                                 "12\017*Password Set Date\020v\r\n"
                                                 "13\017*Language\020v\r\n",
                                                 "4"},
                                         TypeRow{"1003",
                                                 "10\017\020v\r\n"
                                                 "11\017\020v\r\n",
                                                 "2"},
                                         TypeRow{"1004",
                                                 "10\017*User ID\020v\r\n"
                                                 "11\017*Account Type\020v\r\n"
                                                 "12\017*Password\020v\r\n"
                                                 "13\017*Password Set Date\020v\r\n"
                                                 "14\017*First Name\020v\r\n"
                                                 "15\017*Last Name\020v\r\n"
                                                 "16\017*Language\020v\r\n"
                                                 "17\017*Home Folder\020v\r\n"
                                                 "18\017*Department\020v\r\n",
                                                 "9"},
                                         TypeRow{"1005",
                                                 "10\017*UserID\020v\r\n"
                                                 "11\017*Account Type\020v\r\n"
                                                 "12\017*Root 1\020v\r\n"
                                                 "13\017*Folder 1\020v\r\n"
                                                 "14\017*Download 1\020v\r\n"
                                                 "15\017*Upload 1\020v\r\n"
                                                 "16\017*Read 1\020v\r\n"
                                                 "17\017*Write 1\020v\r\n"
                                                 "18\017*Execute 1\020v\r\n"
                                                 "19\017*Move 1\020v\r\n"
                                                 "110\017*Root 2\020v\r\n"
                                                 "111\017*Folder 2\020v\r\n"
                                                 "112\017*Download 2\020v\r\n"
                                                 "113\017*Upload 2\020v\r\n"
                                                 "114\017*Read 2\020v\r\n"
                                                 "115\017*Write 2\020v\r\n"
                                                 "116\017*Execute 2\020v\r\n"
                                                 "117\017*Move 2\020v\r\n"
                                                 "118\017*Root 3\020v\r\n"
                                                 "119\017*Folder 3\020v\r\n"
                                                 "120\017*Download 3\020v\r\n"
                                                 "121\017*Upload 3\020v\r\n"
                                                 "122\017*Read 3\020v\r\n"
                                                 "123\017*Write 3\020v\r\n"
                                                 "124\017*Execute 3\020v\r\n"
                                                 "125\017*Move 3\020v\r\n",
                                                 "26"},
                                         TypeRow{"1006",
                                                 "10\017*Alias\020v\r\n"
                                                 "11\017*Path-name\020v\r\n"
                                                 "12\017*Usage\020v\r\n",
                                                 "3"},
                                         TypeRow{"1007",
                                                 "10\017*Alias\020v\r\n"
                                                 "11\017*Root Alias\020v\r\n"
                                                 "12\017*Path-name\020v\r\n"
                                                 "13\017*Download\020v\r\n"
                                                 "14\017*Upload\020v\r\n"
                                                 "15\017*Read\020v\r\n"
                                                 "16\017*Write\020v\r\n"
                                                 "17\017*Execute\020v\r\n"
                                                 "18\017*Move\020v\r\n",
                                                 "9"},
                                         TypeRow{"1008", "10\017*kvi\020v\r\n", "1"},
                                         TypeRow{"-1", "10\017\020v\r\n", "1"},
                                         TypeRow{"2147483647", "10\017\020v\r\n", "1"}),
                         [](const auto& type) {
                             const std::string code = type.param.type;
                             return code == "-1" ? std::string("Negative") : "Type" + code;
                         });

// Sections

TEST_F(modKvIOCfgWriterTest, WithoutPropertiesOnlyTheirHeadingIsWritten) {
    EXPECT_EQ(write(header("1008", "0", "0"), {"unused"}, {}), 0);

    EXPECT_EQ(disk_.read(kFile), headerText("1008", "0", "0") + kEmptyPropertySection);
}

TEST_F(modKvIOCfgWriterTest, ANegativeNumberOfPropertiesIsNone) {
    EXPECT_EQ(write(header("1008", "-1", "0"), {"unused"}, {}), 0);

    EXPECT_EQ(disk_.read(kFile), headerText("1008", "-1", "0") + kEmptyPropertySection);
}

TEST_F(modKvIOCfgWriterTest, APropertyPastTheEndOfItsSetHasNoName) {
    Lines properties(14, "");
    properties[13] = "value";

    EXPECT_EQ(write(header("1001", "14", "0"), properties, {}), 0);

    EXPECT_TRUE(
        disk_.read(kFile).ends_with("112\017*User Home Folder\020\r\n"
                                    "113\017\020value\r\n"));
}

class NoRows : public modKvIOCfgWriterTest, public testing::WithParamInterface<const char*> {};

TEST_P(NoRows, MakeNoDataSection) {
    EXPECT_EQ(write(header("1008", "1", GetParam()), {"v"}, {"unused"}), 0);

    EXPECT_EQ(disk_.read(kFile),
              headerText("1008", "1", GetParam()) + kEmptyPropertySection + "10\017*kvi\020v\r\n");
    EXPECT_EQ(logged(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(modKvIOCfgWriter, NoRows,
                         testing::Values("0", "-1", "-0.4", "-40000", "-1e20"));

TEST_F(modKvIOCfgWriterTest, AFractionOfARowMakesAHeadingWithoutRows) {
    EXPECT_EQ(write(header("1008", "0", "0.4"), {}, {"unused"}), 0);

    EXPECT_EQ(disk_.read(kFile), headerText("1008", "0", "0.4") + kEmptyPropertySection +
                                     "#\r\n# *Data Section 1\r\n#\r\n");
}

TEST_F(modKvIOCfgWriterTest, TheKeysOfRowsAreNotPadded) {
    std::string rows;
    for (int i = 0; i < 101; ++i)
        rows += "2" + std::to_string(i) + "\0172\020row " + std::to_string(i) + "\r\n";
    Lines data;
    for (int i = 0; i < 101; ++i) data.push_back("row " + std::to_string(i));

    EXPECT_EQ(write(header("1008", "0", "101"), {}, data), 0);

    EXPECT_EQ(disk_.read(kFile), headerText("1008", "0", "101") + kEmptyPropertySection +
                                     "#\r\n# *Data Section 1\r\n#\r\n" + rows);
}

TEST_F(modKvIOCfgWriterTest, ValuesBeyondTheNumbersAreNotWritten) {
    EXPECT_EQ(write(header("1006", "1", "1"), {"a", "b", "c"}, {"d", "e"}), 0);

    EXPECT_EQ(disk_.read(kFile), headerText("1006", "1", "1") + kEmptyPropertySection +
                                     "10\017*Alias\020a\r\n"
                                     "#\r\n# *Data Section 1\r\n#\r\n"
                                     "20\0172\020d\r\n");
}

TEST_F(modKvIOCfgWriterTest, ValuesAreWrittenUnchanged) {
    std::string value = " \t\"#%\\ ";
    for (int byte = 128; byte < 256; ++byte) value += static_cast<char>(byte);
    value += std::string(1, '\0') + "\017\020\r\n ";

    EXPECT_EQ(write(header("1008", "1", "1"), {value}, {value}), 0);

    EXPECT_EQ(disk_.read(kFile), headerText("1008", "1", "1") + kEmptyPropertySection +
                                     "10\017*kvi\020" + value +
                                     "\r\n"
                                     "#\r\n# *Data Section 1\r\n#\r\n"
                                     "20\0172\020" +
                                     value + "\r\n");
}

TEST_F(modKvIOCfgWriterTest, TheHeadersNumbersAreWrittenAsTheyStand) {
    const CfgHeader values = header(" 1008 ", "01", "+1");

    EXPECT_EQ(write(values, {"p"}, {"d"}), 0);

    EXPECT_EQ(disk_.read(kFile), headerText(" 1008 ", "01", "+1") + kEmptyPropertySection +
                                     "10\017*kvi\020p\r\n"
                                     "#\r\n# *Data Section 1\r\n#\r\n"
                                     "20\0172\020d\r\n");
}

TEST_F(modKvIOCfgWriterTest, TheHeaderSectionEndsWithItemD8) {
    EXPECT_EQ(written([&](std::int16_t file) {
                  cfg_.iocCfgWriteFileHeader(file, header("1", "2", "3"));
              }),
              headerText("1", "2", "3"));
}

TEST_F(modKvIOCfgWriterTest, ThePropertySectionStandsAlone) {
    EXPECT_EQ(written([&](std::int16_t file) {
                  cfg_.iocCfgWriteFileProperty(file, Lines{"a", "b"}, 1006, 2);
              }),
              "#\r\n# *Peoperty Section\r\n#\r\n"
              "10\017*Alias\020a\r\n"
              "11\017*Path-name\020b\r\n");
}

TEST_F(modKvIOCfgWriterTest, TheDataSectionTakesItsNumberFromItsCode) {
    EXPECT_EQ(written([&](std::int16_t file) {
                  cfg_.iocCfgWriteFileData(file, Lines{"a", "b"}, 2, "3");
              }),
              "#\r\n# *Data Section 2\r\n#\r\n"
              "30\0173\020a\r\n"
              "31\0173\020b\r\n");
}

// The file on the disk

TEST_F(modKvIOCfgWriterTest, APathIsFolderBaseNameAndExtension) {
    EXPECT_EQ(cfgPath("C:\\product\\cfg", "korvane", "cfg"), "C:\\product\\cfg\\korvane.cfg");
}

TEST_F(modKvIOCfgWriterTest, AShorterFileKeepsTheLastBytesOfTheOlderOne) {
    std::string old;
    for (int i = 0; i < 2000; ++i) old += static_cast<char>('a' + i % 26);
    disk_.write(kFile, old);
    const std::string before =
        headerText("1008", "1", "0") + kEmptyPropertySection + "10\017*kvi\020";
    const std::string value(1500 - before.size() - 2, 'v');

    EXPECT_EQ(write(header("1008", "1", "0"), {value}, {}), 0);

    EXPECT_EQ(disk_.read(kFile), before + value + "\r\n" + old.substr(1500));
}

TEST_F(modKvIOCfgWriterTest, WithABackupTheFileIsWrittenAfresh) {
    disk_.makeFolder("C:\\cfg\\backup");
    disk_.write(kFile, std::string(2000, 'o'));

    EXPECT_EQ(write(header("1008", "0", "0"), {}, {}, true), 0);

    EXPECT_EQ(disk_.read(kFile), headerText("1008", "0", "0") + kEmptyPropertySection);
    EXPECT_EQ(disk_.read("C:\\cfg\\backup\\name-1.ext"), std::string(2000, 'o'));
    EXPECT_EQ(logged(), Lines{"SERV  53, File not found, ioBackupFile"});
}

TEST_F(modKvIOCfgWriterTest, WithoutABackupNothingIsMoved) {
    disk_.makeFolder("C:\\cfg\\backup");
    disk_.write(kFile, "old");

    EXPECT_EQ(write(header("1008", "0", "0"), {}, {}), 0);

    EXPECT_TRUE(disk_.tree("C:\\cfg\\backup").empty());
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOCfgWriterTest, AFailedBackupDoesNotKeepTheFileFromBeingWritten) {
    EXPECT_EQ(write(header("1008", "0", "0"), {}, {}, true), 0);

    EXPECT_EQ(disk_.read(kFile), headerText("1008", "0", "0") + kEmptyPropertySection);
}

TEST_F(modKvIOCfgWriterTest, AWrittenFileIsClosed) {
    EXPECT_EQ(write(header("1008", "0", "0"), {}, {}), 0);

    EXPECT_EQ(write(header("1008", "0", "0"), {}, {}), 0);
    EXPECT_NO_THROW(static_cast<void>(disk_.lock(kFile)));
}

// Failures

TEST_F(modKvIOCfgWriterTest, AFailedOpenLeavesNoFile) {
    EXPECT_EQ(
        cfg_.iocCfgWriteFile("C:\\missing", "name", "ext", header("1008", "0", "0"), {}, {}, false),
        1);

    EXPECT_FALSE(disk_.exists("C:\\missing"));
    EXPECT_EQ(logged(), Lines{"WARN  76, Path not found, iocCfgWriteFile"});
}

class FailedOpen : public modKvIOCfgWriterTest, public testing::WithParamInterface<ErrorNumber> {};

TEST_P(FailedOpen, IsAWarningWhateverItsNumber) {
    files_.add({.text = "openForWrite", .number = GetParam()});

    EXPECT_EQ(write(header("1008", "0", "0"), {}, {}), 1);

    EXPECT_FALSE(disk_.exists(kFile));
    EXPECT_EQ(logged(), Lines{logEntry("iocCfgWriteFile", static_cast<int>(GetParam()))});
}

INSTANTIATE_TEST_SUITE_P(modKvIOCfgWriter, FailedOpen,
                         testing::Values(ErrorNumber::BadFileNameOrNumber,
                                         ErrorNumber::FileNotFound, ErrorNumber::FileAlreadyOpen,
                                         ErrorNumber::PathFileAccessError,
                                         ErrorNumber::PathNotFound));

struct BadHeader {
    const char* type;
    const char* propertyCount;
    const char* rowCount;
    const char* entry;
};
class HeaderThatIsNoNumber : public modKvIOCfgWriterTest,
                             public testing::WithParamInterface<BadHeader> {
protected:
    int writeBadFile() {
        return write(header(GetParam().type, GetParam().propertyCount, GetParam().rowCount), {"p"},
                     {"d"});
    }
};

TEST_P(HeaderThatIsNoNumber, FailsTheFile) {
    EXPECT_EQ(writeBadFile(), 1);

    EXPECT_EQ(logged(), Lines{std::string("WARN  ") + GetParam().entry + ", iocCfgWriteFile"});
}

TEST_P(HeaderThatIsNoNumber, LeavesTheFileOpenAgainstLaterWriters) {
    writeBadFile();

    EXPECT_EQ(write(header("1008", "0", "0"), {}, {}), 1);

    EXPECT_TRUE(disk_.exists(kFile));
    EXPECT_EQ(logged().back(), "WARN  55, File already open, iocCfgWriteFile");
}

TEST_P(HeaderThatIsNoNumber, DoesNotTouchOtherFiles) {
    writeBadFile();

    EXPECT_EQ(
        cfg_.iocCfgWriteFile("C:\\cfg", "other", "ext", header("1008", "0", "0"), {}, {}, false),
        0);

    EXPECT_EQ(disk_.read("C:\\cfg\\other.ext"),
              headerText("1008", "0", "0") + kEmptyPropertySection);
}

constexpr char kMismatch[] = "13, Type mismatch";
constexpr char kOverflow[] = "6, Overflow";

INSTANTIATE_TEST_SUITE_P(
    modKvIOCfgWriter, HeaderThatIsNoNumber,
    testing::Values(BadHeader{"", "1", "1", kMismatch}, BadHeader{"main", "1", "1", kMismatch},
                    BadHeader{"2147483648", "1", "1", kOverflow},
                    BadHeader{"1008", "", "1", kMismatch}, BadHeader{"1008", "one", "1", kMismatch},
                    BadHeader{"1008", "32768", "1", kOverflow},
                    BadHeader{"1008", "-32769", "1", kOverflow},
                    BadHeader{"1008", "1", "", kMismatch}, BadHeader{"1008", "1", "one", kMismatch},
                    BadHeader{"1008", "1", "32768", kOverflow},
                    BadHeader{"1008", "1", "1e9", kOverflow}));

TEST_F(modKvIOCfgWriterTest, TooFewPropertyValuesEndTheirSectionOnly) {
    EXPECT_EQ(write(header("1006", "3", "1"), {"a", "b"}, {"d"}), 0);

    EXPECT_EQ(disk_.read(kFile), headerText("1006", "3", "1") + kEmptyPropertySection +
                                     "10\017*Alias\020a\r\n"
                                     "11\017*Path-name\020b\r\n"
                                     "#\r\n# *Data Section 1\r\n#\r\n"
                                     "20\0172\020d\r\n");
    EXPECT_EQ(logged(), Lines{"WARN  9, Subscript out of range, iocCfgWriteFileProperty"});
}

TEST_F(modKvIOCfgWriterTest, TooFewDataValuesEndTheirSection) {
    EXPECT_EQ(write(header("1008", "0", "3"), {}, {"a", "b"}), 0);

    EXPECT_EQ(disk_.read(kFile), headerText("1008", "0", "3") + kEmptyPropertySection +
                                     "#\r\n# *Data Section 1\r\n#\r\n"
                                     "20\0172\020a\r\n"
                                     "21\0172\020b\r\n");
    EXPECT_EQ(logged(), Lines{"WARN  9, Subscript out of range, iocCfgWriteFileData"});
}

TEST_F(modKvIOCfgWriterTest, AFullDiskInOneSectionDoesNotStopTheNext) {
    files_.add({.call = 2, .text = "write C:\\cfg", .number = ErrorNumber::DiskFull});

    EXPECT_EQ(write(header("1008", "1", "1"), {std::string(5'000'000, 'p')}, {"d"}), 0);

    EXPECT_EQ(logged(), Lines{"WARN  61, Disk full, iocCfgWriteFileProperty"});
}

TEST_F(modKvIOCfgWriterTest, AFullDiskFailsEachSectionAndNotTheFile) {
    files_.add({.text = "write C:\\cfg", .number = ErrorNumber::DiskFull, .once = false});

    EXPECT_EQ(write(header("1008", "1", "1"), {"p"}, {"d"}), 0);

    EXPECT_EQ(logged(), (Lines{"WARN  61, Disk full, iocCfgWriteFileHeader",
                               "WARN  61, Disk full, iocCfgWriteFileProperty",
                               "WARN  61, Disk full, iocCfgWriteFileData"}));
}

TEST_F(modKvIOCfgWriterTest, AFailedCloseLeavesTheFileOpen) {
    files_.add({.text = "close C:\\cfg", .number = ErrorNumber::DeviceIoError});

    EXPECT_EQ(write(header("1008", "0", "0"), {}, {}), 1);
    EXPECT_EQ(write(header("1008", "0", "0"), {}, {}), 1);

    EXPECT_EQ(logged(), (Lines{"WARN  57, Device I/O error, iocCfgWriteFile",
                               "WARN  55, File already open, iocCfgWriteFile"}));
}

TEST_F(modKvIOCfgWriterTest, WhatFollowsAFailedSectionIsWritten) {
    files_.add({.text = "write C:\\cfg", .number = ErrorNumber::DiskFull});

    EXPECT_EQ(write(header("1008", "1", "1"), {"p"}, {"d"}), 0);

    EXPECT_EQ(disk_.read(kFile),
              "#\r\n# *Peoperty Section\r\n#\r\n"
              "10\017*kvi\020p\r\n"
              "#\r\n# *Data Section 1\r\n#\r\n"
              "20\0172\020d\r\n");
    EXPECT_EQ(logged(), Lines{"WARN  61, Disk full, iocCfgWriteFileHeader"});
}

struct SectionWriter {
    const char* name;
    std::function<void(modKvIOCfg&, std::int16_t)> run;
};
class WriterOfASection : public modKvIOCfgWriterTest,
                         public testing::WithParamInterface<SectionWriter> {};

TEST_P(WriterOfASection, LogsItsFailureOnceUnderItsOwnName) {
    constexpr std::int16_t kNoFile = 9;

    GetParam().run(cfg_, kNoFile);

    EXPECT_EQ(logged(),
              Lines{std::string("WARN  52, Bad file name or number, ") + GetParam().name});
}

INSTANTIATE_TEST_SUITE_P(modKvIOCfgWriter, WriterOfASection,
                         testing::Values(SectionWriter{"iocCfgWriteFileHeader",
                                                       [](modKvIOCfg& cfg, std::int16_t file) {
                                                           cfg.iocCfgWriteFileHeader(file, {});
                                                       }},
                                         SectionWriter{"iocCfgWriteFileProperty",
                                                       [](modKvIOCfg& cfg, std::int16_t file) {
                                                           cfg.iocCfgWriteFileProperty(
                                                               file, Lines{"a"}, 1008, 1);
                                                       }},
                                         SectionWriter{"iocCfgWriteFileData",
                                                       [](modKvIOCfg& cfg, std::int16_t file) {
                                                           cfg.iocCfgWriteFileData(file, Lines{"a"},
                                                                                   1, "2");
                                                       }}),
                         [](const auto& writer) { return std::string(writer.param.name); });

}  // namespace
}  // namespace kv
