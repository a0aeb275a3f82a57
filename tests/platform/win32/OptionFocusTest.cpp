#include "platform/win32/window/OptionFocus.h"

#include "tests/platform/win32/SmallWindow.h"

namespace kv {
namespace {

// A system on which an option says that it is clicked as soon as it gets the keyboard, as some do.
class EagerOptions {
public:
    EagerOptions() {
        WNDCLASSEXW eager = systems();
        eager.hInstance = GetModuleHandleW(nullptr);
        eager.lpszClassName = L"Button";
        eager.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
        eager.lpfnWndProc = procedure;
        RegisterClassExW(&eager);  // the program's own come before the system's
    }
    ~EagerOptions() { UnregisterClassW(L"Button", GetModuleHandleW(nullptr)); }
    EagerOptions(const EagerOptions&) = delete;
    EagerOptions& operator=(const EagerOptions&) = delete;

private:
    static WNDCLASSEXW systems() {
        WNDCLASSEXW found{};
        found.cbSize = sizeof found;
        GetClassInfoExW(nullptr, L"Button", &found);
        return found;
    }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        const LRESULT result =
            CallWindowProcW(systems().lpfnWndProc, window, message, wParam, lParam);
        const auto type = GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK;
        if (message == WM_SETFOCUS && type == BS_RADIOBUTTON)
            SendMessageW(GetParent(window), WM_COMMAND,
                         MAKEWPARAM(GetDlgCtrlID(window), BN_CLICKED),
                         reinterpret_cast<LPARAM>(window));
        return result;
    }
};

class EagerOptionsTest : public ::testing::Test {
protected:
    EagerOptionsTest() {
        window_.makeNextPanel();
        ShowWindow(window_.handle(), SW_SHOW);
    }

    void giveFocus(const Control& control) const {
        SetFocus(window_.handleOf(control));
        ASSERT_EQ(GetFocus(), window_.handleOf(control));
    }

    EagerOptions eager_;
    SmallForm form_;
    ComApartment com_;
    Window window_{form_, com_, L"kvEagerTest", {8300, 5430}};
};

TEST_F(EagerOptionsTest, TheKeyboardDoesNotChooseTheOptionThatItComesTo) {
    giveFocus(form_.first);
    giveFocus(form_.text);
    giveFocus(form_.second);

    EXPECT_FALSE(form_.first.value());
    EXPECT_FALSE(form_.second.value());
}

TEST_F(EagerOptionsTest, TheKeyboardLeavesTheChoiceAsItWas) {
    form_.second.setValue(true);

    giveFocus(form_.first);

    EXPECT_FALSE(form_.first.value());
    EXPECT_TRUE(form_.second.value());
}

TEST_F(EagerOptionsTest, SpaceChooses) {
    giveFocus(form_.first);

    SendMessageW(window_.handleOf(form_.first), WM_KEYDOWN, VK_SPACE, 1);
    SendMessageW(window_.handleOf(form_.first), WM_KEYUP, VK_SPACE, 1);

    EXPECT_TRUE(form_.first.value());
}

// As a screen reader's default action does it.
TEST_F(EagerOptionsTest, AClickChoosesWhereverTheKeyboardIs) {
    giveFocus(form_.text);

    SendMessageW(window_.handleOf(form_.second), BM_CLICK, 0, 0);
    EXPECT_TRUE(form_.second.value());

    SendMessageW(window_.handleOf(form_.first), BM_CLICK, 0, 0);
    EXPECT_TRUE(form_.first.value());
}

}  // namespace
}  // namespace kv
