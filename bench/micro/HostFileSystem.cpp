#include "HostFileSystem.h"

#include <algorithm>
#include <ctime>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/RunTimeError.h"

namespace kv::bench {
namespace {

constexpr int kMode = 0644;

[[noreturn]] void fail() { throw RunTimeError(ErrorNumber::InternalError); }

int open(const std::string& path, int flags) {
    const int file = ::open(hostPath(path).c_str(), flags, kMode);
    if (file < 0) fail();
    return file;
}

void writeAll(int file, std::string_view bytes) {
    if (::write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) fail();
}

class HostFile : public OpenFile {
public:
    explicit HostFile(int file) : file_(file) {}
    ~HostFile() override { close(); }

    void write(std::string_view bytes) override { writeAll(file_, bytes); }

    void truncate() override { fail(); }

    std::size_t read(std::span<char> buffer) override {
        const ssize_t count = ::read(file_, buffer.data(), buffer.size());
        if (count < 0) fail();
        return static_cast<std::size_t>(count);
    }

    void close() override {
        if (file_ >= 0) ::close(file_);
        file_ = -1;
    }

private:
    int file_;
};

}  // namespace

std::string hostPath(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

void HostFileSystem::copyFile(const std::string&, const std::string&) { fail(); }
void HostFileSystem::deleteFiles(const std::string&) { fail(); }
void HostFileSystem::makeDirectory(const std::string&) { fail(); }
void HostFileSystem::removeDirectory(const std::string&) { fail(); }
std::optional<std::string> HostFileSystem::findName(const std::string&, Lookup) { fail(); }

std::int64_t HostFileSystem::fileLength(const std::string& path) {
    struct stat status {};
    if (::stat(hostPath(path).c_str(), &status) != 0) throw RunTimeError(ErrorNumber::FileNotFound);
    return status.st_size;
}

std::unique_ptr<OpenFile> HostFileSystem::openForWrite(const std::string& path) {
    return std::make_unique<HostFile>(open(path, O_WRONLY | O_CREAT));
}

std::unique_ptr<OpenFile> HostFileSystem::openForRead(const std::string& path) {
    return std::make_unique<HostFile>(open(path, O_RDONLY));
}

void HostFileSystem::append(const std::string& path, std::string_view bytes) {
    HostFile(open(path, O_WRONLY | O_CREAT | O_APPEND)).write(bytes);
}

LocalTime HostClock::now() const {
    const std::time_t seconds = std::time(nullptr);
    if (seconds != seconds_) {
        std::tm time{};
        localtime_r(&seconds, &time);
        seconds_ = seconds;
        last_ = {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday,
                 time.tm_hour,        time.tm_min,     time.tm_sec};
    }
    return last_;
}

std::chrono::milliseconds HostClock::sinceStart() const { return {}; }

}  // namespace kv::bench
