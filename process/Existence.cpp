#include "process/Existence.h"

#include "common/FileSystem.h"
#include "common/Text.h"

namespace kv {

bool wcpFolderMissing(FileSystem& fileSystem, std::string_view parent, std::string_view name) {
    return fileSystem.findName(joinPath(parent, name), Lookup::FilesAndFolders) != name;
}

bool wcpFileMissing(FileSystem& fileSystem, std::string_view folder, std::string_view name) {
    return fileSystem.findName(joinPath(folder, name), Lookup::Files) != name;
}

}  // namespace kv
