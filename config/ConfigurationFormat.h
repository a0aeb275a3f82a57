// The product's text format for configuration files: three sections of item lines, each
// key SEP1 name SEP2 value CR LF, with comment lines between them.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace kv {

inline constexpr char kSep1 = '\x0F';  // between key and name
inline constexpr char kSep2 = '\x10';  // between name and value

// The header's items, in the order of the file; an item's index is its place here.
inline constexpr std::array<std::string_view, 11> kHeaderItemNames{
    "T", "V", "P", "D1", "D2", "D3", "D4", "D5", "D6", "D7", "D8"};
inline constexpr int kHeaderType = 0;           // T: the file's type code
inline constexpr int kHeaderVersion = 1;        // V
inline constexpr int kHeaderPropertyCount = 2;  // P
inline constexpr int kHeaderRowCount = 3;       // D1: the number of data rows

using CfgHeader = std::array<std::string, kHeaderItemNames.size()>;

// The first character of an item's key tells its section.
inline constexpr char kHeaderSection = '0';
inline constexpr char kPropertySection = '1';
inline constexpr std::string_view kDataSection = "2";

// The comment lines. "Peoperty" is how files in the field spell it, and readers depend on it.
inline constexpr std::string_view kFileHeading =
    "*This file contains characters which cannot be displayed, please edit it with KORVANE only.";
inline constexpr std::string_view kHeaderHeading = "*Header Section";
inline constexpr std::string_view kPropertyHeading = "*Peoperty Section";
inline constexpr std::string_view kDataHeading = "*Data Section ";  // and the section's number

}  // namespace kv
