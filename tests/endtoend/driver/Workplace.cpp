#include "tests/endtoend/driver/Workplace.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include "tests/endtoend/driver/Waiting.h"

namespace kv::endtoend {

namespace {

namespace fs = std::filesystem;

constexpr DWORD kToolLimitMilliseconds = 5000;

// The spelling that has no length limit. The path is UTF-8, as fs::path::string() gives it.
std::wstring unlimited(const std::string& path) {
    return L"\\\\?\\" + fs::path(std::u8string(path.begin(), path.end())).wstring();
}

class OwnedHandle {
public:
    explicit OwnedHandle(HANDLE handle) : handle_(handle) {}
    ~OwnedHandle() { CloseHandle(handle_); }
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;

    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

std::string readFile(const std::string& path) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const OwnedHandle file(CreateFileW(unlimited(path).c_str(), GENERIC_READ, kShareAll, nullptr,
                                       OPEN_EXISTING, 0, nullptr));
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size)) throw std::runtime_error("cannot read " + path);
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD count = 0;
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) ||
        count != bytes.size())
        throw std::runtime_error("cannot read " + path);
    return bytes;
}

struct FolderEntry {
    std::string name;
    DWORD attributes;  // FILE_ATTRIBUTE_...
};

bool isFolder(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

// The library's own listing ends where paths get long.
std::vector<FolderEntry> entriesOf(const std::string& folder) {
    std::vector<FolderEntry> entries;
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW((unlimited(folder) + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return entries;
    do {
        const std::string name = fs::path(found.cFileName).string();
        if (name != "." && name != "..") entries.push_back({name, found.dwFileAttributes});
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return entries;
}

void addTree(Tree& tree, const std::string& folder, const std::string& relative) {
    for (const FolderEntry& entry : entriesOf(folder)) {
        const std::string path = folder + "\\" + entry.name;
        if (isFolder(entry.attributes)) {
            tree[relative + entry.name + "\\"] = "";
            addTree(tree, path, relative + entry.name + "\\");
        } else {
            tree[relative + entry.name] = readFile(path);
        }
    }
}

std::string inBackslashes(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

// What is read-only cannot be removed on Windows, nor, under Wine, what lies in it.
void removeEntry(const std::string& path, DWORD attributes) {
    const std::wstring native = unlimited(path);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        SetFileAttributesW(native.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (!isFolder(attributes)) {
        DeleteFileW(native.c_str());
        return;
    }
    for (const FolderEntry& entry : entriesOf(path))
        removeEntry(path + "\\" + entry.name, entry.attributes);
    RemoveDirectoryW(native.c_str());
}

void removeAll(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(unlimited(path).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) removeEntry(path, attributes);
}

// Starts a program of the system that Wine runs on. Wine has no handles of such a program, but
// tells numbers that stand there by chance: to close them would close handles of this process's
// own.
void startHostProgram(std::string command) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION undefined{};
    CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                   &undefined);
}

std::string driveLink(const char* prefix, const std::string& drive) {
    const auto letter = static_cast<char>(std::tolower(static_cast<unsigned char>(drive[0])));
    return std::string(prefix) + "/dosdevices/" + letter + ":";
}

// Where a file of Wine's lies on the system that it runs on.
std::string hostPath(const char* prefix, const std::string& path) {
    std::string host = driveLink(prefix, path.substr(0, 2)) + path.substr(2);
    std::replace(host.begin(), host.end(), '\\', '/');
    return host;
}

// The tool is no process of Windows' kind, so its end is seen only by what it does.
void runHostTool(const std::string& command, const std::function<bool()>& done) {
    startHostProgram(command);
    comesTrue(done, kToolLimitMilliseconds);
}

// Also what Wine does not see: a link that leads nowhere, since it deletes what links lead to
// first, and what nobody may look into.
void removeWhole(const std::string& folder) {
    removeAll(folder);
    const char* prefix = std::getenv("WINEPREFIX");
    if (prefix != nullptr && fs::exists(folder)) {
        runHostTool("Z:\\bin\\rm -rf \"" + hostPath(prefix, folder) + "\"",
                    [&] { return !fs::exists(folder); });
    }
}

}  // namespace

std::string windowsPath(std::string path) {
    if (path.starts_with('/')) path.insert(0, "Z:");
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

FileLock::FileLock(const std::string& path, DWORD sharing, DWORD access)
    : file_(CreateFileA(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {
    if (file_ == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot lock " + path);
}

FileLock::~FileLock() { CloseHandle(file_); }

Workplace::Workplace(const std::string& scenario)
    : root_(pathFromEnvironment("KV_SCRATCH") + "\\" + scenario) {
    removeWhole(root_);
    fs::create_directories(root_);
    fs::copy(pathFromEnvironment("KV_SAMPLE_PRODUCT"), product(), fs::copy_options::recursive);
    makeFolder("product\\log");
    makeFolder("product\\cfg\\original");
    makeFolder("server\\htdocs");
    makeFolder("server\\cgi-bin");
}

Workplace::~Workplace() { removeWhole(root_); }

std::string Workplace::path(std::string_view relative) const {
    return root_ + "\\" + std::string(relative);
}

Tree Workplace::tree() const {
    Tree found;
    addTree(found, root_, "");
    return found;
}

bool Workplace::exists(std::string_view relative) const { return fs::exists(path(relative)); }

std::string Workplace::read(std::string_view relative) const { return readFile(path(relative)); }

void Workplace::write(std::string_view relative, std::string_view bytes) const {
    const fs::path target = path(relative);
    fs::create_directories(target.parent_path());
    std::ofstream file(target, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) throw std::runtime_error("cannot write " + target.string());
}

void Workplace::makeFolder(std::string_view relative) const {
    fs::create_directories(path(relative));
}

void Workplace::bring(const Tree& wanted) const {
    const Tree present = tree();
    for (const auto& [path, bytes] : wanted) {
        const auto found = present.find(path);
        if (found != present.end() && found->second == bytes) continue;
        if (path.ends_with('\\'))
            makeFolder(path);
        else
            write(path, bytes);
    }
}

void Workplace::makeFileOfLength(std::string_view relative, long length) const {
    write(relative, "");
    fs::resize_file(path(relative), static_cast<std::uintmax_t>(length));
}

void Workplace::makeReadOnly(std::string_view relative) const {
    SetFileAttributesA(path(relative).c_str(), FILE_ATTRIBUTE_READONLY);
}

bool Workplace::mark(std::string_view relative, DWORD attributes) const {
    SetFileAttributesA(path(relative).c_str(), attributes);
    return (GetFileAttributesA(path(relative).c_str()) & attributes) == attributes;
}

bool Workplace::honoursReadOnly() const {
    constexpr std::string_view kProbe = "read-only";
    write(kProbe, "");
    makeReadOnly(kProbe);
    HANDLE file =
        CreateFileA(path(kProbe).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    remove(kProbe);
    return file == INVALID_HANDLE_VALUE;
}

void Workplace::remove(std::string_view relative) const { removeAll(path(relative)); }

// Wine makes no links of its own, but follows those of the system that it runs on.
bool Workplace::link(std::string_view relative, std::string_view target) const {
    const char* prefix = std::getenv("WINEPREFIX");
    if (prefix == nullptr) {
        constexpr DWORD kUnprivileged = 2;  // SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE
        return CreateSymbolicLinkA(path(relative).c_str(), path(target).c_str(), kUnprivileged) !=
               0;
    }
    runHostTool("Z:\\bin\\ln -sfn \"" + hostPath(prefix, path(target)) + "\" \"" +
                    hostPath(prefix, path(relative)) + "\"",
                [&] { return exists(relative); });
    return exists(relative);
}

std::unique_ptr<FileLock> Workplace::lock(std::string_view relative, DWORD sharing) const {
    return std::make_unique<FileLock>(path(relative), sharing);
}

BorrowedFolder::BorrowedFolder(const fs::path& path) : topmost_(path) {
    if (fs::exists(topmost_)) {
        topmost_.clear();
        return;
    }
    while (!fs::exists(topmost_.parent_path())) topmost_ = topmost_.parent_path();
    fs::create_directories(path);
}

BorrowedFolder::~BorrowedFolder() {
    if (topmost_.empty()) return;
    std::error_code ignored;
    fs::remove_all(topmost_, ignored);
}

BorrowedDrive::BorrowedDrive(char letter, const std::string& folder)
    : name_{letter, ':'}, folder_(folder) {
    if (fs::exists(name_ + "\\")) return;
    define(false);
    works_ = fs::exists(name_ + "\\");
}

BorrowedDrive::~BorrowedDrive() {
    if (works_) define(true);
}

// Wine knows its drives by links in the prefix and takes no other definition of one, but it can
// run the system's own programs.
void BorrowedDrive::define(bool remove) const {
    const char* prefix = std::getenv("WINEPREFIX");
    if (prefix == nullptr) {
        DefineDosDeviceA(remove ? DDD_REMOVE_DEFINITION : 0, name_.c_str(), folder_.c_str());
        return;
    }
    const std::string link = driveLink(prefix, name_);
    runHostTool(remove ? "Z:\\bin\\rm \"" + link + "\""
                       : "Z:\\bin\\ln -sfn \"" + hostPath(prefix, folder_) + "\" \"" + link + "\"",
                [&] { return fs::exists(name_ + "\\") != remove; });
}

}  // namespace kv::endtoend
