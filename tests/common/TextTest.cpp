#include "common/Text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

using namespace std::string_view_literals;

TEST(Text, TheLineEndIsCarriageReturnAndLineFeed) { EXPECT_EQ(kLineEnd, "\r\n"); }

TEST(Trim, TakesBlanksOffBothEnds) {
    EXPECT_EQ(trim("  a  b "), "a  b");
    EXPECT_EQ(trim("a"), "a");
}

TEST(Trim, LeavesNothingOfBlanks) {
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(""), "");
}

TEST(Trim, KeepsEveryOtherCharacter) {
    EXPECT_EQ(trim("\t a \r\n"), "\t a \r\n");
    EXPECT_EQ(trim(" \0 "sv), "\0"sv);
    EXPECT_EQ(trim(" \xA0 "), "\xA0");
}

TEST(SplitInTwo, GivesThePartsAroundTheSeparator) {
    const auto halves = splitInTwo("key=value", '=');

    ASSERT_TRUE(halves);
    EXPECT_EQ(halves->before, "key");
    EXPECT_EQ(halves->after, "value");
}

TEST(SplitInTwo, PartsMayBeEmpty) {
    const auto halves = splitInTwo("=", '=');

    ASSERT_TRUE(halves);
    EXPECT_EQ(halves->before, "");
    EXPECT_EQ(halves->after, "");
}

TEST(SplitInTwo, GivesNothingUnlessTheSeparatorOccursOnce) {
    EXPECT_FALSE(splitInTwo("", '='));
    EXPECT_FALSE(splitInTwo("key", '='));
    EXPECT_FALSE(splitInTwo("a=b=c", '='));
    EXPECT_FALSE(splitInTwo("==", '='));
}

std::vector<std::string> parts(std::string_view text, std::string_view separator) {
    std::vector<std::string> result;
    std::optional<std::string_view> rest = text;
    while (const auto part = takePart(rest, separator)) result.emplace_back(*part);
    EXPECT_FALSE(rest);
    return result;
}

using Parts = std::vector<std::string>;

TEST(TakePart, GivesThePartsInOrder) {
    EXPECT_EQ(parts("a\r\nb\r\nc", "\r\n"), (Parts{"a", "b", "c"}));
}

TEST(TakePart, KeepsEmptyParts) {
    EXPECT_EQ(parts("\r\n\r\na\r\n", "\r\n"), (Parts{"", "", "a", ""}));
}

TEST(TakePart, ATextWithoutTheSeparatorIsOnePart) {
    EXPECT_EQ(parts("a\rb\nc", "\r\n"), Parts{"a\rb\nc"});
    EXPECT_EQ(parts("", "\r\n"), Parts{""});
}

TEST(TakePart, HalfASeparatorDividesNothing) {
    EXPECT_EQ(parts("\r\r\n\n", "\r\n"), (Parts{"\r", "\n"}));
}

TEST(TakePart, GivesNothingOfNoText) {
    std::optional<std::string_view> none;

    EXPECT_FALSE(takePart(none, ","));
}

TEST(SplitPath, CutsAtTheLastBackslash) {
    const PathHalves halves = splitPath("C:\\www\\cgi-bin\\kv.exe");

    EXPECT_EQ(halves.parent, "C:\\www\\cgi-bin");
    EXPECT_EQ(halves.name, "kv.exe");
}

TEST(SplitPath, PartsMayBeEmpty) {
    EXPECT_EQ(splitPath("C:\\").parent, "C:");
    EXPECT_EQ(splitPath("C:\\").name, "");
    EXPECT_EQ(splitPath("\\a").parent, "");
    EXPECT_EQ(splitPath("\\a").name, "a");
}

TEST(SplitPath, RefusesATextWithoutABackslash) {
    EXPECT_EQ(failureOf([] { splitPath("kv.exe"); }), 5);
    EXPECT_EQ(failureOf([] { splitPath("C:/www"); }), 5);
    EXPECT_EQ(failureOf([] { splitPath(""); }), 5);
}

// Japanese, code page 932: the second byte of some characters is that of a backslash.
LeadBytes japanese() {
    LeadBytes bytes;
    for (unsigned byte = 0x81; byte <= 0x9F; ++byte) bytes.set(byte);
    for (unsigned byte = 0xE0; byte <= 0xFC; ++byte) bytes.set(byte);
    return bytes;
}

TEST(SplitPath, TakesNoCharacterOfTwoBytesApart) {
    const PathHalves halves = splitPath("C:\\\x83\x5C\\\x8E\xC0\x8D\x73\x95\x5C", japanese());

    EXPECT_EQ(halves.parent, "C:\\\x83\x5C");
    EXPECT_EQ(halves.name, "\x8E\xC0\x8D\x73\x95\x5C");
}

TEST(SplitPath, OfOneByteEachTheSameBytesAreABackslash) {
    const PathHalves halves = splitPath("C:\\\x95\x5C");

    EXPECT_EQ(halves.parent, "C:\\\x95");
    EXPECT_EQ(halves.name, "");
}

TEST(SplitPath, RefusesATextWhoseOnlyBackslashIsHalfACharacter) {
    EXPECT_EQ(failureOf([] { splitPath("\x95\x5C", japanese()); }), 5);
}

TEST(SplitPath, ALeadByteAtTheEndIsACharacter) {
    EXPECT_EQ(splitPath("C:\\a\x95", japanese()).name, "a\x95");
}

TEST(SplitPath, ASecondByteIsNoLeadByte) {
    // Two characters, of which the second is a backslash.
    EXPECT_EQ(splitPath("C:\x95\x95\\a", japanese()).name, "a");
}

TEST(EndsWithBackslash, LooksAtWholeCharacters) {
    EXPECT_TRUE(endsWithBackslash("C:\\www\\", {}));
    EXPECT_TRUE(endsWithBackslash("C:\\\x95\x5C\\", japanese()));
    EXPECT_TRUE(endsWithBackslash("C:\\\x95\x5C", {}));
    EXPECT_FALSE(endsWithBackslash("C:\\\x95\x5C", japanese()));
    EXPECT_FALSE(endsWithBackslash("C:\\www", {}));
    EXPECT_FALSE(endsWithBackslash("", {}));
}

TEST(JoinPath, PutsOneBackslashBetweenTheParts) {
    EXPECT_EQ(joinPath("C:\\www", "images", "kv"), "C:\\www\\images\\kv");
    EXPECT_EQ(joinPath("", "kv"), "\\kv");
    EXPECT_EQ(joinPath("a"), "a");
}

}  // namespace
}  // namespace kv
