#include "platform/win32/window/Window.h"

#include <array>
#include <cstring>
#include <utility>

#include "common/RunTimeError.h"
#include "tests/platform/win32/SmallWindow.h"

namespace kv {
namespace {

class WindowTest : public SmallWindow {
protected:
    SIZE outerSize() const {
        RECT box;
        GetWindowRect(window_.handle(), &box);
        return {box.right - box.left, box.bottom - box.top};
    }

    void resize(LONG width, LONG height) const {
        SetWindowPos(window_.handle(), nullptr, 0, 0, width, height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    void expectSize(SIZE expected) const {
        EXPECT_EQ(outerSize().cx, expected.cx);
        EXPECT_EQ(outerSize().cy, expected.cy);
    }
};

TEST_F(WindowTest, WhatTheUserTypesReachesTheForm) {
    for (const char letter : {'D', ':', '\\', 'x'})
        SendMessageW(nativeOf(form_.text), WM_CHAR, static_cast<WPARAM>(letter), 0);

    EXPECT_EQ(form_.text.text(), "D:\\x");
}

TEST_F(WindowTest, ATextOf32767CharactersCanBeEntered) {
    const std::wstring longText(32767, L'x');

    SetWindowTextW(nativeOf(form_.text), longText.c_str());
    SendMessageW(nativeOf(form_.text), EM_SETSEL, 32767, 32767);
    SendMessageW(nativeOf(form_.text), WM_CHAR, 'y', 0);

    EXPECT_EQ(form_.text.text().size(), 32768u);
    EXPECT_EQ(form_.text.text().back(), 'y');
}

TEST_F(WindowTest, ACharacterThatTheCodePageLacksBecomesNoLookAlike) {
    SetWindowTextW(nativeOf(form_.text), L"C:\\w\u221E\uFF3Cx");

    EXPECT_EQ(form_.text.text(), "C:\\w??x");
}

TEST_F(WindowTest, AClickOnAnOptionTurnsItOnAndTheOthersOff) {
    click(form_.first);
    click(form_.second);

    EXPECT_FALSE(checked(form_.first));
    EXPECT_TRUE(checked(form_.second));
    EXPECT_TRUE(form_.second.value());
}

TEST_F(WindowTest, AClickedButtonRunsItsHandler) {
    int clicks = 0;
    form_.ok.onClick = [&] { ++clicks; };

    click(form_.ok);

    EXPECT_EQ(clicks, 1);
}

TEST_F(WindowTest, BackgroundsAreBrushesOfTheSystemsColours) {
    EXPECT_EQ(brushOf(form_.label), GetSysColorBrush(COLOR_BTNFACE));
    EXPECT_EQ(brushOf(form_.bar), GetSysColorBrush(COLOR_HIGHLIGHT));
    EXPECT_EQ(brushOf(form_.line), GetSysColorBrush(COLOR_BTNSHADOW));
    EXPECT_EQ(brushOf(form_.first), GetSysColorBrush(COLOR_BTNFACE));
}

TEST_F(WindowTest, ClosingTheWindowUnloadsTheFormOnceAndEndsItsRun) {
    int unloads = 0;
    form_.onUnload = [&] { ++unloads; };
    PostMessageW(window_.handle(), WM_CLOSE, 0, 0);
    PostMessageW(window_.handle(), WM_CLOSE, 0, 0);

    window_.run();

    EXPECT_EQ(unloads, 1);
    EXPECT_EQ(window_.handle(), nullptr);
}

TEST_F(WindowTest, TheEndOfTheSessionUnloadsTheForm) {
    int unloads = 0;
    form_.onUnload = [&] { ++unloads; };

    SendMessageW(window_.handle(), WM_QUERYENDSESSION, 0, 0);
    EXPECT_EQ(unloads, 0);
    SendMessageW(window_.handle(), WM_ENDSESSION, FALSE, 0);
    EXPECT_EQ(unloads, 0);
    SendMessageW(window_.handle(), WM_ENDSESSION, TRUE, 0);

    EXPECT_EQ(unloads, 1);
}

// As the system asks of whoever handles them.
TEST_F(WindowTest, HandledMessagesAreAnsweredWithZero) {
    RECT place{};
    MINMAXINFO sizes{};
    const std::pair<UINT, void*> messages[] = {
        {WM_COMMAND, nullptr},      {WM_ACTIVATE, nullptr},  {WM_SIZE, nullptr},
        {WM_GETMINMAXINFO, &sizes}, {WM_DPICHANGED, &place}, {WM_SYSCOLORCHANGE, nullptr},
        {WM_ENDSESSION, nullptr},   {WM_CLOSE, nullptr},
    };
    for (const auto& [message, data] : messages) {
        const WPARAM parameter = message == WM_DPICHANGED ? MAKEWPARAM(96, 96) : 0;
        EXPECT_EQ(
            SendMessageW(window_.handle(), message, parameter, reinterpret_cast<LPARAM>(data)), 0)
            << message;
    }
}

TEST_F(WindowTest, AFailureOfAHandlerComesOutOfTheRun) {
    form_.ok.onClick = [] { throw RunTimeError(ErrorNumber::SubscriptOutOfRange); };
    PostMessageW(window_.handle(), WM_COMMAND,
                 MAKEWPARAM(GetDlgCtrlID(nativeOf(form_.ok)), BN_CLICKED),
                 reinterpret_cast<LPARAM>(nativeOf(form_.ok)));

    int number = 0;
    try {
        window_.run();
    } catch (const RunTimeError& failure) {
        number = failure.number();
    }

    EXPECT_EQ(number, 9);
}

TEST_F(WindowTest, EveryPositionFollowsTheResolution) {
    RECT place;
    GetWindowRect(window_.handle(), &place);
    SendMessageW(window_.handle(), WM_DPICHANGED, MAKEWPARAM(144, 144),
                 reinterpret_cast<LPARAM>(&place));

    RECT box;
    GetWindowRect(nativeOf(form_.ok), &box);
    MapWindowPoints(nullptr, window_.handle(), reinterpret_cast<POINT*>(&box), 2);

    EXPECT_EQ(box.left, 300);
    EXPECT_EQ(box.top, 300);
    EXPECT_EQ(box.right - box.left, 110);
    EXPECT_EQ(box.bottom - box.top, 38);
}

TEST_F(WindowTest, AWidthOrAHeightThatIsWrongAloneIsPutRight) {
    const SIZE size = outerSize();
    ASSERT_EQ(size.cx, 8300 / 15);

    for (const LONG wrong : {-40, 40}) {
        resize(size.cx + wrong, size.cy);
        expectSize(size);
        resize(size.cx, size.cy + wrong);
        expectSize(size);
    }
}

TEST_F(WindowTest, AMaximisedOneIsNotSized) {
    ShowWindow(window_.handle(), SW_SHOWMAXIMIZED);
    ASSERT_TRUE(IsZoomed(window_.handle()));
    const SIZE maximised = outerSize();
    RECT place{};

    SendMessageW(window_.handle(), WM_DPICHANGED, MAKEWPARAM(144, 144),
                 reinterpret_cast<LPARAM>(&place));

    expectSize(maximised);
}

// A system whose windows have 144 dots per inch, whatever its own resolution: its function is
// overwritten by one that says so.
class WindowsOf144Dpi {
public:
    WindowsOf144Dpi()
        : function_(reinterpret_cast<void*>(
              GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow"))) {
        constexpr Code kReturn144{0xB8, 144, 0, 0, 0, 0xC3};  // mov eax, 144; ret
        std::memcpy(systems_.data(), function_, systems_.size());
        overwrite(kReturn144);
    }
    ~WindowsOf144Dpi() { overwrite(systems_); }
    WindowsOf144Dpi(const WindowsOf144Dpi&) = delete;
    WindowsOf144Dpi& operator=(const WindowsOf144Dpi&) = delete;

private:
    using Code = std::array<unsigned char, 6>;

    void overwrite(const Code& code) {
        DWORD protection = 0;
        VirtualProtect(function_, code.size(), PAGE_EXECUTE_READWRITE, &protection);
        std::memcpy(function_, code.data(), code.size());
        VirtualProtect(function_, code.size(), protection, &protection);
        FlushInstructionCache(GetCurrentProcess(), function_, code.size());
    }

    void* function_;
    Code systems_{};
};

TEST(WindowResolutionTest, IsTheWindowsOwnFromTheStart) {
    const WindowsOf144Dpi system;
    SmallForm form;
    ComApartment com;
    const Window window(form, com, L"kvResolutionTest", {8300, 5430});

    RECT outer, inner, button;
    GetWindowRect(window.handle(), &outer);
    GetClientRect(window.handle(), &inner);
    GetClientRect(window.handleOf(form.ok), &button);

    EXPECT_EQ(outer.right - outer.left, 830);
    EXPECT_EQ(inner.bottom, 543);
    EXPECT_EQ(button.right, 110);
    EXPECT_EQ(button.bottom, 38);
}

}  // namespace
}  // namespace kv
