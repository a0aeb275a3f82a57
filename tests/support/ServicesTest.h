// The services that the operations stand on, on an empty disk with its log beside it. The disk's
// faults do not reach the log.
#pragma once

#include <gtest/gtest.h>

#include "common/Patience.h"
#include "common/modCmnLog.h"
#include "common/modKvIO.h"
#include "config/modKvIOCfg.h"
#include "tests/model/LogEntries.h"
#include "tests/support/FakeClock.h"
#include "tests/support/disks/FaultyFileSystem.h"
#include "tests/support/disks/TestDisk.h"

namespace kv {

class ServicesTest : public testing::Test {
protected:
    ServicesTest() {
        disk_.makeFolder("C:\\log");
        log_.cmnLogSetFolder("C:\\log");
    }

    // All entries so far.
    Lines logged() {
        log_.cmnLogFlush();
        constexpr const char* kFile = "C:\\log\\kvwcfg00.log";
        return disk_.exists(kFile) ? logEntries(disk_.read(kFile)) : Lines{};
    }

    TestDisk disk_;
    FaultyFileSystem files_{disk_.fileSystem()};
    FakeClock clock_;
    Patience patience_{clock_};
    modCmnLog log_{disk_.fileSystem(), clock_, patience_, "kvwcfg"};
    modKvIO io_{files_, log_, patience_};
    modKvIOCfg cfg_{io_, files_, log_};
};

}  // namespace kv
