#include "Evidence.h"

#include <filesystem>
#include <fstream>

#include <windows.h>

#include "Pictures.h"
#include "Workplace.h"

namespace kv::endtoend {
namespace {

namespace fs = std::filesystem;

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
        const fs::path failed = scratch / "failed";
        std::string where;
        for (const auto& entry : fs::directory_iterator(scratch)) {
            if (!entry.is_directory() || entry.path() == failed) continue;
            fs::create_directories(failed);
            const fs::path name = failed / entry.path().filename();
            appendLogs(entry.path() / "product" / "log", name.string() + ".log");
            saveWindowPicture(GetDesktopWindow(), name.string() + ".png");
            where = "Screen and log: " + name.string() + ".png, .log";
        }
        return where;
    } catch (...) {
        return "The screen and the log could not be kept.";
    }
}

}  // namespace kv::endtoend
