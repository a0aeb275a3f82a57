#include "platform/win32/window/Keyboard.h"

#include "tests/platform/win32/SmallWindow.h"

namespace kv {
namespace {

using KeyboardTest = SmallWindow;

TEST_F(KeyboardTest, TheDefaultButtonAnswersForEnter) {
    form_.ok.setDefault(true);

    const LRESULT answer = SendMessageW(window_.handle(), DM_GETDEFID, 0, 0);

    EXPECT_EQ(HIWORD(answer), DC_HASDEFID);
    EXPECT_EQ(LOWORD(answer), GetDlgCtrlID(nativeOf(form_.ok)));
    EXPECT_EQ(GetWindowLongW(nativeOf(form_.ok), GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
}

TEST_F(KeyboardTest, EachPressOfEnterEscapeAndF1CountsOnceHoweverLongItIsHeld) {
    int clicks = 0, escapes = 0, helps = 0;
    form_.ok.onClick = [&] { ++clicks; };
    form_.cancel.onClick = [&] { ++escapes; };
    form_.onHelp = [&] { ++helps; };
    form_.ok.setDefault(true);

    for (int press = 0; press < 2; ++press)
        for (const WPARAM key : {VK_RETURN, VK_ESCAPE, VK_F1})
            postKey(nativeOf(form_.text), key, 5);
    runUntilPostedMessagesAreHandled();

    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(escapes, 2);
    EXPECT_EQ(helps, 2);
}

TEST_F(KeyboardTest, EnterEscapeAndF1WorkWhenTheWindowItselfHasTheKeyboard) {
    int clicks = 0, escapes = 0, helps = 0;
    form_.ok.onClick = [&] { ++clicks; };
    form_.cancel.onClick = [&] { ++escapes; };
    form_.onHelp = [&] { ++helps; };
    form_.ok.setDefault(true);

    for (const WPARAM key : {VK_RETURN, VK_ESCAPE, VK_F1}) postKey(window_.handle(), key);
    runUntilPostedMessagesAreHandled();

    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(escapes, 1);
    EXPECT_EQ(helps, 1);
}

TEST_F(KeyboardTest, WhatHasNoWindowYetTakesTheFocusFromNobody) {
    ComApartment com;
    const Window window(form_, com, L"kvPanelsNotMade", {8300, 5430});
    ShowWindow(window.handle(), SW_SHOWNORMAL);
    SetFocus(window.handleOf(form_.ok));
    ASSERT_EQ(GetFocus(), window.handleOf(form_.ok));

    form_.setFocus(form_.text);

    EXPECT_EQ(window.handleOf(form_.text), nullptr);
    EXPECT_EQ(GetFocus(), window.handleOf(form_.ok));
}

// Such as a message box of its own, which stands over it.
TEST_F(KeyboardTest, KeysOfAnotherWindowAreNotItsOwn) {
    int clicks = 0;
    form_.ok.onClick = [&] { ++clicks; };
    form_.ok.setDefault(true);
    const HWND other =
        CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);

    postKey(other, VK_RETURN);
    runUntilPostedMessagesAreHandled();

    EXPECT_EQ(clicks, 0);
    DestroyWindow(other);
}

}  // namespace
}  // namespace kv
