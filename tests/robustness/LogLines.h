// The log's lines as the design lays them out.
#pragma once

#include <string>

#include "tests/model/Tree.h"

namespace kv::endtoend {

struct LogLines {
    int whole = 0;
    Lines torn;  // whatever is no whole line
};

LogLines readLog(const std::string& file);

}  // namespace kv::endtoend
