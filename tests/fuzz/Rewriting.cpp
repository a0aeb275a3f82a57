// A configuration file that is read, written and read again: the bytes are the first file.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "tests/fuzz/Fuzzing.h"

namespace kv {
namespace {

struct Content {
    CfgHeader header;
    std::array<std::string, 26> properties;
    std::vector<std::string> data;

    bool operator==(const Content&) const = default;
};

int parse(FuzzBench& bench, std::string_view text, Content& content) {
    return bench.configuration.iocCfgReadFileParseData(text, content.header, content.properties,
                                                       content.data);
}

int write(FuzzBench& bench, const Content& content) {
    return bench.configuration.iocCfgWriteFile("C:", "written", "cfg", content.header,
                                               content.properties, content.data, false);
}

// A number as the header's counts are read: the nearest whole one. Out of the range of every count
// when the text is none.
double count(const std::string& text) {
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    const bool plain = text.find_first_not_of("0123456789.+-eE") == text.npos;
    return !text.empty() && plain && *end == '\0' ? std::nearbyint(value) : 1e300;
}

bool empty(const std::string& text) { return text.empty(); }

// Whether the file that is written from the content can say all of it: it holds as many properties
// and rows as the header counts, and rows need a property before them.
bool writable(const Content& content) {
    const double type = count(content.header[0]);
    const double properties = count(content.header[2]);
    const double rows = count(content.header[3]);
    if (std::abs(type) > 2147483647 || properties < -32768 || properties > 26) return false;
    if (rows < 0 || rows > 32767 || (rows > 0 && properties < 1)) return false;
    const auto first = static_cast<std::ptrdiff_t>(std::max(properties, 0.0));
    return std::all_of(content.properties.begin() + first, content.properties.end(), empty) &&
           std::all_of(content.data.begin() + static_cast<std::ptrdiff_t>(rows), content.data.end(),
                       empty);
}

}  // namespace

void tryInput(std::string_view text) {
    FuzzBench bench({{"C:\\written.cfg", ""}});
    Content content;
    if (parse(bench, text, content) != 0) return;

    const int status = write(bench, content);

    const Lines logged = bench.logEntries();
    const auto failed = std::ranges::count_if(
        logged, [](const std::string& entry) { return entry.ends_with(" iocCfgWriteFile"); });
    claim(status == (failed == 0 ? 0 : 1) && failed <= 1, "a failed write is logged once");
    if (!writable(content)) return;

    claim(status == 0 && logged.empty(), "a content that can be written is written");
    const std::string written = bench.files.read("C:\\written.cfg");
    Content again;
    claim(parse(bench, written, again) == 0, "what was written can be read");
    claim(again == content, "what is read again is what was written");
    claim(write(bench, again) == 0 && bench.files.read("C:\\written.cfg") == written,
          "writing it again gives the same bytes");
}

}  // namespace kv
