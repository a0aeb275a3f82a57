#include "tests/support/disks/PosixFileSystem.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace kv {
namespace {

namespace fs = std::filesystem;
using enum ErrorNumber;

constexpr std::string_view kSeparators = "\\/";
constexpr std::string_view kWildcards = "*?";
constexpr std::string_view kNeverInNames = "<>:\"|";

struct ErrnoRow {
    int error;
    ErrorNumber number;
};

constexpr std::array kErrnoRows{
    ErrnoRow{ENOENT, FileNotFound},
    ErrnoRow{ENOTDIR, PathNotFound},
    ErrnoRow{ETXTBSY, FileAlreadyOpen},
    ErrnoRow{EACCES, PathFileAccessError},
    ErrnoRow{EPERM, PathFileAccessError},
    ErrnoRow{EEXIST, PathFileAccessError},
    ErrnoRow{EISDIR, PathFileAccessError},
    ErrnoRow{ENOTEMPTY, PathFileAccessError},
    ErrnoRow{EBUSY, PathFileAccessError},
    ErrnoRow{EROFS, PermissionDenied},
    ErrnoRow{ENOSPC, DiskFull},
    ErrnoRow{EDQUOT, DiskFull},
    ErrnoRow{EFBIG, DiskFull},
    ErrnoRow{EBADF, BadFileNameOrNumber},
    ErrnoRow{EINVAL, BadFileNameOrNumber},
    ErrnoRow{EILSEQ, BadFileNameOrNumber},
    ErrnoRow{ELOOP, BadFileNameOrNumber},
    ErrnoRow{ENAMETOOLONG, BadFileNameOrNumber},
    ErrnoRow{ENOMEDIUM, DiskNotReady},
    ErrnoRow{EMFILE, TooManyFiles},
    ErrnoRow{ENFILE, TooManyFiles},
    ErrnoRow{ENOMEM, OutOfMemory},
    ErrnoRow{ENODEV, DeviceUnavailable},
    ErrnoRow{ENXIO, DeviceUnavailable},
};

// Of nothing, too.
fs::file_status statusOf(const fs::path& place) {
    std::error_code error;
    return fs::status(place, error);
}

bool isFolder(const fs::path& place) { return fs::is_directory(statusOf(place)); }

[[noreturn]] void throwErrno() { throw translateErrno(errno); }

void check(const std::error_code& error) {
    if (error) throw translateErrno(error.value());
}

char upper(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string upper(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) { return upper(c); });
    return text;
}

bool isSeparator(char c) noexcept { return kSeparators.find(c) != kSeparators.npos; }

bool hasWildcards(std::string_view name) noexcept {
    return name.find_first_of(kWildcards) != name.npos;
}

// Whether the name, both in upper case, is one that the pattern stands for. "?" stands for nothing
// at the end of a name and before its dot, and so does a dot at the end when wildcards follow it:
// "*.*" stands for every name.
bool matches(std::string_view pattern, std::string_view name) {
    if (pattern.empty()) return name.empty();
    const std::string_view rest = pattern.substr(1);
    const std::string_view nextName = name.empty() ? name : name.substr(1);
    switch (pattern.front()) {
        case '*': return matches(rest, name) || (!name.empty() && matches(pattern, nextName));
        case '?':
            if (name.empty() || name.front() == '.') return matches(rest, name);
            return matches(rest, nextName);
        case '.':
            if (name.empty()) return hasWildcards(rest.substr(0, 1)) && matches(rest, name);
            [[fallthrough]];
        default: return !name.empty() && name.front() == pattern.front() && matches(rest, nextName);
    }
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::error_code error;
    std::vector<std::string> names;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        names.push_back(entry->path().filename().string());
    check(error);
    return names;
}

// The names in a folder in the order in which Windows lists them.
std::vector<std::string> sortedNames(const fs::path& folder) {
    std::vector<std::string> names = namesIn(folder);
    std::ranges::sort(names, {}, [](const std::string& name) { return upper(name); });
    return names;
}

