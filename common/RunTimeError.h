// The failures that travel through the program as exceptions, each with the platform's classic
// run-time error number and a one-line description.
#pragma once

#include <cstddef>
#include <exception>
#include <span>
#include <string>

namespace kv {

// The numbers that this program raises or gives a meaning to. They stand in log lines and in the
// wizard's last message, so support staff can look them up.
enum class ErrorNumber : int {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    InternalError = 51,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIoError = 57,
    DiskFull = 61,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccessError = 75,
    PathNotFound = 76,
};

// The description that goes with a number: one line, no final full stop.
const char* describe(ErrorNumber number) noexcept;

class RunTimeError : public std::exception {
public:
    explicit RunTimeError(ErrorNumber number) noexcept : number_(number) {}

    // A failure that lasts only as long as somebody else is using the file.
    static RunTimeError whileInUse(ErrorNumber number) noexcept {
        RunTimeError failure(number);
        failure.mayPass_ = true;
        return failure;
    }

    int number() const noexcept { return static_cast<int>(number_); }
    const char* what() const noexcept override { return describe(number_); }
    bool mayPass() const noexcept { return mayPass_; }

private:
    ErrorNumber number_;
    bool mayPass_ = false;
};

// The failure being handled, as a number and a text, whatever was thrown. To be called inside a
// catch block only.
RunTimeError currentFailure() noexcept;

// An element of a list whose index comes from outside: throws SubscriptOutOfRange for an index
// that the list does not have, negative ones included.
template <class List>
auto& elementAt(List& list, std::ptrdiff_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= std::size(list))
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return list[static_cast<std::size_t>(index)];
}

}  // namespace kv
