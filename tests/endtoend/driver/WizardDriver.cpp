#include "tests/endtoend/driver/WizardDriver.h"

#include <algorithm>
#include <array>
#include <memory>
#include <sstream>
#include <utility>

#include <commctrl.h>

#include "tests/endtoend/driver/Evidence.h"
#include "tests/endtoend/driver/Pictures.h"
#include "tests/endtoend/driver/Starting.h"
#include "tests/endtoend/driver/Waiting.h"
#include "tests/endtoend/steps/PanelTexts.h"

namespace kv::endtoend {

namespace {

constexpr DWORD kTimeLimitMilliseconds = 15000;
constexpr DWORD kPollMilliseconds = 4;
constexpr DWORD kPressLimitMilliseconds = 2000;
constexpr int kPressesAtMost = 3;
constexpr UINT kAnswerLimitMilliseconds = 5000;
constexpr std::string_view kDialogClass = "#32770";
constexpr int kProgressLeft = 24;
constexpr int kProgressTop = 104;
constexpr int kProgressHeight = 17;

std::string classOf(HWND window) {
    std::array<char, 128> buffer{};
    GetClassNameA(window, buffer.data(), static_cast<int>(buffer.size()));
    return buffer.data();
}

// A text box keeps its content to itself and is asked; every other text the window manager knows,
// which is much quicker.
std::string contentOf(HWND textBox) {
    DWORD_PTR length = 0;
    if (SendMessageTimeoutA(textBox, WM_GETTEXTLENGTH, 0, 0, SMTO_NORMAL, kAnswerLimitMilliseconds,
                            &length) == 0)
        return {};
    std::string text(length + 1, '\0');
    DWORD_PTR copied = 0;
    if (SendMessageTimeoutA(textBox, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                            SMTO_NORMAL, kAnswerLimitMilliseconds, &copied) == 0)
        return {};
    text.resize(copied);
    return text;
}

std::string captionOf(HWND window) {
    std::array<char, 1024> buffer{};
    GetWindowTextA(window, buffer.data(), static_cast<int>(buffer.size()));
    return buffer.data();
}

LRESULT ask(HWND window, UINT message) {
    DWORD_PTR result = 0;
    SendMessageTimeoutA(window, message, 0, 0, SMTO_NORMAL, kAnswerLimitMilliseconds, &result);
    return static_cast<LRESULT>(result);
}

bool isOptionButton(LONG_PTR style) {
    const LONG_PTR type = style & BS_TYPEMASK;
    return type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON;
}

ControlKind kindOf(std::string_view className, LONG_PTR style) {
    if (className == "Static") return ControlKind::Label;
    if (className == "Edit") return ControlKind::TextBox;
    if (className == "Button")
        return isOptionButton(style) ? ControlKind::OptionButton : ControlKind::CommandButton;
    return ControlKind::Other;
}

Rectangle boxInParent(HWND window, HWND parent) {
    RECT box{};
    GetWindowRect(window, &box);
    MapWindowPoints(HWND_DESKTOP, parent, reinterpret_cast<POINT*>(&box), 2);
    return {box.left, box.top, box.right - box.left, box.bottom - box.top};
}

POINT centreOf(HWND window) {
    RECT box{};
    GetWindowRect(window, &box);
    return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

// A display that is still busy with a window that has just opened may put it before the other once
// more, so a single request would not always do.
bool inFront(HWND window) {
    if (GetForegroundWindow() != window) SetForegroundWindow(window);
    return GetForegroundWindow() == window;
}

ControlView unseen(HWND window) {
    ControlView view;
    view.handle = window;
    view.parent = GetAncestor(window, GA_PARENT);
    return view;
}

// Sees what stays as it is as long as the window lives, once.
void introduce(ControlView& view) {
    if (view.className.empty()) {
        view.className = classOf(view.handle);
        view.kind = kindOf(view.className, GetWindowLongPtrA(view.handle, GWL_STYLE));
    }
}

ControlView look(ControlView view) {
    introduce(view);
    HWND window = view.handle;
    view.text = view.kind == ControlKind::TextBox ? contentOf(window) : captionOf(window);
    view.box = boxInParent(window, view.parent);
    view.visible = IsWindowVisible(window) != FALSE;
    view.enabled = IsWindowEnabled(window) != FALSE;
    view.checked =
        view.kind == ControlKind::OptionButton && ask(window, BM_GETCHECK) == BST_CHECKED;
    return view;
}

// Whether a window whose parents are visible is visible too. To ask for the parents as well takes
// four times as long.
bool isShown(HWND window) { return (GetWindowLongPtrA(window, GWL_STYLE) & WS_VISIBLE) != 0; }

BOOL CALLBACK addTo(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> descendants(HWND window) {
    std::vector<HWND> found;
    EnumChildWindows(window, addTo, reinterpret_cast<LPARAM>(&found));
    return found;
}

std::vector<HWND> topWindowsOf(DWORD process) {
    std::vector<HWND> windows;
    EnumWindows(addTo, reinterpret_cast<LPARAM>(&windows));
    std::erase_if(windows, [process](HWND window) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        return owner != process || !IsWindowVisible(window);
    });
    return windows;
}

std::vector<ControlView> look(std::vector<ControlView> views) {
    std::transform(views.begin(), views.end(), views.begin(),
                   [](ControlView& view) { return look(std::move(view)); });
    return views;
}

std::vector<ControlView> lookAtAllIn(HWND window) {
    std::vector<ControlView> views;
    for (HWND child : descendants(window)) views.push_back(look(unseen(child)));
    return views;
}

void sendInput(std::vector<INPUT> events) {
    SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
}

INPUT mouseEvent(POINT place, DWORD flags) {
    INPUT event{};
    event.type = INPUT_MOUSE;
    // Each question is three requests.
    static const LONG width = GetSystemMetrics(SM_CXSCREEN);
    static const LONG height = GetSystemMetrics(SM_CYSCREEN);
    event.mi.dx = (place.x * 65536 + width - 1) / width;
    event.mi.dy = (place.y * 65536 + height - 1) / height;
    event.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
    return event;
}

INPUT keyEvent(WORD key, WORD character, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = character;
    event.ki.dwFlags = flags;
    return event;
}

void sendText(std::string_view text) {
    std::vector<INPUT> events;
    for (const char character : text) {
        const WORD unit = static_cast<unsigned char>(character);
        events.push_back(keyEvent(0, unit, KEYEVENTF_UNICODE));
        events.push_back(keyEvent(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP));
    }
    if (!events.empty()) sendInput(std::move(events));
}

bool isExtendedKey(WORD key) {
    constexpr std::array<WORD, 8> kExtended{VK_HOME, VK_END,   VK_DELETE, VK_INSERT,
                                            VK_LEFT, VK_RIGHT, VK_UP,     VK_DOWN};
    return std::find(kExtended.begin(), kExtended.end(), key) != kExtended.end();
}

PROCESS_INFORMATION startProcess(const std::string& program, const std::string& workingFolder) {
    const char* folder = workingFolder.empty() ? nullptr : workingFolder.c_str();
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!starts([&] {
            return CreateProcessA(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                                  folder, &startup, &process);
        })) {
        throw DriverFailure("cannot start " + program + ", error " +
                            std::to_string(GetLastError()));
    }
    return process;
}

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string describeControl(const ControlView& view) {
    std::ostringstream out;
    out << "  " << view.className << " " << quoted(view.text) << " at (" << view.box.left << ", "
        << view.box.top << ") " << view.box.width << " x " << view.box.height
        << (view.enabled ? "" : ", disabled") << (view.checked ? ", chosen" : "") << "\n";
    return out.str();
}

}  // namespace

WizardDriver::WizardDriver(const std::string& program, const std::string& workingFolder)
    : WizardDriver(startProcess(program, workingFolder)) {}

WizardDriver::WizardDriver(const PROCESS_INFORMATION& started) : process_(started) {
    // Until it waits for its user. To look for its window meanwhile would only hold it up.
    WaitForInputIdle(process_.hProcess, kTimeLimitMilliseconds);
    waitUntil(
        [this] {
            for (HWND window : topWindowsOf(process_.dwProcessId))
                if (classOf(window) == kWindowClass) window_ = window;
            return window_ != nullptr;
        },
        "the wizard's window");
    waitUntil([this] { return findPanels(); }, "all panels");
    // It answers between two panels, so that the last one is complete now.
    ask(window_, WM_NULL);
    for (HWND child : descendants(window_)) children_.push_back(unseen(child));
    waitUntil([this] { return visiblePanels().size() == 1; }, "the first panel");
}

WizardDriver::~WizardDriver() {
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, kTimeLimitMilliseconds);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

// The wizard makes its panels as soon as it has nothing else to do, and only shows and hides them
// afterwards. Each request for another program's window takes its time, so none is made twice.
bool WizardDriver::findPanels() {
    for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (std::find(panels_.begin(), panels_.end(), child) != panels_.end()) continue;
        for (HWND inner : descendants(child)) {
            const auto name = std::find(kPanelNames.begin(), kPanelNames.end(), captionOf(inner));
            if (name != kPanelNames.end()) {
                panels_[static_cast<std::size_t>(name - kPanelNames.begin())] = child;
                break;
            }
        }
    }
    return std::find(panels_.begin(), panels_.end(), nullptr) == panels_.end();
}

