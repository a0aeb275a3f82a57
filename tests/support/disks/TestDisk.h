// A disk for a test: a fresh temporary folder, removed with all its content at the end, whose
// folders C, D and E are the drives of a file system with Windows' rules. Paths are those of that
// file system; the functions that prepare and look up files throw where they cannot do so.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "common/RunTimeError.h"
#include "tests/model/Tree.h"

namespace kv {

class FileSystem;
class TestPlatform;

class TestDisk {
public:
    // Drive C is there from the start.
    TestDisk();
    ~TestDisk();
    TestDisk(const TestDisk&) = delete;
    TestDisk& operator=(const TestDisk&) = delete;

    void addDrive(char letter);

    // The file system under test: natively one with Windows' rules, on Windows its own one.
    FileSystem& fileSystem();

    // The path as the host's calls take it.
    std::string host(const std::string& path) const;

    // Makes a folder with its parents.
    void makeFolder(const std::string& path);

    // Makes a file, or replaces its content, with its parents.
    void write(const std::string& path, std::string_view bytes);

    std::string read(const std::string& path) const;
    bool exists(const std::string& path) const;
    void makeReadOnly(const std::string& path);

    // Whether the host keeps this program from writing to read-only files. Where it does not, as
    // under Wine for the superuser, tests of just that have nothing to test.
    bool honoursReadOnly();

    // Removes a file, or a folder with its content.
    void remove(const std::string& path);

    // Everything below a folder, sorted, as paths relative to it; those of folders end in "\".
    Lines tree(const std::string& folder) const;

    // An exclusive lock on an existing file or folder, as another program holds it.
    class Lock {
    public:
        Lock() = default;
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;
        virtual ~Lock() = default;
    };
    [[nodiscard]] std::unique_ptr<Lock> lock(const std::string& path);

private:
    std::filesystem::path root_;
    std::unique_ptr<TestPlatform> platform_;
};

// What differs between the hosts: there is one implementation for each.
class TestPlatform {
public:
    static std::unique_ptr<TestPlatform> make(const std::filesystem::path& root);

    TestPlatform() = default;
    TestPlatform(const TestPlatform&) = delete;
    TestPlatform& operator=(const TestPlatform&) = delete;
    virtual ~TestPlatform() = default;

    virtual FileSystem& fileSystem() = 0;
    virtual std::filesystem::path hostPath(const std::string& path) const = 0;
    virtual std::string text(const std::filesystem::path& name) const = 0;
    virtual bool honoursReadOnly() = 0;
    virtual std::unique_ptr<TestDisk::Lock> lock(const std::string& path) = 0;
};

// The number of the failure that the action throws; 0 when it throws none.
template <class Action>
int failureOf(Action&& action) {
    try {
        action();
        return 0;
    } catch (const RunTimeError& failure) {
        return failure.number();
    }
}

}  // namespace kv
