#include "Workplace.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace kv::endtoend {

namespace {

namespace fs = std::filesystem;

constexpr DWORD kToolLimitMilliseconds = 5000;
constexpr DWORD kPollMilliseconds = 2;

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes(fs::file_size(path), '\0');
    if (!file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return bytes;
}

std::string inBackslashes(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

// A read-only file cannot be removed on Windows.
void removeAll(const fs::path& path) {
    if (fs::is_directory(path)) {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path)) {
            SetFileAttributesA(entry.path().string().c_str(), FILE_ATTRIBUTE_NORMAL);
        }
    } else {
        SetFileAttributesA(path.string().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    fs::remove_all(path);
}

std::string sizeOf(const std::string& bytes) { return std::to_string(bytes.size()) + " bytes"; }

void run(std::string command) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &process)) {
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
}

}  // namespace

std::string differences(const Tree& expected, const Tree& actual) {
    std::string text;
    for (const auto& [path, bytes] : expected) {
        const auto found = actual.find(path);
        if (found == actual.end()) {
            text += "missing: " + path + "\n";
        } else if (found->second != bytes) {
            const auto unequal = std::mismatch(bytes.begin(), bytes.end(), found->second.begin(),
                                               found->second.end());
            text += "differs: " + path + ", " + sizeOf(found->second) + " instead of " +
                    sizeOf(bytes) + ", first at " +
                    std::to_string(std::distance(bytes.begin(), unequal.first)) + "\n";
        }
    }
    for (const auto& [path, bytes] : actual) {
        if (!expected.contains(path)) {
            text += "not expected: " + path + "\n";
        }
    }
    return text;
}

std::string windowsPath(std::string path) {
    if (path.starts_with('/')) {
        path.insert(0, "Z:");
    }
    return inBackslashes(std::move(path));
}

std::string pathFromEnvironment(const char* variable) {
    const char* value = std::getenv(variable);
    if (value == nullptr || *value == '\0') {
        throw std::runtime_error(std::string("the environment variable ") + variable +
                                 " is not set");
    }
    return windowsPath(value);
}

FileLock::FileLock(const std::string& path, DWORD sharing)
    : file_(CreateFileA(path.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {
    if (file_ == INVALID_HANDLE_VALUE) {
        throw std::runtime_error("cannot lock " + path);
    }
}

FileLock::~FileLock() { CloseHandle(file_); }

Workplace::Workplace(const std::string& scenario)
    : root_(pathFromEnvironment("KV_SCRATCH") + "\\" + scenario) {
    removeAll(root_);
    fs::create_directories(root_);
    fs::copy(pathFromEnvironment("KV_SAMPLE_PRODUCT"), product(), fs::copy_options::recursive);
    makeFolder("product\\log");
    makeFolder("product\\cfg\\original");
    makeFolder("server\\htdocs");
    makeFolder("server\\cgi-bin");
}

Workplace::~Workplace() {
    std::error_code ignored;
    try {
        removeAll(root_);
    } catch (const fs::filesystem_error&) {
        fs::remove_all(root_, ignored);
    }
}

std::string Workplace::path(std::string_view relative) const {
    return root_ + "\\" + std::string(relative);
}

Tree Workplace::tree() const {
    Tree found;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root_)) {
        const std::string relative = inBackslashes(entry.path().string()).substr(root_.size() + 1);
        if (entry.is_directory()) {
            found[relative + "\\"] = "";
        } else {
            found[relative] = readFile(entry.path());
        }
    }
    return found;
}

bool Workplace::exists(std::string_view relative) const { return fs::exists(path(relative)); }

std::string Workplace::read(std::string_view relative) const { return readFile(path(relative)); }

void Workplace::write(std::string_view relative, std::string_view bytes) const {
    const fs::path target = path(relative);
    fs::create_directories(target.parent_path());
    std::ofstream file(target, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + target.string());
    }
}

void Workplace::makeFolder(std::string_view relative) const {
    fs::create_directories(path(relative));
}

void Workplace::makeFileOfLength(std::string_view relative, long length) const {
    write(relative, "");
    fs::resize_file(path(relative), static_cast<std::uintmax_t>(length));
}

void Workplace::makeReadOnly(std::string_view relative) const {
    SetFileAttributesA(path(relative).c_str(), FILE_ATTRIBUTE_READONLY);
}

bool Workplace::honoursReadOnly() const {
    constexpr std::string_view kProbe = "read-only";
    write(kProbe, "");
    makeReadOnly(kProbe);
    HANDLE file =
        CreateFileA(path(kProbe).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        CloseHandle(file);
    }
    remove(kProbe);
    return file == INVALID_HANDLE_VALUE;
}

void Workplace::remove(std::string_view relative) const { removeAll(path(relative)); }

std::unique_ptr<FileLock> Workplace::lock(std::string_view relative, DWORD sharing) const {
    return std::make_unique<FileLock>(path(relative), sharing);
}

BorrowedFolder::BorrowedFolder(const std::string& path) : topmost_(path) {
    if (fs::exists(topmost_)) {
        throw std::runtime_error(path + " exists already");
    }
    while (!fs::exists(topmost_.parent_path())) {
        topmost_ = topmost_.parent_path();
    }
    fs::create_directories(path);
}

BorrowedFolder::~BorrowedFolder() {
    std::error_code ignored;
    fs::remove_all(topmost_, ignored);
}

BorrowedDrive::BorrowedDrive(char letter, const std::string& folder)
    : name_{letter, ':'}, folder_(folder) {
    if (fs::exists(name_ + "\\")) {
        return;
    }
    define(false);
    works_ = fs::exists(name_ + "\\");
}

BorrowedDrive::~BorrowedDrive() {
    if (works_) {
        define(true);
    }
}

// Wine knows its drives by links in the prefix and takes no other definition of one, but it can
// run the system's own programs.
void BorrowedDrive::define(bool remove) const {
    const char* prefix = std::getenv("WINEPREFIX");
    if (prefix == nullptr) {
        DefineDosDeviceA(remove ? DDD_REMOVE_DEFINITION : 0, name_.c_str(), folder_.c_str());
        return;
    }
    std::string link = std::string(prefix) + "/dosdevices/" + name_;
    std::transform(link.end() - 2, link.end(), link.end() - 2,
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    std::string target = folder_.substr(2);
    std::replace(target.begin(), target.end(), '\\', '/');
    run(remove ? "Z:\\bin\\rm \"" + link + "\""
               : "Z:\\bin\\ln -sfn \"" + target + "\" \"" + link + "\"");
    // The tool is no process of Windows' kind, so its end is seen only by what it does.
    const ULONGLONG begin = GetTickCount64();
    while (fs::exists(name_ + "\\") == remove &&
           GetTickCount64() - begin < kToolLimitMilliseconds) {
        Sleep(kPollMilliseconds);
    }
}

}  // namespace kv::endtoend
