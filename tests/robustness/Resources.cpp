#include "tests/robustness/Resources.h"

#include <cstring>
#include <utility>
#include <vector>

#include <psapi.h>
#include <winternl.h>

namespace kv::endtoend {

namespace {

// Wine counts no GDI objects, but has the table of them where Windows had it for long: in the
// process, at this place of its environment block, with the entries laid out so.
constexpr std::size_t kTableInEnvironmentBlock = 0xF8;
constexpr std::size_t kEntries = 0x4000;

struct GdiEntry {
    std::uint64_t object;
    std::uint16_t owner;
    std::uint16_t count;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t userPointer;
};

template <class Value>
bool read(HANDLE process, const void* address, Value* value, std::size_t count = 1) {
    SIZE_T done = 0;
    return ReadProcessMemory(process, address, value, count * sizeof(Value), &done) &&
           done == count * sizeof(Value);
}

unsigned gdiObjectsInTable(HANDLE process) {
    PROCESS_BASIC_INFORMATION information{};
    NtQueryInformationProcess(process, ProcessBasicInformation, &information, sizeof information,
                              nullptr);
    const auto* block = reinterpret_cast<const std::byte*>(information.PebBaseAddress);
    const GdiEntry* table = nullptr;
    std::vector<GdiEntry> entries(kEntries);
    if (!read(process, block + kTableInEnvironmentBlock, &table) || table == nullptr ||
        !read(process, table, entries.data(), entries.size()))
        return 0;
    unsigned count = 0;
    for (const GdiEntry& entry : entries) count += entry.type != 0 ? 1U : 0U;
    return count;
}

// Wine does not count a process's handles, but lists those of all processes.
unsigned handlesInList(DWORD process) {
    constexpr ULONG kExtendedHandleInformation = 64;
    using Query = NTSTATUS WINAPI(ULONG, void*, ULONG, ULONG*);
    auto* const query = reinterpret_cast<Query*>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
    struct Handle {
        void* object;
        ULONG_PTR process;
        ULONG_PTR value;
        ULONG access;
        USHORT traceIndex;
        USHORT type;
        ULONG attributes;
        ULONG reserved;
    };
    std::vector<std::byte> list(1 << 16);
    ULONG needed = 0;
    while (query(kExtendedHandleInformation, list.data(), static_cast<ULONG>(list.size()),
                 &needed) < 0) {
        if (list.size() > (std::size_t{1} << 26)) return 0;
        list.resize(list.size() * 2);
    }
    ULONG_PTR count = 0;
    std::memcpy(&count, list.data(), sizeof count);
    unsigned owned = 0;
    for (ULONG_PTR i = 0; i < count; ++i) {
        Handle handle;
        std::memcpy(&handle, list.data() + 2 * sizeof(ULONG_PTR) + i * sizeof handle,
                    sizeof handle);
        owned += handle.process == process ? 1U : 0U;
    }
    return owned;
}

unsigned windowsOf(DWORD process) {
    struct Search {
        DWORD process;
        unsigned count;
    } search{process, 0};
    const auto countOne = [](HWND window, LPARAM parameter) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(parameter);
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        wanted.count += owner == wanted.process ? 1U : 0U;
        return TRUE;
    };
    EnumChildWindows(GetDesktopWindow(), countOne, reinterpret_cast<LPARAM>(&search));
    EnumChildWindows(HWND_MESSAGE, countOne, reinterpret_cast<LPARAM>(&search));
    return search.count;
}

}  // namespace

Resources resourcesOf(HANDLE process) {
    Resources resources;
    DWORD handles = 0;
    GetProcessHandleCount(process, &handles);
    resources.handles = handles != 0 ? handles : handlesInList(GetProcessId(process));
    resources.gdiObjects = GetGuiResources(process, GR_GDIOBJECTS);
    if (resources.gdiObjects == 0) resources.gdiObjects = gdiObjectsInTable(process);
    resources.userObjects = GetGuiResources(process, GR_USEROBJECTS);
    resources.windows = windowsOf(GetProcessId(process));
    PROCESS_MEMORY_COUNTERS_EX memory{};
    memory.cb = sizeof memory;
    GetProcessMemoryInfo(process, reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory),
                         sizeof memory);
    resources.privateBytes = memory.PagefileUsage;
    return resources;
}

Resources settledResourcesOf(HANDLE process) {
    constexpr int kAttempts = 40;
    constexpr DWORD kPauseMilliseconds = 50;
    Resources resources = resourcesOf(process);
    for (int i = 0; i < kAttempts; ++i) {
        Sleep(kPauseMilliseconds);
        const Resources before = std::exchange(resources, resourcesOf(process));
        if (resources == before) break;
    }
    return resources;
}

std::string describe(const Resources& resources) {
    return std::to_string(resources.handles) + " handles, " + std::to_string(resources.gdiObjects) +
           " GDI objects, " + std::to_string(resources.userObjects) + " USER objects, " +
           std::to_string(resources.windows) + " windows, " +
           std::to_string(resources.privateBytes / 1024) + " KiB";
}

}  // namespace kv::endtoend
