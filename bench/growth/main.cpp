// Measures how the time of reader, writer, log and upgrade grows with the size of what they are
// given:
//
//     kv_bench_growth <measurement> half|whole
//
// prints milliseconds of the processor, so that what else the machine does counts little. Each is
// measured in a process of its own, which finds no memory that another has left warm. The files lie
// in the host's temporary folder.

#include <cstddef>
#include <cstdio>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/Patience.h"
#include "common/modCmnLog.h"
#include "common/modKvIO.h"
#include "config/modKvIOCfg.h"
#include "process/ConfigUpgrade.h"
#include "process/ProgressLine.h"
#include "tests/support/FakeClock.h"
#include "tests/support/disks/TestDisk.h"
#include "wizard/form/frmWebConfig.h"

namespace kv::bench {
namespace {

constexpr std::size_t kRows = 32766;   // an even number, and nearly as many as the format counts
constexpr std::size_t kRowBytes = 11;  // what a row holds beside its value
constexpr std::size_t kHundredMegabytes = 100'000'000;
constexpr std::size_t kUsualLength = 24;  // of the path of a folder
constexpr int kEntries = 100'000;
constexpr int kFullFiles = 50;
constexpr std::size_t kFullBytes = 500'000;

// The program's own classes on a disk of the host's.
struct Parts {
    TestDisk disk;
    FakeClock clock;
    Patience patience{clock};
    modCmnLog log{disk.fileSystem(), clock, patience, "bench"};
    modKvIO io{disk.fileSystem(), log, patience};
    modKvIOCfg configuration{io, disk.fileSystem(), log};
};

template <class Action>
double milliseconds(Action action) {
    const std::clock_t begun = std::clock();
    action();
    return static_cast<double>(std::clock() - begun) * 1000 / CLOCKS_PER_SEC;
}

void succeed(int status) {
    if (status != 0) throw std::runtime_error("a measured routine fails");
}

// A settings file of so many rows.
struct Settings {
    Settings(std::size_t rows, std::size_t valueLength)
        : data(rows, std::string(valueLength, 'v')) {
        header.fill("0");
        header[kHeaderType] = "1008";
        header[kHeaderPropertyCount] = "1";
        header[kHeaderRowCount] = std::to_string(rows);
    }

    void write(Parts& parts) {
        succeed(parts.configuration.iocCfgWriteFile("C:", "kvi", "cfg", header, properties, data,
                                                    false));
    }

    CfgHeader header;
    std::vector<std::string> properties{"C:\\Korvane\\"};
    std::vector<std::string> data;
};

double reading(std::size_t rows, std::size_t valueLength) {
    Parts parts;
    Settings settings(rows, valueLength);
    settings.write(parts);
    std::vector<std::string> data;
    return milliseconds([&] {
        std::string text;
        succeed(parts.configuration.iocCfgReadFile("C:", "kvi", "cfg", text, true));
        succeed(parts.configuration.iocCfgReadFileParseData(text, settings.header,
                                                            settings.properties, data));
    });
}

double writing(std::size_t rows) {
    Parts parts;
    Settings settings(rows, kUsualLength);
    return milliseconds([&] { settings.write(parts); });
}

// Into the last file: until that is reached, each flush looks at one more file than before.
double logging(int entries) {
    Parts parts;
    for (int i = 0; i < kFullFiles; ++i)
        parts.disk.write(
            "C:\\log\\bench" + std::string(i < 10 ? "0" : "") + std::to_string(i) + ".log",
            std::string(kFullBytes, '.'));
    parts.log.cmnLogSetFolder("C:\\log");
    return milliseconds([&] {
        for (int i = 0; i < entries; ++i)
            parts.log.cmnLogWrite(53, "File not found", "ioCopyFile", kLevelServ);
        parts.log.cmnLogFlush();
    });
}

// Of two files that have nothing but line ends: the most lines that a size can have.
double upgrading(std::size_t bytes) {
    Parts parts;
    frmWebConfig form;
    ProgressLine progress(form);
    ConfigUpgrade upgrade(parts.io, parts.configuration, parts.log, progress);
    std::string text;
    while (text.size() < bytes) text += "\r\n";
    parts.disk.write("C:\\cfg\\general\\korvane.cfg", text);
    parts.disk.write("C:\\cfg\\original\\korvane.bak", text);
    text = {};
    return milliseconds([&] { upgrade.wcpConfigMigrateMain("C:"); });
}

struct Measurement {
    const char* name;
    int times;                        // enough of them to be told from chance
    double (*run)(std::size_t part);  // of 1, a half, or of 2
};

constexpr Measurement kMeasurements[]{
    {"read-rows", 50, [](std::size_t part) { return reading(kRows / 2 * part, kUsualLength); }},
    {"read-bytes", 1,
     [](std::size_t part) {
         return reading(kRows, kHundredMegabytes / 2 * part / kRows - kRowBytes);
     }},
    {"write-rows", 50, [](std::size_t part) { return writing(kRows / 2 * part); }},
    {"log-entries", 1,
     [](std::size_t part) { return logging(kEntries / 2 * static_cast<int>(part)); }},
    {"upgrade-bytes", 1, [](std::size_t part) { return upgrading(kHundredMegabytes / 2 * part); }},
};

double average(const Measurement& measurement, std::size_t part) {
    double sum = 0;
    for (int i = 0; i < measurement.times; ++i) sum += measurement.run(part);
    return sum / measurement.times;
}

int run(const std::string& name, const std::string& size) {
    for (const Measurement& each : kMeasurements) {
        if (name != each.name) continue;
        std::printf("%.3f\n", average(each, size == "half" ? 1 : 2));
        return 0;
    }
    throw std::runtime_error("there is no measurement " + name);
}

}  // namespace
}  // namespace kv::bench

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "kv_bench_growth: see the head of its source for how to call it\n");
        return 1;
    }
    try {
        return kv::bench::run(argv[1], argv[2]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "kv_bench_growth: %s\n", failure.what());
        return 1;
    }
}
