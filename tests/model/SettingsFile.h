// The bytes of the product's configuration files.
#pragma once

#include <string>

#include "tests/model/Product.h"

namespace kv {

// The lines as a file's bytes: of each line the first "|" stands for the byte between key and name,
// the second one for the byte between name and value.
std::string cfgBytes(const Lines& lines);

// An installation information file with the product's folder as its property and those rows;
// without rows it has no data section.
Lines settingsLines(const Lines& rows, const std::string& product = "C:\\Korvane\\");
std::string settingsBytes(const Lines& rows, const std::string& product = "C:\\Korvane\\");

// The one that the product is unpacked with.
std::string freshSettings();

// An installation's seven rows. The installation information file with them, the one that a
// deletion leaves, and the copy in the scripts folder.
Lines settingsRows(const Site& site);
std::string recordOf(const Site& site);
std::string emptyRecordOf(const Site& site);
std::string scriptsRecordOf(const Site& site);

// The main configuration file that an upgrade makes of the new one and of the one put aside: the
// new file's lines with the old values of thirteen properties, and one line end more.
std::string migrated(const std::string& newText, const std::string& oldText);

}  // namespace kv
