#include "platform/win32/system/Text.h"

#include <optional>
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

}  // namespace
}  // namespace kv
