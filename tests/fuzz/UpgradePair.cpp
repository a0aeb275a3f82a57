// The pair of files from which an upgrade makes the new main configuration file: the bytes before
// the first line "====" are the new file, those after it are the old one.
#include <algorithm>

#include "process/ConfigUpgrade.h"
#include "process/ProgressLine.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/model/SettingsFile.h"
#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

constexpr std::string_view kBetween = "====\n";

}  // namespace

void tryInput(std::string_view input) {
    const std::size_t between = std::min(input.find(kBetween), input.size());
    const std::string newText(input.substr(0, between));
    const std::string oldText(input.substr(std::min(between + kBetween.size(), input.size())));
    FuzzBench bench({{"C:\\Korvane\\", ""},
                     {"C:\\Korvane\\cfg\\", ""},
                     {"C:\\Korvane\\cfg\\general\\", ""},
                     {"C:\\Korvane\\cfg\\original\\", ""},
                     {kSampleMain, newText},
                     {kSavedMain, oldText}});
    static frmWebConfig form;  // only its progress line is used, and not looked at
    ProgressLine progress(form);
    ConfigUpgrade upgrade(bench.io, bench.configuration, bench.log, progress);

    upgrade.wcpConfigMigrateMain("C:\\Korvane");

    std::string expected = migrated(newText, oldText);
    if (expected.size() < newText.size()) expected += newText.substr(expected.size());
    claim(bench.files.read(kSampleMain) == expected,
          "the new file has its lines, with the old properties, over its former bytes");
    claim(bench.files.read(kSavedMain) == oldText, "the old file stays as it is");
    claim(bench.logEntries().empty(), "nothing has failed");
}

}  // namespace kv
