#include "platform/win32/system/ProgramFile.h"

#include <windows.h>

#include "common/RunTimeError.h"
#include "common/Text.h"
#include "platform/win32/system/Errors.h"
#include "platform/win32/system/Text.h"

namespace kv {

ProgramFile runningProgram() {
    std::wstring widePath(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(nullptr, widePath.data(), static_cast<DWORD>(widePath.size()));
        if (length == 0) throwLastError();
        if (length < widePath.size()) {
            widePath.resize(length);
            break;
        }
        widePath.resize(widePath.size() * 2);
    }

    const std::string path = fromWide(widePath);
    if (toWide(path) != widePath) throw RunTimeError(ErrorNumber::BadFileNameOrNumber);
    const PathHalves halves = splitPath(path, leadBytes());
    ProgramFile file{std::string(halves.parent),
                     std::string(halves.name.substr(0, halves.name.rfind('.')))};
    if (file.folder.ends_with(':')) file.folder += '\\';
    return file;
}

}  // namespace kv
