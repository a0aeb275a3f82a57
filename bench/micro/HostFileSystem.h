// The host's files with as little in between as can be, so that what is measured is the program's
// own work. Only what the measured code calls is there; the rest fails.
#pragma once

#include "common/Clock.h"
#include "common/FileSystem.h"

namespace kv::bench {

class HostFileSystem : public FileSystem {
public:
    void copyFile(const std::string& source, const std::string& destination) override;
    void deleteFiles(const std::string& pattern) override;
    void makeDirectory(const std::string& path) override;
    void removeDirectory(const std::string& path) override;
    std::optional<std::string> findName(const std::string& path, Lookup lookup) override;
    std::int64_t fileLength(const std::string& path) override;
    std::unique_ptr<OpenFile> openForWrite(const std::string& path) override;
    std::unique_ptr<OpenFile> openForRead(const std::string& path) override;
    void append(const std::string& path, std::string_view bytes) override;
};

// Works the date out once a second, as the host's library takes its time for that.
class HostClock : public Clock {
public:
    LocalTime now() const override;
    std::chrono::milliseconds sinceStart() const override;
    void pause(std::chrono::milliseconds) const override {}

private:
    mutable std::int64_t seconds_ = -1;
    mutable LocalTime last_{};
};

// The host's spelling of a path.
std::string hostPath(std::string path);

}  // namespace kv::bench
