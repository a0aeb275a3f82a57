// In the texts "\017" is the separator before an item's name, "\020" the one before its value.
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "common/RunTimeError.h"
#include "tests/support/ServicesTest.h"

namespace kv {
namespace {

using namespace std::string_literals;

constexpr char kFile[] = "C:\\cfg\\name.ext";

class modKvIOCfgReaderTest : public ServicesTest {
protected:
    modKvIOCfgReaderTest() {
        header_.fill("-");
        disk_.makeFolder("C:\\cfg");
    }

    // The eleven header lines.
    static Lines header(const std::string& propertyCount, const std::string& rowCount) {
        return {"00\017T\0201001",         "01\017V\0201.3.0",  "02\017P\020" + propertyCount,
                "03\017D1\020" + rowCount, "04\017D2\020two",   "05\017D3\020three",
                "06\017D4\020four",        "07\017D5\020five",  "08\017D6\020six",
                "09\017D7\020seven",       "010\017D8\020eight"};
    }

    // The header lines of one property, and that.
    static Lines upToData(const std::string& rowCount) {
        Lines lines = header("1", rowCount);
        lines.push_back("10\017name\020property");
        return lines;
    }

    static std::string text(const Lines& lines) {
        std::string result;
        for (const std::string& line : lines) result += line + "\r\n";
        return result;
    }

    int parse(std::string_view text) {
        return cfg_.iocCfgReadFileParseData(text, header_, properties_, data_);
    }
    int parse(const Lines& lines) { return parse(text(lines)); }

    int read(bool report = true) {
        return cfg_.iocCfgReadFile("C:\\cfg", "name", "ext", text_, report);
    }

    bool untouched() const {
        const Lines nothing{"old"};
        for (const std::string& value : header_)
            if (value != "-") return false;
        return properties_ == Lines(26, "-") && data_ == nothing;
    }

    // One warning of the parser, whatever its number.
    testing::AssertionResult parserFailureLogged() {
        const Lines entries = logged();
        if (entries.size() == 1 && entries[0].starts_with("WARN  ") &&
            entries[0].ends_with(", iocCfgReadFileParseData"))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "logged: " << testing::PrintToString(entries);
    }

    CfgHeader header_;
    Lines properties_ = Lines(26, "-");
    Lines data_{"old"};
    std::string text_ = "old";
};

// Loading a file

TEST_F(modKvIOCfgReaderTest, TheTextIsTheWholeFile) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    bytes += "\r\n  ";
    disk_.write(kFile, bytes);

    EXPECT_EQ(read(), 0);

