// Owners of Windows' handles: std::unique_ptr with a deleter that knows the handle's type and how
// to close it.
#pragma once

#include <cstddef>
#include <memory>

#include <windows.h>

namespace kv {

// A handle whose "none" is INVALID_HANDLE_VALUE instead of null, so that its owner is empty, and
// tests as false, after a call that failed.
class FileHandleValue {
public:
    FileHandleValue() noexcept = default;
    FileHandleValue(std::nullptr_t) noexcept {}
    FileHandleValue(HANDLE handle) noexcept : handle_(handle) {}

    operator HANDLE() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }

    friend bool operator==(FileHandleValue, FileHandleValue) noexcept = default;
    friend bool operator==(FileHandleValue value, std::nullptr_t) noexcept { return !value; }

private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

struct FileHandleCloser {
    using pointer = FileHandleValue;
    void operator()(pointer handle) const noexcept { CloseHandle(handle); }
};
using FileHandle = std::unique_ptr<void, FileHandleCloser>;  // of CreateFileW

struct FindHandleCloser {
    using pointer = FileHandleValue;
    void operator()(pointer handle) const noexcept { FindClose(handle); }
};
using FindHandle = std::unique_ptr<void, FindHandleCloser>;  // of FindFirstFileW

}  // namespace kv
