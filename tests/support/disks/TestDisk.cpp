#include "tests/support/disks/TestDisk.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace kv {
namespace {

namespace fs = std::filesystem;

fs::path makeTemporaryFolder() {
    std::random_device random;
    fs::path folder;
    do {
        folder = fs::temp_directory_path() / ("kvwcfg-test-" + std::to_string(random()));
    } while (!fs::create_directory(folder));
    return folder;
}

void makeWritable(const fs::path& place) noexcept {
    std::error_code ignored;
    fs::permissions(place, fs::perms::owner_write, fs::perm_options::add, ignored);
}

// Read-only files as well.
void removeAll(const fs::path& place) {
    makeWritable(place);
    if (fs::is_directory(place))
        for (const auto& entry : fs::recursive_directory_iterator(place))
            makeWritable(entry.path());
    fs::remove_all(place);
}

}  // namespace

TestDisk::TestDisk() : root_(makeTemporaryFolder()), platform_(TestPlatform::make(root_)) {
    addDrive('C');
}

TestDisk::~TestDisk() {
    try {
        removeAll(root_);
    } catch (const std::exception&) {
        // What a test has left open stays in the host's temporary folder.
    }
}

void TestDisk::addDrive(char letter) { fs::create_directory(root_ / std::string(1, letter)); }

FileSystem& TestDisk::fileSystem() { return platform_->fileSystem(); }

std::string TestDisk::host(const std::string& path) const {
    return platform_->text(platform_->hostPath(path));
}

void TestDisk::makeFolder(const std::string& path) {
    fs::create_directories(platform_->hostPath(path));
}

void TestDisk::write(const std::string& path, std::string_view bytes) {
    const fs::path place = platform_->hostPath(path);
    fs::create_directories(place.parent_path());
    std::ofstream file(place, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path);
}

std::string TestDisk::read(const std::string& path) const {
    const fs::path place = platform_->hostPath(path);
    std::ifstream file(place, std::ios::binary);
    if (!file || fs::is_directory(place)) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool TestDisk::exists(const std::string& path) const {
    return fs::exists(platform_->hostPath(path));
}

void TestDisk::makeReadOnly(const std::string& path) {
    fs::permissions(platform_->hostPath(path),
                    fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
}

bool TestDisk::honoursReadOnly() { return platform_->honoursReadOnly(); }

void TestDisk::remove(const std::string& path) { removeAll(platform_->hostPath(path)); }

Lines TestDisk::tree(const std::string& folder) const {
    const fs::path top = platform_->hostPath(folder);
    Lines paths;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
        std::string path = platform_->text(entry.path().lexically_relative(top));
        std::ranges::replace(path, '/', '\\');
        if (entry.is_directory()) path += '\\';
        paths.push_back(std::move(path));
    }
    std::ranges::sort(paths);
    return paths;
}

std::unique_ptr<TestDisk::Lock> TestDisk::lock(const std::string& path) {
    return platform_->lock(path);
}

}  // namespace kv
