// Measures reader, writer and log beside the least that could be done with the same bytes:
//
//     kv_bench_micro <round> <folder to work in> [<options of Google Benchmark>]
//
// Every round starts with another measurement, so that none is always first.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "HostFileSystem.h"
#include "common/Patience.h"
#include "common/modCmnLog.h"
#include "common/modKvIO.h"
#include "config/modKvIOCfg.h"

namespace kv::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMaxRows = 32767;
constexpr int kEntries = 100000;
constexpr std::size_t kFlushLength = 5000;
constexpr std::size_t kHundredMegabytes = 100'000'000;
constexpr std::size_t kRowBytes = 11;  // what a row holds beside its value
constexpr std::size_t kLongValue = kHundredMegabytes / kMaxRows - kRowBytes;

constexpr std::size_t kAsItIs = 0;

// One entry of an installation, as every file of the wizard's own holds them.
constexpr std::string_view kEntry[] = {"C:\\Apache\\htdocs\\",
                                       "C:\\Apache\\cgi-bin\\",
                                       "C:\\Program Files\\Korvane\\",
                                       "1",
                                       "0",
                                       "192.168.0.1",
                                       "8080"};

// The program's own classes on the host's files.
struct Parts {
    HostFileSystem files;
    HostClock clock;
    Patience patience{clock};
    modCmnLog log{files, clock, patience, "bench"};
    modKvIO io{files, log, patience};
    modKvIOCfg configuration{io, files, log};
};

// A configuration file's contents, as the writer takes them.
struct Contents {
    // Rows of an installation's entries, filled up to the length given.
    Contents(std::size_t rows, std::size_t valueLength) : data(rows) {
        header.fill("0");
        header[kHeaderType] = "1008";
        header[kHeaderVersion] = "1.3.0";
        header[kHeaderPropertyCount] = "1";
        header[kHeaderRowCount] = std::to_string(rows);
        for (std::size_t i = 0; i < rows; ++i) {
            data[i] = kEntry[i % std::size(kEntry)];
            data[i].resize(std::max(data[i].size(), valueLength), 'v');
        }
    }

    CfgHeader header;
    std::vector<std::string> properties{"C:\\Korvane\\"};
    std::vector<std::string> data;
};

class Workshop {
public:
    explicit Workshop(std::string folder) : folder_(std::move(folder)) {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }

    const std::string& folder() const { return folder_; }
    std::string path(std::string_view name) const { return folder_ + "/" + std::string(name); }

    // The path of the file of so many rows; written when first asked for.
    std::string fileOf(std::size_t rows, std::size_t valueLength) const {
        const std::string name = std::to_string(rows) + "x" + std::to_string(valueLength);
        if (!fs::exists(path(name + ".cfg"))) write(name, Contents(rows, valueLength));
        return name;
    }

    void write(const std::string& name, const Contents& contents) const {
        Parts parts;
        if (parts.configuration.iocCfgWriteFile(folder_, name, "cfg", contents.header,
                                                contents.properties, contents.data, false) != 0)
            std::abort();
    }

    std::string bytesOf(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        std::string bytes(fs::file_size(path(name)), '\0');
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return bytes;
    }

private:
    std::string folder_;
};

using Run = std::function<void(benchmark::State&)>;

// Reading.

void passOver(std::string_view text) {
    std::size_t lines = 0;
    const char* at = text.data();
    const char* const end = at + text.size();
    while ((at = static_cast<const char*>(
                std::memchr(at, '\n', static_cast<std::size_t>(end - at)))) != nullptr) {
        ++at;
        ++lines;
    }
    benchmark::DoNotOptimize(lines);
}

Run memchrPass(const Workshop& shop, std::size_t rows, std::size_t valueLength) {
    return [=, &shop](benchmark::State& state) {
        const std::string text = shop.bytesOf(shop.fileOf(rows, valueLength) + ".cfg");
        for (auto _ : state) passOver(text);
    };
}

