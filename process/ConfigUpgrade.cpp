#include "process/ConfigUpgrade.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

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

bool isComment(std::string_view line) { return line.starts_with('#'); }

std::string_view keyOf(std::string_view line) { return line.substr(0, line.find(kSep1)); }

// Comments and empty lines have no such key. Of most others the first character tells.
bool isCarriedOver(std::string_view line) {
    return line.starts_with('1') &&
           std::ranges::find(kCarriedOver, keyOf(line)) != kCarriedOver.end();
}

// The lines are parts of the text. An empty text has none.
template <class Action>
void forEachLine(std::string_view text, Action action) {
    if (text.empty()) return;
    for (auto end = text.find(kLineEnd); end != std::string_view::npos; end = text.find(kLineEnd)) {
        action(text.substr(0, end));
        text.remove_prefix(end + kLineEnd.size());
    }
    action(text);
}

// The first line with each of the keys: however long the text, there are few.
std::vector<std::string_view> linesToCarryOver(std::string_view text) {
    std::vector<std::string_view> lines;
    forEachLine(text, [&](std::string_view line) {
        if (isCarriedOver(line) && std::ranges::find(lines, keyOf(line), keyOf) == lines.end())
            lines.push_back(line);
    });
    return lines;
}

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
        const std::string newText = readText(general, "cfg");
        const std::string oldText = readText(joinPath(productFolder, kOriginal), "bak");
        const auto oldLines = linesToCarryOver(oldText);

        const std::int16_t fileNumber =
            io_.ioOpenFileBinaryWrite(cfgPath(general, "korvane", "cfg"));
        forEachLine(newText, [&](std::string_view line) {
            if (isCarriedOver(line)) wcpConfigReplaceLine(line, oldLines, keyOf(line));
            io_.ioPutData(fileNumber, line);
            io_.ioPutData(fileNumber, kLineEnd);
        });
        io_.ioCloseFile(fileNumber);
    });
}

std::string ConfigUpgrade::readText(const std::string& folder,
                                    const std::string& extension) noexcept {
    std::string text;
    if (configuration_.iocCfgReadFile(folder, "korvane", extension, text, true) != 0) text.clear();
    return text;
}

void wcpConfigReplaceLine(std::string_view& line, std::span<const std::string_view> lines,
                          std::string_view key) {
    const auto found = std::ranges::find_if(lines, [&](std::string_view candidate) {
        return !isComment(candidate) && keyOf(candidate) == key;
    });
    if (found != lines.end()) line = *found;
}

}  // namespace kv
