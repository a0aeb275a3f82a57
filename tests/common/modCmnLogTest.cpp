#include "common/modCmnLog.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "common/Patience.h"
#include "common/RunTimeError.h"
#include "tests/support/FakeClock.h"
#include "tests/support/disks/FaultyFileSystem.h"
#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

constexpr char kLog00[] = "C:\\product\\log\\kvwcfg00.log";
constexpr char kLog01[] = "C:\\product\\log\\kvwcfg01.log";
constexpr char kLog50[] = "C:\\product\\log\\kvwcfg50.log";

class modCmnLogTest : public testing::Test {
protected:
    modCmnLogTest() {
        disk_.makeFolder("C:\\product\\log");
        log_.cmnLogSetFolder("C:\\product\\log");
    }

    void write(std::string_view description) {
        log_.cmnLogWrite(1, description, "routine", kLevelWarn);
    }

    static std::string entry(std::string_view description) {
        return "[2007/01/16 09:05:03]  WARN  1, " + std::string(description) + ", routine";
    }

    void writeEntryOfLength(std::size_t length) {
        write(std::string(length - entry("").size(), 'x'));
    }

    void fill(int firstFile, int lastFile, std::size_t bytes) {
        for (int file = firstFile; file <= lastFile; ++file) {
            const std::string digits = (file < 10 ? "0" : "") + std::to_string(file);
            disk_.write("C:\\product\\log\\kvwcfg" + digits + ".log", std::string(bytes, 'o'));
        }
    }

    TestDisk disk_;
    FaultyFileSystem files_{disk_.fileSystem()};
    FakeClock clock_;
    Patience patience_{clock_};
    modCmnLog log_{files_, clock_, patience_, "kvwcfg"};
};

// Entries

TEST_F(modCmnLogTest, AnEntryHasStampLevelNumberDescriptionAndSource) {
    log_.cmnLogWrite(76, "Path not found", "ioMakeDirectory", kLevelWarn);

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00),
              "[2007/01/16 09:05:03]  WARN  76, Path not found, ioMakeDirectory\r\n");
}

TEST_F(modCmnLogTest, TheLevelStandsAsItWasPassed) {
    log_.cmnLogWrite(53, "File not found", "ioCopyFile", "SERV");
    log_.cmnLogWrite(53, "File not found", "ioCopyFile", "Warn");

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00),
              "[2007/01/16 09:05:03]  SERV  53, File not found, ioCopyFile\r\n"
              "[2007/01/16 09:05:03]  Warn  53, File not found, ioCopyFile\r\n");
}

TEST_F(modCmnLogTest, TheLevelsAreInfoWarnAndServ) {
    EXPECT_EQ(kLevelInfo, "INFO");
    EXPECT_EQ(kLevelWarn, "WARN");
    EXPECT_EQ(kLevelServ, "SERV");
}

struct Number {
    std::int32_t number;
    std::string_view text;
};
class LoggedNumber : public modCmnLogTest, public testing::WithParamInterface<Number> {};

TEST_P(LoggedNumber, IsDecimalAndUnpadded) {
    log_.cmnLogWrite(GetParam().number, "d", "s", kLevelWarn);

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00),
              "[2007/01/16 09:05:03]  WARN  " + std::string(GetParam().text) + ", d, s\r\n");
}

INSTANTIATE_TEST_SUITE_P(
    modCmnLog, LoggedNumber,
    testing::Values(Number{0, "0"}, Number{7, "7"}, Number{-5, "-5"}, Number{110303, "110303"},
                    Number{std::numeric_limits<std::int32_t>::max(), "2147483647"},
                    Number{std::numeric_limits<std::int32_t>::min(), "-2147483648"}));

struct Stamp {
    LocalTime time;
    std::string_view text;
};
class LoggedStamp : public modCmnLogTest, public testing::WithParamInterface<Stamp> {};

