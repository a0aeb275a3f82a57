#include "tests/support/disks/FailingDisk.h"

#include <algorithm>
#include <array>
#include <map>

#include "tests/model/LogEntries.h"

namespace kv {
namespace {

// The sections of a settings file, each with the comment lines before it. The main file, which has
// none of them here, is one section.
std::string sectionOf(const std::string& bytes, std::size_t wanted) {
    std::size_t begin = 0;
    std::size_t section = 0;
    for (const char* heading : {"#\r\n# *Peoperty Section", "#\r\n# *Data Section"}) {
        const std::size_t end = std::min(bytes.find(heading), bytes.size());
        if (section++ == wanted) return bytes.substr(begin, end - begin);
        begin = end;
    }
    return bytes.substr(begin);
}

std::string textOf(const std::vector<Settings>& settings, const std::string& path,
                   std::size_t section) {
    const auto file = std::ranges::find(settings, path, &Settings::path);
    return file == settings.end() ? "unexpected" : sectionOf(file->bytes, section);
}

}  // namespace

Account::Account(const Lines& journal, const std::vector<FaultyFileSystem::Failure>& failures) {
    std::map<std::string, const Call*> openings;
    std::map<std::string, std::size_t> writes;
    calls_.reserve(journal.size());
    for (const std::string& line : journal) {
        Call& call = calls_.emplace_back(callOf(line));
        if (call.name == "openForWrite" || call.name == "openForRead") {
            openings[call.path] = &call;
            writes[call.path] = 0;
        }
        const auto opening = openings.find(call.path);
        call.writing = opening != openings.end() && opening->second->name == "openForWrite";
        if (call.name == "write") call.section = writes[call.path]++;
    }
    for (const FaultyFileSystem::Failure& failure : failures)
        calls_.at(failure.line).error = failure.number;
}

Account::Call Account::callOf(const std::string& line) {
    Call call;
    call.line = line;
    call.name = line.substr(0, line.find(' '));
    call.path = line.substr(call.name.size() + 1);
    if (call.name == "copyFile") {
        const std::size_t arrow = call.path.find(" -> ");
        call.source = call.path.substr(0, arrow);
        call.path.erase(0, arrow + 4);
    } else if (call.name == "write" || call.name == "read" || call.name == "append" ||
               call.name == "findName") {
        call.path.resize(call.path.rfind(", "));
    }
    return call;
}

bool Account::recorded(const std::string& path) const {
    return std::ranges::none_of(calls_, [&](const Call& call) {
        return call.error != 0 && call.path == path && call.writing &&
               (call.name == "openForWrite" || call.name == "truncate" || call.name == "close");
    });
}

bool Account::readable(const std::string& path) const {
    return std::ranges::none_of(calls_, [&](const Call& call) {
        return call.error != 0 && call.path == path && !call.writing;
    });
}

Lines Account::callsOf(std::string_view name) const {
    Lines lines;
    for (const Call& call : calls_)
        if (call.name == name) lines.push_back(call.line);
    return lines;
}

Lines Account::logEntries() const {
    Lines entries;
    for (const Call& call : calls_) {
        if (call.error == 0) continue;
        std::string text = logEntryOf(call);
        if (!text.empty()) entries.push_back(std::move(text));
    }
    return entries;
}

// Nothing for a failure that is not logged.
std::string Account::logEntryOf(const Call& call) {
    if (call.path.starts_with("C:\\Korvane\\log\\")) return "";
    if (call.name == "copyFile") return logEntry("ioCopyFile", call.error);
    if (call.name == "makeDirectory") return logEntry("ioMakeDirectory", call.error);
    if (call.name == "removeDirectory") return logEntry("ioDeleteDirectory", call.error);
    if (call.name == "deleteFiles") return logEntry("ioDeleteFile", call.error);
    if (!call.writing) return logEntry("iocCfgReadFile", call.error);
    if (call.path == kSampleMain) return logEntry("wcpConfigMigrateMain", call.error);
    if (call.name != "write") return logEntry("iocCfgWriteFile", call.error);
    constexpr std::array kWriters{"iocCfgWriteFileHeader", "iocCfgWriteFileProperty",
                                  "iocCfgWriteFileData"};
    return logEntry(kWriters.at(call.section), call.error);
}

Tree Account::diskAfter(Tree image, const std::vector<Settings>& settings) const {
    std::map<std::string, std::size_t> positions;
    for (const Call& call : calls_) {
        if (call.error != 0) continue;
        if (call.name == "copyFile") image[call.path] = image.at(call.source);
        if (call.name == "deleteFiles") image.erase(call.path);
        if (call.name == "makeDirectory") image[call.path + '\\'] = "";
        if (call.name == "removeDirectory") image.erase(call.path + '\\');
        if (call.name == "openForWrite") {
            image[call.path];
            positions[call.path] = 0;
        }
        if (call.name == "truncate") image[call.path].resize(positions[call.path]);
        if (call.name != "write") continue;
        // A section that failed leaves no gap.
        const std::string text = textOf(settings, call.path, call.section);
        std::string& bytes = image[call.path];
        std::size_t& position = positions[call.path];
        bytes.resize(std::max(bytes.size(), position + text.size()));
        bytes.replace(position, text.size(), text);
        position += text.size();
    }
    return image;
}

void FailingDisk::forget() { files.clearJournal(); }

}  // namespace kv
