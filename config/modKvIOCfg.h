// Writes, reads and backs up configuration files. A file is addressed by folder, base name and
// extension: folder + "\" + base name + "." + extension. Failures are logged under the name of the
// routine in which they happen.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/modKvIO.h"
#include "config/ConfigurationFormat.h"

namespace kv {

class FileSystem;
class modCmnLog;

// The reader's own results; 0 is success, and other numbers are those of RunTimeError.
inline constexpr int kCfgTextEmpty = 110302;      // nothing but blanks
inline constexpr int kCfgMalformed = 110303;      // a malformed line, or an item out of order
inline constexpr int kCfgKeyNotNumeric = 110304;  // a line's key is not a number

// One item line: its section's digit, its index within the section, its value.
struct CfgItem {
    std::string section;
    std::string index;
    std::string value;
};

class modKvIOCfg {
public:
    modKvIOCfg(modKvIO& io, FileSystem& fileSystem, modCmnLog& log);
    modKvIOCfg(const modKvIOCfg&) = delete;
    modKvIOCfg& operator=(const modKvIOCfg&) = delete;

    // Writes a whole file and returns 0, or 1 when it could not be opened or closed or when a
    // header value that counts is not a number. The type, the number of properties and the number
    // of data rows are taken from the header. A failure inside one section is logged and the next
    // section follows. Where the old bytes stay and there is no `backup`, an older, longer file
    // keeps its last ones. On success the file is on the disk, also when the computer goes off.
    int iocCfgWriteFile(const std::string& folder, const std::string& baseName,
                        const std::string& extension, const CfgHeader& header,
                        std::span<const std::string> properties, std::span<const std::string> data,
                        bool backup, OldBytes oldBytes = OldBytes::Stay) noexcept;

    void iocCfgWriteFileHeader(std::int16_t fileNumber, const CfgHeader& header) noexcept;
    void iocCfgWriteFileProperty(std::int16_t fileNumber, std::span<const std::string> properties,
                                 std::int32_t typeCode, std::int16_t propertyCount) noexcept;
    void iocCfgWriteFileData(std::int16_t fileNumber, std::span<const std::string> data,
                             std::int16_t rowCount, std::string_view sectionCode) noexcept;

    // The name of a property; empty for an unknown type or an index that its set does not have.
    static std::string_view iocCfgWriteFilePropertyName(std::int32_t typeCode,
                                                        std::int16_t index) noexcept;
    static std::string_view iocCfgWriteFilePropertyName4Main(std::int16_t index) noexcept;
    static std::string_view iocCfgWriteFilePropertyName4DefaultAdmin(std::int16_t index) noexcept;
    static std::string_view iocCfgWriteFilePropertyName4User(std::int16_t index) noexcept;
    static std::string_view iocCfgWriteFilePropertyName4Anonymous(std::int16_t index) noexcept;
    static std::string_view iocCfgWriteFilePropertyName4Root(std::int16_t index) noexcept;
    static std::string_view iocCfgWriteFilePropertyName4Permission(std::int16_t index) noexcept;
    static std::string_view iocCfgWriteFilePropertyName4Install(std::int16_t index) noexcept;

    // Moves the present file to backup\<name>-1 and that one's predecessor to backup\<name>-2. The
    // folder "backup" must exist.
    int iocCfgBackupFile(const std::string& folder, const std::string& baseName,
                         const std::string& extension) noexcept;

    // Loads a whole file as text. Returns 0 or the platform's error number (53: no such file),
    // which is logged when `report` is set.
    int iocCfgReadFile(const std::string& folder, const std::string& baseName,
                       const std::string& extension, std::string& text, bool report) noexcept;

    // Puts the items of the text where their indexes say. The data array is sized here, to D1 + 1
    // values. Returns 0, kCfgTextEmpty or kCfgMalformed; after an unexpected failure, which is
    // logged, its number.
    int iocCfgReadFileParseData(std::string_view text, CfgHeader& header,
                                std::span<std::string> properties,
                                std::vector<std::string>& data) noexcept;

    // Splits one line. Returns 0, kCfgMalformed or kCfgKeyNotNumeric, and then leaves the item as
    // it was; so does a blank line, with 0.
    int iocfgReadConfigRetrieveValue(std::string_view line, CfgItem& item) noexcept;

private:
    modKvIO& io_;
    FileSystem& fileSystem_;
    modCmnLog& log_;
};

// The path of a configuration file.
std::string cfgPath(std::string_view folder, std::string_view baseName, std::string_view extension);

}  // namespace kv
