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
        for (const WPARAM key : {VK_RETURN, VK_ESCAPE, VK_F1}) postKey(form_.text, key, 5);
    runUntilPostedMessagesAreHandled();

    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(escapes, 2);
    EXPECT_EQ(helps, 2);
}

}  // namespace
}  // namespace kv
