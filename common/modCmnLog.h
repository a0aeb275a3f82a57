// The wizard's log: failures as one line each, collected in memory and appended to numbered files
// in the product's log folder. Logging never fails and never shows anything.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kv {

class Clock;
class FileSystem;
class Patience;

// The levels of an entry.
inline constexpr std::string_view kLevelInfo = "INFO";  // informational; dropped by default
inline constexpr std::string_view kLevelWarn = "WARN";  // an operation failed
inline constexpr std::string_view kLevelServ = "SERV";  // a path is missing, unusable or locked

class modCmnLog {
public:
    // The base name of the program's file, without its extension, begins the log files' names.
    modCmnLog(FileSystem& fileSystem, const Clock& clock, Patience& patience,
              std::string executableBaseName);
    modCmnLog(const modCmnLog&) = delete;
    modCmnLog& operator=(const modCmnLog&) = delete;

    // Sets the folder of the log files, given without a trailing backslash. It must exist: the log
    // makes no folder, and keeps its entries pending where there is none.
    void cmnLogSetFolder(std::string_view folder);

    // Adds the entry "[yyyy/mm/dd hh:mm:ss]  level  number, description, source" to the pending
    // text, which goes to disk once it is 5,000 characters long.
    void cmnLogWrite(std::int32_t number, std::string_view description, std::string_view source,
                     std::string_view level) noexcept;

    // Appends the pending text to the first log file that is not full. What cannot be written, or
    // not before patience ends, stays pending.
    void cmnLogFlush() noexcept;

private:
    std::string cmnLogFileName() const;
    std::string fileName(int number) const;
    bool isFull(const std::string& name) const;

    FileSystem& fileSystem_;
    const Clock& clock_;
    Patience& patience_;
    std::string executableBaseName_;
    std::string logBuffer_;
    std::int16_t logInfoEnabled_ = 0;  // nothing enables INFO entries yet
    std::string logFolder_;
    std::string logLineSuffix_;  // ends every entry; nothing sets it yet
};

}  // namespace kv