TEST_P(LoggedStamp, HasFourDigitsForTheYearAndTwoForTheRest) {
    clock_.time = GetParam().time;

    log_.cmnLogWrite(1, "d", "s", kLevelWarn);
    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), std::string(GetParam().text) + "  WARN  1, d, s\r\n");
}

INSTANTIATE_TEST_SUITE_P(modCmnLog, LoggedStamp,
                         testing::Values(Stamp{{2007, 1, 2, 0, 0, 0}, "[2007/01/02 00:00:00]"},
                                         Stamp{{1999, 12, 31, 23, 59, 58}, "[1999/12/31 23:59:58]"},
                                         Stamp{{2026, 10, 11, 12, 13, 14}, "[2026/10/11 12:13:14]"},
                                         Stamp{{987, 6, 5, 4, 3, 2}, "[0987/06/05 04:03:02]"}));

TEST_F(modCmnLogTest, AnEntryIsStampedWhenItIsMade) {
    write("first");
    clock_.time = {2008, 2, 3, 4, 5, 6};
    write("second");
    clock_.time = {2009, 7, 8, 9, 10, 11};

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00),
              "[2007/01/16 09:05:03]  WARN  1, first, routine\r\n"
              "[2008/02/03 04:05:06]  WARN  1, second, routine\r\n");
}

TEST_F(modCmnLogTest, DescriptionAndSourceAreUnchanged) {
    log_.cmnLogWrite(1, "  a,\tb \xE9 ", " s ", kLevelWarn);
    log_.cmnLogWrite(1, "", "", kLevelWarn);

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00),
              "[2007/01/16 09:05:03]  WARN  1,   a,\tb \xE9 ,  s \r\n"
              "[2007/01/16 09:05:03]  WARN  1, , \r\n");
}

class DroppedLevel : public modCmnLogTest, public testing::WithParamInterface<std::string_view> {};

TEST_P(DroppedLevel, LeavesThePendingTextAsItWas) {
    write("kept");

    log_.cmnLogWrite(1, "dropped", "routine", GetParam());
    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), entry("kept") + "\r\n");
}

TEST_P(DroppedLevel, AloneWritesNoFile) {
    log_.cmnLogWrite(1, "dropped", "routine", GetParam());
    log_.cmnLogFlush();

    EXPECT_FALSE(disk_.exists(kLog00));
}

INSTANTIATE_TEST_SUITE_P(modCmnLog, DroppedLevel, testing::Values("INFO", "info", "Info", "iNfO"));

class KeptLevel : public modCmnLogTest, public testing::WithParamInterface<std::string_view> {};

TEST_P(KeptLevel, IsNotTheInformationalOne) {
    log_.cmnLogWrite(1, "d", "s", GetParam());

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00),
              "[2007/01/16 09:05:03]  " + std::string(GetParam()) + "  1, d, s\r\n");
}

INSTANTIATE_TEST_SUITE_P(modCmnLog, KeptLevel,
                         testing::Values("WARN", "SERV", " INFO", "INFO ", "INFOS", "INF", ""));

class BrokenClock final : public FakeClock {
public:
    LocalTime now() const override {
        if (broken) throw std::runtime_error("no time");
        return {2007, 1, 16, 9, 5, 3};
    }
    bool broken = true;
};

TEST_F(modCmnLogTest, AFailureWhileAnEntryIsMadeIsIgnored) {
    BrokenClock clock;
    modCmnLog log(files_, clock, patience_, "kvwcfg");
    log.cmnLogSetFolder("C:\\product\\log");

    log.cmnLogWrite(1, "lost", "routine", kLevelWarn);
    clock.broken = false;
    log.cmnLogWrite(1, "kept", "routine", kLevelWarn);
    log.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), entry("kept") + "\r\n");
}

// Flushing

TEST_F(modCmnLogTest, EntriesStayPendingUntilTheFlush) {
    write("a");

    EXPECT_FALSE(disk_.exists(kLog00));
    EXPECT_TRUE(files_.journal().empty());
}

