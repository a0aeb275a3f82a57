// The log's lines as the design lays them out.
#pragma once

#include <string>
#include <vector>

namespace kv::endtoend {

struct LogLines {
    int whole = 0;
    std::vector<std::string> torn;  // whatever is no whole line
};

LogLines readLog(const std::string& file);

}  // namespace kv::endtoend
