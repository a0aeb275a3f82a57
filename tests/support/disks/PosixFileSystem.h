// A file system with Windows' rules on a POSIX host. The drives are the folders C, D and E of a
// root folder, and exist when those do; a path without a drive is on drive C. "\" and "/" separate;
// any letter case finds (for the letters of ASCII), and the stored spelling is kept; files open in
// one and the same object exclude each other as on Windows. A file without the owner's right to
// write is read-only, for the superuser too. Not modelled: hidden files, short names, reserved
// names, the network.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/FileSystem.h"
#include "common/RunTimeError.h"

namespace kv {

// The one translation of the host's errors.
RunTimeError translateErrno(int error) noexcept;

class PosixFileSystem : public FileSystem {
public:
    explicit PosixFileSystem(std::filesystem::path root);

    void copyFile(const std::string& source, const std::string& destination) override;
    void deleteFiles(const std::string& pattern) override;
    void makeDirectory(const std::string& path) override;
    void removeDirectory(const std::string& path) override;
    std::optional<std::string> findName(const std::string& path, Lookup lookup) override;
    std::int64_t fileLength(const std::string& path) override;
    std::unique_ptr<OpenFile> openForWrite(const std::string& path) override;
    std::unique_ptr<OpenFile> openForRead(const std::string& path) override;
    void append(const std::string& path, std::string_view bytes) override;

    // Locks an existing file or folder, for as long as the result lives, as another program does
    // that opens it and shares nothing: each access but a look at its name and length is refused
    // with 55.
    [[nodiscard]] std::shared_ptr<const void> lock(const std::string& path);

    // Where the path leads on the host. Parts that exist have their stored spelling there.
    std::filesystem::path host(const std::string& path) const;

private:
    enum Access : unsigned { kRead = 1, kWrite = 2, kDelete = 4, kAnything = 7 };

    struct Path;
    struct Entry;
    struct Use;

    Path parse(const std::string& path, bool wildcards) const;
    std::filesystem::path folderOf(const Path& path) const;
    Entry locate(const std::string& path) const;
    Entry locateFile(const std::string& path) const;
    Entry locateWritableFile(const std::string& path) const;
    std::shared_ptr<const Use> use(const Entry& entry, unsigned access, unsigned shared);
    void deleteFile(const Entry& entry);

    std::filesystem::path root_;
    std::vector<std::weak_ptr<const Use>> uses_;  // each lives as long as its file is in use
};

}  // namespace kv
