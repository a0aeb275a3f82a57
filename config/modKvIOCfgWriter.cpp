#include <utility>

#include "common/FailureHandler.h"
#include "common/Numbers.h"
#include "common/Text.h"
#include "common/modKvIO.h"
#include "config/PropertyNames.h"
#include "config/modKvIOCfg.h"

namespace kv {
namespace {

// The lines of a file, each built whole and put by one call.
class LineWriter {
public:
    LineWriter(modKvIO& io, std::int16_t fileNumber) noexcept : io_(io), fileNumber_(fileNumber) {}

    void putComment(std::string_view heading = {}) {
        std::string line = "#";
        if (!heading.empty()) line += ' ';
        line += heading;
        put(std::move(line));
    }

    void putHeading(std::string_view heading) {
        putComment();
        putComment(heading);
        putComment();
    }

    // The key is the section's digit and the index without padding: "00", "010", "213".
    void putItem(std::string_view section, std::size_t index, std::string_view name,
                 std::string_view value) {
        std::string line(section);
        line += std::to_string(index);
        line += kSep1;
        line += name;
        line += kSep2;
        line += value;
        put(std::move(line));
    }

private:
    void put(std::string line) {
        line += kLineEnd;
        io_.ioPutData(fileNumber_, line);
    }

    modKvIO& io_;
    std::int16_t fileNumber_;
};

std::string_view nameAt(FileType type, std::int16_t index) noexcept {
    const auto names = propertyNames(type);
    if (index < 0 || static_cast<std::size_t>(index) >= names.size()) return {};
    return names[static_cast<std::size_t>(index)];
}

}  // namespace

int modKvIOCfg::iocCfgWriteFile(const std::string& folder, const std::string& baseName,
                                const std::string& extension, const CfgHeader& header,
                                std::span<const std::string> properties,
                                std::span<const std::string> data, bool backup,
                                OldBytes oldBytes) noexcept {
    const int number = FailureHandler(log_, "iocCfgWriteFile")([&] {
        if (backup) iocCfgBackupFile(folder, baseName, extension);

        // A failure from here to the end leaves the file open; it is closed when the program ends.
        const std::int16_t fileNumber =
            io_.ioOpenFileBinaryWrite(cfgPath(folder, baseName, extension), oldBytes);
        iocCfgWriteFileHeader(fileNumber, header);
        iocCfgWriteFileProperty(fileNumber, properties, toInt32(header[kHeaderType]),
                                toInt16(header[kHeaderPropertyCount]));
        if (isPositive(header[kHeaderRowCount]))
            iocCfgWriteFileData(fileNumber, data, toInt16(header[kHeaderRowCount]), kDataSection);
        io_.ioCloseFile(fileNumber);
    });
    return number == 0 ? 0 : 1;
}

// Each section goes to disk in one piece, so that a failed write is its own and the next follows.
void modKvIOCfg::iocCfgWriteFileHeader(std::int16_t fileNumber, const CfgHeader& header) noexcept {
    FailureHandler(log_, "iocCfgWriteFileHeader")([&] {
        LineWriter lines(io_, fileNumber);
        lines.putHeading(kFileHeading);
        lines.putComment(kHeaderHeading);
        lines.putComment();
        for (std::size_t i = 0; i < header.size(); ++i)
            lines.putItem({&kHeaderSection, 1}, i, kHeaderItemNames[i], header[i]);
        io_.ioFlushData(fileNumber);
    });
}

void modKvIOCfg::iocCfgWriteFileProperty(std::int16_t fileNumber,
                                         std::span<const std::string> properties,
                                         std::int32_t typeCode,
                                         std::int16_t propertyCount) noexcept {
    FailureHandler(log_, "iocCfgWriteFileProperty")([&] {
        LineWriter lines(io_, fileNumber);
        lines.putHeading(kPropertyHeading);
        for (std::int16_t i = 0; i < propertyCount; ++i)
            lines.putItem({&kPropertySection, 1}, static_cast<std::size_t>(i),
                          iocCfgWriteFilePropertyName(typeCode, i), elementAt(properties, i));
        io_.ioFlushData(fileNumber);
    });
}

void modKvIOCfg::iocCfgWriteFileData(std::int16_t fileNumber, std::span<const std::string> data,
                                     std::int16_t rowCount, std::string_view sectionCode) noexcept {
    FailureHandler(log_, "iocCfgWriteFileData")([&] {
        LineWriter lines(io_, fileNumber);
        lines.putHeading(std::string(kDataHeading) + std::to_string(toInt16(sectionCode) - 1));
        for (std::int16_t i = 0; i < rowCount; ++i)
            lines.putItem(sectionCode, static_cast<std::size_t>(i), sectionCode,
                          elementAt(data, i));
        io_.ioFlushData(fileNumber);
    });
}

std::string_view modKvIOCfg::iocCfgWriteFilePropertyName(std::int32_t typeCode,
                                                         std::int16_t index) noexcept {
    switch (static_cast<FileType>(typeCode)) {
        case FileType::Main: return iocCfgWriteFilePropertyName4Main(index);
        case FileType::DefaultAdmin: return iocCfgWriteFilePropertyName4DefaultAdmin(index);
        case FileType::User: return iocCfgWriteFilePropertyName4User(index);
        case FileType::Anonymous: return iocCfgWriteFilePropertyName4Anonymous(index);
        case FileType::Root: return iocCfgWriteFilePropertyName4Root(index);
        case FileType::Permission: return iocCfgWriteFilePropertyName4Permission(index);
        case FileType::Install: return iocCfgWriteFilePropertyName4Install(index);
    }
    return {};
}

std::string_view modKvIOCfg::iocCfgWriteFilePropertyName4Main(std::int16_t index) noexcept {
    return nameAt(FileType::Main, index);
}

std::string_view modKvIOCfg::iocCfgWriteFilePropertyName4DefaultAdmin(std::int16_t index) noexcept {
    return nameAt(FileType::DefaultAdmin, index);
}

std::string_view modKvIOCfg::iocCfgWriteFilePropertyName4User(std::int16_t index) noexcept {
    return nameAt(FileType::User, index);
}

std::string_view modKvIOCfg::iocCfgWriteFilePropertyName4Anonymous(std::int16_t index) noexcept {
    return nameAt(FileType::Anonymous, index);
}

std::string_view modKvIOCfg::iocCfgWriteFilePropertyName4Root(std::int16_t index) noexcept {
    return nameAt(FileType::Root, index);
}

std::string_view modKvIOCfg::iocCfgWriteFilePropertyName4Permission(std::int16_t index) noexcept {
    return nameAt(FileType::Permission, index);
}

std::string_view modKvIOCfg::iocCfgWriteFilePropertyName4Install(std::int16_t index) noexcept {
    return nameAt(FileType::Install, index);
}

}  // namespace kv
