#include "process/ExistingInstallation.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/Wizard.h"

namespace kv {
namespace {

using Fields = std::array<std::string, 7>;

class ExistingInstallationTest : public testing::Test {
protected:
    ExistingInstallationTest() { bench_.disk.makeFolder("C:\\saved"); }

    void writeFile(const std::string& bytes) { bench_.disk.write("C:\\saved\\kvi.bak", bytes); }
    void writeRows(const Lines& rows) { writeFile(settingsBytes(rows)); }

    // Rows "v0", "v1", …
    static Lines rows(int count) {
        Lines values;
        for (int i = 0; i < count; ++i) values.push_back("v" + std::to_string(i));
        return values;
    }

    int read() { return installation_.wcpConfigInstallRead("C:\\saved", "bak"); }

    Workbench bench_;
    ExistingInstallation installation_{bench_.state, bench_.configuration, bench_.log};
};

TEST_F(ExistingInstallationTest, AMissingFileIsError53LoggedAsSerious) {
    EXPECT_EQ(read(), 53);

    EXPECT_EQ(bench_.state.InstallEntryCount, 0);
    EXPECT_EQ(bench_.logEntries(), Lines{"SERV  53, File not found, iocCfgReadFile"});
}

TEST_F(ExistingInstallationTest, AMissingFileLeavesTheEntriesAlone) {
    writeRows(rows(7));
    read();
    bench_.disk.remove("C:\\saved\\kvi.bak");

    read();

    EXPECT_EQ(bench_.state.InstallEntryCount, 1);
    EXPECT_EQ(bench_.state.InstallEntries[0].fields[0], "v1");
}

TEST_F(ExistingInstallationTest, ABlankFileIsTheReadersResultForEmptyTexts) {
    writeFile("  ");

    EXPECT_EQ(read(), 110302);
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  9, Subscript out of range, wcpConfigInstallRead"});
}

TEST_F(ExistingInstallationTest, AnItemOutOfOrderIsTheReadersResultForMalformedFiles) {
    writeFile(cfgBytes({"20|2|C:\\www\\"}));

    EXPECT_EQ(read(), 110303);
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  9, Subscript out of range, wcpConfigInstallRead"});
}

TEST_F(ExistingInstallationTest, HeaderAndPropertyAreKept) {
    writeRows(rows(7));

    ASSERT_EQ(read(), 0);

    EXPECT_EQ(bench_.state.CfgHeaderValues,
              (CfgHeader{"1008", "1.3.0", "1", "7", "0", "0", "0", "0", "0", "0", "0"}));
    EXPECT_EQ(bench_.state.CfgPropertyValues[0], "C:\\Korvane\\");
}

// The largest of the product's files has 26 properties.
TEST_F(ExistingInstallationTest, ThereIsRoomFor26PropertiesAndNoMore) {
    Lines lines = settingsLines(rows(7));
    lines.at(7) = "02|P|2";
    lines.insert(lines.begin() + 20, "125|the last one|of 26");
    writeFile(cfgBytes(lines));
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(bench_.state.CfgPropertyValues[25], "of 26");

    lines[20] = "126|one more|of 27";
    writeFile(cfgBytes(lines));

    EXPECT_EQ(read(), 9);
    EXPECT_EQ(bench_.logEntries(),
              Lines{"WARN  9, Subscript out of range, iocCfgReadFileParseData"});
}

TEST_F(ExistingInstallationTest, TheFirstTwoValuesOfAnEntryAreSwapped) {
    writeRows(rows(7));

    ASSERT_EQ(read(), 0);

    EXPECT_EQ(bench_.state.InstallEntries[0].fields,
              (Fields{"v1", "v0", "v2", "v3", "v4", "v5", "v6"}));
}

TEST_F(ExistingInstallationTest, FourteenRowsAreTwoRecordsAndAnEmptyThirdEntry) {
    writeRows(rows(14));

    ASSERT_EQ(read(), 0);

    EXPECT_EQ(bench_.state.InstallEntryCount, 2);
    ASSERT_EQ(bench_.state.InstallEntries.size(), 3u);
    EXPECT_EQ(bench_.state.InstallEntries[0].fields,
              (Fields{"v1", "v0", "v2", "v3", "v4", "v5", "v6"}));
    EXPECT_EQ(bench_.state.InstallEntries[1].fields,
              (Fields{"v8", "v7", "v9", "v10", "v11", "v12", "v13"}));
    EXPECT_EQ(bench_.state.InstallEntries[2].fields, Fields{});
}

struct CountCase {
    int rows;
    int entries;
};

void PrintTo(const CountCase& row, std::ostream* out) { *out << row.rows; }

class EntryCountTest : public ExistingInstallationTest,
                       public testing::WithParamInterface<CountCase> {};

TEST_P(EntryCountTest, IsTheNumberOfFullGroupsOfSeven) {
    writeRows(rows(GetParam().rows));

    EXPECT_EQ(read(), 0);

    EXPECT_EQ(bench_.state.InstallEntryCount, GetParam().entries);
}

INSTANTIATE_TEST_SUITE_P(ExistingInstallation, EntryCountTest,
                         testing::Values(CountCase{0, 0}, CountCase{1, 0}, CountCase{6, 0},
                                         CountCase{7, 1}, CountCase{8, 1}, CountCase{10, 1},
                                         CountCase{13, 1}, CountCase{14, 2}, CountCase{21, 3}));

TEST_F(ExistingInstallationTest, TenRowsAreOneRecordAndTheLastThreeValuesAreIgnored) {
    writeRows(rows(10));

    ASSERT_EQ(read(), 0);

    ASSERT_EQ(bench_.state.InstallEntries.size(), 2u);
    EXPECT_EQ(bench_.state.InstallEntries[0].fields,
              (Fields{"v1", "v0", "v2", "v3", "v4", "v5", "v6"}));
    EXPECT_EQ(bench_.state.InstallEntries[1].fields, Fields{});
}

TEST_F(ExistingInstallationTest, ASecondFileReplacesTheEntriesAndTheirCount) {
    writeRows(rows(14));
    read();
    writeRows({"a", "b", "c", "d", "e", "f", "g"});

    ASSERT_EQ(read(), 0);

    EXPECT_EQ(bench_.state.InstallEntryCount, 1);
    EXPECT_EQ(bench_.state.InstallEntries[0].fields, (Fields{"b", "a", "c", "d", "e", "f", "g"}));
}

TEST_F(ExistingInstallationTest, AFileWithoutRowsSetsTheCountToZero) {
    writeRows(rows(7));
    read();
    writeRows({});

    EXPECT_EQ(read(), 0);

    EXPECT_EQ(bench_.state.InstallEntryCount, 0);
    EXPECT_EQ(bench_.logEntries(), Lines{});
}

struct PropertyCase {
    const char* name;
    const char* stored;
    const char* kept;
};

class ProductFolderTest : public ExistingInstallationTest,
                          public testing::WithParamInterface<PropertyCase> {};

TEST_P(ProductFolderTest, IsKeptOrTakenFromTheProgramsPlace) {
    writeFile(settingsBytes(rows(7), GetParam().stored));

    ASSERT_EQ(read(), 0);

    EXPECT_EQ(bench_.state.CfgPropertyValues[0], GetParam().kept);
}

INSTANTIATE_TEST_SUITE_P(ExistingInstallation, ProductFolderTest,
                         testing::Values(PropertyCase{"Empty", "", "C:\\Korvane\\"},
                                         PropertyCase{"Blank", "  ", "C:\\Korvane\\"},
                                         PropertyCase{"Stored", "D:\\Kv\\", "D:\\Kv\\"}),
                         CaseName());

TEST_F(ExistingInstallationTest, WithoutAnyItemThePropertyBecomesTheProductFolder) {
    writeFile(cfgBytes({"#", "# nothing but comments", "#"}));

    EXPECT_EQ(read(), 0);

    EXPECT_EQ(bench_.state.CfgPropertyValues[0], "C:\\Korvane\\");
}

// The header, an empty property and all rows are there; then comes a property that is one too many.
TEST_F(ExistingInstallationTest, AnItemOutOfOrderLeavesThePropertyAndTheEntriesBeforeItAreTaken) {
    writeRows(rows(14));
    ASSERT_EQ(read(), 0);
    writeFile(cfgBytes({"00|T|1008", "01|V|1.3.0", "02|P|1",  "03|D1|7", "04|D2|0",
                        "05|D3|0",   "06|D4|0",    "07|D5|0", "08|D6|0", "09|D7|0",
                        "010|D8|0",  "10|*kvi|",   "20|2|w0", "21|2|w1", "22|2|w2",
                        "23|2|w3",   "24|2|w4",    "25|2|w5", "26|2|w6", "10|*kvi|"}));

    EXPECT_EQ(read(), 110303);

    EXPECT_EQ(bench_.state.CfgPropertyValues[0], "");
    EXPECT_EQ(bench_.state.InstallEntryCount, 1);
    EXPECT_EQ(bench_.state.InstallEntries[0].fields,
              (Fields{"w1", "w0", "w2", "w3", "w4", "w5", "w6"}));
    EXPECT_EQ(bench_.logEntries(), Lines{});
}

class NoDataSectionTest : public ExistingInstallationTest {
protected:
    NoDataSectionTest() {
        writeRows(rows(7));
        read();
        writeFile(cfgBytes({"#", "# nothing but comments", "#"}));
    }
};

TEST_F(NoDataSectionTest, IsAFailureLoggedAsAWarningOfTheRoutine) {
    EXPECT_EQ(read(), 0);

    const Lines log = bench_.logEntries();
    ASSERT_EQ(log.size(), 1u);
    EXPECT_TRUE(log[0].starts_with("WARN ")) << log[0];
    EXPECT_TRUE(log[0].ends_with(" wcpConfigInstallRead")) << log[0];
}

TEST_F(NoDataSectionTest, LeavesTheEntriesAsTheyWere) {
    read();

    EXPECT_EQ(bench_.state.InstallEntryCount, 1);
    EXPECT_EQ(bench_.state.InstallEntries[0].fields[0], "v1");
}

}  // namespace
}  // namespace kv
