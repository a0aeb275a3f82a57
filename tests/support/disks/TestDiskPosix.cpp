#include <utility>

#include "tests/support/disks/PosixFileSystem.h"
#include "tests/support/disks/TestDisk.h"

namespace kv {
namespace {

namespace fs = std::filesystem;

class PosixLock final : public TestDisk::Lock {
public:
    explicit PosixLock(std::shared_ptr<const void> use) : use_(std::move(use)) {}

private:
    std::shared_ptr<const void> use_;
};

class PosixTestPlatform final : public TestPlatform {
public:
    explicit PosixTestPlatform(const fs::path& root) : fileSystem_(root) {}

    FileSystem& fileSystem() override { return fileSystem_; }
    fs::path hostPath(const std::string& path) const override { return fileSystem_.host(path); }
    std::string text(const fs::path& name) const override { return name.string(); }

    std::unique_ptr<TestDisk::Lock> lock(const std::string& path) override {
        return std::make_unique<PosixLock>(fileSystem_.lock(path));
    }

    bool honoursReadOnly() override { return true; }

private:
    PosixFileSystem fileSystem_;
};

}  // namespace

std::unique_ptr<TestPlatform> TestPlatform::make(const fs::path& root) {
    return std::make_unique<PosixTestPlatform>(root);
}

}  // namespace kv
