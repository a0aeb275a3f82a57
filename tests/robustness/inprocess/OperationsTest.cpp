// One operation after the other in one process, each with a window and a program of its own on the
// real disk: what a wizard takes it gives back when it closes. From outside this cannot be seen,
// since the program ends with its first operation.
//
// KV_OPERATIONS says how many (18 unless told).
#include <array>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "app/Program.h"
#include "platform/win32/system/Win32Clock.h"
#include "platform/win32/system/Win32FileSystem.h"
#include "platform/win32/window/Win32Shell.h"
#include "platform/win32/window/Window.h"
#include "tests/robustness/Ground.h"
#include "tests/robustness/Resources.h"
#include "wizard/controls/MessageBoxes.h"
#include "wizard/form/frmWebConfig.h"

namespace {

// Pieces of memory in use, the tests' own included.
long long piecesInUse = 0;

void* allocate(std::size_t size) {
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    ++piecesInUse;
    return memory;
}

void release(void* memory) noexcept {
    piecesInUse -= memory == nullptr ? 0 : 1;
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* memory) noexcept { release(memory); }
void operator delete[](void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { release(memory); }

namespace kv::endtoend {

namespace {

constexpr int kCycle = 6;  // operations that lead back to where they began
constexpr int kWarmUpCycles = 2;
constexpr std::size_t kHeapNoise = 8 * 1024;

class NoMessages : public MessageBoxes {
public:
    void information(const std::string& text) override { ADD_FAILURE() << text; }
    bool yesNoDefaultNo(const std::string& text) override {
        ADD_FAILURE() << text;
        return true;
    }
};

// Bytes in use in all heaps of this process, the system's libraries' included.
std::size_t heapBytes() {
    std::array<HANDLE, 64> heaps{};
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    std::size_t bytes = 0;
    for (DWORD i = 0; i < count; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry))
            bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
    }
    return bytes;
}

void handleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

// A wizard from its start to its end, as the program makes it.
class OneWizard {
public:
    explicit OneWizard(const Ground& ground)
        : ground_(ground),
          window_(form_, com_, L"frmWebConfig", {kWindowOuterWidth, kWindowInnerHeight}),
          shell_(window_.handle(), com_),
          program_(form_, {ground.place().path("product\\bin"), "kvwcfg"}, fileSystem_, clock_,
                   shell_, messageBoxes_) {
        program_.load();
        ShowWindow(window_.handle(), SW_SHOWNORMAL);
        handleMessages();
    }

    void run(Operation operation) {
        form_.cmdNext.click();
        switch (operation) {
            case Operation::New:
                if (form_.cmdNew.visible() && form_.picPanel[13].visible()) form_.cmdNew.click();
                walk(ground_.first());
                break;
            case Operation::Modify:
                form_.cmdModify.click();
                walk(ground_.second());
                break;
            case Operation::Delete: form_.cmdDelete.click(); break;
            case Operation::Backup: form_.cmdBackup.click(); break;
            case Operation::Upgrade: form_.cmdUpgrade.click(); break;
        }
        EXPECT_TRUE(form_.picPanel[10].visible());
        form_.cmdNext.click();
        EXPECT_TRUE(form_.picPanel[11].visible());
        EXPECT_TRUE(form_.cmdFinish.enabled());
        handleMessages();
        form_.cmdFinish.click();
        handleMessages();
    }

private:
    void walk(const Site& site) {
        form_.optInstalledApache.click();
        form_.cmdNext.click();
        form_.optUrlDefault.click();
        form_.cmdNext.click();
        form_.txtFolderHomeApache.setText(ground_.home(site));
        form_.txtFolderScriptsApache.setText(ground_.scripts(site));
        form_.cmdNext.click();
        form_.cmdNext.click();
    }

    const Ground& ground_;
    frmWebConfig form_;
    ComApartment com_;
    Window window_;
    Win32FileSystem fileSystem_;
    Win32Clock clock_;
    Win32Shell shell_;
    NoMessages messageBoxes_;
    Program program_;
};

// Wine keeps some bytes of each label that was given a font. What labels cost that belong to nobody
// is not the wizard's.
double heapBytesLostPerLabel() {
    constexpr int kLabels = 2000;
    const auto makeAndDestroy = [](int count) {
        for (int i = 0; i < count; ++i) {
            const HWND label = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr,
                                               nullptr, nullptr, nullptr);
            SendMessageW(label, WM_SETFONT,
                         reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
            DestroyWindow(label);
        }
    };
    makeAndDestroy(kLabels);
    const std::size_t before = heapBytes();
    makeAndDestroy(kLabels);
    const std::size_t after = heapBytes();
    return after > before ? static_cast<double>(after - before) / kLabels : 0;
}

int labelsInAWizard() {
    const frmWebConfig form;
    int labels = 0;
    for (const Control* control : form.controls()) {
        const kv::ControlKind kind = control->kind();
        const bool isPicture = kind == kv::ControlKind::PictureBox &&
                               !static_cast<const PictureBox*>(control)->picture().empty();
        const bool isStatic =
            kind == kv::ControlKind::Label || kind == kv::ControlKind::Line || isPicture;
        labels += isStatic ? 1 : 0;
    }
    return labels;
}

constexpr Operation kOperations[kCycle] = {Operation::New,     Operation::Backup,
                                           Operation::Modify,  Operation::Delete,
                                           Operation::Upgrade, Operation::Delete};

void runCycle(const Ground& ground) {
    for (const Operation operation : kOperations) {
        SCOPED_TRACE(nameOf(operation));
        OneWizard(ground).run(operation);
    }
}

}  // namespace

TEST(OperationsInOneProcess, GiveBackAllThatTheyTake) {
    const int cycles = (countFromEnvironment("KV_OPERATIONS", 18) + kCycle - 1) / kCycle;
    const Ground ground("OperationsInOneProcess");
    for (int i = 0; i < kWarmUpCycles; ++i) runCycle(ground);
    const Resources first = resourcesOf(GetCurrentProcess());
    const long long firstPieces = piecesInUse;
    const std::size_t firstHeap = heapBytes();

    for (int i = 0; i < cycles && !testing::Test::HasFailure(); ++i) runCycle(ground);

    const long long lastPieces = piecesInUse;
    const std::size_t lastHeap = heapBytes();
    const Resources last = resourcesOf(GetCurrentProcess());
    std::printf("after %d operations: %s, %lld pieces and %zu heap bytes\n", kWarmUpCycles * kCycle,
                describe(first).c_str(), firstPieces, firstHeap);
    std::printf("after %d operations: %s, %lld pieces and %zu heap bytes\n",
                (kWarmUpCycles + cycles) * kCycle, describe(last).c_str(), lastPieces, lastHeap);
    EXPECT_EQ(last.handles, first.handles);
    EXPECT_EQ(last.gdiObjects, first.gdiObjects);
    EXPECT_EQ(last.userObjects, first.userObjects);
    EXPECT_EQ(last.windows, first.windows);
    EXPECT_EQ(lastPieces, firstPieces);
    const double systems = heapBytesLostPerLabel() * labelsInAWizard() * cycles * kCycle;
    std::printf("of the heap bytes, %.0f are the system's for labels\n", systems);
    EXPECT_LE(lastHeap, firstHeap + static_cast<std::size_t>(systems) + kHeapNoise);
}

}  // namespace kv::endtoend
