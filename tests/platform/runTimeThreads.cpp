// Exceptions with the run-time library's threads as the program links them: several threads throw
// at a time, and the last error outlives a throw. Ends with 0 when all is as it should be,
// otherwise with the number of the check that failed. Without GoogleTest, which brings the library
// along whose place the tested code takes.
#include <array>
#include <cstdint>
#include <exception>

#include <windows.h>

namespace {

constexpr int kThreads = 8;
constexpr DWORD kRounds = 2000;

struct Thrown {
    std::uintptr_t thread;
    DWORD round;
};

// How many exceptions, one thrown while another is handled, came as they were thrown.
DWORD WINAPI throwAndCatch(void* parameter) {
    const auto thread = reinterpret_cast<std::uintptr_t>(parameter);
    DWORD good = 0;
    for (DWORD round = 0; round < kRounds; ++round) {
        try {
            throw Thrown{thread, round};
        } catch (const Thrown& outer) {
            try {
                throw round;
            } catch (DWORD inner) {
                if (inner == round && outer.thread == thread && outer.round == round &&
                    std::uncaught_exceptions() == 0)
                    ++good;
            }
        }
    }
    return good;
}

bool eachThreadHasExceptionsOfItsOwn() {
    std::array<HANDLE, kThreads> threads{};
    for (std::uintptr_t i = 0; i < kThreads; ++i) {
        threads[i] =
            CreateThread(nullptr, 0, throwAndCatch, reinterpret_cast<void*>(i), 0, nullptr);
        if (threads[i] == nullptr) return false;
    }
    bool good = true;
    for (const HANDLE thread : threads) {
        DWORD caught = 0;
        good = WaitForSingleObject(thread, INFINITE) == WAIT_OBJECT_0 &&
               GetExitCodeThread(thread, &caught) != 0 && caught == kRounds && good;
        CloseHandle(thread);
    }
    return good;
}

struct LastError {
    DWORD number = GetLastError();
};

bool lastErrorOutlivesAThrow() {
    SetLastError(ERROR_DISK_FULL);
    try {
        throw LastError();
    } catch (const LastError& error) {
        return error.number == ERROR_DISK_FULL && GetLastError() == ERROR_DISK_FULL;
    }
}

}  // namespace

int main() {
    if (!eachThreadHasExceptionsOfItsOwn()) return 1;
    if (!lastErrorOutlivesAThrow()) return 2;
    return 0;
}
