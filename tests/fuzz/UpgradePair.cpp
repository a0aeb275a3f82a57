// The pair of files from which an upgrade makes the new main configuration file: the bytes before
// the first line "====" are the new file, those after it are the old one.
#include <algorithm>
#include <array>

#include "process/ConfigUpgrade.h"
#include "process/ProgressLine.h"
#include "tests/fuzz/Fuzzing.h"
#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

constexpr std::string_view kBetween = "====\n";
constexpr const char* kMainFile = "C:\\Korvane\\cfg\\general\\korvane.cfg";
constexpr const char* kSavedMainFile = "C:\\Korvane\\cfg\\original\\korvane.bak";

constexpr std::array<std::string_view, 13> kKeys{"10", "11", "12", "13",  "14",  "15", "16",
                                                 "17", "18", "19", "110", "111", "112"};

// The key with its separator; empty for a line that has none, or none that counts.
std::string_view keyOf(std::string_view line) {
    if (line.starts_with('#') || withoutBlanks(line).empty()) return {};
    return line.substr(0, line.find('\x0F'));
}

std::string migrated(const std::string& newText, const std::string& oldText) {
    if (newText.empty()) return "";
    std::map<std::string_view, std::string_view> firstLines;
    const Lines oldLines = partsOf(oldText, "\r\n");
    for (const std::string& line : oldLines) firstLines.try_emplace(keyOf(line), line);
    std::string text;
    for (const std::string& line : partsOf(newText, "\r\n")) {
        const std::string_view key = keyOf(line);
        const bool carriedOver = std::ranges::find(kKeys, key) != kKeys.end();
        const auto old = firstLines.find(key);
        text += carriedOver && old != firstLines.end() ? old->second : line;
        text += "\r\n";
    }
    return text;
}

}  // namespace

void tryInput(std::string_view input) {
    const std::size_t between = std::min(input.find(kBetween), input.size());
    const std::string newText(input.substr(0, between));
    const std::string oldText(input.substr(std::min(between + kBetween.size(), input.size())));
    FuzzBench bench({{"C:\\Korvane\\", ""},
                     {"C:\\Korvane\\cfg\\", ""},
                     {"C:\\Korvane\\cfg\\general\\", ""},
                     {"C:\\Korvane\\cfg\\original\\", ""},
                     {kMainFile, newText},
                     {kSavedMainFile, oldText}});
    static frmWebConfig form;  // only its progress line is used, and not looked at
    ProgressLine progress(form);
    ConfigUpgrade upgrade(bench.io, bench.configuration, bench.log, progress);

    upgrade.wcpConfigMigrateMain("C:\\Korvane");

    std::string expected = migrated(newText, oldText);
    if (expected.size() < newText.size()) expected += newText.substr(expected.size());
    claim(bench.files.read(kMainFile) == expected,
          "the new file has its lines, with the old properties, over its former bytes");
    claim(bench.files.read(kSavedMainFile) == oldText, "the old file stays as it is");
    claim(bench.logEntries().empty(), "nothing has failed");
}

}  // namespace kv
