// Stands in for the user's browser: notes the address that it is to open.
//
//     kv_browser <file> <address>
#include <cstdio>
#include <cstdlib>

#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, char*, int) {
    if (__argc != 3) return 1;
    std::FILE* file = std::fopen(__argv[1], "ab");
    if (file == nullptr) return 1;
    std::fprintf(file, "%s\n", __argv[2]);
    return std::fclose(file) == 0 ? 0 : 1;
}