// The place of a name in a folder: the entry that has it in any letter case, or else the name
// itself.
fs::path placeOf(const fs::path& folder, const std::string& name) {
    fs::path place = folder / name;
    if (fs::exists(statusOf(place))) return place;
    const std::string wanted = upper(name);
    for (const std::string& stored : namesIn(folder))
        if (upper(stored) == wanted) return folder / stored;
    return place;
}

void checkName(std::string_view name, bool wildcards) {
    const bool good = std::ranges::none_of(name, [&](char c) {
        return static_cast<unsigned char>(c) < ' ' || kNeverInNames.find(c) != kNeverInNames.npos ||
               (!wildcards && kWildcards.find(c) != kWildcards.npos);
    });
    if (!good) throw RunTimeError(BadFileNameOrNumber);
}

class FileDescriptor {
public:
    FileDescriptor(const fs::path& path, int flags)
        : descriptor_(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {
        if (descriptor_ < 0) throwErrno();
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }

    int get() const noexcept { return descriptor_; }
    int release() noexcept { return std::exchange(descriptor_, -1); }

private:
    int descriptor_;
};

void writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = ::write(file, bytes.data(), bytes.size());
        if (written < 0) throwErrno();
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

class PosixFile final : public OpenFile {
public:
    PosixFile(const fs::path& path, int flags, std::shared_ptr<const void> use)
        : file_(path, flags), use_(std::move(use)) {}

    void write(std::string_view bytes) override { writeAll(file_.get(), bytes); }

    void truncate() override {
        if (::ftruncate(file_.get(), ::lseek(file_.get(), 0, SEEK_CUR)) != 0) throwErrno();
    }

    std::size_t read(std::span<char> buffer) override {
        std::size_t total = 0;
        while (total < buffer.size()) {
            const auto rest = buffer.subspan(total);
            const auto count = ::read(file_.get(), rest.data(), rest.size());
            if (count < 0) throwErrno();
            if (count == 0) break;
            total += static_cast<std::size_t>(count);
        }
        return total;
    }

    void close() override {
        use_.reset();
        if (::close(file_.release()) != 0) throwErrno();
    }

private:
    FileDescriptor file_;
    std::shared_ptr<const void> use_;
};

}  // namespace

RunTimeError translateErrno(int error) noexcept {
    const auto row = std::ranges::find(kErrnoRows, error, &ErrnoRow::error);
    return RunTimeError(row == kErrnoRows.end() ? DeviceIoError : row->number);
}

// A path taken apart.
struct PosixFileSystem::Path {
    fs::path drive;
    std::vector<std::string> folders;
    std::string name;  // empty for a drive
    bool endsInSeparator = false;
};

// What a path leads to; its folder exists.
struct PosixFileSystem::Entry {
    fs::path place;
    fs::file_status status;
    bool isDrive = false;
    bool namedAsFolder = false;  // by a separator at the end

    bool exists() const { return fs::exists(status); }
    bool isFolder() const { return fs::is_directory(status); }
    bool isReadOnly() const {
        return exists() && (status.permissions() & fs::perms::owner_write) == fs::perms::none;
    }
};

// A file that is open or locked: what its user does with it, and what others may do meanwhile.
struct PosixFileSystem::Use {
    fs::path file;
    unsigned access;
    unsigned shared;
};

PosixFileSystem::PosixFileSystem(fs::path root) : root_(std::move(root)) {}

void PosixFileSystem::copyFile(const std::string& source, const std::string& destination) {
    const Entry from = locateFile(source);
    if (!from.exists()) throw RunTimeError(FileNotFound);
    const auto reading = use(from, kRead, kRead | kWrite);

    const Entry to = locateWritableFile(destination);
    const auto writing = use(to, kWrite | kDelete, 0);

    std::error_code error;
    fs::copy_file(from.place, to.place, fs::copy_options::overwrite_existing, error);
    check(error);
    fs::permissions(to.place, fs::perms::owner_write, fs::perm_options::add, error);
    check(error);
}

