// Tests for folders and files by a directory listing. The name must match to the letter: a name
// that differs in case only counts as missing.
#pragma once

#include <string_view>

namespace kv {

class FileSystem;

// Whether the folder `parent` has no entry of the name. A plain file of the name counts as found,
// and so do hidden entries.
bool wcpFolderMissing(FileSystem& fileSystem, std::string_view parent, std::string_view name);

// Whether the folder has no normal or read-only file of the name.
bool wcpFileMissing(FileSystem& fileSystem, std::string_view folder, std::string_view name);

}  // namespace kv
