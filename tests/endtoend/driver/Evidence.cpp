#include "tests/endtoend/driver/Evidence.h"

#include <filesystem>
#include <fstream>

#include "tests/endtoend/driver/Pictures.h"
#include "tests/endtoend/driver/Workplace.h"

namespace kv::endtoend {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFailed = "failed";

// The workplace in use. Folders that could not be removed may lie beside it.
fs::path newestFolder(const fs::path& scratch) {
    fs::path newest;
    for (const auto& entry : fs::directory_iterator(scratch)) {
        if (!entry.is_directory() || entry.path().filename() == kFailed) continue;
        if (newest.empty() || fs::last_write_time(newest) < entry.last_write_time())
            newest = entry.path();
    }
    return newest;
}

void appendLogs(const fs::path& folder, const fs::path& destination) {
    std::ofstream all(destination, std::ios::binary);
    if (!fs::is_directory(folder)) return;
    for (const auto& entry : fs::directory_iterator(folder)) {
        std::ifstream log(entry.path(), std::ios::binary);
        if (log.peek() != std::ifstream::traits_type::eof()) all << log.rdbuf();
    }
}

}  // namespace

std::string keepEvidence() noexcept {
    try {
        const fs::path scratch = pathFromEnvironment("KV_SCRATCH");
        const fs::path place = newestFolder(scratch);
        if (place.empty()) return {};
        fs::create_directories(scratch / kFailed);
        const std::string name = (scratch / kFailed / place.filename()).string();
        appendLogs(place / "product" / "log", name + ".log");
        saveScreenPicture(name + ".png");
        return "Screen and log: " + name + ".png, .log";
    } catch (...) {
        return "The screen and the log could not be kept.";
    }
}

}  // namespace kv::endtoend
