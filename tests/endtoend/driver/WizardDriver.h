// Works the wizard's window from outside, as a user does: with the mouse and the keyboard, on a
// process of its own. It knows nothing of the program but what its window shows. Every wait polls
// and has a time limit; whatever cannot be done is a DriverFailure that tells what was seen.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

#include "tests/endtoend/steps/PanelTexts.h"

namespace kv::endtoend {

class DriverFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct Rectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    int right() const { return left + width; }
    int bottom() const { return top + height; }
    friend bool operator==(const Rectangle&, const Rectangle&) = default;
};

enum class ControlKind { Label, TextBox, OptionButton, CommandButton, Other };

// One native child as it was at the moment of asking.
struct ControlView {
    HWND handle = nullptr;
    HWND parent = nullptr;
    ControlKind kind = ControlKind::Other;
    std::string className;
    std::string text;
    Rectangle box;  // relative to the parent's client area, in pixels
    bool visible = false;
    bool enabled = false;
    bool checked = false;
};

enum class BoxIcon { None, Information, Question, Warning, Error };

struct MessageBoxView {
    HWND handle = nullptr;
    std::string title;
    std::string text;
    BoxIcon icon = BoxIcon::None;
    std::vector<int> buttons;  // IDOK, IDYES, IDNO, ..., from left to right
    int defaultButton = 0;
};

class WizardDriver {
public:
    // Starts the program and waits for its window. The process is ended with this object.
    explicit WizardDriver(const std::string& program, const std::string& workingFolder = {});
    // Takes over a program just started, and its handles.
    explicit WizardDriver(const PROCESS_INFORMATION& started);
    ~WizardDriver();
    WizardDriver(const WizardDriver&) = delete;
    WizardDriver& operator=(const WizardDriver&) = delete;

    // What the window shows.
    HWND window() const { return window_; }
    HANDLE process() const { return process_.hProcess; }
    std::string title() const;
    int currentPanel() const;
    std::string currentPanelName() const;
    std::vector<int> visiblePanels() const;
    HWND panelWindow(int panel) const;
    std::vector<ControlView> controls() const;                // every native child at any depth
    std::vector<ControlView> visibleControls() const;         // those on the screen
    std::vector<ControlView> panelControls() const;           // those on the current panel
    ControlView frameButton(std::string_view caption) const;  // visible or not
    ControlView button(std::string_view caption) const;       // visible, with that very caption
    std::vector<ControlView> textBoxes() const;               // of the current panel, from the top
    std::string fieldText(std::size_t index) const;
    bool shows(std::string_view text) const;  // a visible control has exactly this text
    bool dialogShows(HWND dialog, std::string_view text) const;
    bool isChosen(std::string_view option) const;
    HWND focus() const;
    bool hasAllSelected(const ControlView& textBox) const;
    int progressWidth() const;
    std::string describe() const;

    // What a user does.
    void click(std::string_view caption) const;
    void click(const ControlView& control) const;
    void doubleClick(std::string_view caption) const;  // as quick as can be
    void clickPictureButtonBeside(std::string_view label) const;
    void clickBrowseButton(std::size_t index) const;
    void clickTitleBar() const;
    void leaveAndReturn() const;  // to another program's window and back
    void choose(std::string_view option) const;
    void type(std::size_t index, std::string_view text) const;
    void typeAtFocus(std::string_view text) const;
    void clearField(std::size_t index) const;
    void fillField(std::size_t index, std::string_view text) const;
    void press(WORD key) const;
    void pressWith(WORD modifier, WORD key) const;
    // A key that is held down is pressed once and then repeated by the keyboard.
    void hold(WORD key, int repeats) const;
    void holdWith(WORD modifier, WORD key, int repeats) const;
    void closeWindow() const;

    // What a user waits for.
    void waitForPanel(int panel) const;
    void waitForOperationEnd() const;
    void waitForFocus(HWND control) const;
    HWND waitForFocusOtherThan(HWND control) const;
    void waitForChoice(std::string_view option) const;
    MessageBoxView waitForMessageBox() const;
    MessageBoxView waitForMessageBoxOfAnySize() const;  // its handle only
    void answer(const MessageBoxView& box, int button) const;
    void pressIn(const MessageBoxView& box, WORD key) const;
    HWND waitForFolderBrowser() const;
    bool chooseOnDesktop(HWND browser, int index) const;  // whether it is a folder
    void leaveFolderBrowser(HWND browser, int button) const;
    DWORD waitForExit() const;
    bool hasEnded() const;

    // Brings the window to the front, as for a picture of it.
    void comeToFront() const { comeToFront(window_); }

    // The window as it is on the screen, as a PNG.
    void savePicture(const std::string& path) const;

private:
    void waitUntil(const std::function<bool()>& condition, const std::string& what) const;
    void waitForHandler() const;
    void comeToFront(HWND target) const;
    void clickAt(HWND target) const;
    bool waitForCapture(HWND target) const;
    void sendKey(WORD key, bool up) const;
    void waitForClose(HWND dialog) const;
    std::optional<HWND> findDialog() const;
    bool findPanels();
    std::vector<ControlView> shownChildren() const;
    std::vector<ControlView> shownChildren(const std::vector<HWND>& parents) const;
    void waitForChoice(const ControlView& option) const;
    [[noreturn]] void fail(const std::string& what) const;

    PROCESS_INFORMATION process_{};
    HWND window_ = nullptr;
    // Those at any depth, with what is known of them for good.
    mutable std::vector<ControlView> children_;
    std::array<HWND, kPanelCount> panels_{};  // by panel number
};

}  // namespace kv::endtoend
