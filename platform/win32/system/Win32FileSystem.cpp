#include "platform/win32/system/Win32FileSystem.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <windows.h>

#include "common/RunTimeError.h"
#include "platform/win32/system/Errors.h"
#include "platform/win32/system/Handles.h"
#include "platform/win32/system/Text.h"
#include "platform/win32/system/Win32Path.h"

namespace kv {
namespace {

constexpr std::size_t kMaxTransferBytes = std::size_t{1} << 30;  // a call counts in 32 bits

bool isFolder(const std::wstring& path) noexcept {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Whether a listing shows the entry.
bool isListed(const WIN32_FIND_DATAW& entry, Lookup lookup) noexcept {
    constexpr DWORD kNoNormalFile =
        FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    if (lookup == Lookup::Files) return (entry.dwFileAttributes & kNoNormalFile) == 0;
    const std::wstring_view name = entry.cFileName;
    return name != L"." && name != L"..";
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

// An empty handle when it cannot be opened; the reason is the thread's last error.
FileHandle tryToOpen(const std::wstring& path, DWORD access, DWORD share, DWORD disposition) {
    return FileHandle(CreateFileW(path.c_str(), access, share, nullptr, disposition,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Windows refuses to delete a running program as if rights were missing, and to write to it since
// it is in use.
bool isRunning(const std::wstring& path) {
    const FileHandle file = tryToOpen(path, FILE_WRITE_DATA, kShareAll, OPEN_EXISTING);
    return !file && GetLastError() == ERROR_SHARING_VIOLATION;
}

// Whether a folder holds nothing but what is going.
bool isEmptying(const std::wstring& folder, KeptNames& keptNames) {
    const Listing listing = list(folder + L"\\*", Lookup::FilesAndFolders);
    return listing.error == ERROR_SUCCESS &&
           std::ranges::all_of(listing.names, [&](const std::wstring& name) {
               return keptNames.contain(withoutLengthLimit(folder + L'\\' + name));
           });
}

void deleteFile(const std::wstring& path, KeptNames& keptNames) {
    if (DeleteFileW(path.c_str())) return keptNames.noteDeleted(path);
    const DWORD error = GetLastError();
    if (isFolder(path)) throw RunTimeError(ErrorNumber::FileNotFound);
    throw translate(error == ERROR_ACCESS_DENIED && isRunning(path) ? ERROR_SHARING_VIOLATION
                                                                    : error);
}

// To be called before a file or folder of the name is made or replaced.
void requireFree(const std::wstring& path, KeptNames& keptNames) {
    if (keptNames.contain(path)) throw translate(ERROR_SHARING_VIOLATION);
}

FileHandle openOrMake(const std::wstring& path, DWORD access, DWORD share) {
    FileHandle file = tryToOpen(path, access, share, OPEN_ALWAYS);
    if (!file) throwLastError();
    return file;
}

// Locks need the right to read. Where somebody else has the file and lets nobody read it, it is
// opened without.
FileHandle openForAppend(const std::wstring& path) {
    constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE;
    FileHandle file = tryToOpen(path, FILE_APPEND_DATA | FILE_READ_DATA, kShare, OPEN_ALWAYS);
    if (file) return file;
    if (GetLastError() != ERROR_SHARING_VIOLATION) throwLastError();
    return openOrMake(path, FILE_APPEND_DATA, kShare);
}

// Takes off the marks that a copy has from its source: the next operation could not replace it.
void makeOrdinary(const std::wstring& path) {
    constexpr DWORD kMarks =
        FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) throwLastError();
    if ((attributes & kMarks) != 0 && !SetFileAttributesW(path.c_str(), attributes & ~kMarks))
        throwLastError();
}

// What was written so far is on the disk, as far as the disk can be told so.
void flush(HANDLE file) {
    if (FlushFileBuffers(file)) return;
    const DWORD error = GetLastError();
    if (error != ERROR_INVALID_FUNCTION && error != ERROR_NOT_SUPPORTED) throw translate(error);
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

// Keeps other programs from appending as long as it lives. It locks one byte far behind the end, so
// that nobody is kept from reading. Throws when another program has the lock; where a disk knows no
// locks, nobody has.
class AppendLock {
public:
    explicit AppendLock(HANDLE file) : file_(file) {
        constexpr DWORD kAtOnce = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
        place_.Offset = MAXDWORD - 1;
        place_.OffsetHigh = MAXLONG;
        if (!LockFileEx(file_, kAtOnce, 0, 1, 0, &place_) && GetLastError() == ERROR_LOCK_VIOLATION)
            throwLastError();
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

    void write(std::string_view bytes) override {
        written_ = true;
        writeAll(file_.get(), bytes);
    }

    void truncate() override {
        if (!SetEndOfFile(file_.get())) throwLastError();
    }

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
        if (written_) flush(file_.get());
        if (!CloseHandle(file_.release())) throwLastError();
    }

private:
    FileHandle file_;
    bool written_ = false;
};

}  // namespace

void Win32FileSystem::copyFile(const std::string& source, const std::string& destination) {
    const std::wstring from = nativePath(source);
    const std::wstring to = nativePath(destination);
    requireFree(to, keptNames_);
    if (!CopyFileW(from.c_str(), to.c_str(), FALSE)) throwLastError();
    makeOrdinary(to);
}

void Win32FileSystem::deleteFiles(const std::string& pattern) {
    const std::wstring native = nativePath(pattern);
    if (!hasWildcards(native)) return deleteFile(native, keptNames_);

    // The folder is read to its end first: deletions would disturb a listing that is under way.
    const Listing listing = list(native, Lookup::Files);
    if (listing.error != ERROR_SUCCESS) throw translate(listing.error);
    if (listing.names.empty()) throw RunTimeError(ErrorNumber::FileNotFound);
    const std::wstring folder(folderOf(native));
    for (const std::wstring& name : listing.names)
        deleteFile(withoutLengthLimit(folder + name), keptNames_);
}

void Win32FileSystem::makeDirectory(const std::string& path) {
    const std::wstring native = nativePath(path);
    requireFree(native, keptNames_);
    if (!CreateDirectoryW(native.c_str(), nullptr)) throwLastError();
}

void Win32FileSystem::removeDirectory(const std::string& path) {
    const std::wstring native = nativePath(path);
    if (RemoveDirectoryW(native.c_str())) return keptNames_.noteDeleted(native);
    const DWORD error = GetLastError();
    if (error == ERROR_DIR_NOT_EMPTY && isEmptying(native, keptNames_))
        throw RunTimeError::whileInUse(ErrorNumber::PathFileAccessError);
    throw translate(error);
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
    // Opened, since a listing tells the length of a link itself. A folder cannot be opened so.
    const FileHandle file = tryToOpen(native, FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING);
    LARGE_INTEGER length;
    if (!file || !GetFileSizeEx(file.get(), &length)) throwLastError();
    return length.QuadPart;
}

std::unique_ptr<OpenFile> Win32FileSystem::openForWrite(const std::string& path) {
    const std::wstring native = nativePath(path);
    requireFree(native, keptNames_);
    return std::make_unique<Win32File>(openOrMake(native, GENERIC_WRITE, FILE_SHARE_READ));
}

std::unique_ptr<OpenFile> Win32FileSystem::openForRead(const std::string& path) {
    FileHandle file = tryToOpen(nativePath(path), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                OPEN_EXISTING);
    if (!file) throwLastError();
    return std::make_unique<Win32File>(std::move(file));
}

// The right to append, and no other right to write, makes the end of the file the place of each
// write. The lock makes several programs' writes follow each other where the end is looked up
// first: on a network drive, under Wine.
void Win32FileSystem::append(const std::string& path, std::string_view bytes) {
    const std::wstring native = nativePath(path);
    requireFree(native, keptNames_);
    const FileHandle file = openForAppend(native);
    const AppendLock lock(file.get());
    writeAll(file.get(), bytes);
}

}  // namespace kv
