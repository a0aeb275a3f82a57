#include "common/RunTimeError.h"

#include <new>
#include <stdexcept>

namespace kv {

const char* describe(ErrorNumber number) noexcept {
    switch (number) {
        case ErrorNumber::InvalidProcedureCall: return "Invalid procedure call or argument";
        case ErrorNumber::Overflow: return "Overflow";
        case ErrorNumber::OutOfMemory: return "Out of memory";
        case ErrorNumber::SubscriptOutOfRange: return "Subscript out of range";
        case ErrorNumber::TypeMismatch: return "Type mismatch";
        case ErrorNumber::InternalError: return "Internal error";
        case ErrorNumber::BadFileNameOrNumber: return "Bad file name or number";
        case ErrorNumber::FileNotFound: return "File not found";
        case ErrorNumber::FileAlreadyOpen: return "File already open";
        case ErrorNumber::DeviceIoError: return "Device I/O error";
        case ErrorNumber::DiskFull: return "Disk full";
        case ErrorNumber::TooManyFiles: return "Too many files";
        case ErrorNumber::DeviceUnavailable: return "Device unavailable";
        case ErrorNumber::PermissionDenied: return "Permission denied";
        case ErrorNumber::DiskNotReady: return "Disk not ready";
        case ErrorNumber::PathFileAccessError: return "Path/File access error";
        case ErrorNumber::PathNotFound: return "Path not found";
    }
    return "Application-defined or object-defined error";
}

RunTimeError currentFailure() noexcept {
    try {
        throw;
    } catch (const RunTimeError& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return RunTimeError(ErrorNumber::OutOfMemory);
    } catch (const std::length_error&) {
        return RunTimeError(ErrorNumber::OutOfMemory);
    } catch (...) {
        return RunTimeError(ErrorNumber::InternalError);
    }
}

}  // namespace kv
