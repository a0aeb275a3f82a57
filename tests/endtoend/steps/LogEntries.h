// The log's entries, as they are read and as tests expect them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tests/model/Product.h"

namespace kv::endtoend {

inline constexpr std::string_view kMissingSource = "SERV  53, File not found, ioCopyFile";
inline constexpr std::string_view kMissingPath = "WARN  76, Path not found, ioCopyFile";
inline constexpr std::string_view kRefusedCopy = "WARN  75, Path/File access error, ioCopyFile";
inline constexpr std::string_view kLockedCopy = "SERV  55, File already open, ioCopyFile";
inline constexpr std::string_view kLockedDeletion = "SERV  55, File already open, ioDeleteFile";
inline constexpr std::string_view kRefusedDeletion =
    "WARN  75, Path/File access error, ioDeleteFile";
inline constexpr std::string_view kFolderNotEmpty =
    "SERV  75, Path/File access error, ioDeleteDirectory";
inline constexpr std::string_view kMakeDenied = "WARN  75, Path/File access error, ioMakeDirectory";
inline constexpr std::string_view kMakeNoPath = "WARN  76, Path not found, ioMakeDirectory";
inline constexpr std::string_view kRecordRefused =
    "WARN  75, Path/File access error, iocCfgWriteFile";
inline constexpr std::string_view kRecordLocked = "WARN  55, File already open, iocCfgWriteFile";
inline constexpr std::string_view kRecordNoPath = "WARN  76, Path not found, iocCfgWriteFile";

// The log's lines without their time stamps, whose form is checked here. A file that does not end
// in exactly one line end, or a stamp of another form, comes back as a line that says so.
Lines logEntries(const std::string& logFile);

inline Lines times(std::size_t count, std::string_view entry) {
    return Lines(count, std::string(entry));
}

inline Lines operator+(Lines one, const Lines& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

// Of a deletion whose folders have all gone: what lies two folders deep has no path any more.
inline Lines nothingToDelete() {
    constexpr std::string_view kNoFolder = "WARN  76, Path not found, ioDeleteDirectory";
    constexpr std::string_view kNoEntry = "SERV  53, File not found, ioDeleteDirectory";
    return times(kDeletedFileCount, "WARN  76, Path not found, ioDeleteFile") +
           times(1, kNoFolder) + times(1, kNoEntry) + times(2, kNoFolder) + times(2, kNoEntry);
}

}  // namespace kv::endtoend
