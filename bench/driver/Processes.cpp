#include "bench/driver/Processes.h"

#include <algorithm>
#include <array>

#include <psapi.h>

#include "tests/endtoend/driver/Starting.h"

namespace kv::bench {

namespace {

constexpr DWORD kTimeLimitMilliseconds = 60000;
constexpr DWORD kWatchMilliseconds = 5;
constexpr DWORD kSettleMilliseconds = 300;

struct WindowSearch {
    DWORD process;
    const std::string& className;
    HWND found = nullptr;
};

BOOL CALLBACK isWanted(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<WindowSearch*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner != search.process || !IsWindowVisible(window)) {
        return TRUE;
    }
    std::array<char, 64> name{};
    GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    if (search.className != name.data()) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

bool answers(HWND window) {
    DWORD_PTR ignored = 0;
    return SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, kTimeLimitMilliseconds,
                               &ignored) != 0;
}

}  // namespace

StopWatch::StopWatch() { QueryPerformanceCounter(&begin_); }

double StopWatch::milliseconds() const {
    LARGE_INTEGER end, frequency;
    QueryPerformanceCounter(&end);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(end.QuadPart - begin_.QuadPart) * 1000.0 /
           static_cast<double>(frequency.QuadPart);
}

Process::Process(const std::string& commandLine, DWORD flags) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    std::string command = commandLine;
    if (!endtoend::starts([&] {
            return CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, flags, nullptr,
                                  nullptr, &startup, &information_);
        })) {
        throw BenchFailure("cannot start " + commandLine + ", error " +
                           std::to_string(GetLastError()));
    }
}

Process::~Process() {
    if (information_.hProcess == nullptr) {
        return;
    }
    TerminateProcess(information_.hProcess, 1);
    WaitForSingleObject(information_.hProcess, kTimeLimitMilliseconds);
    CloseHandle(information_.hThread);
    CloseHandle(information_.hProcess);
}

PROCESS_INFORMATION Process::release() {
    const PROCESS_INFORMATION given = information_;
    information_ = {};
    return given;
}

DWORD Process::waitForExit() const {
    if (WaitForSingleObject(handle(), kTimeLimitMilliseconds) != WAIT_OBJECT_0) {
        throw BenchFailure("a process does not end");
    }
    DWORD code = 0;
    GetExitCodeProcess(handle(), &code);
    return code;
}

SIZE_T Process::waitForExitAndWatchMemory() const {
    SIZE_T peak = 0;
    while (WaitForSingleObject(handle(), kWatchMilliseconds) == WAIT_TIMEOUT) {
        peak = std::max(peak, peakWorkingSet(handle()));
    }
    return peak;
}

SIZE_T peakWorkingSet(HANDLE process) {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(process, &counters, sizeof counters);
    return counters.PeakWorkingSetSize;
}

HWND waitForWindow(HANDLE process, DWORD id, const std::string& className) {
    const StopWatch watch;
    WindowSearch search{id, className};
    while (watch.milliseconds() < kTimeLimitMilliseconds) {
        EnumWindows(isWanted, reinterpret_cast<LPARAM>(&search));
        if (search.found != nullptr && answers(search.found)) {
            return search.found;
        }
        if (WaitForSingleObject(process, 1) == WAIT_OBJECT_0) {
            break;
        }
    }
    throw BenchFailure("waited in vain for a window of the class " + className);
}

void waitForAnswer(HWND window, const std::function<bool()>& condition) {
    const StopWatch watch;
    while (answers(window)) {
        // What holds in the middle of the work may not be its end: the next answer is.
        if (condition() && answers(window) && condition()) {
            return;
        }
        if (watch.milliseconds() > kTimeLimitMilliseconds) {
            break;
        }
        Sleep(1);
    }
    throw BenchFailure("the work does not end");
}

void click(HWND button) { PostMessageA(button, BM_CLICK, 0, 0); }

void letTheWindowSettle() { Sleep(kSettleMilliseconds); }

std::string captionOf(HWND window) {
    std::array<char, 256> text{};
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

}  // namespace kv::bench
