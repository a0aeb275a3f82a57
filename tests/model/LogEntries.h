// The log's entries: a time stamp, and "<level>  <number>, <the number's text>, <routine>".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tests/model/Product.h"

namespace kv {

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

// Of a failure of that routine, without its stamp.
std::string logEntry(const std::string& routine, int number);

// The log's entries without their stamps, whose form is checked here. What has no line end, or a
// stamp of another form, comes back as an entry that says so.
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

}  // namespace kv
