// The least that a window with this work behind its Next button can be: five controls, and on the
// click the very calls of a new installation into a fresh web server at its site root, with nothing
// between them. It shows no progress, logs nothing and tests no result.
//
//   kv_bench_floor <program folder> <product> <document root> <scripts folder>

#include <algorithm>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

#include "tests/model/SettingsFile.h"

namespace {

using kv::kHomeFolders;
using kv::kImages;
using kv::kLibraries;
using kv::kPrograms;
using kv::kScriptsFolders;
using kv::kWebFiles;

constexpr const wchar_t* kClass = L"kvFloor";
constexpr int kNextId = 1;
constexpr int kFinishId = 2;

struct Places {
    std::wstring program;
    std::wstring product;
    std::wstring home;
    std::wstring scripts;
};

struct Controls {
    HWND title;
    HWND text;
    HWND progress;
    HWND next;
    HWND finish;
};

struct Floor {
    Places places;
    Controls controls{};
};

std::wstring wide(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

std::string narrow(const std::wstring& text) {
    std::string bytes(text.size() * 4, '\0');
    const int length =
        WideCharToMultiByte(CP_ACP, 0, text.c_str(), static_cast<int>(text.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

// A listing tells whether the name is there.
bool isThere(const std::wstring& path) {
    WIN32_FIND_DATAW entry;
    const HANDLE find = FindFirstFileW(path.c_str(), &entry);
    if (find == INVALID_HANDLE_VALUE) return false;
    while (FindNextFileW(find, &entry)) {
    }
    FindClose(find);
    return true;
}

void makeFolders(const std::wstring& parent, std::span<const std::string_view> names) {
    for (const std::string_view name : names) {
        const std::wstring path = parent + L"\\" + wide(name);
        if (!isThere(path)) CreateDirectoryW(path.c_str(), nullptr);
    }
}

// Looks whether the copy has marks to be taken off; it has none.
void copyFile(const std::wstring& from, const std::wstring& to) {
    CopyFileW(from.c_str(), to.c_str(), FALSE);
    GetFileAttributesW(to.c_str());
}

void copyFiles(const std::wstring& from, const std::wstring& to,
               std::span<const std::string_view> names) {
    for (const std::string_view name : names) {
        const std::wstring end = L"\\" + wide(name);
        copyFile(from + end, to + end);
    }
}

// Of the settings' sections each is written at once.
void writeFile(const std::wstring& path, const std::vector<std::string>& sections) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    for (const std::string& bytes : sections)
        WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    FlushFileBuffers(file);
    CloseHandle(file);
}

// The sections of a settings file.
std::vector<std::string> sections(const std::string& bytes) {
    const std::size_t property = bytes.find("#\r\n# *Peoperty Section");
    const std::size_t data = bytes.find("#\r\n# *Data Section");
    return {bytes.substr(0, property), bytes.substr(property, data - property), bytes.substr(data)};
}

void install(const Places& places) {
    const auto& [program, product, home, scripts] = places;
    makeFolders(home, kHomeFolders);
    makeFolders(scripts, kScriptsFolders);

    copyFiles(product + L"\\bin", scripts + L"\\kv", kPrograms);
    copyFiles(product + L"\\bin", scripts + L"\\kv", kLibraries);
    copyFiles(product + L"\\web-root\\kv", home + L"\\kv", kWebFiles);
    copyFiles(product + L"\\web-root", home, kWebFiles);
    copyFiles(product + L"\\web-root\\images\\kvimg", home + L"\\images\\kv\\kvimg", kImages);

    const kv::Site site{
        .home = narrow(home), .scripts = narrow(scripts), .product = narrow(product)};
    writeFile(program + L"\\kvi\\kvi.cfg", sections(kv::recordOf(site)));
    const std::wstring copy = scripts + L"\\kv\\kvi\\kvi.cfg";
    isThere(copy);
    writeFile(copy, sections(kv::scriptsRecordOf(site)));

    const std::wstring help = product + L"\\hlp\\eng\\";
    copyFile(help + L"kvhentryeng.html", help + L"kvhexiteng.html");
}

void onNext(const Floor& floor) {
    EnableWindow(floor.controls.next, FALSE);
    SetWindowTextW(floor.controls.text, L"Copying files...");
    install(floor.places);
    SetWindowTextW(floor.controls.text, L"Completed.");
    EnableWindow(floor.controls.finish, TRUE);
}

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) == kNextId)
                onNext(*reinterpret_cast<Floor*>(GetWindowLongPtrW(window, GWLP_USERDATA)));
            if (LOWORD(wParam) == kFinishId) DestroyWindow(window);
            return 0;
        case WM_DESTROY: PostQuitMessage(0); return 0;
        default: return DefWindowProcW(window, message, wParam, lParam);
    }
}

HWND makeWindow() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = windowProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);
    return CreateWindowExW(0, kClass, L"Floor", WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU,
                           CW_USEDEFAULT, CW_USEDEFAULT, 553, 390, nullptr, nullptr,
                           windowClass.hInstance, nullptr);
}

Controls makeControls(HWND window) {
    const auto make = [&](const wchar_t* kind, const wchar_t* text, DWORD style, int id, RECT box) {
        const HWND child = CreateWindowExW(
            0, kind, text, WS_CHILD | WS_VISIBLE | style, box.left, box.top, box.right - box.left,
            box.bottom - box.top, window, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
            GetModuleHandleW(nullptr), nullptr);
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)),
                     FALSE);
        return child;
    };
    return {
        make(L"STATIC", L"Ready to install", 0, 3, {20, 20, 500, 50}),
        make(L"STATIC", L"Click on Next to continue.", 0, 4, {20, 60, 500, 90}),
        make(L"STATIC", L"", SS_SUNKEN, 5, {20, 100, 500, 120}),
        make(L"BUTTON", L"&Next >", WS_TABSTOP | BS_DEFPUSHBUTTON, kNextId, {300, 320, 380, 345}),
        make(L"BUTTON", L"Finish", WS_TABSTOP | WS_DISABLED, kFinishId, {400, 320, 480, 345}),
    };
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    if (__argc != 5) return 1;
    Floor floor{{__wargv[1], __wargv[2], __wargv[3], __wargv[4]}};
    const HWND window = makeWindow();
    floor.controls = makeControls(window);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&floor));
    ShowWindow(window, SW_SHOWNORMAL);
    UpdateWindow(window);

    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (IsDialogMessageW(window, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
