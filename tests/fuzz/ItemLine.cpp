// One item line of a configuration file: the bytes are the line.
#include <algorithm>

#include "tests/fuzz/Fuzzing.h"

namespace kv {
namespace {

constexpr std::string_view kDigits = "0123456789";

// Takes the characters off the front; returns how many there were.
std::size_t drop(std::string_view& text, std::string_view characters) {
    const std::size_t count = std::min(text.find_first_not_of(characters), text.size());
    text.remove_prefix(count);
    return count;
}

bool dropOne(std::string_view& text, std::string_view characters) {
    if (text.empty() || characters.find(text.front()) == characters.npos) return false;
    text.remove_prefix(1);
    return true;
}

// A sign, digits with at most one point among them, an exponent.
bool looksNumeric(std::string_view text) {
    dropOne(text, "+-");
    std::size_t digits = drop(text, kDigits);
    if (dropOne(text, ".")) digits += drop(text, kDigits);
    if (digits == 0) return false;
    if (dropOne(text, "eE")) {
        dropOne(text, "+-");
        if (drop(text, kDigits) == 0) return false;
    }
    return text.empty();
}

int expectedResult(std::string_view line) {
    if (withoutBlanks(line).empty()) return 0;
    if (std::ranges::count(line, '\x0F') != 1) return 110303;
    if (!looksNumeric(withoutBlanks(line.substr(0, line.find('\x0F'))))) return 110304;
    return std::ranges::count(line, '\x10') == 1 ? 0 : 110303;
}

}  // namespace

void tryInput(std::string_view line) {
    FuzzBench bench;
    CfgItem item{"section", "index", "value"};

    const int result = bench.configuration.iocfgReadConfigRetrieveValue(line, item);

    claim(result == expectedResult(line), "the result tells what is wrong with the line");
    claim(bench.logEntries().empty(), "a malformed line is no failure to be logged");
    if (result != 0 || withoutBlanks(line).empty()) {
        claim(item.section == "section" && item.index == "index" && item.value == "value",
              "a line without an item leaves the previous one in place");
        return;
    }
    const std::string key(withoutBlanks(line.substr(0, line.find('\x0F'))));
    claim(item.section + item.index == key && item.section.size() == 1,
          "section and index are the key's first character and its rest");
    claim(item.value == withoutBlanks(line.substr(line.find('\x10') + 1)),
          "the value is what follows the name, without blanks");
}

}  // namespace kv
