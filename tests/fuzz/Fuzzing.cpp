#include "tests/fuzz/Fuzzing.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <utility>

#include "tests/model/LogEntries.h"

namespace kv {
namespace {

std::map<std::string, std::string> withLogFolder(std::map<std::string, std::string> image) {
    image["C:\\log\\"] = "";
    return image;
}

}  // namespace

void claim(bool holds, std::string_view text) {
    if (holds) return;
    std::fprintf(stderr, "This does not hold: %.*s\n", static_cast<int>(text.size()), text.data());
    std::abort();
}

Lines partsOf(std::string_view text, std::string_view separator) {
    Lines parts;
    std::size_t start = 0;
    for (std::size_t at = 0; (at = text.find(separator, start)) != std::string_view::npos;
         start = at + separator.size())
        parts.emplace_back(text.substr(start, at - start));
    parts.emplace_back(text.substr(start));
    return parts;
}

std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

FuzzBench::FuzzBench(std::map<std::string, std::string> image)
    : files(withLogFolder(std::move(image))) {
    log.cmnLogSetFolder("C:\\log");
}

Lines FuzzBench::logEntries() {
    log.cmnLogFlush();
    return kv::logEntries(files.read("C:\\log\\kvwcfg00.log"));
}

}  // namespace kv

// Not the time on the wall, since others use the machine too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::clock_t begun = std::clock();
    kv::tryInput({reinterpret_cast<const char*>(data), size});
    kv::claim(std::clock() - begun <= CLOCKS_PER_SEC, "no input takes more than a second");
    return 0;
}
