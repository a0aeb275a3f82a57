#include "common/modCmnLog.h"

#include <utility>

#include "common/Clock.h"
#include "common/FileSystem.h"
#include "common/RunTimeError.h"
#include "common/Text.h"

namespace kv {
namespace {

constexpr std::size_t kFlushLength = 5000;        // characters
constexpr std::int64_t kFileLimitBytes = 500000;  // a file of this size is full
constexpr int kLastFileNumber = 50;

bool isInfo(std::string_view level) noexcept {
    if (level.size() != kLevelInfo.size()) return false;
    for (std::size_t i = 0; i < level.size(); ++i) {
        const char c = level[i];
        const char upper = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        if (upper != kLevelInfo[i]) return false;
    }
    return true;
}

// With leading zeros up to the width.
std::string padded(int value, std::size_t width) {
    std::string digits = std::to_string(value);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

std::string timeStamp(const LocalTime& time) {
    return padded(time.year, 4) + '/' + padded(time.month, 2) + '/' + padded(time.day, 2) + ' ' +
           padded(time.hour, 2) + ':' + padded(time.minute, 2) + ':' + padded(time.second, 2);
}

}  // namespace

modCmnLog::modCmnLog(FileSystem& fileSystem, const Clock& clock, std::string executableBaseName)
    : fileSystem_(fileSystem), clock_(clock), executableBaseName_(std::move(executableBaseName)) {}

void modCmnLog::cmnLogSetFolder(std::string_view folder) {
    logFolder_ = folder;
    logFolder_ += '\\';
}

void modCmnLog::cmnLogWrite(std::int32_t number, std::string_view description,
                            std::string_view source, std::string_view level) noexcept {
    try {
        if (logInfoEnabled_ == 0 && isInfo(level)) return;

        std::string entry = "[";
        entry += timeStamp(clock_.now());
        entry += "]  ";
        entry += level;
        entry += "  ";
        entry += std::to_string(number);
        entry += ", ";
        entry += description;
        entry += ", ";
        entry += source;
        entry += logLineSuffix_;

        if (trim(logBuffer_).empty()) {
            logBuffer_ = std::move(entry);
        } else {
            logBuffer_ += kLineEnd;
            logBuffer_ += entry;
        }
        if (logBuffer_.size() >= kFlushLength) cmnLogFlush();
    } catch (...) {
        // A log that cannot be kept must not stop the work it reports on.
    }
}

void modCmnLog::cmnLogFlush() noexcept {
    try {
        if (trim(logBuffer_).empty()) return;
        std::string text = logBuffer_;
        text += kLineEnd;
        fileSystem_.append(cmnLogFileName(), text);
        logBuffer_.clear();
    } catch (...) {
        // The entries stay pending and are tried again at the next flush.
    }
}

// The first file that is not full. When all are, the last one grows without limit: no log file is
// ever deleted.
std::string modCmnLog::cmnLogFileName() const {
    std::string name;
    for (int number = 0; number <= kLastFileNumber; ++number) {
        name = logFolder_ + executableBaseName_;
        name += static_cast<char>('0' + number / 10);
        name += static_cast<char>('0' + number % 10);
        name += ".log";
        try {
            if (fileSystem_.fileLength(name) < kFileLimitBytes) return name;
        } catch (const RunTimeError&) {
            return name;  // not there yet: it starts a new file
        }
    }
    return name;
}

}  // namespace kv
