// The bytes of the settings files, line by line as they stand on the disk.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kv::endtoend {

// The lines of a settings file without their line ends, so that a test can damage some of them.
using Lines = std::vector<std::string>;

// What a settings file of the installation says.
struct Settings {
    std::string rowCount;           // D1, as it is written
    std::string installedProduct;   // the property's value
    std::vector<std::string> rows;  // without any, the data section is not written
};

std::string headerLine(int index, std::string_view name, std::string_view value);
std::string dataLine(int index, std::string_view value);
Lines settingsLines(const Settings& settings);
std::string joined(const Lines& lines);
std::string settingsText(const Settings& settings);

// As unpacked: nothing is installed.
std::string freshSettings();

// One entry as it is recorded.
struct Entry {
    std::string home;  // without the backslash that its record ends in
    std::string scripts;
    std::string product;
    std::string serverKind;
    std::string urlStyle;
    std::string address;
    std::string port;
};

std::vector<std::string> rowsOf(const Entry& entry);

}  // namespace kv::endtoend
