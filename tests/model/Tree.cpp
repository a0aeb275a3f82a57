#include "tests/model/Tree.h"

#include <algorithm>

namespace kv {
namespace {

// Long contents are told from shortly before the first byte in which they differ.
constexpr std::size_t kShownBefore = 60;
constexpr std::size_t kShown = 400;

std::string readable(const std::string& bytes, std::size_t differsAt) {
    const std::size_t begin = differsAt > kShownBefore ? differsAt - kShownBefore : 0;
    const std::size_t end = std::min(bytes.size(), begin + kShown);
    std::string text = begin > 0 ? "..." : "";
    for (std::size_t at = begin; at < end; ++at) {
        switch (bytes[at]) {
            case '\r': text += "\\r"; break;
            case '\n': text += "\\n"; break;
            case '\x0F':
            case '\x10': text += '|'; break;
            default: text += bytes[at];
        }
    }
    return text + (end < bytes.size() ? "..." : "");
}

std::string lineOf(const Lines& lines, Lines::const_iterator line) {
    return line == lines.end() ? "missing" : *line;
}

}  // namespace

std::string differences(const Tree& expected, const Tree& actual) {
    std::string lines;
    for (const auto& [path, bytes] : expected) {
        const auto found = actual.find(path);
        if (found == actual.end()) {
            lines += "missing: " + path + '\n';
        } else if (found->second != bytes) {
            const std::string& held = found->second;
            const auto at =
                static_cast<std::size_t>(std::ranges::mismatch(bytes, held).in1 - bytes.begin());
            lines += path + " differs from byte " + std::to_string(at) + " on\n  holds    " +
                     readable(held, at) + "\n  not      " + readable(bytes, at) + '\n';
        }
    }
    for (const auto& [path, bytes] : actual)
        if (!expected.contains(path)) lines += "too much: " + path + '\n';
    return lines;
}

std::string firstDifference(const Lines& actual, const Lines& expected) {
    if (actual == expected) return "";
    const auto [is, wanted] = std::ranges::mismatch(actual, expected);
    return "line " + std::to_string(is - actual.begin()) + " is " + lineOf(actual, is) +
           "\nand not " + lineOf(expected, wanted);
}

Lines joined(const std::vector<Lines>& lists) {
    Lines all;
    for (const Lines& list : lists) all.insert(all.end(), list.begin(), list.end());
    return all;
}

}  // namespace kv
