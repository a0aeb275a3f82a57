#include "SettingsText.h"

namespace kv::endtoend {

namespace {

constexpr std::string_view kAfterKey = "\x0F";
constexpr std::string_view kAfterName = "\x10";

std::string keyOf(char section, int index) {
    std::string key(1, section);
    key += std::to_string(index);
    return key;
}

std::string itemLine(std::string_view key, std::string_view name, std::string_view value) {
    std::string line(key);
    line += kAfterKey;
    line += name;
    line += kAfterName;
    line += value;
    return line;
}

}  // namespace

std::string headerLine(int index, std::string_view name, std::string_view value) {
    return itemLine(keyOf('0', index), name, value);
}

std::string dataLine(int index, std::string_view value) {
    return itemLine(keyOf('2', index), "2", value);
}

Lines settingsLines(const Settings& settings) {
    Lines lines{
        "#",
        "# *This file contains characters which cannot be displayed, please edit it with KORVANE "
        "only.",
        "#",
        "# *Header Section",
        "#",
        headerLine(0, "T", "1008"),
        headerLine(1, "V", "1.3.0"),
        headerLine(2, "P", "1"),
        headerLine(3, "D1", settings.rowCount),
        headerLine(4, "D2", "0"),
        headerLine(5, "D3", "0"),
        headerLine(6, "D4", "0"),
        headerLine(7, "D5", "0"),
        headerLine(8, "D6", "0"),
        headerLine(9, "D7", "0"),
        headerLine(10, "D8", "0"),
        "#",
        "# *Peoperty Section",
        "#",
        itemLine("10", "*kvi", settings.installedProduct),
    };
    if (!settings.rows.empty()) {
        lines.insert(lines.end(), {"#", "# *Data Section 1", "#"});
        for (int index = 0; const std::string& row : settings.rows) {
            lines.push_back(dataLine(index++, row));
        }
    }
    return lines;
}

std::string joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text;
}

std::string settingsText(const Settings& settings) { return joined(settingsLines(settings)); }

std::string freshSettings() { return settingsText({"0", "", {}}); }

std::vector<std::string> rowsOf(const Entry& entry) {
    return {entry.home + "\\", entry.scripts + "\\", entry.product + "\\",
            entry.serverKind,  entry.urlStyle,       entry.address,
            entry.port};
}

}  // namespace kv::endtoend
