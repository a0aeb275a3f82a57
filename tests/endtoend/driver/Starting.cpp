#include "tests/endtoend/driver/Starting.h"

namespace kv::endtoend {

bool starts(const std::function<BOOL()>& createProcess) {
    constexpr int kTriesAtMost = 3;
    for (int tries = 1; !createProcess(); ++tries)
        if (GetLastError() != ERROR_INTERNAL_ERROR || tries == kTriesAtMost) return false;
    return true;
}

}  // namespace kv::endtoend
