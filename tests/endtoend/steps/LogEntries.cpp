#include "tests/endtoend/steps/LogEntries.h"

#include <regex>

namespace kv::endtoend {

Lines logEntries(const std::string& logFile) {
    static const std::regex kStamp(R"(\[\d{4}/\d\d/\d\d \d\d:\d\d:\d\d\]  )");
    constexpr std::size_t kStampLength = 23;
    Lines entries;
    std::size_t begin = 0;
    while (begin < logFile.size()) {
        const std::size_t end = logFile.find("\r\n", begin);
        if (end == std::string::npos) {
            entries.push_back("no line end after: " + logFile.substr(begin));
            break;
        }
        const std::string line = logFile.substr(begin, end - begin);
        entries.push_back(std::regex_match(line.substr(0, kStampLength), kStamp)
                              ? line.substr(kStampLength)
                              : "no time stamp before: " + line);
        begin = end + 2;
    }
    return entries;
}

}  // namespace kv::endtoend