// What the reader gives back is dropped outside of the time.
struct Result {
    CfgHeader header;
    std::vector<std::string> properties{1};
    std::vector<std::string> data;
};

void parse(Parts& parts, std::string_view text, std::size_t rows, Result& result) {
    if (parts.configuration.iocCfgReadFileParseData(text, result.header, result.properties,
                                                    result.data) != 0 ||
        result.data.size() != rows + 1 || result.data[rows - 1].empty())
        std::abort();
}

Run parsing(const Workshop& shop, std::size_t rows, std::size_t valueLength) {
    return [=, &shop](benchmark::State& state) {
        const std::string text = shop.bytesOf(shop.fileOf(rows, valueLength) + ".cfg");
        Parts parts;
        for (auto _ : state) {
            Result result;
            parse(parts, text, rows, result);
            state.PauseTiming();
            result = {};
            state.ResumeTiming();
        }
    };
}

// Brings the file into memory.
template <class Then>
void readEach(const Workshop& shop, const std::string& name, benchmark::State& state, Then then) {
    Parts parts;
    for (auto _ : state) {
        std::string text;
        Result result;
        if (parts.configuration.iocCfgReadFile(shop.folder(), name, "cfg", text, true) != 0)
            std::abort();
        then(parts, text, result);
        state.PauseTiming();
        text = {};
        result = {};
        state.ResumeTiming();
    }
}

Run readingAndParsing(const Workshop& shop, std::size_t rows, std::size_t valueLength) {
    return [=, &shop](benchmark::State& state) {
        readEach(shop, shop.fileOf(rows, valueLength), state,
                 [rows](Parts& parts, std::string_view text, Result& result) {
                     parse(parts, text, rows, result);
                 });
    };
}

Run readingAndMemchr(const Workshop& shop, std::size_t rows, std::size_t valueLength) {
    return [=, &shop](benchmark::State& state) {
        readEach(shop, shop.fileOf(rows, valueLength), state,
                 [](Parts&, std::string_view text, Result&) { passOver(text); });
    };
}

// Writing a new file.

Run writing(const Workshop& shop, std::size_t rows) {
    return [=, &shop](benchmark::State& state) {
        const Contents contents(rows, kAsItIs);
        for (auto _ : state) {
            state.PauseTiming();
            fs::remove(shop.path("written.cfg"));
            state.ResumeTiming();
            shop.write("written", contents);
        }
    };
}

Run oneWrite(const Workshop& shop, std::size_t rows) {
    return [=, &shop](benchmark::State& state) {
        const std::string bytes = shop.bytesOf(shop.fileOf(rows, kAsItIs) + ".cfg");
        const std::string path = shop.path("written-at-once");
        for (auto _ : state) {
            state.PauseTiming();
            fs::remove(path);
            state.ResumeTiming();
            std::FILE* const file = std::fopen(path.c_str(), "wb");
            if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
            std::fclose(file);
        }
    };
}

// Logging, in a folder of its own each time.

constexpr std::string_view kDescription = "File not found";
constexpr std::string_view kSource = "ioCopyFile";

std::string emptyLogFolder(const Workshop& shop) {
    const std::string folder = shop.path("log");
    fs::remove_all(folder);
    fs::create_directory(folder);
    return folder;
}

void fillFiles(const std::string& folder, int count) {
    constexpr std::uintmax_t kFull = 500000;
    for (int i = 0; i < count; ++i) {
        const std::string name =
            folder + "/bench" + (i < 10 ? "0" : "") + std::to_string(i) + ".log";
        std::ofstream{name};
        fs::resize_file(name, kFull);
    }
}

Run logging(const Workshop& shop, int entries, int fullFiles) {
    return [=, &shop](benchmark::State& state) {
        for (auto _ : state) {
            state.PauseTiming();
            const std::string folder = emptyLogFolder(shop);
            fillFiles(folder, fullFiles);
            state.ResumeTiming();

            Parts parts;
            parts.log.cmnLogSetFolder(folder);
            for (int i = 0; i < entries; ++i)
                parts.log.cmnLogWrite(53, kDescription, kSource, kLevelServ);
            parts.log.cmnLogFlush();
        }
    };
}

