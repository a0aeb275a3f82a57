#include "common/modCmnLog.h"

#include <array>
#include <utility>

#include "common/Clock.h"
#include "common/FileSystem.h"
#include "common/Patience.h"
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

auto timeStamp(const LocalTime& time) noexcept {
    auto stamp = std::to_array("[0000/00/00 00:00:00]  ");
    const auto put = [&](std::size_t position, int twoDigits) {
        stamp[position] = static_cast<char>('0' + twoDigits / 10);
        stamp[position + 1] = static_cast<char>('0' + twoDigits % 10);
    };
    put(1, time.year / 100);
    put(3, time.year % 100);
    put(6, time.month);
    put(9, time.day);
    put(12, time.hour);
    put(15, time.minute);
    put(18, time.second);
    return stamp;
}

}  // namespace

modCmnLog::modCmnLog(FileSystem& fileSystem, const Clock& clock, Patience& patience,
                     std::string executableBaseName)
    : fileSystem_(fileSystem),
      clock_(clock),
      patience_(patience),
      executableBaseName_(std::move(executableBaseName)) {}

void modCmnLog::cmnLogSetFolder(std::string_view folder) {
    logFolder_ = folder;
    logFolder_ += '\\';
}

void modCmnLog::cmnLogWrite(std::int32_t number, std::string_view description,
                            std::string_view source, std::string_view level) noexcept {
    try {
        if (logInfoEnabled_ == 0 && isInfo(level)) return;

        const auto stamp = timeStamp(clock_.now());
        if (trim(logBuffer_).empty()) logBuffer_.clear();

        // With the room at hand nothing fails any more: an entry is there as a whole or not at all.
        constexpr std::size_t kRoomForTheRest = 32;  // line end, number, separators
        logBuffer_.reserve(logBuffer_.size() + stamp.size() + level.size() + description.size() +
                           source.size() + logLineSuffix_.size() + kRoomForTheRest);
        if (!logBuffer_.empty()) logBuffer_ += kLineEnd;
        logBuffer_ += stamp.data();
        logBuffer_ += level;
        logBuffer_ += "  ";
        logBuffer_ += std::to_string(number);
        logBuffer_ += ", ";
        logBuffer_ += description;
        logBuffer_ += ", ";
        logBuffer_ += source;
        logBuffer_ += logLineSuffix_;
        if (logBuffer_.size() >= kFlushLength) cmnLogFlush();
    } catch (...) {
        // A log that cannot be kept must not stop the work it reports on.
    }
}

void modCmnLog::cmnLogFlush() noexcept {
    if (trim(logBuffer_).empty()) return;
    const std::size_t length = logBuffer_.size();
    try {
        logBuffer_ += kLineEnd;
        const std::string name = cmnLogFileName();
        patience_.tryAgain([&] { fileSystem_.append(name, logBuffer_); });
        logBuffer_.clear();
    } catch (...) {
        logBuffer_.resize(length);  // the entries stay pending until the next flush
    }
}

// The first file that is not full. When all are, the last one grows without limit: no log file is
// ever deleted.
std::string modCmnLog::cmnLogFileName() const {
    int number = 0;
    while (number < kLastFileNumber && isFull(fileName(number))) ++number;
    return fileName(number);
}

std::string modCmnLog::fileName(int number) const {
    std::string name = logFolder_ + executableBaseName_;
    name += static_cast<char>('0' + number / 10);
    name += static_cast<char>('0' + number % 10);
    name += ".log";
    return name;
}

// A file that is not there yet is to be started.
bool modCmnLog::isFull(const std::string& name) const {
    try {
        return fileSystem_.fileLength(name) >= kFileLimitBytes;
    } catch (const RunTimeError&) {
        return false;
    }
}

}  // namespace kv
