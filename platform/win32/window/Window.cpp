#include "platform/win32/window/Window.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/win32/system/Errors.h"
#include "platform/win32/system/SystemLibrary.h"
#include "platform/win32/system/Text.h"
#include "platform/win32/window/OptionFocus.h"

namespace kv {
namespace {

constexpr const wchar_t* kPanelClass = L"kvPanel";
constexpr DWORD kFrameStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
constexpr int kApplicationIcon = 1;         // in the resources
constexpr INT_PTR kFirstIdentifier = 1000;  // of the form's first control; the others follow
constexpr Twips kButtonPictureSize = 480;   // a button's picture is square and leaves a margin

// A change of place is erased and drawn together with all others, when the window is painted.
constexpr UINT kErasedLater = SWP_NOZORDER | SWP_NOACTIVATE | SWP_DEFERERASE;

struct NativeKind {
    const wchar_t* className;
    DWORD style;
    DWORD extendedStyle;
};

// By ControlKind.
constexpr NativeKind kNativeKinds[] = {
    {L"STATIC", SS_LEFT | SS_NOPREFIX, 0},
    {L"EDIT", WS_TABSTOP | WS_GROUP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE},
    {L"BUTTON", BS_RADIOBUTTON | BS_NOTIFY, 0},
    {L"BUTTON", WS_TABSTOP | WS_GROUP | BS_PUSHBUTTON | BS_NOTIFY, 0},
    {L"STATIC", SS_BITMAP, 0},
    {L"STATIC", SS_LEFT, 0},
};
constexpr NativeKind kPictureButton{L"BUTTON",
                                    WS_TABSTOP | WS_GROUP | BS_PUSHBUTTON | BS_NOTIFY | BS_ICON, 0};
constexpr NativeKind kPanel{kPanelClass, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};

const NativeKind& nativeKind(const Control& control) {
    if (isPanel(control)) return kPanel;
    if (control.kind() == ControlKind::CommandButton && !control.picture().empty())
        return kPictureButton;
    return kNativeKinds[static_cast<std::size_t>(control.kind())];
}

// The system's resolution, or the window's own where the system knows windows of different ones.
int dpiOf(HWND window) {
    SystemLibrary user32(L"user32.dll");
    if (const auto ask = user32.function<UINT WINAPI(HWND)>("GetDpiForWindow"))
        if (const UINT dpi = ask(window)) return static_cast<int>(dpi);
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void setStyle(HWND window, LONG_PTR style, bool on) {
    const LONG_PTR present = GetWindowLongPtrW(window, GWL_STYLE);
    SetWindowLongPtrW(window, GWL_STYLE, on ? present | style : present & ~style);
}

SIZE sizeOf(const RECT& rectangle) {
    return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

}  // namespace

Window::Window(Form& form, ComApartment& com, const wchar_t* className, WindowSize size)
    : form_(form), size_(size), accessibility_(com) {
    registerClasses(className);
    window_ =
        CreateWindowExW(WS_EX_CONTROLPARENT, className, toWide(form.caption()).c_str(),
                        kFrameStyle | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (window_ == nullptr) throwLastError();
    dpi_ = dpiOf(window_);
    loadFonts();
    for (Control* control : form.controls())
        if (control->parent() == nullptr && !isPanel(*control)) createControl(*control);
    applyDefaultButton();
    applySize();
    centre();
    form.observe(this);
}

Window::~Window() {
    form_.observe(nullptr);
    if (window_ != nullptr) DestroyWindow(window_);
}

HWND Window::handleOf(const Control& control) const {
    const auto found = std::ranges::find(children_, &control, &Child::control);
    return found != children_.end() ? found->window : nullptr;
}

void Window::registerClasses(const wchar_t* className) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = windowProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    // The colour's number, not a brush of it: that would stay as it is when the colours change.
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(INT_PTR{COLOR_BTNFACE} + 1);
    windowClass.lpszClassName = kPanelClass;
    RegisterClassExW(&windowClass);  // fails harmlessly when a window of before has done so

    windowClass.hIcon = LoadIconW(windowClass.hInstance, MAKEINTRESOURCEW(kApplicationIcon));
    windowClass.lpszClassName = className;
    RegisterClassExW(&windowClass);
}

bool Window::makeNextPanel() {
    for (Control* control : form_.controls()) {
        if (!isPanel(*control) || handleOf(*control) != nullptr) continue;
        makePanel(*control);
        return true;
    }
    return false;
}

// It is shown when all is on it, so that nothing is drawn piece by piece.
void Window::makePanel(Control& panel) {
    createControl(panel);
    layUnderEarlier(panel);
    const Control* chosen = nullptr;
    for (Control* control : form_.controls()) {
        if (control->parent() != &panel) continue;
        createControl(*control);
        if (control->value()) chosen = control;
    }
    if (chosen != nullptr) applyValue(*chosen);
    if (panel.visible()) apply(panel, Property::Visible);
}

// An earlier control lies over a later one and is visited before it. A new window comes last of
// all, which is wrong for a panel whose turn was earlier.
void Window::layUnderEarlier(const Control& panel) {
    HWND earlier = HWND_TOP;
    for (const Control* control : form_.controls()) {
        if (control == &panel) break;
        const HWND made = handleOf(*control);
        if (control->parent() == nullptr && made != nullptr) earlier = made;
    }
    SetWindowPos(handleOf(panel), earlier, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

// As the form has it now, but a panel hidden.
void Window::createControl(Control& control) {
    const NativeKind& kind = nativeKind(control);
    const HWND parent = control.parent() != nullptr ? handleOf(*control.parent()) : window_;
    const bool firstOption =
        control.kind() == ControlKind::OptionButton && control.group().front() == &control;
    const INT_PTR identifier = kFirstIdentifier + (std::ranges::find(form_.controls(), &control) -
                                                   form_.controls().begin());
    const Place place = placeOf(control);
    const bool visible = control.visible() && !isPanel(control);
    const HWND child = CreateWindowExW(
        kind.extendedStyle, kind.className, toWide(control.text()).c_str(),
        WS_CHILD | WS_CLIPSIBLINGS | kind.style | (firstOption ? WS_GROUP | WS_TABSTOP : 0) |
            (visible ? WS_VISIBLE : 0) | (control.enabled() ? 0 : WS_DISABLED),
        place.left, place.top, place.width, place.height, parent,
        reinterpret_cast<HMENU>(identifier), GetModuleHandleW(nullptr), this);
    if (child == nullptr) throwLastError();
    children_.push_back({&control, child});
    dress(children_.back());
    accessibility_.annotate(control, child);

    if (control.kind() == ControlKind::OptionButton) watchFocus(child);
    if (control.kind() == ControlKind::TextBox) SendMessageW(child, EM_SETLIMITTEXT, 0, 0);
}

void Window::loadFonts() {
    std::vector<GdiObject> fonts;
    for (const Font font : {Font::Normal, Font::Congratulation, Font::Title, Font::Welcome})
        fonts.push_back(makeFont(font, dpi_));
    fonts_.swap(fonts);
    for (Child& child : children_) dress(child);  // the old fonts stay until no control uses them
}

// Gives a control its font and its picture in the window's resolution.
void Window::dress(Child& child) {
    const auto font = static_cast<std::size_t>(child.control->font());
    SendMessageW(child.window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_[font].get()), FALSE);
    if (!child.control->picture().empty()) loadPicture(child);
}

void Window::loadPicture(Child& child) {
    const Control& control = *child.control;
    if (control.kind() == ControlKind::CommandButton) {
        const int size = pixels(kButtonPictureSize);
        Icon icon = makeIcon(control.picture(), size, size);
        SendMessageW(child.window, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
        child.icon = std::move(icon);
        return;
    }
    GdiObject bitmap =
        makeBitmap(control.picture(), pixels(control.box().width), pixels(control.box().height));
    SendMessageW(child.window, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap.get()));
    // A control may show a copy, and then leaves it to the program to delete that too.
    const auto shown =
        reinterpret_cast<HGDIOBJ>(SendMessageW(child.window, STM_GETIMAGE, IMAGE_BITMAP, 0));
    if (shown != nullptr && shown != bitmap.get()) bitmap.reset(shown);
    child.bitmap = std::move(bitmap);
}

void Window::run() {
    for (Control* control : form_.controls())
        if (control->visible() && isPanel(*control) && handleOf(*control) == nullptr)
            makePanel(*control);

    // An operation repaints what it changes, but answers no messages until it ends; on a slow disk
    // the system would take the window for dead and show a white one in its place.
    DisableProcessWindowsGhosting();
    ShowWindow(window_, SW_SHOWNORMAL);
    UpdateWindow(window_);

    MSG message;
    while (!failure_ && nextMessage(message)) {
        // To the system two quick clicks on a button are something else; to its user they are two.
        if (message.message == WM_LBUTTONDBLCLK && isKind(message.hwnd, ControlKind::CommandButton))
            message.message = WM_LBUTTONDOWN;
        if (onKey(message) || (window_ != nullptr && IsDialogMessageW(window_, &message))) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    if (failure_) std::rethrow_exception(failure_);
}

// While the user reads, the panels that have not been shown yet are made, one at a time.
bool Window::nextMessage(MSG& message) {
    while (window_ != nullptr && !PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) &&
           makeNextPanel()) {
    }
    return GetMessageW(&message, nullptr, 0, 0) > 0;
}

void Window::onChanged(Control& control, Property property) {
    if (window_ == nullptr) return;
    apply(control, property);
    const HWND child = handleOf(control);
    if (window_ == nullptr || child == nullptr) return;
    Accessibility::announce(control, child, property);
    if (control.visible()) progress_.paint(window_, property);
}

void Window::onClosed() {
    if (window_ != nullptr) DestroyWindow(window_);
}

// Nothing is thinner than a pixel: the box of a line has no height, or no width.
Window::Place Window::placeOf(const Control& control) const noexcept {
    const Box& box = control.box();
    return {pixels(box.left), pixels(box.top), std::max(pixels(box.width), 1),
            std::max(pixels(box.height), 1)};
}

// The one way of a change from the form to its window. What lies on a panel that has not been made
// yet comes with it, as the form then has it.
void Window::apply(Control& control, Property property) {
    const HWND child = handleOf(control);
    if (child == nullptr) {
        if (property == Property::Visible && control.visible() && isPanel(control))
            makePanel(control);
        return;
    }
    switch (property) {
        case Property::Box:
            // What is hidden goes to its place when it is shown.
            if (control.visible()) applyPlace(control, 0);
            break;
        case Property::Caption:
        case Property::Text:
            // A text box reports its new text back at once, so it is handed a copy.
            SetWindowTextW(child, toWide(control.text()).c_str());
            break;
        case Property::Value: applyValue(control); break;
        case Property::Enabled: EnableWindow(child, control.enabled()); break;
        case Property::Visible:
            applyPlace(control, control.visible() ? SWP_SHOWWINDOW : SWP_HIDEWINDOW);
            break;
        case Property::Default: applyDefaultButton(); break;
        case Property::Focus: applyFocus(control); break;
        case Property::AccessibleName:
        case Property::AccessibleValue: accessibility_.annotate(control, child); break;
    }
}

void Window::applyPlace(const Control& control, UINT flags) const {
    const Place place = placeOf(control);
    SetWindowPos(handleOf(control), nullptr, place.left, place.top, place.width, place.height,
                 kErasedLater | flags);
}

// A group of options is one stop of the Tab key: at the chosen option, or else at the first.
void Window::applyValue(const Control& option) const {
    SendMessageW(handleOf(option), BM_SETCHECK, option.value() ? BST_CHECKED : BST_UNCHECKED, 0);
    const std::vector<Control*> group = option.group();
    const auto chosen = std::ranges::find_if(group, &Control::value);
    const Control* stop = chosen != group.end() ? *chosen : group.front();
    for (const Control* one : group) setStyle(handleOf(*one), WS_TABSTOP, one == stop);
}

// The frame of the button that Enter presses.
void Window::applyDefaultButton() {
    const Control* button = enterButton();
    for (const auto& [control, child, bitmap, icon] : children_) {
        if (control->kind() != ControlKind::CommandButton) continue;
        const LONG_PTR style = GetWindowLongPtrW(child, GWL_STYLE);
        const LONG_PTR wanted = control == button ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        if ((style & BS_TYPEMASK) == wanted) continue;
        SendMessageW(child, BM_SETSTYLE,
                     static_cast<WPARAM>((style & 0xFFFF & ~BS_TYPEMASK) | wanted), FALSE);
        InvalidateRect(child, nullptr, TRUE);
    }
}

void Window::applyFocus(Control& control) {
    const HWND child = handleOf(control);
    lastFocus_ = child;
    if (GetActiveWindow() == window_) SetFocus(child);
    if (control.kind() == ControlKind::TextBox) SendMessageW(child, EM_SETSEL, 0, -1);
    applyDefaultButton();
}

LRESULT CALLBACK Window::windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    try {
        return self->handle(window, message, wParam, lParam);
    } catch (...) {
        // Nothing may be thrown through the system: the message loop throws it on.
        self->failure_ = std::current_exception();
        PostQuitMessage(1);
        return 0;
    }
}

// Messages of the window itself and of the panels in it.
LRESULT Window::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: onCommand(reinterpret_cast<HWND>(lParam), HIWORD(wParam)); return 0;
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<LRESULT>(
                onControlColour(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        case WM_GETOBJECT:
            // Somebody looks who needs more than captions: a screen reader, or a tool like one.
            if (accessibility_.enable()) annotateAll();
            break;
        default: break;
    }
    if (window != window_) return DefWindowProcW(window, message, wParam, lParam);

    switch (message) {
        case WM_ACTIVATE: onActivate(LOWORD(wParam) != WA_INACTIVE); return 0;
        case WM_SIZE:
            if (wParam == SIZE_RESTORED) applySize();
            return 0;
        case WM_GETMINMAXINFO:
            // The system would cut the window to the size of the screen.
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMaxTrackSize = {SHRT_MAX, SHRT_MAX};
            return 0;
        case WM_DPICHANGED:
            onDpiChanged(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return 0;
        case WM_SYSCOLORCHANGE: onColoursChanged(); return 0;
        case DM_GETDEFID:
            if (const Control* button = enterButton())
                return MAKELRESULT(GetDlgCtrlID(handleOf(*button)), DC_HASDEFID);
            return 0;
        case WM_CLOSE: form_.close(); return 0;
        case WM_ENDSESSION:
            if (wParam != FALSE) form_.close();
            return 0;
        case WM_DESTROY:
            for (const Child& child : children_) accessibility_.clear(child.window);
            window_ = nullptr;
            PostQuitMessage(0);
            return 0;
        default: return DefWindowProcW(window, message, wParam, lParam);
    }
}

void Window::onCommand(HWND child, unsigned notification) {
    Control* control = controlOf(child);
    if (control == nullptr) return;
    switch (notification) {
        case BN_CLICKED:
            if (!isTakingFocus(child)) control->click();
            break;
        case BN_SETFOCUS:
        case BN_KILLFOCUS: applyDefaultButton(); break;
        case EN_CHANGE: control->typed(fromWide(textOf(child))); break;
        default: break;
    }
}

void Window::onActivate(bool active) {
    if (!active) {
        if (Control* control = focused()) lastFocus_ = handleOf(*control);
    } else if (lastFocus_ != nullptr) {
        SetFocus(lastFocus_);
    }
}

void Window::onDpiChanged(int dpi, const RECT& suggested) {
    dpi_ = dpi;
    loadFonts();
    for (const Child& child : children_) apply(*child.control, Property::Box);
    SetWindowPos(window_, nullptr, suggested.left, suggested.top, 0, 0,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSIZE);
    applySize();
}

// Only the window itself is told, and controls may have kept brushes of the old colours.
void Window::onColoursChanged() const {
    for (const Child& child : children_) SendMessageW(child.window, WM_SYSCOLORCHANGE, 0, 0);
    RedrawWindow(window_, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

HBRUSH Window::onControlColour(HDC context, HWND child) const {
    const Control* control = controlOf(child);
    const Colour background = control != nullptr ? control->background() : Colour::Face;
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    SetBkColor(context, GetSysColor(systemColour(background)));
    return GetSysColorBrush(systemColour(background));
}

// What a key does to the form as a whole; all else goes the way of a dialogue box. A key that is
// held down presses nothing again: its first press may have led to another panel already.
bool Window::onKey(const MSG& message) {
    if (window_ == nullptr) return false;
    if (message.hwnd != window_ && IsChild(window_, message.hwnd) == FALSE) return false;
    const bool repeated = (HIWORD(message.lParam) & KF_REPEAT) != 0;
    switch (message.message) {
        case WM_KEYDOWN:
            if (!repeated) keyTarget_ = message.hwnd;
            return onKeyDown(message.wParam, repeated);
        case WM_SYSCHAR: return repeated;
        case WM_CHAR:
            // Letters are access keys but in a text box, which takes those that are meant for it.
            return repeated &&
                   !(message.hwnd == keyTarget_ && isKind(message.hwnd, ControlKind::TextBox));
        default: return false;
    }
}

bool Window::onKeyDown(WPARAM key, bool repeated) {
    try {
        switch (key) {
            case VK_RETURN:
                if (Control* button = enterButton(); button != nullptr && !repeated)
                    button->click();
                return true;
            case VK_ESCAPE:
                if (Control* button = form_.cancelButton(); button != nullptr && !repeated)
                    button->click();
                return true;
            case VK_F1:
                if (form_.onHelp && !repeated) form_.onHelp();
                return true;
            case VK_DOWN:
            case VK_RIGHT:
            case VK_UP:
            case VK_LEFT: {
                Control* control = focused();
                if (control == nullptr || control->kind() != ControlKind::OptionButton)
                    return false;
                const bool forward = key == VK_DOWN || key == VK_RIGHT;
                return moveInGroup(*control, forward ? 1 : -1);
            }
            default: return false;
        }
    } catch (...) {
        failure_ = std::current_exception();
        return true;
    }
}

// The arrow keys go round the options of a group and choose the one they reach.
bool Window::moveInGroup(Control& option, int step) {
    const std::vector<Control*> group = option.group();
    const auto count = static_cast<std::ptrdiff_t>(group.size());
    const auto position = std::ranges::find(group, &option) - group.begin();
    Control& next = *group[static_cast<std::size_t>((position + step + count) % count)];
    next.click();
    form_.setFocus(next);
    return true;
}

void Window::annotateAll() {
    for (const Child& child : children_) accessibility_.annotate(*child.control, child.window);
}

// The frame is measured, not computed: what it takes depends on the system's settings.
void Window::applySize() {
    if (IsIconic(window_) || IsZoomed(window_)) return;
    RECT outer, inner;
    GetWindowRect(window_, &outer);
    GetClientRect(window_, &inner);
    const int width = pixels(size_.outerWidth);
    const int height = sizeOf(outer).cy - sizeOf(inner).cy + pixels(size_.innerHeight);
    if (sizeOf(outer).cx != width || sizeOf(outer).cy != height)
        SetWindowPos(window_, nullptr, 0, 0, width, height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Window::centre() {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoW(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST), &monitor)) return;
    RECT outer;
    GetWindowRect(window_, &outer);
    const SIZE free{sizeOf(monitor.rcWork).cx - sizeOf(outer).cx,
                    sizeOf(monitor.rcWork).cy - sizeOf(outer).cy};
    SetWindowPos(window_, nullptr, monitor.rcWork.left + std::max(free.cx / 2, 0L),
                 monitor.rcWork.top + std::max(free.cy / 2, 0L), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

Control* Window::controlOf(HWND child) const {
    const auto found = std::ranges::find(children_, child, &Child::window);
    return found != children_.end() ? found->control : nullptr;
}

bool Window::isKind(HWND child, ControlKind kind) const {
    const Control* control = controlOf(child);
    return control != nullptr && control->kind() == kind;
}

Control* Window::focused() const { return controlOf(GetFocus()); }

// The focused button, or else the form's default.
Control* Window::enterButton() const {
    Control* control = focused();
    if (control != nullptr && control->kind() == ControlKind::CommandButton) return control;
    const auto standard = std::ranges::find_if(form_.controls(), &Control::isDefault);
    return standard != form_.controls().end() ? *standard : nullptr;
}

}  // namespace kv
