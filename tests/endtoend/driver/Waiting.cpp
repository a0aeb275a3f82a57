#include "tests/endtoend/driver/Waiting.h"

namespace kv::endtoend {

bool comesTrue(const std::function<bool()>& condition, DWORD milliseconds) {
    const ULONGLONG begin = GetTickCount64();
    while (!condition()) {
        if (GetTickCount64() - begin >= milliseconds) return false;
        Sleep(1);
    }
    return true;
}

}  // namespace kv::endtoend
