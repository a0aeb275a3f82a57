#include "platform/win32/system/Text.h"

#include <optional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

namespace kv {
namespace {

using namespace std::string_literals;

constexpr unsigned kWesternEuropean = 1252;
constexpr unsigned kJapanese = 932;
constexpr unsigned kUtf8 = 65001;

TEST(Win32Text, AsciiIsTheSameInTheSystemsCodePage) {
    EXPECT_EQ(toWide("C:\\www\r\n"), L"C:\\www\r\n");
    EXPECT_EQ(toWideExactly("C:\\www"), L"C:\\www");
    EXPECT_EQ(fromWide(L"C:\\www\r\n"), "C:\\www\r\n");
}

TEST(Win32Text, TheSystemsCodePageIsTheDefault) {
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(toWide(text), toWide(text, GetACP())) << byte;
    }
}

TEST(Win32Text, EmptyTextIsEmpty) {
    EXPECT_EQ(toWide(""), L"");
    EXPECT_EQ(toWideExactly(""), L"");
    EXPECT_EQ(fromWide(L""), "");
}

TEST(Win32Text, ANulIsACharacterLikeAnyOther) {
    EXPECT_EQ(toWide("a\0b"s), L"a\0b"s);
    EXPECT_EQ(fromWide(L"a\0b"s), "a\0b"s);
}

TEST(Win32Text, CharactersOfTheCodePageAreConvertedBothWays) {
    EXPECT_EQ(toWide("\xFC\x80", kWesternEuropean), L"\u00FC\u20AC");
    EXPECT_EQ(fromWide(L"\u00FC\u20AC", kWesternEuropean), "\xFC\x80");
}

TEST(Win32Text, EveryByteOfASingleByteCodePageComesBack) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);

    EXPECT_EQ(fromWide(toWide(bytes, kWesternEuropean), kWesternEuropean), bytes);
}

TEST(Win32Text, CharactersOutsideTheCodePageBecomeQuestionMarks) {
    EXPECT_EQ(fromWide(L"a\u2603b", kWesternEuropean), "a?b");
    EXPECT_EQ(fromWide(L"a\u2603b", kJapanese), "a?b");
}

TEST(Win32Text, NoLookAlikeStandsForACharacterOutsideTheCodePage) {
    EXPECT_EQ(fromWide(L"\u221E", kWesternEuropean), "?");  // infinity, not "8"
    EXPECT_EQ(fromWide(L"\u0101", kWesternEuropean), "?");  // a with a macron, not "a"
    EXPECT_EQ(fromWide(L"\uFF0F", kWesternEuropean), "?");  // full-width slash, not "/"
}

TEST(Win32Text, Utf8HoldsEveryCharacter) {
    EXPECT_EQ(fromWide(L"a\u2603z", kUtf8), "a\xE2\x98\x83z");
    EXPECT_EQ(toWide("a\xE2\x98\x83z", kUtf8), L"a\u2603z");
}

TEST(Win32Text, BytesThatAreNoCharacterAreNotConvertedExactly) {
    EXPECT_EQ(toWideExactly("a\xFFz", kUtf8), std::nullopt);
    EXPECT_EQ(toWide("a\xFFz", kUtf8), L"a\uFFFDz");
}

// The path C:\PARENT\NAME, whose parts are characters of the code page.
struct PathOfCodePage {
    unsigned codePage;
    const char* parent;
    const char* name;
    const wchar_t* wideParent;
    const wchar_t* wideName;
};

void PrintTo(const PathOfCodePage& path, std::ostream* out) { *out << path.codePage; }

class EastAsianPaths : public testing::TestWithParam<PathOfCodePage> {};

TEST_P(EastAsianPaths, AreTakenApartByCharacters) {
    const PathOfCodePage& path = GetParam();
    const std::string parent = "C:\\"s + path.parent;

    const PathHalves halves = splitPath(parent + "\\" + path.name, leadBytes(path.codePage));

    EXPECT_EQ(halves.parent, parent);
    EXPECT_EQ(halves.name, path.name);
    EXPECT_EQ(toWide(path.parent, path.codePage), path.wideParent);
    EXPECT_EQ(toWide(path.name, path.codePage), path.wideName);
}

// The second byte is that of a backslash, but in the Korean code page, which has no such character.
INSTANTIATE_TEST_SUITE_P(
    All, EastAsianPaths,
    testing::Values(PathOfCodePage{932, "\x83\x5C", "\x95\x5C", L"\u30BD", L"\u8868"},
                    PathOfCodePage{936, "\x81\x5C", "\x90\x5C\xAA\x5C", L"\u4E57", L"\u603D\u730F"},
                    PathOfCodePage{949, "\x81\x41", "\xB0\xA1", L"\uAC02", L"\uAC00"},
                    PathOfCodePage{950, "\xA5\x5C", "\xB3\x5C", L"\u529F", L"\u8A31"}),
    [](const testing::TestParamInfo<PathOfCodePage>& which) {
        return std::to_string(which.param.codePage);
    });

TEST(LeadBytesOf, ACodePageOfSingleBytesAreNone) {
    EXPECT_TRUE(leadBytes(1252).none());
    EXPECT_TRUE(leadBytes(65001).none());
}

}  // namespace
}  // namespace kv
