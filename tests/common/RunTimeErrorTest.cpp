#include "common/RunTimeError.h"

#include <array>
#include <cstddef>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

struct Row {
    ErrorNumber number;
    int value;
    const char* text;
};
class Described : public testing::TestWithParam<Row> {};

TEST_P(Described, HasItsClassicNumberAndText) {
    const RunTimeError failure(GetParam().number);

    EXPECT_EQ(failure.number(), GetParam().value);
    EXPECT_STREQ(failure.what(), GetParam().text);
    EXPECT_STREQ(describe(GetParam().number), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    RunTimeError, Described,
    testing::Values(Row{ErrorNumber::InvalidProcedureCall, 5, "Invalid procedure call or argument"},
                    Row{ErrorNumber::Overflow, 6, "Overflow"},
                    Row{ErrorNumber::OutOfMemory, 7, "Out of memory"},
                    Row{ErrorNumber::SubscriptOutOfRange, 9, "Subscript out of range"},
                    Row{ErrorNumber::TypeMismatch, 13, "Type mismatch"},
                    Row{ErrorNumber::InternalError, 51, "Internal error"},
                    Row{ErrorNumber::BadFileNameOrNumber, 52, "Bad file name or number"},
                    Row{ErrorNumber::FileNotFound, 53, "File not found"},
                    Row{ErrorNumber::FileAlreadyOpen, 55, "File already open"},
                    Row{ErrorNumber::DeviceIoError, 57, "Device I/O error"},
                    Row{ErrorNumber::DiskFull, 61, "Disk full"},
                    Row{ErrorNumber::TooManyFiles, 67, "Too many files"},
                    Row{ErrorNumber::DeviceUnavailable, 68, "Device unavailable"},
                    Row{ErrorNumber::PermissionDenied, 70, "Permission denied"},
                    Row{ErrorNumber::DiskNotReady, 71, "Disk not ready"},
                    Row{ErrorNumber::PathFileAccessError, 75, "Path/File access error"},
                    Row{ErrorNumber::PathNotFound, 76, "Path not found"}));

template <class Thrown>
RunTimeError failureFor(const Thrown& thrown) {
    try {
        throw thrown;
    } catch (...) {
        return currentFailure();
    }
}

TEST(RunTimeError, AFailureBeingHandledKeepsItsNumberAndText) {
    const RunTimeError failure = failureFor(RunTimeError(ErrorNumber::DiskFull));

    EXPECT_EQ(failure.number(), 61);
    EXPECT_STREQ(failure.what(), "Disk full");
}

TEST(RunTimeError, WantOfMemoryIsNumber7) { EXPECT_EQ(failureFor(std::bad_alloc()).number(), 7); }

TEST(RunTimeError, ATextLongerThanAnyMemoryIsNumber7) {
    EXPECT_EQ(failureFor(std::length_error("too long")).number(), 7);
}

TEST(RunTimeError, WhateverElseIsThrownIsAnInternalError) {
    EXPECT_EQ(failureFor(std::logic_error("anything")).number(), 51);
    EXPECT_EQ(failureFor(1).number(), 51);
}

TEST(RunTimeError, CopyingItCannotFail) {
    EXPECT_TRUE(std::is_nothrow_copy_constructible_v<RunTimeError>);
}

TEST(ElementAt, GivesTheElementToReadAndToChange) {
    std::vector<std::string> list{"a", "b"};

    elementAt(list, 1) = "c";

    EXPECT_EQ(elementAt(list, 0), "a");
    EXPECT_EQ(list[1], "c");
}

TEST(ElementAt, RefusesAnIndexThatTheListDoesNotHave) {
    const std::array<int, 2> list{1, 2};
    const std::vector<int> empty;

    for (const std::ptrdiff_t index :
         {std::ptrdiff_t{2}, std::ptrdiff_t{-1}, std::numeric_limits<std::ptrdiff_t>::min(),
          std::numeric_limits<std::ptrdiff_t>::max()})
        EXPECT_EQ(failureOf([&] { static_cast<void>(elementAt(list, index)); }), 9) << index;
    EXPECT_EQ(failureOf([&] { static_cast<void>(elementAt(empty, 0)); }), 9);
}

}  // namespace
}  // namespace kv