// Those of the frame and of the panels that are visible; only what never changes is seen.
std::vector<ControlView> WizardDriver::shownChildren() const {
    std::vector<HWND> parents{window_};
    for (const int panel : visiblePanels()) parents.push_back(panelWindow(panel));
    return shownChildren(parents);
}

std::vector<ControlView> WizardDriver::shownChildren(const std::vector<HWND>& parents) const {
    std::vector<ControlView> shown;
    for (ControlView& child : children_) {
        if (std::find(parents.begin(), parents.end(), child.parent) != parents.end() &&
            isShown(child.handle)) {
            introduce(child);
            shown.push_back(child);
        }
    }
    return shown;
}

std::string WizardDriver::title() const { return captionOf(window_); }

HWND WizardDriver::panelWindow(int panel) const {
    return panels_.at(static_cast<std::size_t>(panel));
}

std::vector<int> WizardDriver::visiblePanels() const {
    std::vector<int> visible;
    for (int panel = 0; panel < kPanelCount; ++panel)
        if (panelWindow(panel) != nullptr && isShown(panelWindow(panel))) visible.push_back(panel);
    return visible;
}

int WizardDriver::currentPanel() const {
    const std::vector<int> visible = visiblePanels();
    if (visible.size() != 1) fail("not exactly one panel is visible");
    return visible.front();
}