TEST_F(modCmnLogTest, EntriesAreSeparatedAndEndedByOneLineEnd) {
    write("a");
    write("b");
    write("c");

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), entry("a") + "\r\n" + entry("b") + "\r\n" + entry("c") + "\r\n");
}

TEST_F(modCmnLogTest, NothingPendingTouchesNoFile) {
    log_.cmnLogFlush();

    EXPECT_TRUE(files_.journal().empty());
    EXPECT_FALSE(disk_.exists(kLog00));
}

TEST_F(modCmnLogTest, AFlushEmptiesThePendingText) {
    write("a");
    log_.cmnLogFlush();

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), entry("a") + "\r\n");
}

TEST_F(modCmnLogTest, TheEntriesOfEarlierRunsStay) {
    disk_.write(kLog00, "earlier\r\n");
    write("a");

    log_.cmnLogFlush();
    write("b");
    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), "earlier\r\n" + entry("a") + "\r\n" + entry("b") + "\r\n");
}

TEST_F(modCmnLogTest, AnEntryOf4999CharactersStaysPending) {
    writeEntryOfLength(4999);

    EXPECT_FALSE(disk_.exists(kLog00));
}

TEST_F(modCmnLogTest, AnEntryOf5000CharactersIsFlushed) {
    writeEntryOfLength(5000);

    EXPECT_EQ(disk_.read(kLog00).size(), 5002U);
}

TEST_F(modCmnLogTest, TheLineEndBetweenEntriesCounts) {
    writeEntryOfLength(2500);
    writeEntryOfLength(2497);
    const bool flushedAt4999 = disk_.exists(kLog00);
    log_.cmnLogFlush();
    disk_.remove(kLog00);

    writeEntryOfLength(2500);
    writeEntryOfLength(2498);

    EXPECT_FALSE(flushedAt4999);
    EXPECT_EQ(disk_.read(kLog00).size(), 5002U);
}

TEST_F(modCmnLogTest, ManyEntriesAreFlushedInBatches) {
    for (int i = 0; i < 100; ++i) writeEntryOfLength(98);

    // Each entry but the first brings its line end along: 50 of them are 4,998 characters.
    EXPECT_EQ(disk_.read(kLog00).size(), 51U * 100U);
}

// The log folder

TEST_F(modCmnLogTest, TheFileIsNamedAfterTheProgram) {
    modCmnLog log(files_, clock_, patience_, "Another Name");
    log.cmnLogSetFolder("C:\\product\\log");
    log.cmnLogWrite(1, "a", "routine", kLevelWarn);

    log.cmnLogFlush();

    EXPECT_EQ(disk_.tree("C:\\product\\log"), Lines{"Another Name00.log"});
}

TEST_F(modCmnLogTest, TheFolderOfTheLastCallCounts) {
    disk_.makeFolder("C:\\other");
    write("a");

    log_.cmnLogSetFolder("C:\\other");
    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read("C:\\other\\kvwcfg00.log"), entry("a") + "\r\n");
    EXPECT_FALSE(disk_.exists(kLog00));
}

TEST_F(modCmnLogTest, AnotherFolderHasAFirstFileOfItsOwn) {
    fill(0, 0, 500'000);
    disk_.makeFolder("C:\\other");
    write("into the second file");
    log_.cmnLogFlush();

    log_.cmnLogSetFolder("C:\\other");
    write("into the first one");
    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog01), entry("into the second file") + "\r\n");
    EXPECT_EQ(disk_.read("C:\\other\\kvwcfg00.log"), entry("into the first one") + "\r\n");
}

TEST_F(modCmnLogTest, EntriesStayPendingWhileTheFolderIsMissing) {
    disk_.remove("C:\\product\\log");
    write("a");
    log_.cmnLogFlush();
    write("b");
    log_.cmnLogFlush();
    EXPECT_FALSE(disk_.exists("C:\\product\\log"));

    disk_.makeFolder("C:\\product\\log");
    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), entry("a") + "\r\n" + entry("b") + "\r\n");
}

