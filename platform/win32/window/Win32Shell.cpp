#include "platform/win32/window/Win32Shell.h"

#include <shellapi.h>
#include <shlobj.h>

#include "platform/win32/system/Text.h"

namespace kv {

int Win32Shell::openDocument(const std::string& document, const std::string& operation,
                             int showMode) {
    const auto execute = shell32_.function<decltype(ShellExecuteW)>("ShellExecuteW");
    if (execute == nullptr) return 0;
    com_.enter();
    const HINSTANCE result = execute(nullptr, toWide(operation).c_str(), toWide(document).c_str(),
                                     nullptr, nullptr, showMode);
    return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

std::string Win32Shell::browseForFolder(const std::string& title, unsigned flags) {
    const auto browse = shell32_.function<decltype(SHBrowseForFolderW)>("SHBrowseForFolderW");
    const auto pathOf = shell32_.function<decltype(SHGetPathFromIDListW)>("SHGetPathFromIDListW");
    if (browse == nullptr || pathOf == nullptr) return {};

    com_.enter();
    const std::wstring wideTitle = toWide(title);
    BROWSEINFOW request{};
    request.hwndOwner = owner_;
    request.lpszTitle = wideTitle.c_str();
    request.ulFlags = flags;

    const auto chosen = browse(&request);
    if (chosen == nullptr) return {};
    wchar_t path[512]{};
    const bool hasPath = pathOf(chosen, path) != FALSE;
    com_.free(chosen);
    return hasPath ? fromWide(path) : std::string();
}

}  // namespace kv
