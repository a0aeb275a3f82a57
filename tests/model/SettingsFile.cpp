#include "tests/model/SettingsFile.h"

#include <algorithm>
#include <map>

namespace kv {
namespace {

constexpr char kAfterKey = '\x0F';
constexpr char kAfterName = '\x10';

constexpr auto kKeysTakenOver = std::to_array<std::string_view>(
    {"10", "11", "12", "13", "14", "15", "16", "17", "18", "19", "110", "111", "112"});

std::string fullFolder(const Site& site, const std::string& folder) {
    return site.root + folder + '\\';
}

// What stands before the first separator; of a line without one, all. Comments and blank lines have
// no key.
std::string_view keyOf(std::string_view line) {
    if (line.starts_with('#') || line.find_first_not_of(' ') == line.npos) return {};
    return line.substr(0, line.find(kAfterKey));
}

Lines linesOf(const std::string& text) {
    Lines lines;
    for (std::size_t begin = 0;;) {
        const std::size_t end = text.find("\r\n", begin);
        lines.push_back(text.substr(begin, end - begin));
        if (end == text.npos) return lines;
        begin = end + 2;
    }
}

}  // namespace

std::string cfgBytes(const Lines& lines) {
    std::string bytes;
    for (std::string line : lines) {
        for (const char separator : {kAfterKey, kAfterName})
            if (const std::size_t at = line.find('|'); at != line.npos) line[at] = separator;
        bytes += line + "\r\n";
    }
    return bytes;
}

Lines settingsLines(const Lines& rows, const std::string& product) {
    Lines lines{
        "#",
        "# *This file contains characters which cannot be displayed, please edit it with KORVANE "
        "only.",
        "#",
        "# *Header Section",
        "#",
        "00|T|1008",
        "01|V|1.3.0",
        "02|P|1",
        "03|D1|" + std::to_string(rows.size()),
        "04|D2|0",
        "05|D3|0",
        "06|D4|0",
        "07|D5|0",
        "08|D6|0",
        "09|D7|0",
        "010|D8|0",
        "#",
        "# *Peoperty Section",
        "#",
        "10|*kvi|" + product,
    };
    if (!rows.empty()) lines.insert(lines.end(), {"#", "# *Data Section 1", "#"});
    for (std::size_t i = 0; i < rows.size(); ++i)
        lines.push_back("2" + std::to_string(i) + "|2|" + rows[i]);
    return lines;
}

std::string settingsBytes(const Lines& rows, const std::string& product) {
    return cfgBytes(settingsLines(rows, product));
}

std::string freshSettings() { return settingsBytes({}, ""); }

Lines settingsRows(const Site& site) {
    return {fullFolder(site, site.home),
            fullFolder(site, site.scripts),
            fullFolder(site, site.product),
            codeOf(site.server),
            site.style == UrlStyle::SiteRoot ? "0" : "1",
            site.ip,
            site.port};
}

std::string recordOf(const Site& site) {
    return settingsBytes(settingsRows(site), fullFolder(site, site.product));
}

std::string emptyRecordOf(const Site& site) {
    return settingsBytes({}, fullFolder(site, site.product));
}

std::string scriptsRecordOf(const Site& site) {
    return settingsBytes({fullFolder(site, site.home)}, fullFolder(site, site.product));
}

std::string migrated(const std::string& newText, const std::string& oldText) {
    if (newText.empty()) return "";
    const Lines oldLines = linesOf(oldText);
    std::map<std::string_view, std::string_view> firstLines;
    for (const std::string& line : oldLines) firstLines.try_emplace(keyOf(line), line);
    std::string text;
    for (const std::string& line : linesOf(newText)) {
        const std::string_view key = keyOf(line);
        const bool takenOver = std::ranges::find(kKeysTakenOver, key) != kKeysTakenOver.end();
        const auto old = firstLines.find(key);
        text += takenOver && old != firstLines.end() ? old->second : line;
        text += "\r\n";
    }
    return text;
}

}  // namespace kv
