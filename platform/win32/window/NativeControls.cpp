#include "platform/win32/window/NativeControls.h"

#include <algorithm>
#include <utility>

#include "platform/win32/system/Errors.h"
#include "platform/win32/system/Text.h"
#include "platform/win32/window/OptionFocus.h"

namespace kv {
namespace {

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

bool isOption(const Control& control) { return control.kind() == ControlKind::OptionButton; }

// What the control's state at its making adds to its kind. A panel is shown when all is on it, so
// that nothing is drawn piece by piece.
DWORD stateStyle(const Control& control) {
    DWORD style = 0;
    if (isOption(control) && control.group().front() == &control) style |= WS_GROUP | WS_TABSTOP;
    if (control.visible() && !isPanel(control)) style |= WS_VISIBLE;
    if (!control.enabled()) style |= WS_DISABLED;
    return style;
}

void setTabStop(HWND window, bool on) {
    const LONG_PTR present = GetWindowLongPtrW(window, GWL_STYLE);
    SetWindowLongPtrW(window, GWL_STYLE, on ? present | WS_TABSTOP : present & ~WS_TABSTOP);
}

void showIcon(NativeControl& button, int size) {
    Icon icon = makeIcon(button.control->picture(), size, size);
    SendMessageW(button.window, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    button.icon = std::move(icon);
}

void showBitmap(NativeControl& box, int width, int height) {
    GdiObject bitmap = makeBitmap(box.control->picture(), width, height);
    SendMessageW(box.window, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap.get()));
    // A control may show a copy, and then leaves it to the program to delete that too.
    const auto shown =
        reinterpret_cast<HGDIOBJ>(SendMessageW(box.window, STM_GETIMAGE, IMAGE_BITMAP, 0));
    if (shown != nullptr && shown != bitmap.get()) bitmap.reset(shown);
    box.bitmap = std::move(bitmap);
}

}  // namespace

void NativeControls::make(HWND frame, int dpi) {
    frame_ = frame;
    dpi_ = dpi;
    loadFonts();
    for (Control* control : form_.controls())
        if (control->parent() == nullptr && !isPanel(*control)) makeControl(*control);
}

bool NativeControls::makeNextPanel() {
    for (Control* control : form_.controls()) {
        if (!isPanel(*control) || windowOf(*control) != nullptr) continue;
        makePanel(*control);
        return true;
    }
    return false;
}

void NativeControls::makeVisiblePanels() {
    for (Control* control : form_.controls())
        if (control->visible() && isPanel(*control) && windowOf(*control) == nullptr)
            makePanel(*control);
}

void NativeControls::makePanel(Control& panel) {
    makeControl(panel);
    layUnderEarlier(panel);
    for (Control* control : form_.controls())
        if (control->parent() == &panel) makeControl(*control);
    for (Control* control : form_.controls())
        if (control->parent() == &panel && control->value()) applyValue(*control);
    if (panel.visible()) apply(panel, Property::Visible);
}

// An earlier control lies over a later one and is visited before it. A new window comes last of
// all, which is wrong for a panel whose turn was earlier.
void NativeControls::layUnderEarlier(const Control& panel) const {
    HWND earlier = HWND_TOP;
    for (const Control* control : form_.controls()) {
        if (control == &panel) break;
        const HWND made = windowOf(*control);
        if (control->parent() == nullptr && made != nullptr) earlier = made;
    }
    SetWindowPos(windowOf(panel), earlier, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void NativeControls::makeControl(Control& control) {
    const HWND window = makeWindow(control);
    children_.push_back({&control, window});
    dress(children_.back());
    accessibility_.annotate(control, window);
    if (isOption(control)) watchFocus(window);
    if (control.kind() == ControlKind::TextBox) SendMessageW(window, EM_SETLIMITTEXT, 0, 0);
}

HWND NativeControls::makeWindow(const Control& control) const {
    const NativeKind& kind = nativeKind(control);
    const HWND parent = control.parent() != nullptr ? windowOf(*control.parent()) : frame_;
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | kind.style | stateStyle(control);
    const Place place = placeOf(control);
    const HWND window = CreateWindowExW(
        kind.extendedStyle, kind.className, toWide(control.text()).c_str(), style, place.left,
        place.top, place.width, place.height, parent,
        reinterpret_cast<HMENU>(identifierOf(control)), GetModuleHandleW(nullptr), nullptr);
    if (window == nullptr) throwLastError();
    return window;
}

INT_PTR NativeControls::identifierOf(const Control& control) const {
    const auto controls = form_.controls();
    return kFirstIdentifier + (std::ranges::find(controls, &control) - controls.begin());
}

HWND NativeControls::windowOf(const Control& control) const {
    const auto found = std::ranges::find(children_, &control, &NativeControl::control);
    return found != children_.end() ? found->window : nullptr;
}

Control* NativeControls::controlOf(HWND window) const {
    const auto found = std::ranges::find(children_, window, &NativeControl::window);
    return found != children_.end() ? found->control : nullptr;
}

bool NativeControls::isKind(HWND window, ControlKind kind) const {
    const Control* control = controlOf(window);
    return control != nullptr && control->kind() == kind;
}

void NativeControls::apply(Control& control, Property property) {
    const HWND window = windowOf(control);
    if (window == nullptr) {
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
            SetWindowTextW(window, toWide(control.text()).c_str());
            break;
        case Property::Value: applyValue(control); break;
        case Property::Enabled: EnableWindow(window, control.enabled()); break;
        case Property::Visible:
            applyPlace(control, control.visible() ? SWP_SHOWWINDOW : SWP_HIDEWINDOW);
            break;
        case Property::AccessibleName:
        case Property::AccessibleValue: accessibility_.annotate(control, window); break;
        case Property::Default:
        case Property::Focus: break;
    }
}

// Nothing is thinner than a pixel: the box of a line has no height, or no width.
NativeControls::Place NativeControls::placeOf(const Control& control) const noexcept {
    const Box& box = control.box();
    return {pixels(box.left), pixels(box.top), std::max(pixels(box.width), 1),
            std::max(pixels(box.height), 1)};
}

void NativeControls::applyPlace(const Control& control, UINT flags) const {
    const Place place = placeOf(control);
    SetWindowPos(windowOf(control), nullptr, place.left, place.top, place.width, place.height,
                 kErasedLater | flags);
}

// A group of options is one stop of the Tab key: at the chosen option, or else at the first.
void NativeControls::applyValue(const Control& option) const {
    SendMessageW(windowOf(option), BM_SETCHECK, option.value() ? BST_CHECKED : BST_UNCHECKED, 0);
    const std::vector<Control*> group = option.group();
    const Control* chosen = form_.chosenOption(*option.parent());
    const Control* stop = chosen != nullptr ? chosen : group.front();
    for (const Control* one : group) setTabStop(windowOf(*one), one == stop);
}

void NativeControls::setResolution(int dpi) {
    dpi_ = dpi;
    loadFonts();
    for (const NativeControl& child : children_) apply(*child.control, Property::Box);
}

void NativeControls::loadFonts() {
    std::vector<GdiObject> fonts;
    for (const Font font : {Font::Normal, Font::Congratulation, Font::Title, Font::Welcome})
        fonts.push_back(makeFont(font, dpi_));
    fonts_.swap(fonts);
    for (NativeControl& child : children_) dress(child);  // the old fonts stay until none uses them
}

// Gives a control its font and its picture in the frame's resolution.
void NativeControls::dress(NativeControl& child) const {
    const Control& control = *child.control;
    const auto font = static_cast<std::size_t>(control.font());
    SendMessageW(child.window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_[font].get()), FALSE);
    if (control.picture().empty()) return;
    if (control.kind() == ControlKind::CommandButton)
        showIcon(child, pixels(kButtonPictureSize));
    else
        showBitmap(child, pixels(control.box().width), pixels(control.box().height));
}

}  // namespace kv
