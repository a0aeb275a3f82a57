#include <stdexcept>
#include <utility>

#include <windows.h>

#include "common/FileSystem.h"
#include "platform/win32/system/Handles.h"
#include "platform/win32/system/Text.h"
#include "platform/win32/system/Win32FileSystem.h"
#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

namespace fs = std::filesystem;

bool isSeparator(char c) noexcept { return c == '\\' || c == '/'; }

// The file system of Windows with the drives moved to folders of the root.
class MovedFileSystem final : public FileSystem {
public:
    explicit MovedFileSystem(std::string root) : root_(std::move(root)) {}

    // A path without a drive is on drive C.
    std::string moved(const std::string& path) const {
        if (path.empty()) return path;
        if (path.size() > 1 && isSeparator(path[0]) && isSeparator(path[1]))
            return root_ + "\\|";  // a bad name: no network is there
        const bool hasDrive = path.size() > 1 && path[1] == ':';
        const std::string rest = hasDrive ? path.substr(2) : path;
        std::string result = root_ + '\\' + (hasDrive ? path[0] : 'C');
        if (!rest.empty() && !isSeparator(rest[0])) result += '\\';
        return result + rest;
    }

    void copyFile(const std::string& source, const std::string& destination) override {
        fileSystem_.copyFile(moved(source), moved(destination));
    }
    void deleteFiles(const std::string& pattern) override {
        fileSystem_.deleteFiles(moved(pattern));
    }
    void makeDirectory(const std::string& path) override { fileSystem_.makeDirectory(moved(path)); }
    void removeDirectory(const std::string& path) override {
        fileSystem_.removeDirectory(moved(path));
    }
    std::optional<std::string> findName(const std::string& path, Lookup lookup) override {
        return fileSystem_.findName(moved(path), lookup);
    }
    std::int64_t fileLength(const std::string& path) override {
        return fileSystem_.fileLength(moved(path));
    }
    std::unique_ptr<OpenFile> openForWrite(const std::string& path) override {
        return fileSystem_.openForWrite(moved(path));
    }
    std::unique_ptr<OpenFile> openForRead(const std::string& path) override {
        return fileSystem_.openForRead(moved(path));
    }
    void append(const std::string& path, std::string_view bytes) override {
        fileSystem_.append(moved(path), bytes);
    }

private:
    std::string root_;
    Win32FileSystem fileSystem_;
};

class Win32Lock final : public TestDisk::Lock {
public:
    explicit Win32Lock(const fs::path& place)
        : file_(CreateFileW(place.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                            FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {
        if (!file_) throw std::runtime_error("cannot lock " + fromWide(place.wstring()));
    }

private:
    FileHandle file_;
};

class Win32TestPlatform final : public TestPlatform {
public:
    explicit Win32TestPlatform(const fs::path& root)
        : root_(root), fileSystem_(fromWide(root.wstring())) {}

    FileSystem& fileSystem() override { return fileSystem_; }

    fs::path hostPath(const std::string& path) const override {
        return fs::path(toWide(fileSystem_.moved(path)));
    }

    std::string text(const fs::path& name) const override { return fromWide(name.wstring()); }

    std::unique_ptr<TestDisk::Lock> lock(const std::string& path) override {
        return std::make_unique<Win32Lock>(hostPath(path));
    }

    // Not so for the superuser of a Unix host under Wine.
    bool honoursReadOnly() override {
        const fs::path place = root_ / "read-only";
        const FileHandle made(CreateFileW(place.c_str(), DELETE,
                                          FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, CREATE_NEW,
                                          FILE_ATTRIBUTE_READONLY, nullptr));
        const FileHandle written(CreateFileW(place.c_str(), GENERIC_WRITE,
                                             FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                             OPEN_EXISTING, 0, nullptr));
        if (!made) throw std::runtime_error("cannot make a read-only file");
        return !written;
    }

private:
    fs::path root_;
    MovedFileSystem fileSystem_;
};

}  // namespace

std::unique_ptr<TestPlatform> TestPlatform::make(const fs::path& root) {
    return std::make_unique<Win32TestPlatform>(root);
}

}  // namespace kv
