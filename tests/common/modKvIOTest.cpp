#include "common/modKvIO.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "common/FileSystem.h"
#include "common/RunTimeError.h"
#include "tests/support/ServicesTest.h"

namespace kv {
namespace {

class modKvIOTest : public ServicesTest {
protected:
    static std::string everyByte() {
        std::string bytes;
        for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
        return bytes;
    }
};

// Copying

TEST_F(modKvIOTest, CopyingMakesAnEqualFile) {
    disk_.write("C:\\a", "new");

    EXPECT_EQ(io_.ioCopyFile("C:\\a", "C:\\b", false), 0);

    EXPECT_EQ(disk_.read("C:\\b"), "new");
    EXPECT_EQ(disk_.read("C:\\a"), "new");
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOTest, CopyingReplacesAnExistingFile) {
    disk_.write("C:\\a", "new");
    disk_.write("C:\\b", "old and longer");

    EXPECT_EQ(io_.ioCopyFile("C:\\a", "C:\\b", false), 0);

    EXPECT_EQ(disk_.read("C:\\b"), "new");
}

TEST_F(modKvIOTest, CopyingAMissingFileIsSerious) {
    disk_.write("C:\\b", "old");

    EXPECT_EQ(io_.ioCopyFile("C:\\a", "C:\\b", false), 1);

    EXPECT_EQ(disk_.read("C:\\b"), "old");
    EXPECT_EQ(logged(), Lines{"SERV  53, File not found, ioCopyFile"});
}

TEST_F(modKvIOTest, CopyingIntoAMissingFolderIsAWarning) {
    disk_.write("C:\\a", "new");

    EXPECT_EQ(io_.ioCopyFile("C:\\a", "C:\\missing\\b", false), 1);

    EXPECT_EQ(logged(), Lines{"WARN  76, Path not found, ioCopyFile"});
    EXPECT_FALSE(disk_.exists("C:\\missing"));
}

// Deleting

TEST_F(modKvIOTest, DeletingRemovesTheFile) {
    disk_.write("C:\\a", "");

    EXPECT_EQ(io_.ioDeleteFile("C:\\a", false), 0);

    EXPECT_FALSE(disk_.exists("C:\\a"));
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOTest, DeletingTakesWildcards) {
    disk_.write("C:\\f\\a.cfg", "");
    disk_.write("C:\\f\\b.cfg", "");
    disk_.write("C:\\f\\c.txt", "");

    EXPECT_EQ(io_.ioDeleteFile("C:\\f\\*.cfg", false), 0);

    EXPECT_EQ(disk_.tree("C:\\f"), Lines{"c.txt"});
}

TEST_F(modKvIOTest, DeletingAMissingFileIsSerious) {
    EXPECT_EQ(io_.ioDeleteFile("C:\\a", false), 1);

    EXPECT_EQ(logged(), Lines{"SERV  53, File not found, ioDeleteFile"});
}

// Folders

TEST_F(modKvIOTest, AnEmptyFolderIsRemoved) {
    disk_.makeFolder("C:\\f");

    EXPECT_EQ(io_.ioDeleteDirectory("C:\\f"), 0);

    EXPECT_FALSE(disk_.exists("C:\\f"));
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOTest, AFolderWithFilesStaysAndIsSerious) {
    disk_.write("C:\\f\\a", "");

    EXPECT_EQ(io_.ioDeleteDirectory("C:\\f"), 1);

    EXPECT_TRUE(disk_.exists("C:\\f\\a"));
    EXPECT_EQ(logged(), Lines{"SERV  75, Path/File access error, ioDeleteDirectory"});
}

TEST_F(modKvIOTest, AFolderIsMade) {
    EXPECT_EQ(io_.ioMakeDirectory("C:\\f"), 0);

    EXPECT_TRUE(disk_.exists("C:\\f"));
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOTest, MakingAnExistingFolderIsAWarning) {
    disk_.write("C:\\f\\a", "");

    EXPECT_EQ(io_.ioMakeDirectory("C:\\f"), 1);

    EXPECT_TRUE(disk_.exists("C:\\f\\a"));
    EXPECT_EQ(logged(), Lines{"WARN  75, Path/File access error, ioMakeDirectory"});
}

TEST_F(modKvIOTest, NoFolderIsMadeOnTheWay) {
    EXPECT_EQ(io_.ioMakeDirectory("C:\\f\\g"), 1);

    EXPECT_FALSE(disk_.exists("C:\\f"));
    EXPECT_EQ(logged(), Lines{"WARN  76, Path not found, ioMakeDirectory"});
}

// Moving by copy and deletion

TEST_F(modKvIOTest, ABackupMovesTheFile) {
    disk_.write("C:\\a", "present");

    io_.ioBackupFile("C:\\a", "C:\\b", false);

    EXPECT_EQ(disk_.read("C:\\b"), "present");
    EXPECT_FALSE(disk_.exists("C:\\a"));
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOTest, ABackupReplacesAnExistingFile) {
    disk_.write("C:\\a", "present");
    disk_.write("C:\\b", "older and longer");

    io_.ioBackupFile("C:\\a", "C:\\b", false);

    EXPECT_EQ(disk_.read("C:\\b"), "present");
}

TEST_F(modKvIOTest, ABackupIsACopyAndADeletion) {
    disk_.write("C:\\a", "present");

    io_.ioBackupFile("C:\\a", "C:\\b", false);

    EXPECT_EQ(files_.journal(), (Lines{"copyFile C:\\a -> C:\\b", "deleteFiles C:\\a"}));
}

TEST_F(modKvIOTest, ABackupOfAMissingFileLeavesTheDestination) {
    disk_.write("C:\\b", "old");

    io_.ioBackupFile("C:\\a", "C:\\b", false);

    EXPECT_EQ(disk_.read("C:\\b"), "old");
    EXPECT_EQ(logged(), Lines{"SERV  53, File not found, ioBackupFile"});
}

TEST_F(modKvIOTest, ABackupWhoseCopyFailsKeepsTheSource) {
    disk_.write("C:\\a", "present");
    files_.add({.text = "copyFile", .number = ErrorNumber::DiskFull});

    io_.ioBackupFile("C:\\a", "C:\\b", false);

    EXPECT_EQ(files_.journal(), Lines{"copyFile C:\\a -> C:\\b"});
    EXPECT_EQ(disk_.read("C:\\a"), "present");
    EXPECT_EQ(logged(), Lines{"WARN  61, Disk full, ioBackupFile"});
}

TEST_F(modKvIOTest, ABackupWhoseDeletionFailsKeepsBothFiles) {
    disk_.write("C:\\a", "present");
    files_.add({.text = "deleteFiles", .number = ErrorNumber::PathFileAccessError});

    io_.ioBackupFile("C:\\a", "C:\\b", false);

    EXPECT_EQ(disk_.read("C:\\a"), "present");
    EXPECT_EQ(disk_.read("C:\\b"), "present");
    EXPECT_EQ(logged(), Lines{"WARN  75, Path/File access error, ioBackupFile"});
}

TEST_F(modKvIOTest, TheFlagIsIgnored) {
    disk_.write("C:\\a", "a");

    io_.ioBackupFile("C:\\a", "C:\\b", true);
    EXPECT_EQ(io_.ioCopyFile("C:\\b", "C:\\c", true), 0);
    EXPECT_EQ(io_.ioDeleteFile("C:\\b", true), 0);

    EXPECT_FALSE(disk_.exists("C:\\a"));
    EXPECT_FALSE(disk_.exists("C:\\b"));
    EXPECT_EQ(disk_.read("C:\\c"), "a");
}

// The level of each failure

struct GuardedRoutine {
    const char* name;
    std::function<int(modKvIO&)> run;  // 1 for the one without a status
    bool accessErrorIsSerious = false;
};

struct Failure {
    ErrorNumber number;
    const char* text;  // in an entry
    enum { Never, Always, ForAFolder } serious;
};

class GuardedFailure : public modKvIOTest,
                       public testing::WithParamInterface<std::tuple<GuardedRoutine, Failure>> {};

TEST_P(GuardedFailure, IsLoggedOnceWithItsLevelAndToldByTheStatus) {
    const auto& [routine, failure] = GetParam();
    const bool serious = failure.serious == Failure::Always ||
                         (failure.serious == Failure::ForAFolder && routine.accessErrorIsSerious);
    files_.add({.number = failure.number, .once = false});

    EXPECT_EQ(routine.run(io_), 1);

    EXPECT_EQ(logged(), Lines{(serious ? "SERV  " : "WARN  ") + std::string(failure.text) + ", " +
                              routine.name});
}

std::string nameOf(const testing::TestParamInfo<GuardedFailure::ParamType>& info) {
    const auto& [routine, failure] = info.param;
    return std::string(routine.name) + "_" + std::to_string(static_cast<int>(failure.number));
}

INSTANTIATE_TEST_SUITE_P(
    modKvIO, GuardedFailure,
    testing::Combine(
        testing::Values(
            GuardedRoutine{"ioBackupFile",
                           [](modKvIO& io) {
                               io.ioBackupFile("C:\\a", "C:\\b", false);
                               return 1;
                           }},
            GuardedRoutine{"ioCopyFile",
                           [](modKvIO& io) { return io.ioCopyFile("C:\\a", "C:\\b", false); }},
            GuardedRoutine{"ioDeleteFile",
                           [](modKvIO& io) { return io.ioDeleteFile("C:\\a", false); }},
            GuardedRoutine{"ioDeleteDirectory",
                           [](modKvIO& io) { return io.ioDeleteDirectory("C:\\a"); }, true},
            GuardedRoutine{"ioMakeDirectory",
                           [](modKvIO& io) { return io.ioMakeDirectory("C:\\a"); }}),
        testing::Values(
            Failure{ErrorNumber::BadFileNameOrNumber, "52, Bad file name or number",
                    Failure::Always},
            Failure{ErrorNumber::FileNotFound, "53, File not found", Failure::Always},
            Failure{ErrorNumber::FileAlreadyOpen, "55, File already open", Failure::Always},
            Failure{ErrorNumber::PathFileAccessError, "75, Path/File access error",
                    Failure::ForAFolder},
            Failure{ErrorNumber::DeviceIoError, "57, Device I/O error", Failure::Never},
            Failure{ErrorNumber::DiskFull, "61, Disk full", Failure::Never},
            Failure{ErrorNumber::PermissionDenied, "70, Permission denied", Failure::Never},
            Failure{ErrorNumber::PathNotFound, "76, Path not found", Failure::Never})),
    nameOf);

// Binary files

TEST_F(modKvIOTest, WritingMakesAFileOfExactlyTheBytes) {
    const std::int16_t file = io_.ioOpenFileBinaryWrite("C:\\a");
    io_.ioPutData(file, everyByte());
    io_.ioCloseFile(file);

    EXPECT_EQ(disk_.read("C:\\a"), everyByte());
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOTest, PiecesFollowEachOther) {
    const std::int16_t file = io_.ioOpenFileBinaryWrite("C:\\a");
    io_.ioPutData(file, "one ");
    io_.ioPutData(file, "");
    io_.ioPutData(file, "two");
    io_.ioCloseFile(file);

    EXPECT_EQ(disk_.read("C:\\a"), "one two");
}

TEST_F(modKvIOTest, OpeningForWritingMakesAnEmptyFile) {
    io_.ioCloseFile(io_.ioOpenFileBinaryWrite("C:\\a"));

    EXPECT_EQ(disk_.read("C:\\a"), "");
}

TEST_F(modKvIOTest, BytesBeyondTheNewEndRemain) {
    disk_.write("C:\\a", "old content");

    const std::int16_t file = io_.ioOpenFileBinaryWrite("C:\\a");
    io_.ioPutData(file, "NEW");
    io_.ioCloseFile(file);

    EXPECT_EQ(disk_.read("C:\\a"), "NEW content");
}

TEST_F(modKvIOTest, LargeFilesAreWrittenWhole) {
    std::string expected;
    const std::int16_t file = io_.ioOpenFileBinaryWrite("C:\\a");
    for (int i = 0; i < 30'000; ++i) {
        const std::string line = "line " + std::to_string(i) + "\r\n";
        io_.ioPutData(file, line);
        expected += line;
    }
    io_.ioPutData(file, std::string(1'000'000, 'x'));
    io_.ioCloseFile(file);

    EXPECT_EQ(disk_.read("C:\\a"), expected + std::string(1'000'000, 'x'));
}

TEST_F(modKvIOTest, ASmallFileArrivesByOneWrite) {
    const std::int16_t file = io_.ioOpenFileBinaryWrite("C:\\a");
    io_.ioPutData(file, "one");
    io_.ioPutData(file, "two");
    io_.ioCloseFile(file);

    EXPECT_EQ(files_.journal(),
              (Lines{"openForWrite C:\\a", "write C:\\a, 6 bytes", "close C:\\a"}));
}

TEST_F(modKvIOTest, FlushingWritesWhatIsPending) {
    const std::int16_t file = io_.ioOpenFileBinaryWrite("C:\\a");
    io_.ioPutData(file, "one");
    io_.ioFlushData(file);
    io_.ioFlushData(file);
    io_.ioPutData(file, "two");
    io_.ioCloseFile(file);

    EXPECT_EQ(files_.journal(), (Lines{"openForWrite C:\\a", "write C:\\a, 3 bytes",
                                       "write C:\\a, 3 bytes", "close C:\\a"}));
}

TEST_F(modKvIOTest, AFailedFlushDropsWhatWasPendingAndTheFileStaysUsable) {
    files_.add({.text = "write C:\\a", .number = ErrorNumber::DiskFull});
    const std::int16_t file = io_.ioOpenFileBinaryWrite("C:\\a");
    io_.ioPutData(file, "lost");

    EXPECT_EQ(failureOf([&] { io_.ioFlushData(file); }), 61);

    io_.ioPutData(file, "kept");
    io_.ioCloseFile(file);
    EXPECT_EQ(disk_.read("C:\\a"), "kept");
}

TEST_F(modKvIOTest, OtherWritersAreLockedOutWhileAFileIsOpen) {
    const std::int16_t file = io_.ioOpenFileBinaryWrite("C:\\a");

    EXPECT_EQ(failureOf([&] { io_.ioOpenFileBinaryWrite("C:\\a"); }), 55);

    io_.ioCloseFile(file);
    EXPECT_EQ(failureOf([&] { io_.ioCloseFile(io_.ioOpenFileBinaryWrite("C:\\a")); }), 0);
}

TEST_F(modKvIOTest, ReadersShareAFile) {
    disk_.write("C:\\a", "ab");
    std::string first(2, ' ');
    std::string second(2, ' ');

    const std::int16_t one = io_.ioOpenFileBinaryRead("C:\\a");
    const std::int16_t two = io_.ioOpenFileBinaryRead("C:\\a");
    io_.ioGetData(one, first);
    io_.ioGetData(two, second);
    io_.ioCloseFile(one);
    io_.ioCloseFile(two);

    EXPECT_EQ(first, "ab");
    EXPECT_EQ(second, "ab");
}

TEST_F(modKvIOTest, ReadingGivesTheBytesAsTheyAre) {
    disk_.write("C:\\a", everyByte());
    std::string text(256, ' ');

    const std::int16_t file = io_.ioOpenFileBinaryRead("C:\\a");
    io_.ioGetData(file, text);
    io_.ioCloseFile(file);

    EXPECT_EQ(text, everyByte());
}

TEST_F(modKvIOTest, ReadingGoesOnFromThePosition) {
    disk_.write("C:\\a", "one two");
    std::string text(4, ' ');
    const std::int16_t file = io_.ioOpenFileBinaryRead("C:\\a");
    io_.ioGetData(file, text);

    io_.ioGetData(file, text);

    EXPECT_EQ(text, "two ");
    io_.ioCloseFile(file);
}

TEST_F(modKvIOTest, ReadingTakesNoMoreThanTheTextHolds) {
    disk_.write("C:\\a", "content");
    std::string text(3, ' ');
    std::string none;

    const std::int16_t file = io_.ioOpenFileBinaryRead("C:\\a");
    io_.ioGetData(file, none);
    io_.ioGetData(file, text);
    io_.ioCloseFile(file);

    EXPECT_EQ(none, "");
    EXPECT_EQ(text, "con");
}

TEST_F(modKvIOTest, BehindTheEndTheTextStays) {
    disk_.write("C:\\a", "ab");
    std::string text = "12345";

    const std::int16_t file = io_.ioOpenFileBinaryRead("C:\\a");
    io_.ioGetData(file, text);
    io_.ioCloseFile(file);

    EXPECT_EQ(text, "ab345");
}

TEST_F(modKvIOTest, OpeningPassesTheFailureOnUnlogged) {
    EXPECT_EQ(failureOf([&] { io_.ioOpenFileBinaryRead("C:\\a"); }), 53);
    EXPECT_EQ(failureOf([&] { io_.ioOpenFileBinaryRead("C:\\f\\a"); }), 76);
    EXPECT_EQ(failureOf([&] { io_.ioOpenFileBinaryWrite("C:\\f\\a"); }), 76);

    EXPECT_EQ(logged(), Lines{});
    EXPECT_FALSE(disk_.exists("C:\\a"));
}

TEST_F(modKvIOTest, ReadingPassesTheFailureOn) {
    disk_.write("C:\\a", "ab");
    files_.add({.text = "read ", .number = ErrorNumber::DeviceIoError});
    std::string text(2, ' ');
    const std::int16_t file = io_.ioOpenFileBinaryRead("C:\\a");

    EXPECT_EQ(failureOf([&] { io_.ioGetData(file, text); }), 57);

    EXPECT_EQ(logged(), Lines{});
    io_.ioCloseFile(file);
}

TEST_F(modKvIOTest, WritingMuchPassesTheFailureOn) {
    files_.add({.text = "write ", .number = ErrorNumber::DiskFull});
    const std::int16_t file = io_.ioOpenFileBinaryWrite("C:\\a");

    EXPECT_EQ(failureOf([&] { io_.ioPutData(file, std::string(5'000'000, 'x')); }), 61);

    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOTest, AFailedClosingLeavesTheFileOpenUntilItSucceeds) {
    files_.add({.text = "close C:\\a", .number = ErrorNumber::DiskFull});
    const std::int16_t file = io_.ioOpenFileBinaryWrite("C:\\a");
    io_.ioPutData(file, "text");

    EXPECT_EQ(failureOf([&] { io_.ioCloseFile(file); }), 61);
    EXPECT_EQ(failureOf([&] { io_.ioOpenFileBinaryWrite("C:\\a"); }), 55);

    EXPECT_EQ(failureOf([&] { io_.ioCloseFile(file); }), 0);
    EXPECT_EQ(disk_.read("C:\\a"), "text");
    EXPECT_EQ(failureOf([&] { io_.ioCloseFile(io_.ioOpenFileBinaryWrite("C:\\a")); }), 0);
}

TEST_F(modKvIOTest, TheLowestFreeNumberIsTaken) {
    const std::int16_t first = io_.ioOpenFileBinaryWrite("C:\\a");
    const std::int16_t second = io_.ioOpenFileBinaryWrite("C:\\b");
    const std::int16_t third = io_.ioOpenFileBinaryWrite("C:\\c");
    io_.ioCloseFile(first);
    io_.ioCloseFile(second);

    EXPECT_EQ(io_.ioOpenFileBinaryRead("C:\\a"), first);
    EXPECT_EQ(io_.ioOpenFileBinaryRead("C:\\b"), second);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(third, 3);
}

TEST_F(modKvIOTest, AFailedOpeningTakesNoNumber) {
    EXPECT_EQ(failureOf([&] { io_.ioOpenFileBinaryRead("C:\\missing"); }), 53);

    EXPECT_EQ(io_.ioOpenFileBinaryWrite("C:\\a"), 1);
}

TEST_F(modKvIOTest, AFileTooManyIsRefusedBeforeItIsMade) {
    disk_.write("C:\\a", "");
    for (int number = 1; number <= 511; ++number)
        ASSERT_EQ(io_.ioOpenFileBinaryRead("C:\\a"), number);

    EXPECT_EQ(failureOf([&] { io_.ioOpenFileBinaryWrite("C:\\b"); }), 67);

    EXPECT_FALSE(disk_.exists("C:\\b"));
    io_.ioCloseFile(300);
    EXPECT_EQ(io_.ioOpenFileBinaryWrite("C:\\b"), 300);
}

TEST_F(modKvIOTest, ANumberThatNamesNoFileIsRefused) {
    std::string text(1, ' ');
    io_.ioCloseFile(io_.ioOpenFileBinaryWrite("C:\\a"));

    EXPECT_EQ(failureOf([&] { io_.ioPutData(1, "x"); }), 52);
    EXPECT_EQ(failureOf([&] { io_.ioGetData(1, text); }), 52);
    EXPECT_EQ(failureOf([&] { io_.ioPutData(0, "x"); }), 52);
    EXPECT_EQ(failureOf([&] { io_.ioPutData(-1, "x"); }), 52);
}

TEST_F(modKvIOTest, OpenFilesAreReleasedAtTheEnd) {
    std::make_unique<modKvIO>(files_, log_, patience_)->ioOpenFileBinaryWrite("C:\\a");

    EXPECT_NO_THROW(disk_.fileSystem().openForWrite("C:\\a"));
}

TEST_F(modKvIOTest, WhatIsPendingIsWrittenAtTheEnd) {
    auto io = std::make_unique<modKvIO>(files_, log_, patience_);
    io->ioPutData(io->ioOpenFileBinaryWrite("C:\\a"), "text");

    io.reset();

    EXPECT_EQ(disk_.read("C:\\a"), "text");
}

// Files that somebody else is using

struct GuardedStep {
    const char* name;
    const char* call;  // of the file system, by the beginning of its line in the journal
    int (*run)(modKvIO& io);
};

const std::vector<GuardedStep> kGuardedSteps{
    {"Copying", "copyFile C:\\a -> C:\\b",
     [](modKvIO& io) { return io.ioCopyFile("C:\\a", "C:\\b", false); }},
    {"Deleting", "deleteFiles C:\\a", [](modKvIO& io) { return io.ioDeleteFile("C:\\a", false); }},
    {"Removing", "removeDirectory C:\\f",
     [](modKvIO& io) { return io.ioDeleteDirectory("C:\\f"); }},
    {"Making", "makeDirectory C:\\new", [](modKvIO& io) { return io.ioMakeDirectory("C:\\new"); }},
};

class StepInUse : public modKvIOTest, public testing::WithParamInterface<GuardedStep> {
protected:
    StepInUse() {
        disk_.write("C:\\a", "text");
        disk_.makeFolder("C:\\f");
    }

