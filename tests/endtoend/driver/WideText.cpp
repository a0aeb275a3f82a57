#include "tests/endtoend/driver/WideText.h"

#include <cstring>
#include <functional>
#include <vector>

#include "tests/endtoend/driver/Waiting.h"

namespace kv::endtoend {

namespace {

constexpr DWORD kLimitMilliseconds = 15000;

void waitFor(const std::function<bool()>& condition, const char* what) {
    if (!comesTrue(condition, kLimitMilliseconds))
        throw DriverFailure(std::string("waited in vain for ") + what);
}

INPUT unicodeKey(wchar_t unit, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wScan = static_cast<WORD>(unit);
    event.ki.dwFlags = KEYEVENTF_UNICODE | flags;
    return event;
}

void putOnClipboard(const std::wstring& text) {
    waitFor([] { return OpenClipboard(nullptr) != FALSE; }, "the clipboard");
    EmptyClipboard();
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

void waitForText(HWND box, const std::wstring& text) {
    waitFor([&] { return wideText(box) == text; }, "the text in the box");
}

}  // namespace

std::wstring wideText(HWND window) {
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_NORMAL, kLimitMilliseconds, &length);
    std::wstring text(length + 1, L'\0');
    DWORD_PTR copied = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_NORMAL, kLimitMilliseconds, &copied);
    text.resize(copied);
    return text;
}

void typeWide(const WizardDriver& wizard, std::size_t index, const std::wstring& text) {
    wizard.fillField(index, "");
    wizard.type(index, "");
    std::vector<INPUT> events;
    for (const wchar_t unit : text) {
        events.push_back(unicodeKey(unit, 0));
        events.push_back(unicodeKey(unit, KEYEVENTF_KEYUP));
    }
    SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
    waitForText(wizard.textBoxes().at(index).handle, text);
}

void pasteWide(const WizardDriver& wizard, std::size_t index, const std::wstring& text) {
    wizard.fillField(index, "");
    wizard.type(index, "");
    putOnClipboard(text);
    wizard.pressWith(VK_CONTROL, 'V');
    waitForText(wizard.textBoxes().at(index).handle, text);
}

PlainStart::PlainStart(const std::wstring& program) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (!CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process_))
        throw DriverFailure("cannot start a program, error " + std::to_string(GetLastError()));
}

PlainStart::~PlainStart() {
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, kLimitMilliseconds);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

HWND PlainStart::waitForMessage() const {
    HWND message = nullptr;
    waitFor(
        [&] {
            for (HWND window = FindWindowExW(nullptr, nullptr, L"#32770", nullptr);
                 window != nullptr; window = FindWindowExW(nullptr, window, L"#32770", nullptr)) {
                DWORD owner = 0;
                GetWindowThreadProcessId(window, &owner);
                if (owner == process_.dwProcessId && IsWindowVisible(window)) message = window;
            }
            return message != nullptr;
        },
        "a message");
    return message;
}

DWORD PlainStart::waitForExit() const {
    if (WaitForSingleObject(process_.hProcess, kLimitMilliseconds) != WAIT_OBJECT_0)
        throw DriverFailure("the program does not end");
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

}  // namespace kv::endtoend
