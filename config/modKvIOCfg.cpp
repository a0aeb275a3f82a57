#include "config/modKvIOCfg.h"

#include <array>
#include <limits>

#include "common/FailureHandler.h"
#include "common/FileSystem.h"
#include "common/Text.h"
#include "common/modKvIO.h"

namespace kv {
namespace {

using enum ErrorNumber;

// The rotation of backups ranks a missing path as serious, unlike the file operations.
constexpr std::array kSeriousForBackup{FileNotFound, PathNotFound};

constexpr std::array kSeriousForReading{FileNotFound};

}  // namespace

modKvIOCfg::modKvIOCfg(modKvIO& io, FileSystem& fileSystem, modCmnLog& log)
    : io_(io), fileSystem_(fileSystem), log_(log) {}

int modKvIOCfg::iocCfgBackupFile(const std::string& folder, const std::string& baseName,
                                 const std::string& extension) noexcept {
    return FailureHandler(log_, "iocCfgBackupFile", kSeriousForBackup)([&] {
        const std::string backupFolder = joinPath(folder, "backup");
        const std::string present = cfgPath(folder, baseName, extension);
        const std::string generation1 = cfgPath(backupFolder, baseName + "-1", extension);
        const std::string generation2 = cfgPath(backupFolder, baseName + "-2", extension);

        io_.ioBackupFile(generation1, generation2, false);
        io_.ioBackupFile(present, generation1, false);
    });
}

int modKvIOCfg::iocCfgReadFile(const std::string& folder, const std::string& baseName,
                               const std::string& extension, std::string& text,
                               bool report) noexcept {
    const auto load = [&] {
        const std::string path = cfgPath(folder, baseName, extension);
        const std::int64_t length = fileSystem_.fileLength(path);
        if (length > std::numeric_limits<std::int32_t>::max()) throw RunTimeError(Overflow);
        text.assign(static_cast<std::size_t>(length), ' ');
        const std::int16_t fileNumber = io_.ioOpenFileBinaryRead(path);
        try {
            io_.ioGetData(fileNumber, text);
            io_.ioCloseFile(fileNumber);
        } catch (...) {
            io_.ioReleaseFile(fileNumber);
            throw;
        }
    };
    if (report) return FailureHandler(log_, "iocCfgReadFile", kSeriousForReading)(load);
    try {
        load();
        return 0;
    } catch (...) {
        return currentFailure().number();
    }
}

std::string cfgPath(std::string_view folder, std::string_view baseName,
                    std::string_view extension) {
    std::string path = joinPath(folder, baseName);
    path += '.';
    path += extension;
    return path;
}

}  // namespace kv
