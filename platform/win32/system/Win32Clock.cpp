#include "platform/win32/system/Win32Clock.h"

#include <windows.h>

namespace kv {

LocalTime Win32Clock::now() const {
    SYSTEMTIME time;
    GetLocalTime(&time);
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

}  // namespace kv
