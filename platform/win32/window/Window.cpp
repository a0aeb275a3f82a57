#include "platform/win32/window/Window.h"

#include <algorithm>
#include <string>

#include "platform/win32/system/Errors.h"
#include "platform/win32/system/SystemLibrary.h"
#include "platform/win32/system/Text.h"
#include "platform/win32/window/OptionFocus.h"

namespace kv {
namespace {

constexpr DWORD kFrameStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
constexpr int kApplicationIcon = 1;  // in the resources

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

SIZE sizeOf(const RECT& rectangle) {
    return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

}  // namespace

Window::Window(Form& form, ComApartment& com, const wchar_t* className, WindowSize size)
    : form_(form),
      size_(size),
      accessibility_(com),
      controls_(form, accessibility_),
      keyboard_(form, controls_) {
    registerClasses(className);
    window_ =
        CreateWindowExW(WS_EX_CONTROLPARENT, className, toWide(form.caption()).c_str(),
                        kFrameStyle | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (window_ == nullptr) throwLastError();
    controls_.make(window_, dpiOf(window_));
    keyboard_.markEnterButton();
    applySize();
    centre();
    form.observe(this);
}

Window::~Window() {
    form_.observe(nullptr);
    if (window_ != nullptr) DestroyWindow(window_);
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

void Window::run() {
    controls_.makeVisiblePanels();

    // An operation repaints what it changes, but answers no messages until it ends; on a slow disk
    // the system would take the window for dead and show a white one in its place.
    DisableProcessWindowsGhosting();
    ShowWindow(window_, SW_SHOWNORMAL);
    UpdateWindow(window_);

    MSG message;
    while (!failure_ && nextMessage(message)) dispatch(message);
    if (failure_) std::rethrow_exception(failure_);
}

// While the user reads, the panels that have not been shown yet are made, one at a time.
bool Window::nextMessage(MSG& message) {
    while (window_ != nullptr && !PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) &&
           controls_.makeNextPanel()) {
    }
    return GetMessageW(&message, nullptr, 0, 0) > 0;
}

void Window::dispatch(MSG& message) {
    // To the system two quick clicks on a button are something else; to its user they are two.
    if (message.message == WM_LBUTTONDBLCLK &&
        controls_.isKind(message.hwnd, ControlKind::CommandButton))
        message.message = WM_LBUTTONDOWN;
    if (window_ != nullptr && keyboard_.takes(message)) return;
    if (window_ != nullptr && IsDialogMessageW(window_, &message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void Window::onChanged(Control& control, Property property) {
    if (window_ == nullptr) return;
    switch (property) {
        case Property::Default: return keyboard_.markEnterButton();
        case Property::Focus: return keyboard_.focus(control);
        default: controls_.apply(control, property);
    }
    const HWND child = handleOf(control);
    if (window_ == nullptr || child == nullptr) return;
    Accessibility::announce(control, child, property);
    if (control.visible()) progress_.paint(window_, property);
}

void Window::onClosed() {
    if (window_ != nullptr) DestroyWindow(window_);
}

// Of the frame and of the panels in it.
LRESULT CALLBACK Window::windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND frame = GetAncestor(window, GA_ROOT);
    if (message == WM_NCCREATE && window == frame) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(frame, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(frame, GWLP_USERDATA));
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

LRESULT Window::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: onCommand(reinterpret_cast<HWND>(lParam), HIWORD(wParam)); return 0;
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<LRESULT>(
                onControlColour(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        case WM_GETOBJECT: onLookedAt(); break;
        default: break;
    }
    if (window == window_) return handleOfFrame(message, wParam, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT Window::handleOfFrame(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ACTIVATE: keyboard_.onActivate(LOWORD(wParam) != WA_INACTIVE); return 0;
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
        case DM_GETDEFID: return enterButtonIdentifier();
        case WM_CLOSE: form_.close(); return 0;
        case WM_ENDSESSION:
            if (wParam != FALSE) form_.close();
            return 0;
        case WM_DESTROY: onDestroy(); return 0;
        default: return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void Window::onCommand(HWND child, unsigned notification) {
    Control* control = controls_.controlOf(child);
    if (control == nullptr) return;
    switch (notification) {
        case BN_CLICKED:
            if (!isTakingFocus(child)) control->click();
            break;
        case BN_SETFOCUS:
        case BN_KILLFOCUS: keyboard_.markEnterButton(); break;
        case EN_CHANGE: control->typed(fromWide(textOf(child))); break;
        default: break;
    }
}

HBRUSH Window::onControlColour(HDC context, HWND child) const {
    const Control* control = controls_.controlOf(child);
    const int background = systemColour(control != nullptr ? control->background() : Colour::Face);
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    SetBkColor(context, GetSysColor(background));
    return GetSysColorBrush(background);
}

// By somebody who needs more than captions: a screen reader, or a tool like one.
void Window::onLookedAt() {
    if (!accessibility_.enable()) return;
    for (const NativeControl& child : controls_.all())
        accessibility_.annotate(*child.control, child.window);
}

void Window::onDpiChanged(int dpi, const RECT& suggested) {
    controls_.setResolution(dpi);
    SetWindowPos(window_, nullptr, suggested.left, suggested.top, 0, 0,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSIZE);
    applySize();
}

// Only the window itself is told, and controls may have kept brushes of the old colours.
void Window::onColoursChanged() const {
    for (const NativeControl& child : controls_.all())
        SendMessageW(child.window, WM_SYSCOLORCHANGE, 0, 0);
    RedrawWindow(window_, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void Window::onDestroy() {
    for (const NativeControl& child : controls_.all()) accessibility_.clear(child.window);
    window_ = nullptr;
    PostQuitMessage(0);
}

LRESULT Window::enterButtonIdentifier() const {
    const Control* button = keyboard_.enterButton();
    if (button == nullptr) return 0;
    return MAKELRESULT(GetDlgCtrlID(handleOf(*button)), DC_HASDEFID);
}

// The frame is measured, not computed: what it takes depends on the system's settings.
void Window::applySize() {
    if (IsIconic(window_) || IsZoomed(window_)) return;
    RECT outer, inner;
    GetWindowRect(window_, &outer);
    GetClientRect(window_, &inner);
    const int width = controls_.pixels(size_.outerWidth);
    const int height = sizeOf(outer).cy - sizeOf(inner).cy + controls_.pixels(size_.innerHeight);
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

}  // namespace kv
