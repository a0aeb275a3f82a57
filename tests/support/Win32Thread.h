// A thread of a test. GCC's library for Windows threads has std::thread only since version 13.
#pragma once

#include <functional>
#include <utility>

#include <windows.h>

namespace kv {

class Win32Thread {
public:
    explicit Win32Thread(std::function<void()> work)
        : work_(std::move(work)), thread_(CreateThread(nullptr, 0, run, &work_, 0, nullptr)) {}
    ~Win32Thread() {
        join();
        CloseHandle(thread_);
    }
    Win32Thread(const Win32Thread&) = delete;
    Win32Thread& operator=(const Win32Thread&) = delete;

    void join() const { WaitForSingleObject(thread_, INFINITE); }

private:
    static DWORD WINAPI run(void* work) {
        (*static_cast<std::function<void()>*>(work))();
        return 0;
    }

    std::function<void()> work_;
    HANDLE thread_;
};

}  // namespace kv
