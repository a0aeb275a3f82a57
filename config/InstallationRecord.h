// One installation as the installation information file records it: seven columns, laid into the
// rows of the file's data section one after another.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace kv {

inline constexpr int kInstallColumns = 7;

// In memory the scripts folder comes first, in files the home folder does.
struct InstallEntry {
    std::array<std::string, kInstallColumns> fields;
};
inline constexpr int kEntryScriptsFolder = 0;  // followed by "\", as are the next two
inline constexpr int kEntryHomeFolder = 1;
inline constexpr int kEntryProductFolder = 2;
inline constexpr int kEntryServerKind = 3;
inline constexpr int kEntryUrlStyle = 4;
inline constexpr int kEntryWebsiteIP = 5;
inline constexpr int kEntryWebsitePort = 6;

// The entry whose columns begin at the row, all of which must be there.
InstallEntry entryAt(const std::vector<std::string>& rows, std::size_t row);

// Lays the columns of the n-th entry, counted from 0, over the rows, which must be long enough.
// Entries are read seven rows apart but written three, so that each covers the last four columns of
// the one before it: files in the field are arranged so, and readers expect it.
void placeEntry(const InstallEntry& entry, std::size_t n, std::vector<std::string>& rows);

}  // namespace kv
