// The file operations of the program. The guarded ones report their failures in the log and return
// a status; the helpers for binary files pass failures on to their caller.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

enum class ErrorNumber : int;
class FileSystem;
class OpenFile;
class Patience;
class modCmnLog;

// What becomes of an existing file's bytes when it is opened for writing.
enum class OldBytes {
    Stay,  // new ones replace them from the first on; those behind the last new one stay
    Go,    // the file is emptied; where that cannot be done, the opening fails and they stay
};

class modKvIO {
public:
    modKvIO(FileSystem& fileSystem, modCmnLog& log, Patience& patience);
    ~modKvIO();
    modKvIO(const modKvIO&) = delete;
    modKvIO& operator=(const modKvIO&) = delete;

    // Guarded. The status is 0, or 1 after a failure, which has been logged under the routine's
    // name. What fails because somebody else is using the file is tried again before it counts as
    // failed. The flag is reserved: callers pass false.

    // Moves a file by a copy, which overwrites the destination, and a deletion; when the copy
    // fails, the source stays.
    void ioBackupFile(const std::string& source, const std::string& destination,
                      bool flag) noexcept;

    // Copies one file over an existing one.
    int ioCopyFile(const std::string& source, const std::string& destination, bool flag) noexcept;

    // Deletes the file or files; the last part of the path may hold wildcards.
    int ioDeleteFile(const std::string& path, bool flag) noexcept;

    // Removes one empty directory.
    int ioDeleteDirectory(const std::string& path) noexcept;

    // Creates one directory, whose parent must exist.
    int ioMakeDirectory(const std::string& path) noexcept;

    // Unguarded. Files are named by a number, the lowest that is free; they throw RunTimeError.

    // Opens for writing from the first byte on. Other writers are locked out.
    std::int16_t ioOpenFileBinaryWrite(const std::string& path, OldBytes oldBytes = OldBytes::Stay);

    std::int16_t ioOpenFileBinaryRead(const std::string& path);

    // Brings what is pending to disk and closes. After a failure the file stays open.
    void ioCloseFile(std::int16_t fileNumber);

    // Closes after a failure: what is pending is dropped, and nothing fails any more.
    void ioReleaseFile(std::int16_t fileNumber) noexcept;

    // Writes the text at the position, without prefix or mark. It is kept pending and reaches the
    // disk in large pieces, at the latest with ioFlushData or ioCloseFile: the fewer writes, the
    // more rarely a killed program leaves half a file.
    void ioPutData(std::int16_t fileNumber, std::string_view text);

    // Brings what is pending to disk. After a failure it is dropped, and the file stays usable.
    void ioFlushData(std::int16_t fileNumber);

    // Reads as many bytes as the text is long into the text; at the end of the file the rest of
    // the text stays as it was.
    void ioGetData(std::int16_t fileNumber, std::string& text);

private:
    template <class Step>
    int guarded(std::string_view routine, std::span<const ErrorNumber> serious,
                Step&& step) noexcept;

    struct Entry {
        std::unique_ptr<OpenFile> file;
        std::string pending;
    };

    Entry& freeEntry();  // that of the lowest free number
    std::int16_t numberOf(const Entry& entry) const noexcept;
    Entry& entry(std::int16_t fileNumber);

    FileSystem& fileSystem_;
    modCmnLog& log_;
    Patience& patience_;
    std::vector<Entry> openFiles_;  // by number, from 1 on; without a file the number is free
};

}  // namespace kv