std::string WizardDriver::currentPanelName() const {
    return std::string(kPanelNames.at(static_cast<std::size_t>(currentPanel())));
}

std::vector<ControlView> WizardDriver::controls() const { return look(children_); }

std::vector<ControlView> WizardDriver::visibleControls() const { return look(shownChildren()); }

std::vector<ControlView> WizardDriver::panelControls() const {
    return look(shownChildren({panelWindow(currentPanel())}));
}

ControlView WizardDriver::frameButton(std::string_view caption) const {
    for (const ControlView& child : children_)
        if (child.parent == window_ && captionOf(child.handle) == caption) return look(child);
    fail("no frame button " + quoted(caption));
}

ControlView WizardDriver::button(std::string_view caption) const {
    for (const ControlView& child : shownChildren())
        if (child.className == "Button" && captionOf(child.handle) == caption) return look(child);
    fail("no visible button " + quoted(caption));
}

std::vector<ControlView> WizardDriver::textBoxes() const {
    std::vector<ControlView> boxes = shownChildren({panelWindow(currentPanel())});
    std::erase_if(boxes, [](const ControlView& view) { return view.kind != ControlKind::TextBox; });
    boxes = look(std::move(boxes));
    std::sort(boxes.begin(), boxes.end(), [](const ControlView& one, const ControlView& other) {
        return one.box.top < other.box.top;
    });
    return boxes;
}

std::string WizardDriver::fieldText(std::size_t index) const {
    const std::vector<ControlView> boxes = textBoxes();
    if (index >= boxes.size()) fail("no text box " + std::to_string(index));
    return boxes[index].text;
}

