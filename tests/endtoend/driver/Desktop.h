// Makes the desktop that the wizard is shown on fit for being watched and worked by a program.
#pragma once

#include <map>
#include <optional>
#include <string>

#include <windows.h>

namespace kv::endtoend {

// On an X server without a window manager, Wine waits two seconds for one whenever a window goes,
// and draws no captions. As long as an object of this class lives, the programs started do without
// a window manager. Elsewhere it does nothing.
class UnmanagedWindows {
public:
    UnmanagedWindows();
    ~UnmanagedWindows();
    UnmanagedWindows(const UnmanagedWindows&) = delete;
    UnmanagedWindows& operator=(const UnmanagedWindows&) = delete;

private:
    bool active_ = false;
    std::optional<std::string> previous_;
};

// Other system colours (COLOR_BTNFACE and so on) for the programs that are started while an object
// of this class lives. Themes, which have colours of their own, are off meanwhile.
class OtherColours {
public:
    explicit OtherColours(const std::map<int, COLORREF>& colours);
    ~OtherColours();
    OtherColours(const OtherColours&) = delete;
    OtherColours& operator=(const OtherColours&) = delete;

private:
    std::optional<std::string> themes_;
    std::map<int, COLORREF> previous_;
};

// As long as an object of this class lives, pages are opened in a browser that only notes their
// addresses. Windows lets users alone choose their browser, so this works under Wine only.
class NotedBrowser {
public:
    explicit NotedBrowser(const std::string& noteFile);
    ~NotedBrowser();
    NotedBrowser(const NotedBrowser&) = delete;
    NotedBrowser& operator=(const NotedBrowser&) = delete;

    bool works() const { return works_; }

private:
    bool works_ = false;
    std::optional<std::string> previous_;
};

}  // namespace kv::endtoend
