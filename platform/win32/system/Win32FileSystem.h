// The file system of Windows. A path of a drive or of the network may be longer than 260
// characters, whatever the process declares; other paths may not.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "common/FileSystem.h"
#include "platform/win32/system/KeptNames.h"

namespace kv {

class Win32FileSystem : public FileSystem {
public:
    void copyFile(const std::string& source, const std::string& destination) override;
    void deleteFiles(const std::string& pattern) override;
    void makeDirectory(const std::string& path) override;
    void removeDirectory(const std::string& path) override;
    std::optional<std::string> findName(const std::string& path, Lookup lookup) override;
    std::int64_t fileLength(const std::string& path) override;
    std::unique_ptr<OpenFile> openForWrite(const std::string& path) override;
    std::unique_ptr<OpenFile> openForRead(const std::string& path) override;
    void append(const std::string& path, std::string_view bytes) override;

private:
    KeptNames keptNames_;
};

}  // namespace kv