bool WizardDriver::shows(std::string_view text) const {
    const std::vector<ControlView> children = shownChildren();
    return std::any_of(children.begin(), children.end(), [text](const ControlView& child) {
        return captionOf(child.handle) == text;
    });
}

bool WizardDriver::dialogShows(HWND dialog, std::string_view text) const {
    const std::vector<HWND> windows = descendants(dialog);
    return std::any_of(windows.begin(), windows.end(), [text](HWND window) {
        return IsWindowVisible(window) && captionOf(window) == text;
    });
}

bool WizardDriver::isChosen(std::string_view option) const { return button(option).checked; }

HWND WizardDriver::focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
    return info.hwndFocus;
}

bool WizardDriver::hasAllSelected(const ControlView& textBox) const {
    const auto selection = static_cast<DWORD>(ask(textBox.handle, EM_GETSEL));
    return LOWORD(selection) == 0 && HIWORD(selection) == textBox.text.size();
}

int WizardDriver::progressWidth() const {
    for (const ControlView& view : panelControls())
        if (view.text.empty() && view.box.left == kProgressLeft && view.box.top == kProgressTop &&
            view.box.height == kProgressHeight)
            return view.box.width;
    fail("no progress line");
}

std::string WizardDriver::describe() const {
    std::string text;
    for (int panel : visiblePanels())
        text += "panel " + std::string(kPanelNames.at(static_cast<std::size_t>(panel))) + "\n";
    for (HWND window : topWindowsOf(process_.dwProcessId)) {
        text += "window " + classOf(window) + " " + quoted(captionOf(window)) + "\n";
        for (const ControlView& view : lookAtAllIn(window))
            text += view.visible ? describeControl(view) : "";
    }
    return text.empty() ? "no window" : text;
}

void WizardDriver::fail(const std::string& what) const {
    std::string ended;
    DWORD code = STILL_ACTIVE;
    if (GetExitCodeProcess(process_.hProcess, &code) && code != STILL_ACTIVE)
        ended = "the program has ended with code " + std::to_string(code) + "\n";
    // Before the exception takes the wizard and its workplace away.
    const std::string evidence = keepEvidence();
    throw DriverFailure(what + "\n" + evidence + "\n" + ended + describe());
}

void WizardDriver::waitUntil(const std::function<bool()>& condition,
                             const std::string& what) const {
    const ULONGLONG begin = GetTickCount64();
    while (!condition()) {
        if (GetTickCount64() - begin > kTimeLimitMilliseconds) fail("waited in vain for " + what);
        if (WaitForSingleObject(process_.hProcess, kPollMilliseconds) == WAIT_OBJECT_0) {
            if (condition()) return;
            fail("the program ended; waited for " + what);
        }
    }
}

void WizardDriver::comeToFront(HWND target) const {
    HWND top = GetAncestor(target, GA_ROOT);
    waitUntil([top] { return inFront(top); }, "the window in the foreground");
}

// A control that is pressed takes the mouse until it is let go. On a busy machine a press can get
// lost before it reaches a window that has just appeared; the button is let go only when the press
// has arrived, and pressed again when it has not.
void WizardDriver::clickAt(HWND target) const {
    comeToFront(target);
    const POINT place = centreOf(target);
    for (int attempt = 0; attempt < kPressesAtMost; ++attempt) {
        sendInput({mouseEvent(place, 0), mouseEvent(place, MOUSEEVENTF_LEFTDOWN)});
        const bool arrived = !IsWindowEnabled(target) || waitForCapture(target);
        sendInput({mouseEvent(place, MOUSEEVENTF_LEFTUP)});
        if (arrived) return;
    }
    fail("the mouse does not reach " + quoted(captionOf(target)));
}

bool WizardDriver::waitForCapture(HWND target) const {
    const DWORD thread = GetWindowThreadProcessId(target, nullptr);
    return comesTrue(
        [&] {
            GUITHREADINFO info{};
            info.cbSize = sizeof info;
            return GetGUIThreadInfo(thread, &info) && info.hwndCapture == target;
        },
        kPressLimitMilliseconds);
}