// The same bytes, appended whenever there are 5,000 of them.
Run appending(const Workshop& shop, int entries) {
    return [=, &shop](benchmark::State& state) {
        const std::string entry = "[2007/01/16 09:05:03]  SERV  53, File not found, ioCopyFile\r\n";
        const std::size_t perFlush = (kFlushLength + entry.size() - 1) / entry.size();
        std::string block;
        for (std::size_t i = 0; i < perFlush; ++i) block += entry;
        const std::size_t blocks = static_cast<std::size_t>(entries) / perFlush;
        HostFileSystem files;
        for (auto _ : state) {
            state.PauseTiming();
            const std::string folder = emptyLogFolder(shop);
            state.ResumeTiming();
            for (std::size_t i = 0; i < blocks; ++i) files.append(folder + "/all.log", block);
        }
    };
}

struct Measurement {
    std::string name;
    Run run;
    int iterations = 0;  // 0: as many as the clock needs
};

std::vector<Measurement> measurements(const Workshop& shop) {
    constexpr std::size_t kEven = kMaxRows - 1;
    return {
        {"rows-memchr", memchrPass(shop, kMaxRows, kAsItIs)},
        {"rows-parse", parsing(shop, kMaxRows, kAsItIs)},
        {"rows-read", readingAndParsing(shop, kMaxRows, kAsItIs)},
        {"rows-read-memchr", readingAndMemchr(shop, kMaxRows, kAsItIs)},
        {"rows-parse-half", parsing(shop, kEven / 2, kAsItIs)},
        {"rows-parse-whole", parsing(shop, kEven, kAsItIs)},
        {"100MB-memchr", memchrPass(shop, kMaxRows, kLongValue), 2},
        {"100MB-parse", parsing(shop, kMaxRows, kLongValue), 2},
        {"100MB-read", readingAndParsing(shop, kMaxRows, kLongValue), 2},
        {"100MB-read-memchr", readingAndMemchr(shop, kMaxRows, kLongValue), 2},
        {"50MB-parse", parsing(shop, kMaxRows, kLongValue / 2), 2},
        {"write-once", oneWrite(shop, kMaxRows)},
        {"write", writing(shop, kMaxRows)},
        {"write-half", writing(shop, kEven / 2)},
        {"write-whole", writing(shop, kEven)},
        {"log-append", appending(shop, kEntries), 2},
        {"log-empty", logging(shop, kEntries, 0), 2},
        {"log-full", logging(shop, kEntries, 50), 2},
        {"log-half", logging(shop, kEntries / 2, 0), 2},
    };
}

int run(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "kv_bench_micro: see the head of its source for how to call it\n");
        return 1;
    }
    const auto round = static_cast<std::size_t>(std::atoi(argv[1]));
    const Workshop shop(argv[2]);
    const std::vector<Measurement> all = measurements(shop);
    for (std::size_t turn = 0; turn < all.size(); ++turn) {
        const Measurement& each = all[(turn + round) % all.size()];
        auto* registered = benchmark::RegisterBenchmark(each.name.c_str(), each.run);
        registered->UseRealTime()->Unit(benchmark::kMicrosecond);
        if (each.iterations > 0) registered->Iterations(each.iterations);
    }
    std::vector<char*> options{argv[0]};
    options.insert(options.end(), argv + 3, argv + argc);
    int count = static_cast<int>(options.size());
    benchmark::Initialize(&count, options.data());
    benchmark::RunSpecifiedBenchmarks();
    fs::remove_all(shop.folder());
    return 0;
}

}  // namespace
}  // namespace kv::bench

int main(int argc, char** argv) { return kv::bench::run(argc, argv); }
