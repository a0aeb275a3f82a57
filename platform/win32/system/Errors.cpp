#include "platform/win32/system/Errors.h"

#include <algorithm>
#include <array>

namespace kv {
namespace {

using enum ErrorNumber;

// Codes of Windows that MinGW's headers do not name.
constexpr DWORD kVirusInfected = 225;
constexpr DWORD kDeletePending = 303;
constexpr DWORD kUntrustedMountPoint = 448;
constexpr DWORD kDiskQuotaExceeded = 1295;

struct Row {
    DWORD error;
    ErrorNumber number;
};

constexpr std::array kRows{
    Row{ERROR_FILE_NOT_FOUND, FileNotFound},
    Row{ERROR_NO_MORE_FILES, FileNotFound},

    Row{ERROR_PATH_NOT_FOUND, PathNotFound},
    Row{ERROR_INVALID_DRIVE, PathNotFound},
    Row{ERROR_DIRECTORY, PathNotFound},

    // A file that another program locks counts as already open, also when the lock is that of a
    // running program on its own file.
    Row{ERROR_SHARING_VIOLATION, FileAlreadyOpen},
    Row{ERROR_LOCK_VIOLATION, FileAlreadyOpen},
    Row{ERROR_USER_MAPPED_FILE, FileAlreadyOpen},
    Row{kDeletePending, FileAlreadyOpen},

    Row{ERROR_ACCESS_DENIED, PathFileAccessError},
    Row{ERROR_INVALID_ACCESS, PathFileAccessError},
    Row{ERROR_CURRENT_DIRECTORY, PathFileAccessError},
    Row{ERROR_FILE_EXISTS, PathFileAccessError},
    Row{ERROR_CANNOT_MAKE, PathFileAccessError},
    Row{ERROR_DIR_NOT_EMPTY, PathFileAccessError},
    Row{ERROR_ALREADY_EXISTS, PathFileAccessError},
    Row{kVirusInfected, PathFileAccessError},
    Row{kUntrustedMountPoint, PathFileAccessError},
    Row{ERROR_ACCESS_DISABLED_BY_POLICY, PathFileAccessError},
    Row{ERROR_PRIVILEGE_NOT_HELD, PathFileAccessError},

    Row{ERROR_WRITE_PROTECT, PermissionDenied},
    Row{ERROR_NETWORK_ACCESS_DENIED, PermissionDenied},

    Row{ERROR_HANDLE_DISK_FULL, DiskFull},
    Row{ERROR_DISK_FULL, DiskFull},
    Row{kDiskQuotaExceeded, DiskFull},

    Row{ERROR_INVALID_HANDLE, BadFileNameOrNumber},
    Row{ERROR_BAD_NETPATH, BadFileNameOrNumber},
    Row{ERROR_BAD_NET_NAME, BadFileNameOrNumber},
    Row{ERROR_BUFFER_OVERFLOW, BadFileNameOrNumber},  // "the file name is too long"
    Row{ERROR_INVALID_NAME, BadFileNameOrNumber},
    Row{ERROR_BAD_PATHNAME, BadFileNameOrNumber},
    Row{ERROR_FILENAME_EXCED_RANGE, BadFileNameOrNumber},
    Row{ERROR_NO_NET_OR_BAD_PATH, BadFileNameOrNumber},

    Row{ERROR_NOT_READY, DiskNotReady},
    Row{ERROR_NO_MEDIA_IN_DRIVE, DiskNotReady},

    Row{ERROR_TOO_MANY_OPEN_FILES, TooManyFiles},

    Row{ERROR_NOT_ENOUGH_MEMORY, OutOfMemory},
    Row{ERROR_OUTOFMEMORY, OutOfMemory},
    Row{ERROR_NO_SYSTEM_RESOURCES, OutOfMemory},
    Row{ERROR_COMMITMENT_LIMIT, OutOfMemory},

    Row{ERROR_BAD_UNIT, DeviceUnavailable},
    Row{ERROR_REM_NOT_LIST, DeviceUnavailable},
    Row{ERROR_DEV_NOT_EXIST, DeviceUnavailable},
    Row{ERROR_NETNAME_DELETED, DeviceUnavailable},
    Row{ERROR_DEVICE_NOT_CONNECTED, DeviceUnavailable},
};

}  // namespace

RunTimeError translate(DWORD error) noexcept {
    const auto row = std::ranges::find(kRows, error, &Row::error);
    const ErrorNumber number = row == kRows.end() ? DeviceIoError : row->number;
    return number == FileAlreadyOpen ? RunTimeError::whileInUse(number) : RunTimeError(number);
}

void throwLastError() { throw translate(GetLastError()); }

}  // namespace kv