    void addFault(bool once) {
        files_.add({.text = GetParam().call,
                    .number = ErrorNumber::FileAlreadyOpen,
                    .once = once,
                    .inUse = true});
    }
};

TEST_P(StepInUse, IsTriedAgainWithoutAnEntry) {
    addFault(true);

    EXPECT_EQ(GetParam().run(io_), 0);

    EXPECT_EQ(files_.journal(), (Lines{GetParam().call, GetParam().call}));
    EXPECT_EQ(logged(), Lines{});
}

TEST_P(StepInUse, FailsWithOneEntryAfterASecond) {
    addFault(false);

    EXPECT_EQ(GetParam().run(io_), 1);

    EXPECT_EQ(clock_.paused.count(), 1000);
    ASSERT_EQ(logged().size(), 1U);
    EXPECT_TRUE(logged()[0].starts_with("SERV  55, File already open, ")) << logged()[0];
}

INSTANTIATE_TEST_SUITE_P(modKvIO, StepInUse, testing::ValuesIn(kGuardedSteps),
                         [](const auto& step) { return step.param.name; });

TEST_F(modKvIOTest, AMoveWhoseFileIsInUseCopiesItOnce) {
    disk_.write("C:\\a", "text");
    files_.add({.text = "deleteFiles", .number = ErrorNumber::FileAlreadyOpen, .inUse = true});

    io_.ioBackupFile("C:\\a", "C:\\b", false);

    EXPECT_EQ(files_.journal(),
              (Lines{"copyFile C:\\a -> C:\\b", "deleteFiles C:\\a", "deleteFiles C:\\a"}));
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(modKvIOTest, AFileInUseIsOpenedLater) {
    disk_.write("C:\\a", "text");
    for (const char* call : {"openForWrite", "openForRead", "truncate"})
        files_.add({.text = call, .number = ErrorNumber::FileAlreadyOpen, .inUse = true});

    EXPECT_EQ(io_.ioOpenFileBinaryRead("C:\\a"), 1);
    io_.ioCloseFile(1);
    EXPECT_EQ(io_.ioOpenFileBinaryWrite("C:\\a", OldBytes::Go), 1);

    EXPECT_EQ(disk_.read("C:\\a"), "");
}

TEST_F(modKvIOTest, AFileThatCannotBeEmptiedIsNotOpened) {
    disk_.write("C:\\a", "text");
    files_.add({.text = "truncate", .number = ErrorNumber::PathFileAccessError});

    EXPECT_EQ(failureOf([&] { io_.ioOpenFileBinaryWrite("C:\\a", OldBytes::Go); }), 75);

    EXPECT_EQ(disk_.read("C:\\a"), "text");
    EXPECT_EQ(io_.ioOpenFileBinaryRead("C:\\a"), 1);
}

}  // namespace
}  // namespace kv
