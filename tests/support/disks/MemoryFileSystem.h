// A file system in memory, for tests that need hundreds of disks: files and folders on drive C, any
// letter case finds, the stored spelling is kept. Not modelled: wildcards, locks, and of attributes
// all but read-only.
#pragma once

#include <map>
#include <string>

#include "common/FileSystem.h"

namespace kv {

class MemoryFileSystem final : public FileSystem {
public:
    // Of each file its path and bytes; the path of a folder ends in "\".
    explicit MemoryFileSystem(const std::map<std::string, std::string>& image);

    // A disk of its own with the same content.
    MemoryFileSystem(const MemoryFileSystem& other) : FileSystem(), entries_(other.entries_) {}

    // The bytes of a file; empty without it.
    std::string read(const std::string& path) const;

    bool exists(const std::string& path) const;
    std::map<std::string, std::string> image() const;
    void makeReadOnly(const std::string& path);

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
    class File;

    struct Entry {
        std::string path;  // as it is spelt
        bool folder;
        std::string bytes;
        bool readOnly = false;
    };

    Entry* find(const std::string& path);
    Entry& existingFile(const std::string& path);
    Entry& fileToWrite(const std::string& path);
    void requireParent(const std::string& path);
    void add(const std::string& path, bool folder, const std::string& bytes);

    std::map<std::string, Entry> entries_;  // by path in lower case
};

}  // namespace kv
