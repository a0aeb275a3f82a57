// A library that lies where only an attacker would put one. When it is loaded it leaves a file
// named after itself, so that a test can see it. It uses the system's core only: it may bear any
// other library's name.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    wchar_t path[1024];
    const DWORD length = GetModuleFileNameW(library, path, 1000);
    lstrcpyW(path + length, L".loaded");
    CloseHandle(CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    return TRUE;
}
