// Any values, written as a configuration file and read again. Of the input's lines the first one is
// the version, the next up to 26 are the properties, and all others the data rows, as far as they
// can be counted.
#include <algorithm>
#include <array>

#include "tests/fuzz/Fuzzing.h"

namespace kv {
namespace {

constexpr std::array<const char*, 9> kTypes{"1001", "1002", "1003", "1004", "1005",
                                            "1006", "1007", "1008", "0"};

constexpr std::size_t kMaxRows = 32767;

// Values that the format cannot hold are mended: it has no line ends and no separators, and blanks
// around a value are not part of it.
std::string legal(std::string value) {
    std::erase_if(value, [](char c) { return c == '\r' || c == '\x0F' || c == '\x10'; });
    return std::string(withoutBlanks(value));
}

}  // namespace

void tryInput(std::string_view text) {
    Lines values = partsOf(text, "\n");
    std::ranges::transform(values, values.begin(), legal);
    CfgHeader header;
    header.fill("0");
    header[0] = kTypes[values.size() % kTypes.size()];
    header[1] = values.front();
    values.erase(values.begin());
    std::array<std::string, 26> properties;
    const std::size_t propertyCount = std::min(values.size(), properties.size());
    std::copy_n(values.begin(), propertyCount, properties.begin());
    values.erase(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(propertyCount));
    values.resize(std::min(values.size(), kMaxRows));
    header[2] = std::to_string(propertyCount);
    header[3] = std::to_string(values.size());

    FuzzBench bench;
    claim(bench.configuration.iocCfgWriteFile("C:", "written", "cfg", header, properties, values,
                                              false) == 0,
          "the values are written");
    CfgHeader headerAgain;
    std::array<std::string, 26> propertiesAgain;
    std::vector<std::string> valuesAgain;
    const int result = bench.configuration.iocCfgReadFileParseData(
        bench.files.read("C:\\written.cfg"), headerAgain, propertiesAgain, valuesAgain);

    values.emplace_back();  // the data array has one value more than the file has rows
    claim(result == 0, "what was written can be read");
    claim(headerAgain == header, "the header is the same");
    claim(propertiesAgain == properties, "the properties are the same");
    claim(valuesAgain == values, "the rows are the same");
    claim(bench.logEntries().empty(), "nothing has failed");
}

}  // namespace kv
