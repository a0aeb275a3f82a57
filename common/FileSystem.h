// The file system as the program uses it. Paths are Windows paths in the system's single-byte code
// page, folders separated by "\". Every failure is thrown as a RunTimeError with the platform's
// file-error number: 52 bad name, 53 no such file, 55 in use by another program, 61 disk full,
// 70 write-protected, 75 access refused, 76 a folder on the way is missing. It tells whether the
// failure may pass, since somebody else is using the file at the moment.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kv {

// A file opened for reading or for writing; the position starts at the first byte. Destroying it
// closes the file; close() does so too, and tells of a failure.
class OpenFile {
public:
    OpenFile() = default;
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    virtual ~OpenFile() = default;

    // Writes all of the bytes at the position, or throws.
    virtual void write(std::string_view bytes) = 0;

    // Drops the bytes behind the position, or throws and drops none.
    virtual void truncate() = 0;

    // Fills the buffer from the position on; returns the number of bytes read, which is smaller
    // than the buffer only at the end of the file.
    virtual std::size_t read(std::span<char> buffer) = 0;

    // After it, what was written is on the disk, also when the computer goes off.
    virtual void close() = 0;
};

// What a directory listing includes.
enum class Lookup {
    Files,            // normal and read-only files
    FilesAndFolders,  // those and folders, hidden ones and the system's too
};

class FileSystem {
public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    // Copies one file over an existing destination. The copy is an ordinary file: it is not marked
    // read-only, hidden or as the system's, whatever the source is.
    virtual void copyFile(const std::string& source, const std::string& destination) = 0;

    // Deletes the files that the pattern names; its last part may hold "*" and "?". Folders never
    // match. Throws 53 when nothing matches, and stops at the first file that cannot be deleted; a
    // program that runs is 55.
    virtual void deleteFiles(const std::string& pattern) = 0;

    // Makes one folder, whose parent must exist. An existing folder or file of the name is 75.
    virtual void makeDirectory(const std::string& path) = 0;

    // Removes one folder, which must be empty (else 75). Nothing is removed recursively.
    virtual void removeDirectory(const std::string& path) = 0;

    // The name, in its stored spelling, of the first entry that a listing of the path yields; the
    // path's last part may hold wildcards, and any letter case finds. Nothing when there is none,
    // or when the place cannot be listed for whatever reason; throws only for want of memory.
    virtual std::optional<std::string> findName(const std::string& path, Lookup lookup) = 0;

    // The length in bytes of a file, or of that to which a link of the name leads. A folder is 75.
    virtual std::int64_t fileLength(const std::string& path) = 0;

    // Opens for writing, creating the file when missing and never truncating it; other writers
    // are locked out until it is closed (55).
    virtual std::unique_ptr<OpenFile> openForWrite(const std::string& path) = 0;

    // Opens an existing file for reading, shared with readers and writers.
    virtual std::unique_ptr<OpenFile> openForRead(const std::string& path) = 0;

    // Adds the bytes to the end of the file in one piece, creating it when missing. Throws 55
    // while another program is appending or keeps others from it.
    virtual void append(const std::string& path, std::string_view bytes) = 0;
};

}  // namespace kv