void PosixFileSystem::deleteFiles(const std::string& pattern) {
    const Path path = parse(pattern, true);
    if (!hasWildcards(path.name)) return deleteFile(locate(pattern));

    const fs::path folder = folderOf(path);
    bool found = false;
    for (const std::string& name : sortedNames(folder)) {
        const Entry entry{folder / name, statusOf(folder / name)};
        if (entry.isFolder() || !matches(upper(path.name), upper(name))) continue;
        deleteFile(entry);
        found = true;
    }
    if (!found) throw RunTimeError(FileNotFound);
}

void PosixFileSystem::makeDirectory(const std::string& path) {
    const Entry entry = locate(path);
    if (entry.exists()) throw RunTimeError(PathFileAccessError);
    std::error_code error;
    fs::create_directory(entry.place, error);
    check(error);
}

// A link to a folder is removed itself, whatever becomes of the folder; one that leads nowhere is
// taken for a link to a folder.
void PosixFileSystem::removeDirectory(const std::string& path) {
    const Entry entry = locate(path);
    std::error_code error;
    const bool isLink = fs::is_symlink(entry.place, error);
    if (!entry.exists() && !isLink) throw RunTimeError(FileNotFound);
    if (entry.exists() && !entry.isFolder()) throw RunTimeError(PathNotFound);
    if (entry.isDrive) throw RunTimeError(PathFileAccessError);
    const auto deleting = use(entry, kDelete, kAnything);
    if ((isLink ? ::unlink : ::rmdir)(entry.place.c_str()) != 0) throwErrno();
}

std::optional<std::string> PosixFileSystem::findName(const std::string& path, Lookup lookup) {
    try {
        Path wanted = parse(path, true);
        if (wanted.endsInSeparator && !wanted.name.empty())
            wanted.folders.push_back(std::exchange(wanted.name, {}));
        const std::string pattern = wanted.name.empty() ? "*" : upper(wanted.name);

        const fs::path folder = folderOf(wanted);
        for (const std::string& name : sortedNames(folder)) {
            const fs::file_status status = statusOf(folder / name);
            const bool listed = fs::is_regular_file(status) ||
                                (lookup == Lookup::FilesAndFolders && fs::is_directory(status));
            if (listed && matches(pattern, upper(name))) return name;
        }
    } catch (const RunTimeError&) {
        // A place that cannot be listed shows nothing.
    }
    return std::nullopt;
}

std::int64_t PosixFileSystem::fileLength(const std::string& path) {
    const Entry entry = locateFile(path);
    if (!entry.exists()) throw RunTimeError(FileNotFound);
    std::error_code error;
    const auto length = fs::file_size(entry.place, error);
    check(error);
    return static_cast<std::int64_t>(length);
}

std::unique_ptr<OpenFile> PosixFileSystem::openForWrite(const std::string& path) {
    const Entry entry = locateWritableFile(path);
    return std::make_unique<PosixFile>(entry.place, O_WRONLY | O_CREAT, use(entry, kWrite, kRead));
}

std::unique_ptr<OpenFile> PosixFileSystem::openForRead(const std::string& path) {
    const Entry entry = locateFile(path);
    return std::make_unique<PosixFile>(entry.place, O_RDONLY, use(entry, kRead, kRead | kWrite));
}

void PosixFileSystem::append(const std::string& path, std::string_view bytes) {
    const Entry entry = locateWritableFile(path);
    const auto writing = use(entry, kWrite, kRead | kWrite);
    const FileDescriptor file(entry.place, O_WRONLY | O_CREAT | O_APPEND);
    writeAll(file.get(), bytes);
}

std::shared_ptr<const void> PosixFileSystem::lock(const std::string& path) {
    const Entry entry = locate(path);
    if (!entry.exists()) throw RunTimeError(FileNotFound);
    return use(entry, kAnything, 0);
}

fs::path PosixFileSystem::host(const std::string& path) const {
    const Path wanted = parse(path, false);
    fs::path place = wanted.drive;
    for (const std::string& folder : wanted.folders)
        place = isFolder(place) ? placeOf(place, folder) : place / folder;
    if (wanted.name.empty()) return place;
    return isFolder(place) ? placeOf(place, wanted.name) : place / wanted.name;
}

