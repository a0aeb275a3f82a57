// Brings a customer's configuration back after newer product files have been unpacked: the files
// that a backup has put aside in cfg\original return to their places, and the main configuration
// file keeps its new header and data but takes over the old properties.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kv {

class ProgressLine;
class modCmnLog;
class modKvIO;
class modKvIOCfg;

class ConfigUpgrade {
public:
    ConfigUpgrade(modKvIO& io, modKvIOCfg& configuration, modCmnLog& log, ProgressLine& progress);
    ConfigUpgrade(const ConfigUpgrade&) = delete;
    ConfigUpgrade& operator=(const ConfigUpgrade&) = delete;

    // Runs the restore steps, each whatever became of the one before; the progress line widens by
    // the share, in twips, in equal parts.
    void wcpConfigRestore(const std::string& productFolder, int progressShare);

    // Carries the properties of cfg\original\korvane.bak over to cfg\general\korvane.cfg. The
    // file is rewritten in place and grows by one line end. A failure is logged.
    void wcpConfigMigrateMain(const std::string& productFolder) noexcept;

private:
    std::string readText(const std::string& folder, const std::string& extension) noexcept;

    modKvIO& io_;
    modKvIOCfg& configuration_;
    modCmnLog& log_;
    ProgressLine& progress_;
};

// Replaces the line by the first of the lines that has the key, whole; comment lines have none.
// Without such a line it stays.
void wcpConfigReplaceLine(std::string_view& line, std::span<const std::string_view> lines,
                          std::string_view key);

}  // namespace kv