void WizardDriver::click(const ControlView& control) const {
    if (control.enabled && WindowFromPoint(centreOf(control.handle)) != control.handle)
        fail(quoted(control.text) + " is covered or off the screen");
    clickAt(control.handle);
}

void WizardDriver::click(std::string_view caption) const { click(button(caption)); }

void WizardDriver::doubleClick(std::string_view caption) const {
    comeToFront(window_);
    const POINT place = centreOf(button(caption).handle);
    sendInput({mouseEvent(place, 0), mouseEvent(place, MOUSEEVENTF_LEFTDOWN),
               mouseEvent(place, MOUSEEVENTF_LEFTUP), mouseEvent(place, MOUSEEVENTF_LEFTDOWN),
               mouseEvent(place, MOUSEEVENTF_LEFTUP)});
}

void WizardDriver::clickTitleBar() const {
    comeToFront(window_);
    RECT frame{};
    GetWindowRect(window_, &frame);
    const POINT place{
        (frame.left + frame.right) / 2,
        frame.top + GetSystemMetrics(SM_CYFIXEDFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2};
    sendInput({mouseEvent(place, 0), mouseEvent(place, MOUSEEVENTF_LEFTDOWN),
               mouseEvent(place, MOUSEEVENTF_LEFTUP)});
}

// The other window is hidden, and so takes the focus without any help of a display that would tell
// of it late.
void WizardDriver::leaveAndReturn() const {
    HWND other =
        CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    waitUntil([&] { return inFront(other) && focus() == nullptr; }, "the window without the focus");
    comeToFront(window_);
    waitForFocusOtherThan(nullptr);
    DestroyWindow(other);
}

void WizardDriver::clickPictureButtonBeside(std::string_view label) const {
    const std::vector<ControlView> views = panelControls();
    const auto beside = std::find_if(views.begin(), views.end(), [label](const ControlView& view) {
        return view.text == label;
    });
    if (beside == views.end()) fail("no label " + quoted(label));
    const int middle = beside->box.top + beside->box.height / 2;
    for (const ControlView& view : views) {
        if (view.kind == ControlKind::CommandButton && view.text.empty() &&
            view.box.top <= middle && middle < view.box.bottom()) {
            click(view);
            return;
        }
    }
    fail("no picture button beside " + quoted(label));
}

void WizardDriver::clickBrowseButton(std::size_t index) const {
    std::vector<ControlView> buttons = panelControls();
    std::erase_if(buttons, [](const ControlView& view) { return view.text != kBrowse; });
    std::sort(buttons.begin(), buttons.end(), [](const ControlView& one, const ControlView& other) {
        return one.box.top < other.box.top;
    });
    if (index >= buttons.size()) fail("no browse button " + std::to_string(index));
    click(buttons[index]);
}

void WizardDriver::choose(std::string_view option) const {
    const ControlView view = button(option);
    click(view);
    waitForChoice(view);
}

void WizardDriver::type(std::size_t index, std::string_view text) const {
    const std::vector<ControlView> boxes = textBoxes();
    if (index >= boxes.size()) fail("no text box " + std::to_string(index));
    const ControlView& box = boxes[index];
    click(box);
    waitForFocus(box.handle);
    press(VK_END);
    sendText(text);
    const std::string expected = box.text + std::string(text);
    waitUntil([&box, &expected] { return contentOf(box.handle) == expected; },
              "the typed text " + quoted(expected));
}

// Over what is selected.
void WizardDriver::typeAtFocus(std::string_view text) const {
    comeToFront(window_);
    HWND box = focus();
    sendText(text);
    waitUntil([box, text] { return contentOf(box) == text; }, "the typed text " + quoted(text));
}

void WizardDriver::clearField(std::size_t index) const {
    const HWND box = textBoxes().at(index).handle;
    // As a user would, tries again when the keys had no effect: on a busy machine one may get lost.
    constexpr ULONGLONG kTryAgainMilliseconds = 1000;
    ULONGLONG tried = 0;
    waitUntil(
        [&] {
            if (contentOf(box).empty()) return true;
            if (GetTickCount64() - tried > kTryAgainMilliseconds) {
                type(index, "");
                press(VK_HOME);
                pressWith(VK_SHIFT, VK_END);
                press(VK_DELETE);
                tried = GetTickCount64();
            }
            return false;
        },
        "the emptied text box");
}

void WizardDriver::fillField(std::size_t index, std::string_view text) const {
    if (!fieldText(index).empty()) clearField(index);
    type(index, text);
}

void WizardDriver::sendKey(WORD key, bool up) const {
    const auto scan = static_cast<WORD>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC));
    sendInput({keyEvent(
        key, scan,
        (isExtendedKey(key) ? KEYEVENTF_EXTENDEDKEY : 0U) | (up ? KEYEVENTF_KEYUP : 0U))});
}

