// A whole configuration file, read from disk and taken apart: the bytes are the file.
#include <algorithm>
#include <array>
#include <functional>
#include <set>
#include <span>

#include "tests/fuzz/Fuzzing.h"

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

}  // namespace

void tryInput(std::string_view bytes) {
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
        claim(logged == Lines{"WARN " + std::to_string(result) + " iocCfgReadFileParseData"},
              "a failure is logged once");
    else
        claim(logged.empty(), "what is no failure is not logged");
    claim(data.size() <= 1'000'001, "no row count takes the computer's memory");
    const auto inFile = valuesIn(text);
    for (const auto values :
         {std::span<std::string>(header), std::span<std::string>(properties), std::span(data)})
        for (const std::string& value : values) claimValue(inFile, value);
}

}  // namespace kv
