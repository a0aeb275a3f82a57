#include "bench/driver/Place.h"

#include <cstdint>
#include <filesystem>
#include <fstream>

#include "bench/driver/Processes.h"
#include "tests/model/Operations.h"

namespace kv::bench {

namespace {

constexpr std::size_t kProgramBytes = 300 * 1024;
constexpr std::size_t kLibraryBytes = 200 * 1024;

constexpr const char* kHelpExit = "product\\hlp\\eng\\kvhexiteng.html";
constexpr const char* kProgramSettings = "product\\setup\\kvi\\kvi.cfg";

// Different for each file, so that none can pass for another.
std::string bytesFor(std::string_view name, std::size_t size) {
    std::uint32_t state = 2463534242U;
    for (const char character : name) {
        state = state * 31 + static_cast<unsigned char>(character);
    }
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

Place::Place() : work_("place") {
    std::filesystem::create_directories(program());
    std::filesystem::copy_file(work_.program(), wizard());
    for (const std::string_view name : kPrograms) {
        work_.write("product\\bin\\" + std::string(name), bytesFor(name, kProgramBytes));
    }
    for (const std::string_view name : kLibraries) {
        work_.write("product\\bin\\" + std::string(name), bytesFor(name, kLibraryBytes));
    }
    work_.write(kProgramSettings, freshSettings());
    fresh_ = work_.tree();
}

void Place::clean() const {
    work_.remove("server");
    work_.makeFolder("server\\htdocs");
    work_.makeFolder("server\\cgi-bin");
    work_.remove(kProgramSettings);
    work_.write(kProgramSettings, fresh_.at(kProgramSettings));
    work_.remove(kHelpExit);
    work_.write(kHelpExit, fresh_.at(kHelpExit));
}

void Place::check() const {
    const std::string unlike = differences(expected(), work_.tree());
    if (!unlike.empty()) {
        throw BenchFailure("this is no installation:\n" + unlike);
    }
}

std::string Place::programSettings() const { return recordOf(site()); }

std::string Place::scriptsSettings() const { return scriptsRecordOf(site()); }

// The program lies in a folder of its own, and its record with it.
Tree Place::expected() const {
    Tree tree = afterInstallation(fresh_, site());
    tree[installationFile(site())] = fresh_.at(installationFile(site()));
    tree[kProgramSettings] = programSettings();
    return tree;
}

void Place::layOutForPackage(const std::string& folder) const {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::filesystem::copy(product(), folder + "\\product",
                          std::filesystem::copy_options::recursive);
    writeFile(folder + "\\program\\kvi.cfg", programSettings());
    writeFile(folder + "\\scripts\\kvi.cfg", scriptsSettings());
    writeFile(folder + "\\help\\kvhexiteng.html", fresh_.at("product\\hlp\\eng\\kvhentryeng.html"));
}

}  // namespace kv::bench