void WizardDriver::press(WORD key) const {
    comeToFront(window_);
    sendKey(key, false);
    sendKey(key, true);
}

void WizardDriver::pressWith(WORD modifier, WORD key) const {
    comeToFront(window_);
    sendKey(modifier, false);
    sendKey(key, false);
    sendKey(key, true);
    sendKey(modifier, true);
}

void WizardDriver::hold(WORD key, int repeats) const {
    comeToFront(window_);
    for (int count = 0; count <= repeats; ++count) sendKey(key, false);
    sendKey(key, true);
}

void WizardDriver::holdWith(WORD modifier, WORD key, int repeats) const {
    comeToFront(window_);
    sendKey(modifier, false);
    hold(key, repeats);
    sendKey(modifier, true);
}

void WizardDriver::closeWindow() const { PostMessageA(window_, WM_SYSCOMMAND, SC_CLOSE, 0); }

void WizardDriver::waitForPanel(int panel) const {
    waitUntil(
        [this, panel] {
            return isShown(panelWindow(panel)) && visiblePanels() == std::vector<int>{panel};
        },
        "panel " + std::string(kPanelNames.at(static_cast<std::size_t>(panel))));
    waitForHandler();
}

// A message is answered only when the click that is being handled has been handled to its end.
void WizardDriver::waitForHandler() const {
    DWORD_PTR ignored = 0;
    if (SendMessageTimeoutA(window_, WM_NULL, 0, 0, SMTO_NORMAL, kTimeLimitMilliseconds,
                            &ignored) == 0)
        fail("the window does not answer");
}

void WizardDriver::waitForOperationEnd() const {
    waitForPanel(11);
    HWND finish = frameButton(kFinish).handle;
    waitUntil([finish] { return IsWindowEnabled(finish) != FALSE; }, "the end of the operation");
}

void WizardDriver::waitForFocus(HWND control) const {
    waitUntil([this, control] { return focus() == control; }, "the focus");
}

HWND WizardDriver::waitForFocusOtherThan(HWND control) const {
    HWND focused = nullptr;
    waitUntil(
        [this, control, &focused] {
            focused = focus();
            return focused != nullptr && focused != control;
        },
        "the focus to move");
    return focused;
}

void WizardDriver::waitForChoice(std::string_view option) const { waitForChoice(button(option)); }

void WizardDriver::waitForChoice(const ControlView& option) const {
    waitUntil([&option] { return ask(option.handle, BM_GETCHECK) == BST_CHECKED; },
              "the choice of " + quoted(option.text));
}

std::optional<HWND> WizardDriver::findDialog() const {
    for (HWND window : topWindowsOf(process_.dwProcessId))
        if (classOf(window) == kDialogClass) return window;
    return std::nullopt;
}

MessageBoxView WizardDriver::waitForMessageBoxOfAnySize() const {
    MessageBoxView box;
    waitUntil(
        [this, &box] {
            box.handle = findDialog().value_or(nullptr);
            return box.handle != nullptr;
        },
        "a message box");
    return box;
}

