#include "platform/win32/system/Win32FileSystem.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <windows.h>

#include "common/RunTimeError.h"
#include "platform/win32/system/Errors.h"
#include "platform/win32/system/Handles.h"
#include "platform/win32/system/Text.h"

namespace kv {
namespace {

constexpr std::wstring_view kSeparators = L"\\/";
constexpr std::wstring_view kWildcards = L"*?";

// From this length on a plain path fails: a folder's limit is 260 less room for a short file name.
constexpr std::size_t kLongPathLength = 248;

constexpr std::size_t kMaxTransferBytes = std::size_t{1} << 30;  // a call counts in 32 bits

bool isSeparator(wchar_t c) noexcept { return kSeparators.find(c) != std::wstring_view::npos; }

// "X:\..."
bool isDrivePath(std::wstring_view path) noexcept {
    return path.size() > 2 && path[1] == L':' && isSeparator(path[2]);
}

// "\\server\..."; the forms "\\?\" and "\\.\" are none.
bool isNetworkPath(std::wstring_view path) noexcept {
    return path.size() > 2 && isSeparator(path[0]) && isSeparator(path[1]) && path[2] != L'?' &&
           path[2] != L'.';
}

// The path without ".", ".." and doubled separators, as Windows itself takes it. A path that cannot
// be taken so stays as it is, and is refused by the call that it goes to.
std::wstring normalised(std::wstring path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    if (size == 0) return path;
    std::wstring full(size, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    if (length == 0 || length >= size) return path;
    full.resize(length);
    return full;
}

// A long path in the form that has no length limit. Windows takes that form literally, so the path
// is normalised first.
std::wstring withoutLengthLimit(std::wstring path) {
    if (path.size() < kLongPathLength) return path;
    if (isDrivePath(path)) return L"\\\\?\\" + normalised(std::move(path));
    if (isNetworkPath(path)) return L"\\\\?\\UNC\\" + normalised(std::move(path)).substr(2);
    return path;
}

// A name that Windows keeps for a device in every folder, such as CON or NUL. A listing would find
// it wherever it is looked for.
bool isDevice(const std::wstring& path) {
    constexpr std::wstring_view kDevices = L"\\\\.\\";
    return !path.starts_with(kDevices) && normalised(path).starts_with(kDevices);
}

// The path for the wide calls; nothing for bytes that no file name holds.
std::optional<std::wstring> widePath(std::string_view path) {
    if (path.find('\0') != std::string_view::npos) return std::nullopt;
    return toWideExactly(path);
}

std::wstring nativePath(std::string_view path) {
    auto wide = widePath(path);
    if (!wide) throw RunTimeError(ErrorNumber::BadFileNameOrNumber);
    return withoutLengthLimit(*std::move(wide));
}

// The part of the path up to its last separator, which is included.
std::wstring_view folderOf(std::wstring_view path) noexcept {
    return path.substr(0, path.find_last_of(kSeparators) + 1);
}

bool hasWildcards(std::wstring_view path) noexcept {
    return path.substr(folderOf(path).size()).find_first_of(kWildcards) != std::wstring_view::npos;
}

bool isFolder(const std::wstring& path) noexcept {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Whether a listing shows the entry. Hidden and system entries are shown in none.
bool isListed(const WIN32_FIND_DATAW& entry, Lookup lookup) noexcept {
    if ((entry.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0)
        return false;
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return true;
    const std::wstring_view name = entry.cFileName;
    return lookup == Lookup::FilesAndFolders && name != L"." && name != L"..";
}

struct Listing {
    std::vector<std::wstring> names;
    DWORD error = ERROR_SUCCESS;  // what ended the listing, unless it was the end of the folder
};

Listing list(const std::wstring& pattern, Lookup lookup) {
    Listing listing;
    WIN32_FIND_DATAW entry;
    const FindHandle find(FindFirstFileW(pattern.c_str(), &entry));
    if (!find) {
        listing.error = GetLastError();
        return listing;
    }
    do {
        if (isListed(entry, lookup)) listing.names.emplace_back(entry.cFileName);
    } while (FindNextFileW(find.get(), &entry));
    const DWORD error = GetLastError();
    if (error != ERROR_NO_MORE_FILES) listing.error = error;
    return listing;
}

void deleteFile(const std::wstring& path) {
    if (DeleteFileW(path.c_str())) return;
    const DWORD error = GetLastError();
    if (isFolder(path)) throw RunTimeError(ErrorNumber::FileNotFound);
    throw translate(error);
}

// An empty handle when it cannot be opened; the reason is the thread's last error.
FileHandle tryToOpen(const std::wstring& path, DWORD access, DWORD share, DWORD disposition) {
    return FileHandle(CreateFileW(path.c_str(), access, share, nullptr, disposition,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

FileHandle open(const std::string& path, DWORD access, DWORD share, DWORD disposition) {
    FileHandle file = tryToOpen(nativePath(path), access, share, disposition);
    if (!file) throwLastError();
    return file;
}

// Locks need the right to read. Where somebody else has the file and lets nobody read it, it is
// opened without.
FileHandle openForAppend(const std::string& path) {
    constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE;
    FileHandle file =
        tryToOpen(nativePath(path), FILE_APPEND_DATA | FILE_READ_DATA, kShare, OPEN_ALWAYS);
    if (!file && GetLastError() == ERROR_SHARING_VIOLATION)
        return open(path, FILE_APPEND_DATA, kShare, OPEN_ALWAYS);
    if (!file) throwLastError();
    return file;
}

// Writes from the front of the bytes in one call; returns how many were written.
std::size_t writeOnce(HANDLE file, std::string_view bytes) {
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMaxTransferBytes));
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), size, &written, nullptr)) throwLastError();
    if (written == 0 && size > 0) throw RunTimeError(ErrorNumber::DiskFull);
    return written;
}

void writeAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) bytes.remove_prefix(writeOnce(file, bytes));
}

// Keeps other appending programs waiting as long as it lives. It locks one byte far behind the end,
// so that nobody is kept from reading. Where a disk knows no locks, nobody waits.
class AppendLock {
public:
    explicit AppendLock(HANDLE file) noexcept : file_(file) {
        place_.Offset = MAXDWORD - 1;
        place_.OffsetHigh = MAXLONG;
        LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place_);
    }
    ~AppendLock() { UnlockFileEx(file_, 0, 1, 0, &place_); }
    AppendLock(const AppendLock&) = delete;
    AppendLock& operator=(const AppendLock&) = delete;

private:
    HANDLE file_;
    OVERLAPPED place_{};
};