TEST_F(modCmnLogTest, ALongPendingTextIsTriedAgainWithEachEntry) {
    disk_.remove("C:\\product\\log");
    writeEntryOfLength(5000);

    disk_.makeFolder("C:\\product\\log");
    write("b");

    EXPECT_EQ(disk_.read(kLog00).size(), 5000U + 2U + entry("b").size() + 2U);
}

TEST_F(modCmnLogTest, AFailureWhileAppendingKeepsTheEntries) {
    files_.add({.text = "append", .number = ErrorNumber::DiskFull});
    write("a");
    log_.cmnLogFlush();
    EXPECT_EQ(files_.failedCalls(), 1);

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), entry("a") + "\r\n");
}

TEST_F(modCmnLogTest, ALockedFileKeepsTheEntriesPending) {
    disk_.write(kLog00, "earlier\r\n");
    write("a");
    auto lock = disk_.lock(kLog00);
    log_.cmnLogFlush();
    EXPECT_FALSE(disk_.exists(kLog01));

    lock.reset();
    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), "earlier\r\n" + entry("a") + "\r\n");
}

TEST_F(modCmnLogTest, TheFileIsNotHeldOpen) {
    write("a");

    log_.cmnLogFlush();

    EXPECT_NO_THROW(static_cast<void>(disk_.lock(kLog00)));
}

// The choice of the file

