#include "tests/model/LogEntries.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <stdexcept>

namespace kv {
namespace {

struct Description {
    int number;
    std::string_view text;
};
constexpr Description kDescriptions[] = {
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {13, "Type mismatch"},
    {51, "Internal error"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {61, "Disk full"},
    {67, "Too many files"},
    {68, "Device unavailable"},
    {70, "Permission denied"},
    {71, "Disk not ready"},
    {75, "Path/File access error"},
    {76, "Path not found"},
};

bool isSerious(const std::string& routine, int number) {
    struct Row {
        std::string_view routine;
        std::initializer_list<int> numbers;
    };
    static constexpr auto kFiles = {52, 53, 55};
    const Row rows[] = {
        {"ioCopyFile", kFiles},      {"ioDeleteFile", kFiles},
        {"ioMakeDirectory", kFiles}, {"ioDeleteDirectory", {52, 53, 55, 75}},
        {"iocCfgReadFile", {53}},
    };
    return std::ranges::any_of(rows, [&](const Row& row) {
        return row.routine == routine &&
               std::ranges::find(row.numbers, number) != row.numbers.end();
    });
}

// In a pattern "d" stands for a digit.
bool matches(std::string_view text, std::string_view pattern) {
    return std::ranges::equal(text, pattern, [](char given, char wanted) {
        return wanted == 'd' ? '0' <= given && given <= '9' : given == wanted;
    });
}

}  // namespace

std::string logEntry(const std::string& routine, int number) {
    const auto* described = std::ranges::find(kDescriptions, number, &Description::number);
    if (described == std::end(kDescriptions)) throw std::out_of_range("no such number");
    return (isSerious(routine, number) ? "SERV  " : "WARN  ") + std::to_string(number) + ", " +
           std::string(described->text) + ", " + routine;
}

Lines logEntries(const std::string& logFile) {
    constexpr std::string_view kStamp = "[dddd/dd/dd dd:dd:dd]  ";
    Lines entries;
    std::size_t begin = 0;
    while (begin < logFile.size()) {
        const std::size_t end = logFile.find("\r\n", begin);
        if (end == std::string::npos) {
            entries.push_back("no line end after: " + logFile.substr(begin));
            break;
        }
        const std::string line = logFile.substr(begin, end - begin);
        entries.push_back(matches(line.substr(0, kStamp.size()), kStamp)
                              ? line.substr(kStamp.size())
                              : "no time stamp before: " + line);
        begin = end + 2;
    }
    return entries;
}

}  // namespace kv
