#include "process/ConfigUpgrade.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "common/FailureHandler.h"
#include "common/Text.h"
#include "common/modKvIO.h"
#include "config/ConfigurationFormat.h"
#include "config/modKvIOCfg.h"
#include "process/Existence.h"
#include "process/ProgressLine.h"

namespace kv {
namespace {

constexpr std::string_view kOriginal = "cfg\\original";
constexpr std::string_view kGeneral = "cfg\\general";
constexpr int kRestoreSteps = 4;

// The keys of the main file's property lines.
constexpr std::array<std::string_view, 13> kCarriedOver{"10", "11", "12", "13",  "14",  "15", "16",
                                                        "17", "18", "19", "110", "111", "112"};

std::vector<std::string> splitLines(std::string_view text) {
    std::vector<std::string> lines;
    if (text.empty()) return lines;
    std::optional<std::string_view> rest = text;
    while (const auto line = takePart(rest, kLineEnd)) lines.emplace_back(*line);
    return lines;
}

bool isComment(std::string_view line) { return line.starts_with('#'); }

std::string_view keyOf(std::string_view line) { return line.substr(0, line.find(kSep1)); }

}  // namespace

ConfigUpgrade::ConfigUpgrade(modKvIO& io, modKvIOCfg& configuration, modCmnLog& log,
                             ProgressLine& progress)
    : io_(io), configuration_(configuration), log_(log), progress_(progress) {}

void ConfigUpgrade::wcpConfigRestore(const std::string& productFolder, int progressShare) {
    const auto restore = [&](std::string_view saved, std::string_view place) {
        io_.ioCopyFile(joinPath(productFolder, kOriginal, saved), joinPath(productFolder, place),
                       false);
        progress_.widen(progressShare / kRestoreSteps);
    };
    restore("kvi.bak", "bin\\kvi\\kvi.cfg");
    wcpConfigMigrateMain(productFolder);
    progress_.widen(progressShare / kRestoreSteps);
    restore("kvadm.bak", "cfg\\user\\dadmin\\kvadm.cfg");
    restore("kvan.bak", "cfg\\user\\anony\\kvan.cfg");
}

void ConfigUpgrade::wcpConfigMigrateMain(const std::string& productFolder) noexcept {
    FailureHandler(log_, "wcpConfigMigrateMain")([&] {
        const std::string general = joinPath(productFolder, kGeneral);
        auto newLines = splitLines(readText(general, "cfg"));
        const auto oldLines = splitLines(readText(joinPath(productFolder, kOriginal), "bak"));

        for (std::string& line : newLines) {
            if (trim(line).empty() || isComment(line)) continue;
            const std::string key(keyOf(line));
            if (std::ranges::find(kCarriedOver, key) != kCarriedOver.end())
                wcpConfigReplaceLine(line, oldLines, key);
        }

        const std::int16_t fileNumber =
            io_.ioOpenFileBinaryWrite(cfgPath(general, "korvane", "cfg"));
        for (const std::string& line : newLines) {
            io_.ioPutData(fileNumber, line);
            io_.ioPutData(fileNumber, kLineEnd);
        }
        io_.ioCloseFile(fileNumber);
    });
}

std::string ConfigUpgrade::readText(const std::string& folder,
                                    const std::string& extension) noexcept {
    std::string text;
    if (configuration_.iocCfgReadFile(folder, "korvane", extension, text, true) != 0) text.clear();
    return text;
}

void wcpConfigReplaceLine(std::string& line, const std::vector<std::string>& lines,
                          std::string_view key) {
    const auto found = std::ranges::find_if(lines, [&](const std::string& candidate) {
        return !isComment(candidate) && keyOf(candidate) == key;
    });
    if (found != lines.end()) line = *found;
}

}  // namespace kv
