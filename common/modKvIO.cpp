#include "common/modKvIO.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/FailureHandler.h"
#include "common/FileSystem.h"
#include "common/Patience.h"
#include "common/RunTimeError.h"

namespace kv {
namespace {

using enum ErrorNumber;

constexpr std::array kSeriousForFiles{BadFileNameOrNumber, FileNotFound, FileAlreadyOpen};

// A directory that cannot be removed is serious too: what it holds stays reachable on the web.
constexpr std::array kSeriousForRemoval{BadFileNameOrNumber, FileNotFound, FileAlreadyOpen,
                                        PathFileAccessError};

constexpr std::size_t kLastFileNumber = 511;  // as many files as the platform numbers
constexpr std::size_t kPendingLimitBytes = 1 << 16;

// What cannot be written is not tried again: the failure belongs to those who put it.
void writePending(OpenFile& file, std::string& pending) {
    if (pending.empty()) return;
    file.write(std::exchange(pending, {}));
}

}  // namespace

modKvIO::modKvIO(FileSystem& fileSystem, modCmnLog& log, Patience& patience)
    : fileSystem_(fileSystem), log_(log), patience_(patience) {}

// A file that a failure has left open ends with the program; what was put into it is kept.
modKvIO::~modKvIO() {
    for (auto& [file, pending] : openFiles_) {
        try {
            if (file) writePending(*file, pending);
        } catch (...) {
            // Nobody is left to be told.
        }
    }
}

// The status of a step that is tried again while somebody else is using its file.
template <class Step>
int modKvIO::guarded(std::string_view routine, std::span<const ErrorNumber> serious,
                     Step&& step) noexcept {
    const FailureHandler handler(log_, routine, serious);
    return handler([&] { patience_.tryAgain(step); }) == 0 ? 0 : 1;
}

void modKvIO::ioBackupFile(const std::string& source, const std::string& destination,
                           bool /*flag*/) noexcept {
    const int copied = guarded("ioBackupFile", kSeriousForFiles,
                               [&] { fileSystem_.copyFile(source, destination); });
    if (copied == 0)
        guarded("ioBackupFile", kSeriousForFiles, [&] { fileSystem_.deleteFiles(source); });
}

int modKvIO::ioCopyFile(const std::string& source, const std::string& destination,
                        bool /*flag*/) noexcept {
    return guarded("ioCopyFile", kSeriousForFiles,
                   [&] { fileSystem_.copyFile(source, destination); });
}

int modKvIO::ioDeleteFile(const std::string& path, bool /*flag*/) noexcept {
    return guarded("ioDeleteFile", kSeriousForFiles, [&] { fileSystem_.deleteFiles(path); });
}

int modKvIO::ioDeleteDirectory(const std::string& path) noexcept {
    return guarded("ioDeleteDirectory", kSeriousForRemoval,
                   [&] { fileSystem_.removeDirectory(path); });
}

int modKvIO::ioMakeDirectory(const std::string& path) noexcept {
    return guarded("ioMakeDirectory", kSeriousForFiles, [&] { fileSystem_.makeDirectory(path); });
}

std::int16_t modKvIO::ioOpenFileBinaryWrite(const std::string& path, OldBytes oldBytes) {
    Entry& open = freeEntry();
    patience_.tryAgain([&] {
        auto file = fileSystem_.openForWrite(path);
        if (oldBytes == OldBytes::Go) file->truncate();
        open.file = std::move(file);
    });
    return numberOf(open);
}

std::int16_t modKvIO::ioOpenFileBinaryRead(const std::string& path) {
    Entry& open = freeEntry();
    patience_.tryAgain([&] { open.file = fileSystem_.openForRead(path); });
    return numberOf(open);
}

void modKvIO::ioCloseFile(std::int16_t fileNumber) {
    ioFlushData(fileNumber);
    Entry& open = entry(fileNumber);
    open.file->close();
    open = {};
}

void modKvIO::ioReleaseFile(std::int16_t fileNumber) noexcept {
    openFiles_[static_cast<std::size_t>(fileNumber) - 1] = {};
}

void modKvIO::ioPutData(std::int16_t fileNumber, std::string_view text) {
    Entry& open = entry(fileNumber);
    open.pending += text;
    if (open.pending.size() >= kPendingLimitBytes) writePending(*open.file, open.pending);
}

void modKvIO::ioFlushData(std::int16_t fileNumber) {
    Entry& open = entry(fileNumber);
    writePending(*open.file, open.pending);
}

void modKvIO::ioGetData(std::int16_t fileNumber, std::string& text) {
    entry(fileNumber).file->read(text);
}

modKvIO::Entry& modKvIO::freeEntry() {
    const auto place =
        std::ranges::find_if(openFiles_, [](const Entry& open) { return !open.file; });
    if (place != openFiles_.end()) return *place;
    if (openFiles_.size() == kLastFileNumber) throw RunTimeError(TooManyFiles);
    return openFiles_.emplace_back();
}

std::int16_t modKvIO::numberOf(const Entry& entry) const noexcept {
    return static_cast<std::int16_t>(&entry - openFiles_.data() + 1);
}

modKvIO::Entry& modKvIO::entry(std::int16_t fileNumber) {
    const auto place = static_cast<std::size_t>(fileNumber) - 1;
    if (place >= openFiles_.size() || !openFiles_[place].file)
        throw RunTimeError(BadFileNameOrNumber);
    return openFiles_[place];
}

}  // namespace kv
