#include "process/FolderCheck.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/Wizard.h"

namespace kv {
namespace {

struct CheckCase {
    const char* name;
    const char* typed;
    int result;
    const char* message;  // null for none
    const char* kept;     // the text of the box afterwards
};

constexpr const char* kEnterMessage = "Please enter folder's full path name.";

class FolderCheckTest : public testing::Test {
protected:
    FolderCheckTest() {
        bench_.disk.makeFolder("C:\\www\\site");
        bench_.disk.write("C:\\www\\file", "");
        bench_.disk.makeFolder("C:\\Inetpub");
    }

    // What the check returns and says of the text.
    void expect(std::int16_t (FolderCheck::*check)(TextBox&), const CheckCase& expected) {
        box_.setText(expected.typed);
        bench_.messages.informations.clear();

        const std::int16_t result = (check_.*check)(box_);

        EXPECT_EQ(result, expected.result);
        EXPECT_EQ(bench_.messages.informations,
                  expected.message ? Lines{expected.message} : Lines{});
        EXPECT_EQ(box_.text(), expected.kept);
    }

    Workbench bench_;
    TextBox& box_ = bench_.form.txtFolderHomeApache;
    FolderCheck check_{bench_.files, bench_.messages, bench_.state.leadBytes};
};

class FolderTest : public FolderCheckTest, public testing::WithParamInterface<CheckCase> {};

TEST_P(FolderTest, IsChecked) { expect(&FolderCheck::wcpCheckFolderPath, GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    FolderCheck, FolderTest,
    testing::Values(
        CheckCase{"Empty", "", 1, kEnterMessage, ""},
        CheckCase{"OnlyBlanks", "   ", 1, kEnterMessage, "   "},
        CheckCase{"There", "C:\\www", 0, nullptr, "C:\\www"},
        CheckCase{"ThereAndDeeper", "C:\\www\\site", 0, nullptr, "C:\\www\\site"},
        CheckCase{"TrailingBackslash", "C:\\www\\", 0, nullptr, "C:\\www"},
        CheckCase{"TwoTrailingBackslashes", "C:\\nowhere\\\\", 2,
                  "\"C:\\nowhere\\\" does not exist.", "C:\\nowhere\\"},
        CheckCase{"Missing", "C:\\nowhere", 2, "\"C:\\nowhere\" does not exist.", "C:\\nowhere"},
        CheckCase{"MissingWithTrailingBackslash", "C:\\nowhere\\", 2,
                  "\"C:\\nowhere\" does not exist.", "C:\\nowhere"},
        CheckCase{"OtherLetterCase", "C:\\WWW", 2, "\"C:\\WWW\" does not exist.", "C:\\WWW"},
        CheckCase{"LeadingBlanks", "  C:\\nowhere", 2, "\"  C:\\nowhere\" does not exist.",
                  "  C:\\nowhere"},
        CheckCase{"LeadingBlanksBeforeAFolderThatIsThere", "  C:\\www", 2,
                  "\"  C:\\www\" does not exist.", "  C:\\www"},
        CheckCase{"TrailingBlankAfterABackslash", "C:\\www\\ ", 2, "\"C:\\www\\ \" does not exist.",
                  "C:\\www\\ "},
        CheckCase{"AFileOfTheName", "C:\\www\\file", 0, nullptr, "C:\\www\\file"}),
    CaseName());

class ParentFolderTest : public FolderCheckTest, public testing::WithParamInterface<CheckCase> {};

TEST_P(ParentFolderTest, IsChecked) { expect(&FolderCheck::wcpCheckParentFolderPath, GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    FolderCheck, ParentFolderTest,
    testing::Values(
        CheckCase{"Empty", "", 1, kEnterMessage, ""},
        CheckCase{"OnlyBlanks", "   ", 1, kEnterMessage, "   "},
        CheckCase{"ParentThere", "C:\\Inetpub\\scripts", 0, nullptr, "C:\\Inetpub\\scripts"},
        CheckCase{"TrailingBackslash", "C:\\Inetpub\\scripts\\", 0, nullptr,
                  "C:\\Inetpub\\scripts"},
        CheckCase{"ParentMissing", "C:\\nowhere\\scripts", 2, "\"C:\\nowhere\" does not exist.",
                  "C:\\nowhere\\scripts"},
        CheckCase{"ParentMissingWithTrailingBackslash", "C:\\nowhere\\scripts\\", 2,
                  "\"C:\\nowhere\" does not exist.", "C:\\nowhere\\scripts"},
        CheckCase{"ParentOfAnotherLetterCase", "C:\\INETPUB\\scripts", 2,
                  "\"C:\\INETPUB\" does not exist.", "C:\\INETPUB\\scripts"},
        CheckCase{"LeadingBlanks", "  C:\\Inetpub\\scripts", 2, "\"  C:\\Inetpub\" does not exist.",
                  "  C:\\Inetpub\\scripts"},
        CheckCase{"TwoTrailingBackslashes", "C:\\Inetpub\\\\", 0, nullptr, "C:\\Inetpub\\"}),
    CaseName());

TEST_F(FolderCheckTest, OnlyTheParentIsLookedUp) {
    box_.setText("C:\\Inetpub\\scripts");

    check_.wcpCheckParentFolderPath(box_);

    EXPECT_EQ(bench_.files.journal(), Lines{"findName C:\\Inetpub, files and folders"});
}

// Code page 932, in which 0x95 begins a character of two bytes.
TEST_F(FolderCheckTest, TheSecondByteOfACharacterIsNoBackslash) {
    bench_.state.leadBytes.set(0x95);

    expect(&FolderCheck::wcpCheckFolderPath,
           {"", "C:\\\x95\x5C", 2, "\"C:\\\x95\x5C\" does not exist.", "C:\\\x95\x5C"});
    expect(&FolderCheck::wcpCheckFolderPath,
           {"", "C:\\\x95\x5C\\", 2, "\"C:\\\x95\x5C\" does not exist.", "C:\\\x95\x5C"});
    expect(&FolderCheck::wcpCheckParentFolderPath,
           {"", "C:\\www\\\x95\x5C", 0, nullptr, "C:\\www\\\x95\x5C"});
}

class NoFullPathTest : public FolderCheckTest, public testing::WithParamInterface<const char*> {};

TEST_P(NoFullPathTest, FailsWithAnInvalidArgumentWithoutAMessage) {
    box_.setText(GetParam());

    EXPECT_EQ(failureOf([&] { check_.wcpCheckFolderPath(box_); }), 5);
    EXPECT_TRUE(bench_.messages.informations.empty());
}

INSTANTIATE_TEST_SUITE_P(FolderCheck, NoFullPathTest, testing::Values("C:\\", "C:", "www", "\\"));

class NoFullParentPathTest : public FolderCheckTest,
                             public testing::WithParamInterface<const char*> {};

TEST_P(NoFullParentPathTest, FailsWithAnInvalidArgumentWithoutAMessage) {
    box_.setText(GetParam());

    EXPECT_EQ(failureOf([&] { check_.wcpCheckParentFolderPath(box_); }), 5);
    EXPECT_TRUE(bench_.messages.informations.empty());
}

INSTANTIATE_TEST_SUITE_P(FolderCheck, NoFullParentPathTest,
                         testing::Values("C:\\", "www", "C:\\scripts", "C:\\scripts\\"));

TEST_F(FolderCheckTest, TheBackslashOfABareDriveIsTakenOffBeforeTheFailure) {
    box_.setText("C:\\");

    failureOf([&] { check_.wcpCheckFolderPath(box_); });

    EXPECT_EQ(box_.text(), "C:");
}

}  // namespace
}  // namespace kv