class Win32File final : public OpenFile {
public:
    explicit Win32File(FileHandle file) noexcept : file_(std::move(file)) {}

    void write(std::string_view bytes) override { writeAll(file_.get(), bytes); }

    std::size_t read(std::span<char> buffer) override {
        std::size_t total = 0;
        while (total < buffer.size()) {
            const auto rest = buffer.subspan(total);
            const auto size = static_cast<DWORD>(std::min(rest.size(), kMaxTransferBytes));
            DWORD count = 0;
            if (!ReadFile(file_.get(), rest.data(), size, &count, nullptr)) throwLastError();
            if (count == 0) break;
            total += count;
        }
        return total;
    }

    void close() override {
        if (!CloseHandle(file_.release())) throwLastError();
    }

private:
    FileHandle file_;
};

}  // namespace

void Win32FileSystem::copyFile(const std::string& source, const std::string& destination) {
    const std::wstring from = nativePath(source);
    const std::wstring to = nativePath(destination);
    if (!CopyFileW(from.c_str(), to.c_str(), FALSE)) throwLastError();
}

void Win32FileSystem::deleteFiles(const std::string& pattern) {
    const std::wstring native = nativePath(pattern);
    if (!hasWildcards(native)) return deleteFile(native);

    // The folder is read to its end first: deletions would disturb a listing that is under way.
    const Listing listing = list(native, Lookup::Files);
    if (listing.error != ERROR_SUCCESS) throw translate(listing.error);
    if (listing.names.empty()) throw RunTimeError(ErrorNumber::FileNotFound);
    const std::wstring folder(folderOf(native));
    for (const std::wstring& name : listing.names) deleteFile(withoutLengthLimit(folder + name));
}

void Win32FileSystem::makeDirectory(const std::string& path) {
    const std::wstring native = nativePath(path);
    if (!CreateDirectoryW(native.c_str(), nullptr)) throwLastError();
}

void Win32FileSystem::removeDirectory(const std::string& path) {
    const std::wstring native = nativePath(path);
    if (!RemoveDirectoryW(native.c_str())) throwLastError();
}

std::optional<std::string> Win32FileSystem::findName(const std::string& path, Lookup lookup) {
    auto pattern = widePath(path);
    if (!pattern || pattern->empty()) return std::nullopt;
    if (isDevice(*pattern)) return std::nullopt;
    if (isSeparator(pattern->back())) *pattern += L'*';
    const Listing listing = list(withoutLengthLimit(*std::move(pattern)), lookup);
    if (listing.names.empty()) return std::nullopt;
    return fromWide(listing.names.front());
}

std::int64_t Win32FileSystem::fileLength(const std::string& path) {
    const std::wstring native = nativePath(path);
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExW(native.c_str(), GetFileExInfoStandard, &data)) throwLastError();
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    return (std::int64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
}

std::unique_ptr<OpenFile> Win32FileSystem::openForWrite(const std::string& path) {
    return std::make_unique<Win32File>(open(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS));
}

std::unique_ptr<OpenFile> Win32FileSystem::openForRead(const std::string& path) {
    return std::make_unique<Win32File>(
        open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING));
}

// The right to append, and no other right to write, makes the end of the file the place of each
// write. The lock makes several programs' writes follow each other where the end is looked up
// first: on a network drive, under Wine.
std::int64_t Win32FileSystem::append(const std::string& path, std::string_view bytes) {
    const FileHandle file = openForAppend(path);
    const AppendLock lock(file.get());
    writeAll(file.get(), bytes);
    LARGE_INTEGER length;
    return GetFileSizeEx(file.get(), &length) ? length.QuadPart : 0;
}

}  // namespace kv
