// A configuration file: the bytes are the file. It is read and taken apart as a whole, and line by
// line; and what was read is written and read again.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <set>
#include <span>

#include "tests/fuzz/Fuzzing.h"
#include "tests/model/LogEntries.h"

namespace kv {
namespace {

constexpr std::string_view kUntouched = "as it was\r\n";  // no value holds a line end

// What follows the name in each of the text's lines.
std::set<std::string, std::less<>> valuesIn(std::string_view text) {
    std::set<std::string, std::less<>> values;
    for (const std::string& line : partsOf(text, "\r\n"))
        if (const auto end = line.find('\x10'); end != line.npos)
            values.emplace(withoutBlanks(std::string_view(line).substr(end + 1)));
    return values;
}

void claimValue(const std::set<std::string, std::less<>>& inFile, std::string_view value) {
    if (value == kUntouched || value.empty()) return;
    claim(inFile.contains(value), "every value stands in the file");
    claim(value == withoutBlanks(value), "a value has no blanks around it");
    claim(value.find("\r\n") == value.npos && value.find('\x0F') == value.npos &&
              value.find('\x10') == value.npos,
          "a value holds neither line ends nor separators");
}

// The failures that a damaged file can lead to: a number out of range, no memory for that many
// rows, an index that its list does not have, a text in place of a number.
bool isFailure(int result) { return result == 6 || result == 7 || result == 9 || result == 13; }

void tryReading(std::string_view bytes) {
    const std::string text(bytes);
    FuzzBench bench({{"C:\\kvi.cfg", text}});
    std::string loaded;
    claim(
        bench.configuration.iocCfgReadFile("C:", "kvi", "cfg", loaded, true) == 0 && loaded == text,
        "a file is loaded as it is");

    CfgHeader header;
    header.fill(std::string(kUntouched));
    std::array<std::string, 26> properties;
    properties.fill(std::string(kUntouched));
    std::vector<std::string> data;
    const int result =
        bench.configuration.iocCfgReadFileParseData(loaded, header, properties, data);

    const bool blank = withoutBlanks(text).empty();
    claim((result == 110302) == blank, "a blank text, and no other, has a result of its own");
    claim(result == 0 || result == 110302 || result == 110303 || isFailure(result),
          "the result is one of those that callers know");
    const Lines logged = bench.logEntries();
    if (isFailure(result))
        claim(logged == Lines{logEntry("iocCfgReadFileParseData", result)},
              "a failure is logged once");
    else
        claim(logged.empty(), "what is no failure is not logged");
    claim(data.size() <= 1'000'001, "no row count takes the computer's memory");
    const auto inFile = valuesIn(text);
    for (const auto values :
         {std::span<std::string>(header), std::span<std::string>(properties), std::span(data)})
        for (const std::string& value : values) claimValue(inFile, value);
}

// One item line.

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

void tryLine(FuzzBench& bench, std::string_view line) {
    CfgItem item{"section", "index", "value"};

    const int result = bench.configuration.iocfgReadConfigRetrieveValue(line, item);

    claim(result == expectedResult(line), "the result tells what is wrong with the line");
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

// What was read, written and read again.

struct Content {
    CfgHeader header;
    std::array<std::string, 26> properties;
    std::vector<std::string> data;

    bool operator==(const Content&) const = default;
};

int parse(FuzzBench& bench, std::string_view text, Content& content) {
    return bench.configuration.iocCfgReadFileParseData(text, content.header, content.properties,
                                                       content.data);
}

int write(FuzzBench& bench, const Content& content) {
    return bench.configuration.iocCfgWriteFile("C:", "written", "cfg", content.header,
                                               content.properties, content.data, false);
}

// A number as the header's counts are read: the nearest whole one. Out of the range of every count
// when the text is none.
double count(const std::string& text) {
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    const bool plain = text.find_first_not_of("0123456789.+-eE") == text.npos;
    return !text.empty() && plain && *end == '\0' ? std::nearbyint(value) : 1e300;
}

bool empty(const std::string& text) { return text.empty(); }

// Whether the file that is written from the content can say all of it: it holds as many properties
// and rows as the header counts, and rows need a property before them.
bool writable(const Content& content) {
    const double type = count(content.header[0]);
    const double properties = count(content.header[2]);
    const double rows = count(content.header[3]);
    if (std::abs(type) > 2147483647 || properties < -32768 || properties > 26) return false;
    if (rows < 0 || rows > 32767 || (rows > 0 && properties < 1)) return false;
    const auto first = static_cast<std::ptrdiff_t>(std::max(properties, 0.0));
    return std::all_of(content.properties.begin() + first, content.properties.end(), empty) &&
           std::all_of(content.data.begin() + static_cast<std::ptrdiff_t>(rows), content.data.end(),
                       empty);
}

void tryRewriting(std::string_view text) {
    FuzzBench bench({{"C:\\written.cfg", ""}});
    Content content;
    if (parse(bench, text, content) != 0) return;

    const int status = write(bench, content);

    const Lines logged = bench.logEntries();
    const auto failed = std::ranges::count_if(
        logged, [](const std::string& entry) { return entry.ends_with(" iocCfgWriteFile"); });
    claim(status == (failed == 0 ? 0 : 1) && failed <= 1, "a failed write is logged once");
    if (!writable(content)) return;

    claim(status == 0 && logged.empty(), "a content that can be written is written");
    const std::string written = bench.files.read("C:\\written.cfg");
    Content again;
    claim(parse(bench, written, again) == 0, "what was written can be read");
    claim(again == content, "what is read again is what was written");
    claim(write(bench, again) == 0 && bench.files.read("C:\\written.cfg") == written,
          "writing it again gives the same bytes");
}

}  // namespace

void tryInput(std::string_view bytes) {
    tryReading(bytes);
    FuzzBench bench;
    for (const std::string& line : partsOf(bytes, "\r\n")) tryLine(bench, line);
    claim(bench.logEntries().empty(), "a malformed line is no failure to be logged");
    tryRewriting(bytes);
}

}  // namespace kv