MessageBoxView WizardDriver::waitForMessageBox() const {
    MessageBoxView box = waitForMessageBoxOfAnySize();
    box.title = captionOf(box.handle);
    HWND iconPlace = nullptr;
    std::vector<ControlView> views = lookAtAllIn(box.handle);
    std::sort(views.begin(), views.end(), [](const ControlView& one, const ControlView& other) {
        return one.box.left < other.box.left;
    });
    for (const ControlView& view : views) {
        const bool isIcon = view.kind == ControlKind::Label &&
                            (GetWindowLongPtrA(view.handle, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
        if (isIcon && view.visible) {
            iconPlace = view.handle;
        } else if (view.kind == ControlKind::Label && !isIcon && !view.text.empty()) {
            box.text = view.text;
        } else if (view.kind == ControlKind::CommandButton && view.visible) {
            const int button = GetDlgCtrlID(view.handle);
            box.buttons.push_back(button);
            if ((GetWindowLongPtrA(view.handle, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON)
                box.defaultButton = button;
        }
    }
    if (iconPlace != nullptr) {
        waitUntil(
            [&box, iconPlace] {
                box.icon = iconOnScreen(iconPlace);
                return box.icon != BoxIcon::None;
            },
            "the message box's icon");
    }
    if (!IsWindow(box.handle)) fail("a message box went again by itself");
    return box;
}

void WizardDriver::answer(const MessageBoxView& box, int button) const {
    HWND pressed = GetDlgItem(box.handle, button);
    if (pressed == nullptr) fail("the message box has no button " + std::to_string(button));
    clickAt(pressed);
    waitForClose(box.handle);
    // What the wizard does after the message, such as moving the focus, comes before the user's
    // next action. A message that ends the program leaves nobody to answer.
    DWORD_PTR ignored = 0;
    SendMessageTimeoutA(window_, WM_NULL, 0, 0, SMTO_NORMAL, kTimeLimitMilliseconds, &ignored);
}

void WizardDriver::pressIn(const MessageBoxView& box, WORD key) const {
    comeToFront(box.handle);
    sendKey(key, false);
    sendKey(key, true);
    waitForClose(box.handle);
}

// The program may end with the dialog's answer.
void WizardDriver::waitForClose(HWND dialog) const {
    if (!comesTrue([dialog] { return !IsWindow(dialog); }, kTimeLimitMilliseconds))
        fail("the dialog stays");
}

HWND WizardDriver::waitForFolderBrowser() const {
    HWND browser = nullptr;
    waitUntil(
        [this, &browser] {
            browser = findDialog().value_or(nullptr);
            return browser != nullptr && GetDlgItem(browser, IDCANCEL) != nullptr &&
                   IsWindowVisible(GetDlgItem(browser, IDCANCEL));
        },
        "the folder browser");
    return browser;
}

bool WizardDriver::chooseOnDesktop(HWND browser, int index) const {
    HWND tree = nullptr;
    for (HWND window : descendants(browser)) tree = classOf(window) == WC_TREEVIEWA ? window : tree;
    const auto neighbour = [tree](UINT which, LRESULT item) {
        return SendMessageA(tree, TVM_GETNEXTITEM, which, item);
    };
    const LRESULT desktop = neighbour(TVGN_ROOT, 0);
    SendMessageA(tree, TVM_EXPAND, TVE_EXPAND, desktop);
    LRESULT item = neighbour(TVGN_CHILD, desktop);
    for (int i = 0; i < index && item != 0; ++i) item = neighbour(TVGN_NEXT, item);
    if (item == 0) fail("no item " + std::to_string(index) + " on the desktop");
    SendMessageA(tree, TVM_SELECTITEM, TVGN_CARET, item);
    return IsWindowEnabled(GetDlgItem(browser, IDOK)) != FALSE;
}

void WizardDriver::leaveFolderBrowser(HWND browser, int button) const {
    clickAt(GetDlgItem(browser, button));
    waitForClose(browser);
}

DWORD WizardDriver::waitForExit() const {
    if (WaitForSingleObject(process_.hProcess, kTimeLimitMilliseconds) != WAIT_OBJECT_0)
        fail("the program does not end");
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

bool WizardDriver::hasEnded() const {
    return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0;
}

void WizardDriver::savePicture(const std::string& path) const {
    comeToFront(window_);
    saveWindowPicture(window_, path);
}

}  // namespace kv::endtoend
