// What the fuzz targets share: the call for each input, claims that end the program when they do
// not hold, and the layers up to the configuration files on a disk in memory.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "common/Patience.h"
#include "common/modCmnLog.h"
#include "common/modKvIO.h"
#include "config/modKvIOCfg.h"
#include "tests/support/FakeClock.h"
#include "tests/support/disks/FailingDisk.h"
#include "tests/support/disks/MemoryFileSystem.h"

namespace kv {

// Each target's own. To take more than a second of the processor is a fault.
void tryInput(std::string_view input);

// Ends the program, which the fuzzer reports together with the input, unless the claim holds.
void claim(bool holds, std::string_view text);

// The parts between the separators; an empty text is one empty part.
Lines partsOf(std::string_view text, std::string_view separator);

std::string_view withoutBlanks(std::string_view text);

class FuzzBench {
public:
    // The folder "C:\log" is there besides.
    explicit FuzzBench(std::map<std::string, std::string> image = {});

    Lines logEntries();

    MemoryFileSystem files;
    FakeClock clock;
    Patience patience{clock};
    modCmnLog log{files, clock, patience, "kvwcfg"};
    modKvIO io{files, log, patience};
    modKvIOCfg configuration{io, files, log};
};

}  // namespace kv