    EXPECT_EQ(text_, bytes);
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOCfgReaderTest, WithoutReportTheTextIsTheSame) {
    disk_.write(kFile, "text\r\n");

    EXPECT_EQ(read(false), 0);

    EXPECT_EQ(text_, "text\r\n");
}

TEST_F(modKvIOCfgReaderTest, AnEmptyFileIsAnEmptyText) {
    disk_.write(kFile, "");

    EXPECT_EQ(read(), 0);

    EXPECT_EQ(text_, "");
}

TEST_F(modKvIOCfgReaderTest, AFileThatHasBeenReadIsClosed) {
    disk_.write(kFile, "text");

    read();

    EXPECT_NO_THROW(static_cast<void>(disk_.lock(kFile)));
}

TEST_F(modKvIOCfgReaderTest, AMissingFileIsReportedAsSerious) {
    EXPECT_EQ(read(true), 53);

    EXPECT_EQ(logged(), Lines{"SERV  53, File not found, iocCfgReadFile"});
}

TEST_F(modKvIOCfgReaderTest, AMissingFileIsNotLoggedWithoutReport) {
    EXPECT_EQ(read(false), 53);

    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOCfgReaderTest, AMissingFolderIsAWarning) {
    EXPECT_EQ(cfg_.iocCfgReadFile("C:\\missing", "name", "ext", text_, true), 76);

    EXPECT_EQ(logged(), Lines{"WARN  76, Path not found, iocCfgReadFile"});
}

struct ReadFault {
    const char* call;
    ErrorNumber number;
    const char* entry;
};
class FailedRead : public modKvIOCfgReaderTest, public testing::WithParamInterface<ReadFault> {};

TEST_P(FailedRead, IsReportedWithItsLevel) {
    disk_.write(kFile, "text");
    files_.add({.text = GetParam().call, .number = GetParam().number});

    EXPECT_EQ(read(true), static_cast<int>(GetParam().number));

    EXPECT_EQ(logged(), Lines{GetParam().entry + ", iocCfgReadFile"s});
}

TEST_P(FailedRead, LeavesNoFileOpen) {
    disk_.write(kFile, "text");
    files_.add({.text = GetParam().call, .number = GetParam().number});

    read(true);

    // The lowest number that is free.
    EXPECT_EQ(io_.ioOpenFileBinaryRead(kFile), 1);
}

TEST_P(FailedRead, IsNotLoggedWithoutReport) {
    disk_.write(kFile, "text");
    files_.add({.text = GetParam().call, .number = GetParam().number});

    EXPECT_EQ(read(false), static_cast<int>(GetParam().number));

    EXPECT_EQ(logged(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    modKvIOCfgReader, FailedRead,
    testing::Values(ReadFault{"fileLength", ErrorNumber::PathFileAccessError,
                              "WARN  75, Path/File access error"},
                    ReadFault{"fileLength", ErrorNumber::BadFileNameOrNumber,
                              "WARN  52, Bad file name or number"},
                    ReadFault{"openForRead", ErrorNumber::FileNotFound, "SERV  53, File not found"},
                    ReadFault{"openForRead", ErrorNumber::FileAlreadyOpen,
                              "WARN  55, File already open"},
                    ReadFault{"read ", ErrorNumber::DeviceIoError, "WARN  57, Device I/O error"},
                    ReadFault{"close", ErrorNumber::DeviceIoError, "WARN  57, Device I/O error"}));

// Whole texts

TEST_F(modKvIOCfgReaderTest, ItemsLandWhereTheirIndexesSay) {
    EXPECT_EQ(parse("#\r\n"
                    "# *This file contains characters which cannot be displayed, please edit it "
                    "with KORVANE only.\r\n"
                    "#\r\n"
                    "# *Header Section\r\n"
                    "#\r\n"
                    "00\017T\0201006\r\n"
                    "01\017V\0201.3.0\r\n"
                    "02\017P\0202\r\n"
                    "03\017D1\0203\r\n"
                    "04\017D2\0207\r\n"
                    "05\017D3\020\r\n"
                    "06\017D4\020d4\r\n"
                    "07\017D5\020d5\r\n"
                    "08\017D6\020d6\r\n"
                    "09\017D7\020d7\r\n"
                    "010\017D8\020d8\r\n"
                    "#\r\n"
                    "# *Peoperty Section\r\n"
                    "#\r\n"
                    "10\017*Alias\020alias\r\n"
                    "11\017*Path-name\020path\r\n"
                    "#\r\n"
                    "# *Data Section 1\r\n"
                    "#\r\n"
                    "20\0172\020row 0\r\n"
                    "21\0172\020row 1\r\n"
                    "22\0172\020row 2\r\n"),
              0);

    EXPECT_EQ(header_,
              (CfgHeader{"1006", "1.3.0", "2", "3", "7", "", "d4", "d5", "d6", "d7", "d8"}));
    EXPECT_EQ(properties_, (Lines{"alias", "path"} + Lines(24, "-")));
    EXPECT_EQ(data_, (Lines{"row 0", "row 1", "row 2", ""}));
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOCfgReaderTest, WhatTheWriterWritesIsReadBack) {
    const CfgHeader header{"1001", "1.3.0", "13", "2", "a", "b", "c", "d", "e", "f", "g"};
    const Lines properties{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"};
    const Lines data{"first row", "second row"};
    cfg_.iocCfgWriteFile("C:\\cfg", "name", "ext", header, properties, data, false);

    EXPECT_EQ(read(), 0);
    EXPECT_EQ(parse(text_), 0);

    EXPECT_EQ(header_, header);
    EXPECT_EQ(properties_, properties + Lines(13, "-"));
    EXPECT_EQ(data_, (Lines{"first row", "second row", ""}));
}

struct EmptyText {
    std::string_view text;
    int result;
};
class TextWithoutItems : public modKvIOCfgReaderTest,
                         public testing::WithParamInterface<EmptyText> {};

TEST_P(TextWithoutItems, LeavesAllArraysAsTheyWere) {
    EXPECT_EQ(parse(GetParam().text), GetParam().result);

    EXPECT_TRUE(untouched());
    EXPECT_EQ(logged(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(modKvIOCfgReader, TextWithoutItems,
                         testing::Values(EmptyText{"", 110302}, EmptyText{"     ", 110302},
                                         EmptyText{"\r\n\r\n", 0}, EmptyText{"#", 0},
                                         EmptyText{"#\r\n# *Header Section\r\n#\r\n", 0},
                                         // A line of items that begins like a comment.
                                         EmptyText{"#00\017T\0201\r\n", 0},
                                         // Only the two characters together end a line.
                                         EmptyText{"#\n00\017T\0201\n01\017V\0202\n", 0},
                                         EmptyText{"#\r00\017T\0201\r01\017V\0202\r", 0}));

TEST_F(modKvIOCfgReaderTest, TheLastLineNeedsNoEnd) {
    std::string lines = text(upToData("1") + Lines{"20\0172\020row"});
    lines.resize(lines.size() - 2);

    EXPECT_EQ(parse(lines), 0);

    EXPECT_EQ(data_, (Lines{"row", ""}));
}

TEST_F(modKvIOCfgReaderTest, ATextMayEndAfterAnyItem) {
    Lines lines = upToData("1") + Lines{"20\0172\020row"};

    while (!lines.empty()) {
        EXPECT_EQ(parse(lines), 0) << lines.size();
        lines.pop_back();
    }
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOCfgReaderTest, CommentsAndEmptyLinesMayStandAnywhere) {
    Lines lines;
    for (const std::string& line : upToData("2") + Lines{"20\0172\020a", "21\0172\020b"})
        lines = lines + Lines{"", "#", line, "# comment \017 \020"};

    EXPECT_EQ(parse(lines), 0);

    EXPECT_EQ(header_[10], "eight");
    EXPECT_EQ(properties_[0], "property");
    EXPECT_EQ(data_, (Lines{"a", "b", ""}));
}

TEST_F(modKvIOCfgReaderTest, NamesAreIgnored) {
    Lines lines = header("1", "0");
    lines[0] = "00\017anything\0201001";
    lines[1] = "01\017\0201.3.0";

    EXPECT_EQ(parse(lines), 0);

    EXPECT_EQ(header_[0], "1001");
    EXPECT_EQ(header_[1], "1.3.0");
}

TEST_F(modKvIOCfgReaderTest, ItemsOfASectionMayComeInAnyOrder) {
    const Lines lines = header("2", "2");

    EXPECT_EQ(
        parse(Lines(lines.rbegin(), lines.rend()) +
              Lines{"11\017\020second", "10\017\020first", "21\017\020row 1", "20\017\020row 0"}),
        0);

    EXPECT_EQ(header_[0], "1001");
    EXPECT_EQ(header_[10], "eight");
    EXPECT_EQ(properties_[0], "first");
    EXPECT_EQ(properties_[1], "second");
    EXPECT_EQ(data_, (Lines{"row 0", "row 1", ""}));
}

TEST_F(modKvIOCfgReaderTest, OfTwoLinesOfOneIndexTheLaterCounts) {
    EXPECT_EQ(
        parse(header("2", "2") + Lines{"10\017\020a", "10\017\020b", "20\017\020c", "20\017\020d"}),
        0);

    EXPECT_EQ(properties_[0], "b");
    EXPECT_EQ(properties_[1], "-");
    EXPECT_EQ(data_, (Lines{"d", "", ""}));
}

TEST_F(modKvIOCfgReaderTest, AnIndexMayExceedTheNumberOfProperties) {
    EXPECT_EQ(parse(header("1", "0") + Lines{"125\017\020last"}), 0);

    EXPECT_EQ(properties_[25], "last");
}

// The order of the sections

struct Order {
    const char* fact;
    Lines lines;
};
void PrintTo(const Order& order, std::ostream* out) { *out << order.fact; }

const Lines kHeader{"00\017\0201001", "01\017\0201", "02\017\0201", "03\017\0201",
                    "04\017\020",     "05\017\020",  "06\017\020",  "07\017\020",
                    "08\017\020",     "09\017\020",  "010\017\020"};
const Lines kProperty{"10\017\020p"};
const Lines kRow{"20\017\020r"};

Lines without(Lines lines, std::size_t index) {
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(index));
    return lines;
}

Lines withPropertyCount(const std::string& value) {
    Lines lines = kHeader;
    lines[2] = "02\017\020" + value;
    return lines;
}

class ItemOutOfOrder : public modKvIOCfgReaderTest, public testing::WithParamInterface<Order> {};

TEST_P(ItemOutOfOrder, StopsTheReading) {
    EXPECT_EQ(parse(GetParam().lines), 110303);

    EXPECT_EQ(logged(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    modKvIOCfgReader, ItemOutOfOrder,
    testing::Values(Order{"PropertyFirst", kProperty}, Order{"RowFirst", kRow},
                    Order{"TenHeaderLines", without(kHeader, 6) + kProperty},
                    Order{"TwelveHeaderLines", kHeader + Lines{"05\017\020"}},
                    Order{"RowAfterHeader", kHeader + kRow},
                    Order{"TooFewProperties", withPropertyCount("2") + kProperty + kRow},
                    Order{"TooManyProperties", kHeader + kProperty + kProperty},
                    Order{"NoProperties", withPropertyCount("0") + kRow},
                    Order{"NoPropertiesButOne", withPropertyCount("0") + kProperty + kRow},
                    Order{"FewerThanNoProperties", withPropertyCount("-1") + kProperty + kRow},
                    Order{"PropertyAfterRow", kHeader + kProperty + kRow + kProperty},
                    Order{"HeaderAfterRow", kHeader + kProperty + kRow + Lines{"00\017\0201"}},
                    Order{"UnknownSectionFirst", {"30\017\020x"}},
                    Order{"UnknownSectionLast", kHeader + kProperty + kRow + Lines{"30\017\020x"}},
                    Order{"RowWithoutD1",
                          without(kHeader, 3) + Lines{"04\017\020"} + kProperty + kRow}),
    [](const auto& order) { return std::string(order.param.fact); });

TEST_F(modKvIOCfgReaderTest, WhatStandsBeforeAnItemOutOfOrderHasBeenRead) {
    EXPECT_EQ(parse(header("0", "2") + Lines{"20\017\020row", "10\017\020property"}), 110303);

    EXPECT_EQ(header_[10], "eight");
    EXPECT_EQ(properties_, Lines(26, "-"));
    EXPECT_EQ(data_.size(), 3U);
    EXPECT_EQ(data_[0], "");
}

class NumberThatEndsNoSection : public modKvIOCfgReaderTest,
                                public testing::WithParamInterface<const char*> {};

TEST_P(NumberThatEndsNoSection, LetsEveryPropertyFollow) {
    EXPECT_EQ(parse(header(GetParam(), "1") + Lines{"10\017\020a", "11\017\020b", "12\017\020c"}),
              0);

    EXPECT_EQ(properties_[2], "c");
}

INSTANTIATE_TEST_SUITE_P(modKvIOCfgReader, NumberThatEndsNoSection,
                         testing::Values("0", "-1", "-32768"));

// Malformed lines

struct Malformed {
    const char* fact;
    std::string line;
};
void PrintTo(const Malformed& malformed, std::ostream* out) { *out << malformed.fact; }

class LineWithoutItem : public modKvIOCfgReaderTest,
                        public testing::WithParamInterface<Malformed> {};

TEST_P(LineWithoutItem, CountsAsThePreviousItemAgain) {
    Lines lines = header("1", "0");
    lines[5] = GetParam().line;

    EXPECT_EQ(parse(lines + Lines{"10\017\020property"}), 0);

    EXPECT_EQ(header_[4], "two");
    EXPECT_EQ(header_[5], "-");
    EXPECT_EQ(header_[6], "four");
    EXPECT_EQ(properties_[0], "property");
    EXPECT_EQ(logged(), Lines{});
}

TEST_P(LineWithoutItem, MakesTheHeaderTooLongWhenItIsOneMore) {
    Lines lines = header("1", "0");
    lines.insert(lines.begin() + 5, GetParam().line);

    EXPECT_EQ(parse(lines), 110303);

    EXPECT_EQ(header_[9], "seven");
    EXPECT_EQ(header_[10], "-");
}

TEST_P(LineWithoutItem, StoresThePreviousItemAgain) {
    Lines lines = header("3", "0");

    EXPECT_EQ(parse(lines + Lines{"10\017\020a", "11\017\020b", GetParam().line}), 0);

    EXPECT_EQ(properties_, (Lines{"a", "b"} + Lines(24, "-")));
}

TEST_P(LineWithoutItem, DoesNoHarmAmongTheRows) {
    EXPECT_EQ(parse(upToData("2") + Lines{"20\017\020a", GetParam().line, "21\017\020b"}), 0);

    EXPECT_EQ(data_, (Lines{"a", "b", ""}));
    EXPECT_EQ(logged(), Lines{});
}

TEST_P(LineWithoutItem, IsAnUnexpectedFailureWhenNoItemPrecedesIt) {
    EXPECT_NE(parse(Lines{GetParam().line} + header("1", "0")), 0);

    EXPECT_TRUE(untouched());
    EXPECT_TRUE(parserFailureLogged());
}

INSTANTIATE_TEST_SUITE_P(
    modKvIOCfgReader, LineWithoutItem,
    testing::Values(Malformed{"WithoutSeparators", "text"}, Malformed{"WithBlanksOnly", "   "},
                    Malformed{"WithABlankBeforeAComment", " # comment"},
                    Malformed{"WithoutTheFirstSeparator", "05D3\020three"},
                    Malformed{"WithTheFirstSeparatorTwice", "05\017D3\017\020three"},
                    Malformed{"WithTheFirstSeparatorInItsValue", "05\017D3\020th\017ree"},
                    Malformed{"WithoutTheSecondSeparator", "05\017D3"},
                    Malformed{"WithTheSecondSeparatorTwice", "05\017\020D3\020three"},
                    Malformed{"WithTheSecondSeparatorInItsValue", "05\017D3\020th\020ree"},
                    Malformed{"WithASeparatorOnly", "\017"},
                    Malformed{"WithAKeyThatIsNoNumber", "xx\017T\0201"},
                    Malformed{"WithoutAKey", "\017D3\020three"},
                    Malformed{"WithABlankKey", "  \017D3\020three"},
                    Malformed{"WithANulInItsKey", "0\0005\017D3\020three"s},
                    Malformed{"WithATabInItsKey", "\t05\017D3\020three"},
                    Malformed{"WithAHexadecimalKey", "0x5\017D3\020three"},
                    Malformed{"OfTwoLinesEndedByLineFeeds", "04\017\020x\n05\017\020y"},
                    Malformed{"OfTwoLinesEndedByCarriageReturns", "04\017\020x\r05\017\020y"}),
    [](const auto& malformed) { return std::string(malformed.param.fact); });

TEST_F(modKvIOCfgReaderTest, AMalformedLineCountsOnceForEachTime) {
    Lines lines = header("1", "0");
    lines[6] = lines[7] = lines[8] = "malformed";

    EXPECT_EQ(parse(lines + Lines{"10\017\020property"}), 0);

    EXPECT_EQ(header_[5], "three");
    EXPECT_EQ(header_[8], "-");
    EXPECT_EQ(header_[9], "seven");
    EXPECT_EQ(properties_[0], "property");
}

TEST_F(modKvIOCfgReaderTest, AMalformedLineAfterTheLastOfASectionIsOutOfOrder) {
    EXPECT_EQ(parse(header("1", "0") + Lines{"malformed", "10\017\020property"}), 110303);
    EXPECT_EQ(parse(upToData("1") + Lines{"malformed", "20\017\020row"}), 110303);
}

// Items that cannot be stored

struct Unstorable {
    const char* fact;
    Lines lines;
};
void PrintTo(const Unstorable& unstorable, std::ostream* out) { *out << unstorable.fact; }

class UnexpectedFailure : public modKvIOCfgReaderTest,
                          public testing::WithParamInterface<Unstorable> {};

// No caller takes a result but 0 for a readable configuration.
TEST_P(UnexpectedFailure, IsLoggedOnceAndToldByTheResult) {
    EXPECT_NE(parse(GetParam().lines), 0);

    EXPECT_TRUE(parserFailureLogged());
}

Lines withRowCount(const std::string& value) {
    Lines lines = kHeader;
    lines[3] = "03\017\020" + value;
    return lines;
}

INSTANTIATE_TEST_SUITE_P(
    modKvIOCfgReader, UnexpectedFailure,
    testing::Values(Unstorable{"HeaderIndexBeyondTheLast", {"011\017\020x"}},
                    Unstorable{"HeaderIndexFarBeyond", {"04294967296\017\020x"}},
                    Unstorable{"HeaderWithoutIndex", {"0\017\020x"}},
                    Unstorable{"HeaderIndexThatIsNoNumber", {"0e3\017\020x"}},
                    Unstorable{"PropertyIndexThatIsNoNumber", kHeader + Lines{"1e3\017\020x"}},
                    Unstorable{"PropertyIndexBeyondTheArray", kHeader + Lines{"126\017\020x"}},
                    Unstorable{"PropertyWithoutIndex", kHeader + Lines{"1\017\020x"}},
                    Unstorable{"RowIndexBeyondTheArray",
                               kHeader + kProperty + Lines{"22\017\020x"}},
                    Unstorable{"RowWithoutIndex", kHeader + kProperty + Lines{"2\017\020x"}},
                    Unstorable{"KeyWithAPlusSign", {"+1\017\020x"}},
                    Unstorable{"KeyWithAMinusSign", {"-1\017\020x"}},
                    Unstorable{"KeyWithAPoint", {".5\017\020x"}},
                    Unstorable{"RowCountThatIsText", withRowCount("many")},
                    Unstorable{"RowCountThatIsEmpty", withRowCount("")},
                    Unstorable{"NegativeRowCount", withRowCount("-5")},
                    Unstorable{"PropertyCountThatIsText", withPropertyCount("many") + kProperty},
                    Unstorable{"PropertyCountThatIsEmpty", withPropertyCount("") + kProperty}),
    [](const auto& unstorable) { return std::string(unstorable.param.fact); });

TEST_F(modKvIOCfgReaderTest, AFractionOfAKeyIsInTheSectionOfItsFirstDigit) {
    EXPECT_EQ(parse(Lines{"1.5\017\020x"}), 110303);
}

TEST_F(modKvIOCfgReaderTest, ThePositionHas16Bits) {
    Lines lines = header("40000", "0");
    for (int i = 0; i < 40'000; ++i) lines.push_back("10\017\020x");

    EXPECT_NE(parse(lines), 0);

    EXPECT_TRUE(parserFailureLogged());
}

TEST_F(modKvIOCfgReaderTest, AsManyPropertiesAs16BitsCountCanBeRead) {
    Lines lines = header("32767", "0");
    for (int i = 0; i < 32'767; ++i) lines.push_back("10\017\020x");

    EXPECT_EQ(parse(lines + Lines{"20\017\020row"}), 0);

    EXPECT_EQ(data_, Lines{"row"});
}

TEST_F(modKvIOCfgReaderTest, APropertyArrayMayBeEmpty) {
    EXPECT_NE(cfg_.iocCfgReadFileParseData(text(upToData("0")), header_, {}, data_), 0);

    EXPECT_TRUE(parserFailureLogged());
}

// The data array

struct RowCount {
    const char* value;
    std::size_t size;
};
void PrintTo(const RowCount& count, std::ostream* out) { *out << count.value; }

class DataArray : public modKvIOCfgReaderTest, public testing::WithParamInterface<RowCount> {};

TEST_P(DataArray, HasOneEntryMoreThanRows) {
    EXPECT_EQ(parse(header("1", GetParam().value)), 0);

    EXPECT_EQ(data_.size(), GetParam().size);
    EXPECT_EQ(logged(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(modKvIOCfgReader, DataArray,
                         testing::Values(RowCount{"0", 1}, RowCount{"1", 2}, RowCount{"3", 4},
                                         RowCount{" 7 ", 8}, RowCount{"32767", 32'768},
                                         RowCount{"32768", 32'769}, RowCount{"100000", 100'001}));

// Far more than the writer can count; the next one is damage.
TEST_F(modKvIOCfgReaderTest, AMillionRowsAreRoomEnough) {
    EXPECT_EQ(parse(header("1", "1000000")), 0);
    EXPECT_EQ(data_.size(), 1'000'001u);

    EXPECT_EQ(parse(header("1", "1000001")), 7);
}

TEST_F(modKvIOCfgReaderTest, AnotherNumberOfRowsSizesTheArrayAgain) {
    Lines lines = header("1", "3");
    lines[5] = "03\017D1\0205";

    EXPECT_EQ(parse(lines), 0);

    EXPECT_EQ(data_, (Lines{"", "", "", "", "", ""}));
}

TEST_F(modKvIOCfgReaderTest, TheLastEntryCanBeFilledToo) {
    EXPECT_EQ(parse(upToData("1") + Lines{"21\017\020last"}), 0);

    EXPECT_EQ(data_, (Lines{"", "last"}));
}

TEST_F(modKvIOCfgReaderTest, WithoutADataSectionTheArrayIsSizedAllTheSame) {
    EXPECT_EQ(parse(header("1", "2")), 0);

    EXPECT_EQ(data_, Lines(3, ""));
}

TEST_F(modKvIOCfgReaderTest, AnImpossibleNumberOfRowsIsNoReadableConfiguration) {
    EXPECT_NE(parse(upToData("2147483647") + Lines{"20\017\020row"}), 0);
}

TEST_F(modKvIOCfgReaderTest, ARowCountOfMinusOneLeavesNoEntryToFill) {
    EXPECT_NE(parse(upToData("-1") + Lines{"20\017\020row"}), 0);

    EXPECT_TRUE(parserFailureLogged());
}

// Values

struct Value {
    const char* fact;
    std::string written;
    std::string read;
};
void PrintTo(const Value& value, std::ostream* out) { *out << value.fact; }

class ItemValue : public modKvIOCfgReaderTest, public testing::WithParamInterface<Value> {};

TEST_P(ItemValue, LosesTheBlanksAroundItOnly) {
    EXPECT_EQ(parse(header("1", "1") +
                    Lines{"10\017\020" + GetParam().written, "20\0172\020" + GetParam().written}),
              0);

    EXPECT_EQ(properties_[0], GetParam().read);
    EXPECT_EQ(data_[0], GetParam().read);
}

INSTANTIATE_TEST_SUITE_P(
    modKvIOCfgReader, ItemValue,
    testing::Values(Value{"Blanks", "  abc  ", "abc"}, Value{"BlanksInside", " a  b ", "a  b"},
                    Value{"BlanksOnly", "   ", ""}, Value{"Empty", "", ""},
                    Value{"Tab", "\tabc\t", "\tabc\t"}, Value{"CarriageReturn", "abc\r", "abc\r"},
                    Value{"LineFeed", "a\nbc\n", "a\nbc\n"}, Value{"Nul", " a\0b\0 "s, "a\0b\0"s},
                    Value{"NumberSign", "#", "#"},
                    Value{"HighBytes", "\x80\xA0\xFF", "\x80\xA0\xFF"}),
    [](const auto& value) { return std::string(value.param.fact); });

TEST_F(modKvIOCfgReaderTest, AValueOfTenMillionBytesIsRead) {
    const std::string value(10'000'000, 'v');

    EXPECT_EQ(parse(header("1", "1") + Lines{"10\017\020" + value}), 0);

    EXPECT_EQ(properties_[0], value);
}

TEST_F(modKvIOCfgReaderTest, ALineOfTenMillionSeparatorsIsMalformed) {
    EXPECT_EQ(parse(header("1", "1") + Lines{std::string(10'000'000, '\017')}), 110303);
}

// One line

class iocfgReadConfigRetrieveValue : public modKvIOCfgReaderTest {
protected:
    int retrieve(std::string_view line) { return cfg_.iocfgReadConfigRetrieveValue(line, item_); }

    Lines fields() const { return {item_.section, item_.index, item_.value}; }

    CfgItem item_{"s", "i", "v"};
};

struct Item {
    std::string_view line;
    Lines fields;
};
class ItemLine : public iocfgReadConfigRetrieveValue, public testing::WithParamInterface<Item> {};

TEST_P(ItemLine, IsSplitIntoSectionIndexAndValue) {
    EXPECT_EQ(retrieve(GetParam().line), 0);

    EXPECT_EQ(fields(), GetParam().fields);
    EXPECT_EQ(logged(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    modKvIOCfgReader, ItemLine,
    testing::Values(Item{"00\017T\0201001", {"0", "0", "1001"}},
                    Item{"010\017D8\020x", {"0", "10", "x"}},
                    Item{"1125\017\020  abc  ", {"1", "125", "abc"}},
                    Item{"  20  \0172\020", {"2", "0", ""}}, Item{"2\0172\020x", {"2", "", "x"}},
                    Item{"1e3\017\020x", {"1", "e3", "x"}}, Item{"1.5\017\020x", {"1", ".5", "x"}},
                    Item{"+1\017\020x", {"+", "1", "x"}}, Item{"-1\017\020x", {"-", "1", "x"}},
                    Item{"9\017\020x", {"9", "", "x"}}));

struct NoItem {
    std::string line;
    int result;
};
class LineOfNoItem : public iocfgReadConfigRetrieveValue,
                     public testing::WithParamInterface<NoItem> {};

TEST_P(LineOfNoItem, LeavesTheFieldsAsTheyWere) {
    EXPECT_EQ(retrieve(GetParam().line), GetParam().result);

    EXPECT_EQ(fields(), (Lines{"s", "i", "v"}));
    EXPECT_EQ(logged(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    modKvIOCfgReader, LineOfNoItem,
    testing::Values(NoItem{"", 0}, NoItem{"    ", 0}, NoItem{"\t", 110303}, NoItem{"00", 110303},
                    NoItem{"00\020x", 110303}, NoItem{"00\017T\017\020x", 110303},
                    NoItem{"xx\017T\017\020x", 110303}, NoItem{"00\017T", 110303},
                    NoItem{"00\017T\020x\020", 110303}, NoItem{"xx\017T\0201", 110304},
                    // The key is looked at before the second separator.
                    NoItem{"xx\017T", 110304}, NoItem{"\017T\0201", 110304},
                    NoItem{" \017T\0201", 110304}, NoItem{"0 0\017T\0201", 110304},
                    NoItem{"00\020\017T", 110304}, NoItem{"0\0000\017T\0201"s, 110304}));

}  // namespace
}  // namespace kv