// Throws for a text that is no path. As on Windows, a part loses one dot at its end, and the last
// part all blanks and dots there.
PosixFileSystem::Path PosixFileSystem::parse(const std::string& path, bool wildcards) const {
    if (path.empty()) throw RunTimeError(PathNotFound);
    std::string_view rest = path;
    char drive = 'C';
    if (rest.size() >= 2 && rest[1] == ':') {
        drive = upper(rest[0]);
        if (drive < 'A' || drive > 'Z') throw RunTimeError(BadFileNameOrNumber);
        rest.remove_prefix(2);
    } else if (rest.size() >= 2 && isSeparator(rest[0]) && isSeparator(rest[1])) {
        throw RunTimeError(BadFileNameOrNumber);  // no network is there
    }

    Path result;
    result.drive = root_ / std::string(1, drive);
    result.endsInSeparator = !rest.empty() && isSeparator(rest.back());
    if (!result.endsInSeparator) rest = rest.substr(0, rest.find_last_not_of(". ") + 1);
    while (!rest.empty()) {
        const auto length = std::min(rest.find_first_of(kSeparators), rest.size());
        std::string part(rest.substr(0, length));
        rest.remove_prefix(std::min(length + 1, rest.size()));
        if (part == "..") {
            if (!result.folders.empty()) result.folders.pop_back();
            continue;
        }
        if (part.ends_with('.')) part.pop_back();
        if (!part.empty()) result.folders.push_back(std::move(part));
    }
    if (!result.folders.empty()) {
        result.name = std::move(result.folders.back());
        result.folders.pop_back();
    }
    for (const std::string& folder : result.folders) checkName(folder, false);
    checkName(result.name, wildcards);
    return result;
}

fs::path PosixFileSystem::folderOf(const Path& path) const {
    fs::path place = path.drive;
    if (!isFolder(place)) throw RunTimeError(PathNotFound);
    for (const std::string& folder : path.folders) {
        place = placeOf(place, folder);
        if (!isFolder(place)) throw RunTimeError(PathNotFound);
    }
    return place;
}

PosixFileSystem::Entry PosixFileSystem::locate(const std::string& path) const {
    const Path wanted = parse(path, false);
    const fs::path folder = folderOf(wanted);
    Entry entry;
    entry.isDrive = wanted.name.empty();
    entry.place = entry.isDrive ? folder : placeOf(folder, wanted.name);
    std::error_code error;
    entry.status = fs::status(entry.place, error);  // a missing entry has a status, too
    if (entry.status.type() == fs::file_type::none) check(error);
    entry.namedAsFolder = wanted.endsInSeparator;
    return entry;
}

// What the path leads to, which is a file or nothing.
PosixFileSystem::Entry PosixFileSystem::locateFile(const std::string& path) const {
    Entry entry = locate(path);
    if (entry.isFolder()) throw RunTimeError(PathFileAccessError);
    if (entry.namedAsFolder) throw RunTimeError(BadFileNameOrNumber);
    return entry;
}

PosixFileSystem::Entry PosixFileSystem::locateWritableFile(const std::string& path) const {
    Entry entry = locateFile(path);
    if (entry.isReadOnly()) throw RunTimeError(PathFileAccessError);
    return entry;
}

// Enters the use of a file into the list, unless it or another use there does not share it.
std::shared_ptr<const PosixFileSystem::Use> PosixFileSystem::use(const Entry& entry,
                                                                 unsigned access, unsigned shared) {
    std::erase_if(uses_, [](const auto& other) { return other.expired(); });
    for (const auto& known : uses_) {
        const auto other = known.lock();
        if (other->file == entry.place &&
            ((other->access & ~shared) != 0 || (access & ~other->shared) != 0))
            throw RunTimeError(FileAlreadyOpen);
    }
    auto use = std::make_shared<const Use>(Use{entry.place, access, shared});
    uses_.push_back(use);
    return use;
}

void PosixFileSystem::deleteFile(const Entry& entry) {
    if (!entry.exists() || entry.isFolder()) throw RunTimeError(FileNotFound);
    if (entry.isReadOnly()) throw RunTimeError(PathFileAccessError);
    const auto deleting = use(entry, kDelete, kAnything);
    if (::unlink(entry.place.c_str()) != 0) throwErrno();
}

}  // namespace kv
