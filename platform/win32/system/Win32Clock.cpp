#include "platform/win32/system/Win32Clock.h"

#include <windows.h>

namespace kv {

LocalTime Win32Clock::now() const {
    SYSTEMTIME time;
    GetLocalTime(&time);
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

std::chrono::milliseconds Win32Clock::sinceStart() const {
    return std::chrono::milliseconds(GetTickCount64());
}

void Win32Clock::pause(std::chrono::milliseconds duration) const {
    Sleep(static_cast<DWORD>(duration.count()));
}

}  // namespace kv
