#include "tests/endtoend/driver/Desktop.h"

#include <array>

namespace kv::endtoend {

namespace {

constexpr const char* kKey = "Software\\Wine\\X11 Driver";
constexpr const char* kValue = "Managed";
constexpr const char* kBrowser = "https\\shell\\open\\command";
constexpr const char* kThemes = "Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager";
constexpr const char* kThemeActive = "ThemeActive";

bool isWine() {
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

void setText(const std::string& key, const std::string& name, const std::string& text,
             HKEY root = HKEY_CURRENT_USER) {
    RegSetKeyValueA(root, key.c_str(), name.c_str(), REG_SZ, text.c_str(),
                    static_cast<DWORD>(text.size() + 1));
}

std::optional<std::string> textAt(const std::string& key, const std::string& name,
                                  HKEY root = HKEY_CURRENT_USER) {
    std::array<char, 512> text{};
    auto size = static_cast<DWORD>(text.size());
    if (RegGetValueA(root, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
        ERROR_SUCCESS)
        return std::nullopt;
    return text.data();
}

void putBack(const std::string& key, const std::string& name,
             const std::optional<std::string>& previous, HKEY root = HKEY_CURRENT_USER) {
    if (previous)
        setText(key, name, *previous, root);
    else
        RegDeleteKeyValueA(root, key.c_str(), name.c_str());
}

void setColours(const std::map<int, COLORREF>& colours) {
    for (const auto& [index, colour] : colours) SetSysColors(1, &index, &colour);
}

}  // namespace

UnmanagedWindows::UnmanagedWindows() : active_(isWine()) {
    if (!active_) return;
    previous_ = textAt(kKey, kValue);
    setText(kKey, kValue, "N");
}

UnmanagedWindows::~UnmanagedWindows() {
    if (active_) putBack(kKey, kValue, previous_);
}

NotedBrowser::NotedBrowser(const std::string& noteFile) : works_(isWine()) {
    if (!works_) return;
    std::array<char, MAX_PATH> self{};
    GetModuleFileNameA(nullptr, self.data(), static_cast<DWORD>(self.size()));
    std::string program(self.data());
    program.replace(program.rfind('\\') + 1, std::string::npos, "kv_browser.exe");
    previous_ = textAt(kBrowser, "", HKEY_CLASSES_ROOT);
    setText(kBrowser, "", "\"" + program + "\" \"" + noteFile + "\" \"%1\"", HKEY_CLASSES_ROOT);
}

NotedBrowser::~NotedBrowser() {
    if (works_) putBack(kBrowser, "", previous_, HKEY_CLASSES_ROOT);
}

OtherColours::OtherColours(const std::map<int, COLORREF>& colours)
    : themes_(textAt(kThemes, kThemeActive)) {
    for (const auto& [index, colour] : colours) previous_[index] = GetSysColor(index);
    setText(kThemes, kThemeActive, "0");
    setColours(colours);
}

OtherColours::~OtherColours() {
    setColours(previous_);
    putBack(kThemes, kThemeActive, themes_);
}

}  // namespace kv::endtoend
