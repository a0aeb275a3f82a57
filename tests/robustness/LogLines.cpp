#include "tests/robustness/LogLines.h"

#include <regex>

namespace kv::endtoend {

LogLines readLog(const std::string& file) {
    static const std::regex kLine(
        R"(\[\d{4}/\d\d/\d\d \d\d:\d\d:\d\d\]  (SERV|WARN)  \d{1,6}, )"
        R"((File not found|File already open|Path not found|Path/File access error), )"
        R"((ioCopyFile|ioDeleteFile|ioDeleteDirectory|ioMakeDirectory|iocCfgReadFile|)"
        R"(iocCfgWriteFile))");
    LogLines lines;
    std::size_t begin = 0;
    while (begin < file.size()) {
        const std::size_t end = file.find("\r\n", begin);
        const std::string line = file.substr(begin, end == std::string::npos ? end : end - begin);
        if (end != std::string::npos && std::regex_match(line, kLine))
            ++lines.whole;
        else
            lines.torn.push_back(line);
        begin = end == std::string::npos ? file.size() : end + 2;
    }
    return lines;
}

}  // namespace kv::endtoend
