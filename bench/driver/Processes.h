// Processes and windows as the measurements see them: started, waited for, clicked on, weighed.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include <windows.h>

namespace kv::bench {

class BenchFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class StopWatch {
public:
    StopWatch();
    double milliseconds() const;

private:
    LARGE_INTEGER begin_{};
};

// A process that ends with the object.
class Process {
public:
    explicit Process(const std::string& commandLine, DWORD flags = 0);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    HANDLE handle() const { return information_.hProcess; }
    DWORD id() const { return information_.dwProcessId; }

    // Gives the handles away.
    PROCESS_INFORMATION release();

    DWORD waitForExit() const;
    // Looks at the process's memory all the while, which takes time of its own.
    SIZE_T waitForExitAndWatchMemory() const;

private:
    PROCESS_INFORMATION information_{};
};

// The most memory that the process has had in use at once, in bytes.
SIZE_T peakWorkingSet(HANDLE process);

// Waits until a visible top window of the class answers; looks every millisecond.
HWND waitForWindow(HANDLE process, DWORD id, const std::string& className);

// Asks the window, again and again, until it answers and the condition holds. A window that is busy
// with its work answers when it has ended; the others are left in peace for a millisecond.
void waitForAnswer(HWND window, const std::function<bool()>& condition);

// A click on the button, as its window gets it. Returns at once.
void click(HWND button);

// No user clicks while a window is still being drawn.
void letTheWindowSettle();

std::string captionOf(HWND window);

}  // namespace kv::bench
