// However many lines the main configuration files have, their migration takes little more memory
// than the two files.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <new>
#include <string>

#include <malloc.h>

#include "process/ConfigUpgrade.h"
#include "tests/support/Deployment.h"

namespace {

// Of this program, in bytes: what it holds, and the most that it has held.
std::size_t held = 0;
std::size_t peak = 0;

}  // namespace

void* operator new(std::size_t size) {
    void* memory = std::malloc(size);
    if (!memory) throw std::bad_alloc();
    held += malloc_usable_size(memory);
    peak = std::max(peak, held);
    return memory;
}
// The library asks in this way for room to sort in, and gives it back in the other.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* memory) noexcept {
    held -= malloc_usable_size(memory);
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace kv {
namespace {

constexpr std::size_t kFileBytes = 1 << 20;

// What the action holds at most, beyond what was held before.
template <class Action>
std::size_t peakDuring(Action action) {
    const std::size_t before = peak = held;
    action();
    return peak - before;
}

std::string repeated(const std::string& line) {
    std::string text;
    text.reserve(kFileBytes);
    while (text.size() < kFileBytes) text += line;
    return text;
}

class UpgradeMemory : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Lines, UpgradeMemory, testing::Values("\r\n", "10\r\n"));

TEST_P(UpgradeMemory, IsThatOfTheTwoFiles) {
    Workbench bench;
    const std::string text = repeated(GetParam());
    bench.disk.write(kSampleMain, text);
    bench.disk.write(kSavedMain, text);
    ConfigUpgrade upgrade(bench.io, bench.configuration, bench.log, bench.progress);

    const std::size_t most = peakDuring([&] { upgrade.wcpConfigMigrateMain("C:\\Korvane"); });

    std::cout << "migration of two files of " << text.size() << " bytes: " << most
              << " bytes of memory\n";
    EXPECT_EQ(bench.logEntries(), Lines{});
    EXPECT_LE(most, 3 * 2 * text.size());
    EXPECT_EQ(bench.disk.read(kSampleMain), text + "\r\n");
}

}  // namespace
}  // namespace kv