TEST_F(modCmnLogTest, AFileOf499999BytesIsAppendedTo) {
    fill(0, 0, 499'999);
    write("a");

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), std::string(499'999, 'o') + entry("a") + "\r\n");
    EXPECT_FALSE(disk_.exists(kLog01));
}

TEST_F(modCmnLogTest, AFileOf500000BytesIsFull) {
    fill(0, 0, 500'000);
    write("a");

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), std::string(500'000, 'o'));
    EXPECT_EQ(disk_.read(kLog01), entry("a") + "\r\n");
}

TEST_F(modCmnLogTest, TheFirstFileThatIsNotFullIsTaken) {
    fill(0, 6, 500'000);
    fill(7, 7, 10);
    fill(8, 8, 20);
    write("a");

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read("C:\\product\\log\\kvwcfg07.log"),
              std::string(10, 'o') + entry("a") + "\r\n");
}

TEST_F(modCmnLogTest, TheFirstMissingNumberStartsANewFile) {
    fill(0, 9, 500'000);
    fill(11, 11, 10);
    write("a");

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read("C:\\product\\log\\kvwcfg10.log"), entry("a") + "\r\n");
    EXPECT_EQ(disk_.read("C:\\product\\log\\kvwcfg11.log"), std::string(10, 'o'));
}

TEST_F(modCmnLogTest, AFileWhoseLengthCannotBeToldIsTaken) {
    fill(0, 0, 500'000);
    files_.add({.text = "fileLength", .number = ErrorNumber::PathFileAccessError});
    write("a");

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), std::string(500'000, 'o') + entry("a") + "\r\n");
}

TEST_F(modCmnLogTest, WithAllFilesFullTheLastOneGrowsAndNoneIsDeleted) {
    fill(0, 50, 500'000);
    write("a");
    log_.cmnLogFlush();
    write("b");

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog50),
              std::string(500'000, 'o') + entry("a") + "\r\n" + entry("b") + "\r\n");
    EXPECT_EQ(disk_.read(kLog00), std::string(500'000, 'o'));
    EXPECT_EQ(disk_.tree("C:\\product\\log").size(), 51U);
}

TEST_F(modCmnLogTest, AFileThatWasRemovedIsTakenAgain) {
    fill(0, 4, 500'000);
    write("a");
    log_.cmnLogFlush();
    disk_.fileSystem().deleteFiles(kLog01);
    write("b");

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog01), entry("b") + "\r\n");
    EXPECT_EQ(disk_.read("C:\\product\\log\\kvwcfg05.log"), entry("a") + "\r\n");
}

TEST_F(modCmnLogTest, EachFlushLooksForItsFileFromTheFirstOneOn) {
    fill(0, 1, 500'000);
    write("a");
    log_.cmnLogFlush();
    files_.clearJournal();
    write("b");

    log_.cmnLogFlush();

    EXPECT_EQ(files_.journal(), (Lines{"fileLength C:\\product\\log\\kvwcfg00.log",
                                       "fileLength C:\\product\\log\\kvwcfg01.log",
                                       "fileLength C:\\product\\log\\kvwcfg02.log",
                                       "append C:\\product\\log\\kvwcfg02.log, 44 bytes"}));
}

// A clock that counts how often it is read.
class CountingClock final : public FakeClock {
public:
    LocalTime now() const override {
        ++readings;
        return time;
    }
    mutable int readings = 0;
};

TEST_F(modCmnLogTest, TheClockIsReadOnceForAnEntryAndNotForAFlush) {
    CountingClock clock;
    modCmnLog log(files_, clock, patience_, "kvwcfg");
    log.cmnLogSetFolder("C:\\product\\log");

    log.cmnLogWrite(1, "a", "routine", kLevelWarn);
    EXPECT_EQ(clock.readings, 1);
    log.cmnLogFlush();
    EXPECT_EQ(clock.readings, 1);
}

// Other programs that append

TEST_F(modCmnLogTest, AFlushWaitsForAnotherProgramThatAppends) {
    files_.add({.text = "append", .number = ErrorNumber::FileAlreadyOpen, .inUse = true});
    write("a");

    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), entry("a") + "\r\n");
    EXPECT_GT(clock_.paused.count(), 0);
    EXPECT_LT(clock_.paused.count(), 100);
}

TEST_F(modCmnLogTest, AFlushWaitsAtMostASecondAndKeepsTheEntries) {
    files_.add(
        {.text = "append", .number = ErrorNumber::FileAlreadyOpen, .once = false, .inUse = true});
    write("a");
    log_.cmnLogFlush();
    EXPECT_EQ(clock_.paused.count(), 1000);

    files_.clearFaults();
    log_.cmnLogFlush();

    EXPECT_EQ(disk_.read(kLog00), entry("a") + "\r\n");
    EXPECT_EQ(clock_.paused.count(), 1000);
}

TEST_F(modCmnLogTest, ABurstGoesOnInTheNextFileWhenOneBecomesFull) {
    fill(0, 0, 500'000);
    fill(1, 1, 499'999);
    writeEntryOfLength(5000);
    writeEntryOfLength(5000);

    EXPECT_EQ(disk_.read(kLog01).size(), 499'999U + 5002);
    EXPECT_EQ(disk_.read("C:\\product\\log\\kvwcfg02.log").size(), 5002U);
}

TEST_F(modCmnLogTest, ABurstPassesOverFilesThatAreFullAlready) {
    fill(0, 0, 499'999);
    fill(1, 2, 500'000);
    writeEntryOfLength(5000);
    writeEntryOfLength(5000);
    writeEntryOfLength(5000);

    EXPECT_EQ(disk_.read(kLog00).size(), 499'999U + 5002);
    EXPECT_EQ(disk_.read(kLog01).size(), 500'000U);
    EXPECT_EQ(disk_.read("C:\\product\\log\\kvwcfg03.log").size(), 2U * 5002);
}

TEST_F(modCmnLogTest, ABurstLeavesAFileOnceItHas500000Bytes) {
    fill(0, 0, 500'000 - 5002);
    writeEntryOfLength(5000);
    writeEntryOfLength(5000);

    EXPECT_EQ(disk_.read(kLog00).size(), 500'000U);
    EXPECT_EQ(disk_.read(kLog01).size(), 5002U);
}

}  // namespace
}  // namespace kv
