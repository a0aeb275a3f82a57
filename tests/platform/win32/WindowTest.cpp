#include "platform/win32/window/Window.h"

#include <string>

#include <windows.h>

#include "common/RunTimeError.h"
#include "gtest/gtest.h"

namespace kv {
namespace {

// A window of every kind of control.
class SmallForm : public Form {
public:
    SmallForm() : Form("Small") { setCancelButton(cancel); }

    PictureBox panel{*this, {"panel", {0, 0, 3000, 3000}}};
    Label label{panel, {"label", {0, 0, 1500, 300}, "A & B"}};
    Label bar{panel, {"bar", {0, 300, 300, 300}, "", Font::Normal, Colour::Highlight}};
    TextBox text{panel, {"text", {0, 600, 1500, 315}}};
    OptionButton first{panel, {"first", {0, 1000, 1500, 255}, "First"}};
    OptionButton second{panel, {"second", {0, 1300, 1500, 255}, "Second"}};
    Line line{panel, {"line", {0, 1600, 1500, 0}, Colour::Shadow}};
    CommandButton ok{*this, {"ok", {3000, 3000, 1095, 375}, "&Do it"}};
    CommandButton cancel{*this, {"cancel", {4200, 3000, 1095, 375}, "Cancel"}};
};

class WindowTest : public ::testing::Test {
protected:
    WindowTest() { window_.makeNextPanel(); }

    // A window that has gone asks the thread to end; the next test must not hear of it.
    void TearDown() override {
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
        }
    }

    HWND nativeOf(const Control& control) const { return window_.handleOf(control); }

    std::string className(const Control& control) const {
        char name[100]{};
        GetClassNameA(nativeOf(control), name, sizeof name);
        return name;
    }

    std::string nativeText(const Control& control) const {
        char text[100]{};
        GetWindowTextA(nativeOf(control), text, sizeof text);
        return text;
    }

    void click(const Control& control) const {
        SendMessageW(GetParent(nativeOf(control)), WM_COMMAND,
                     MAKEWPARAM(GetDlgCtrlID(nativeOf(control)), BN_CLICKED),
                     reinterpret_cast<LPARAM>(nativeOf(control)));
    }

    bool checked(const Control& control) const {
        return SendMessageW(nativeOf(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }

    // As the keyboard sends it: once when the key goes down, and again while it is held.
    void postKey(const Control& control, WPARAM key, int repeats) const {
        constexpr LPARAM kWasDown = 1 << 30;
        for (int count = 0; count <= repeats; ++count)
            PostMessageW(nativeOf(control), WM_KEYDOWN, key, count == 0 ? 1 : kWasDown | 1);
    }

    void runUntilPostedMessagesAreHandled() {
        PostMessageW(window_.handle(), WM_CLOSE, 0, 0);
        window_.run();
    }

    bool isTabStop(const Control& control) const {
        return (GetWindowLongW(nativeOf(control), GWL_STYLE) & WS_TABSTOP) != 0;
    }

    // The brush with which the control's background is painted.
    HBRUSH brushOf(const Control& control) const {
        const HDC context = GetDC(nativeOf(control));
        const LRESULT brush = SendMessageW(GetParent(nativeOf(control)), WM_CTLCOLORSTATIC,
                                           reinterpret_cast<WPARAM>(context),
                                           reinterpret_cast<LPARAM>(nativeOf(control)));
        ReleaseDC(nativeOf(control), context);
        return reinterpret_cast<HBRUSH>(brush);
    }

    SmallForm form_;
    ComApartment com_;
    Window window_{form_, com_, L"kvWindowTest", {8300, 5430}};
};

TEST_F(WindowTest, EachControlIsANativeWindowOfItsKindWithItsCaption) {
    EXPECT_EQ(className(form_.label), "Static");
    EXPECT_EQ(className(form_.text), "Edit");
    EXPECT_EQ(className(form_.first), "Button");
    EXPECT_EQ(className(form_.ok), "Button");
    EXPECT_EQ(nativeText(form_.label), "A & B");
    EXPECT_EQ(nativeText(form_.first), "First");
    EXPECT_EQ(nativeText(form_.ok), "&Do it");
    EXPECT_EQ(GetParent(nativeOf(form_.text)), nativeOf(form_.panel));
    EXPECT_EQ(GetParent(nativeOf(form_.ok)), window_.handle());
}

TEST_F(WindowTest, ControlsAreVisitedInTheOrderOfTheirDeclaration) {
    const HWND panel = nativeOf(form_.panel);

    EXPECT_EQ(GetWindow(panel, GW_CHILD), nativeOf(form_.label));
    EXPECT_EQ(GetWindow(nativeOf(form_.text), GW_HWNDNEXT), nativeOf(form_.first));
    EXPECT_EQ(GetWindow(panel, GW_HWNDNEXT), nativeOf(form_.ok));
}

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

// Three panels between the picture and the button, as the form has them.
class PanelForm : public Form {
public:
    PanelForm() : Form("Panels") {
        for (PictureBox* panel : {&one, &two, &three}) panel->setVisible(false);
        chosen.setValue(true);
        text.setText("C:\\www");
    }

    PictureBox one{*this, {"one", {0, 0, 3000, 3000}}};
    Label label{one, {"label", {0, 0, 1500, 300}, "A"}};
    PictureBox two{*this, {"two", {0, 0, 3000, 3000}}};
    OptionButton other{two, {"other", {0, 1000, 1500, 255}, "Other"}};
    OptionButton chosen{two, {"chosen", {0, 1300, 1500, 255}, "Chosen"}};
    PictureBox three{*this, {"three", {0, 0, 3000, 3000}}};
    TextBox text{three, {"text", {0, 600, 1500, 315}}};
    CommandButton ok{*this, {"ok", {3000, 3000, 1095, 375}, "OK"}};
};

TEST(PanelWindowsTest, APanelIsMadeWhenItIsShown) {
    PanelForm form;
    ComApartment com;
    Window window(form, com, L"kvPanelTest", {8300, 5430});
    ASSERT_NE(window.handleOf(form.ok), nullptr);
    ASSERT_EQ(window.handleOf(form.three), nullptr);
    ASSERT_EQ(window.handleOf(form.text), nullptr);

    form.three.setVisible(true);

    const HWND text = window.handleOf(form.text);
    ASSERT_NE(text, nullptr);
    char content[20]{};
    GetWindowTextA(text, content, sizeof content);
    EXPECT_STREQ(content, "C:\\www");
    EXPECT_NE(GetWindowLongW(window.handleOf(form.three), GWL_STYLE) & WS_VISIBLE, 0);
    EXPECT_EQ(window.handleOf(form.two), nullptr);
}

TEST(PanelWindowsTest, PanelsAreVisitedInTheFormsOrderWhenMadeInAnother) {
    PanelForm form;
    ComApartment com;
    Window window(form, com, L"kvPanelTest", {8300, 5430});
    form.three.setVisible(true);
    form.one.setVisible(true);
    form.two.setVisible(true);

    EXPECT_EQ(GetWindow(window.handle(), GW_CHILD), window.handleOf(form.one));
    EXPECT_EQ(GetWindow(window.handleOf(form.one), GW_HWNDNEXT), window.handleOf(form.two));
    EXPECT_EQ(GetWindow(window.handleOf(form.two), GW_HWNDNEXT), window.handleOf(form.three));
    EXPECT_EQ(GetWindow(window.handleOf(form.three), GW_HWNDNEXT), window.handleOf(form.ok));
}

TEST(PanelWindowsTest, AControlsIdentifierIsItsPlaceInTheFormWhateverWasShownFirst) {
    for (const bool lastFirst : {false, true}) {
        PanelForm form;
        ComApartment com;
        Window window(form, com, L"kvPanelTest", {8300, 5430});
        (lastFirst ? form.three : form.one).setVisible(true);
        while (window.makeNextPanel()) {
        }

        EXPECT_EQ(GetDlgCtrlID(window.handleOf(form.one)), 1000);
        EXPECT_EQ(GetDlgCtrlID(window.handleOf(form.label)), 1001);
        EXPECT_EQ(GetDlgCtrlID(window.handleOf(form.two)), 1002);
        EXPECT_EQ(GetDlgCtrlID(window.handleOf(form.other)), 1003);
        EXPECT_EQ(GetDlgCtrlID(window.handleOf(form.chosen)), 1004);
        EXPECT_EQ(GetDlgCtrlID(window.handleOf(form.three)), 1005);
        EXPECT_EQ(GetDlgCtrlID(window.handleOf(form.text)), 1006);
        EXPECT_EQ(GetDlgCtrlID(window.handleOf(form.ok)), 1007);
    }
}

TEST(PanelWindowsTest, ChangesBeforeAPanelIsMadeComeWithIt) {
    PanelForm form;
    ComApartment com;
    Window window(form, com, L"kvPanelTest", {8300, 5430});
    form.label.setCaption("B");
    form.other.setValue(true);
    form.chosen.setEnabled(false);
    form.setFocus(form.other);
    while (window.makeNextPanel()) {
    }

    char caption[20]{};
    GetWindowTextA(window.handleOf(form.label), caption, sizeof caption);
    EXPECT_STREQ(caption, "B");
    EXPECT_EQ(SendMessageW(window.handleOf(form.other), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(window.handleOf(form.chosen), BM_GETCHECK, 0, 0), BST_UNCHECKED);
    EXPECT_FALSE(IsWindowEnabled(window.handleOf(form.chosen)));
    EXPECT_EQ(GetWindowLongW(window.handleOf(form.two), GWL_STYLE) & WS_VISIBLE, 0);
    EXPECT_FALSE(window.makeNextPanel());
}

TEST_F(WindowTest, ABarsWindowGrowsWithTheBar) {
    ShowWindow(window_.handle(), SW_SHOWNA);
    for (const Twips width : {600, 900, 1200, 1500}) {
        form_.bar.setWidth(width);

        RECT box;
        GetClientRect(nativeOf(form_.bar), &box);
        EXPECT_EQ(box.right, width / 15);
    }
}

TEST_F(WindowTest, ABarIsPaintedWholeWhenATextTellsOfAStep) {
    ShowWindow(window_.handle(), SW_SHOWNA);
    UpdateWindow(window_.handle());
    for (const Twips width : {600, 900, 1200}) form_.bar.setWidth(width);

    form_.label.setCaption("Done");

    const HDC context = GetDCEx(nativeOf(form_.panel), nullptr, DCX_CACHE);
    for (const int x : {0, 300 / 15 + 1, 900 / 15, 1200 / 15 - 1})
        EXPECT_EQ(GetPixel(context, x, 300 / 15 + 4), GetSysColor(COLOR_HIGHLIGHT)) << x;
    EXPECT_EQ(GetPixel(context, 1200 / 15, 300 / 15 + 4), GetSysColor(COLOR_BTNFACE));
    ReleaseDC(nativeOf(form_.panel), context);
}

// The user sees it grow, but each painting takes longer than to copy a file.
TEST_F(WindowTest, ABarIsPaintedSomeTwentyTimesASecond) {
    ShowWindow(window_.handle(), SW_SHOWNA);
    UpdateWindow(window_.handle());
    constexpr ULONGLONG kMilliseconds = 400;
    int steps = 0, painted = 0;

    for (const ULONGLONG begin = GetTickCount64(); GetTickCount64() - begin < kMilliseconds;) {
        InvalidateRect(nativeOf(form_.bar), nullptr, TRUE);
        form_.bar.setWidth(++steps % 2 == 0 ? 300 : 600);
        if (GetUpdateRect(nativeOf(form_.bar), nullptr, FALSE) == FALSE) ++painted;
    }

    EXPECT_GE(painted, 1);
    EXPECT_LE(painted, 9) << "of " << steps;
}

// An operation answers no messages while it shows what it does.
TEST_F(WindowTest, ATextThatChangesIsPaintedWithAllThatHasChangedBefore) {
    ShowWindow(window_.handle(), SW_SHOWNA);
    UpdateWindow(window_.handle());
    InvalidateRect(nativeOf(form_.line), nullptr, TRUE);
    form_.ok.setVisible(false);
    form_.ok.setVisible(true);
    ASSERT_TRUE(GetUpdateRect(nativeOf(form_.line), nullptr, FALSE));
    ASSERT_TRUE(GetUpdateRect(nativeOf(form_.ok), nullptr, FALSE));

    form_.label.setCaption("Copying files...");

    for (const Control* control :
         {static_cast<const Control*>(&form_.label), static_cast<const Control*>(&form_.line),
          static_cast<const Control*>(&form_.ok)})
        EXPECT_FALSE(GetUpdateRect(nativeOf(*control), nullptr, FALSE)) << control->name();
}

TEST_F(WindowTest, AButtonThatIsMovedWhileHiddenIsShownInItsNewPlace) {
    form_.ok.setVisible(false);
    form_.ok.setLeft(1500);
    form_.ok.setVisible(true);

    RECT box;
    GetWindowRect(nativeOf(form_.ok), &box);
    MapWindowPoints(nullptr, window_.handle(), reinterpret_cast<POINT*>(&box), 2);
    EXPECT_EQ(box.left, 1500 / 15);
    EXPECT_EQ(box.right, (1500 + 1095) / 15);
}

TEST_F(WindowTest, AChangeOfTheFormShowsAtOnce) {
    form_.label.setCaption("New");
    form_.text.setText("C:\\www");
    form_.ok.setEnabled(false);
    form_.label.setVisible(false);

    EXPECT_EQ(nativeText(form_.label), "New");
    EXPECT_EQ(nativeText(form_.text), "C:\\www");
    EXPECT_FALSE(IsWindowEnabled(nativeOf(form_.ok)));
    EXPECT_EQ(GetWindowLongW(nativeOf(form_.label), GWL_STYLE) & WS_VISIBLE, 0);
}

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

TEST_F(WindowTest, AGroupOfOptionsIsOneStopOfTheTabKey) {
    EXPECT_TRUE(isTabStop(form_.first));
    EXPECT_FALSE(isTabStop(form_.second));

    form_.second.setValue(true);

    EXPECT_FALSE(isTabStop(form_.first));
    EXPECT_TRUE(isTabStop(form_.second));
}

TEST_F(WindowTest, TheDefaultButtonAnswersForEnter) {
    form_.ok.setDefault(true);

    const LRESULT answer = SendMessageW(window_.handle(), DM_GETDEFID, 0, 0);

    EXPECT_EQ(HIWORD(answer), DC_HASDEFID);
    EXPECT_EQ(LOWORD(answer), GetDlgCtrlID(nativeOf(form_.ok)));
    EXPECT_EQ(GetWindowLongW(nativeOf(form_.ok), GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
}

TEST_F(WindowTest, AClickedButtonRunsItsHandler) {
    int clicks = 0;
    form_.ok.onClick = [&] { ++clicks; };

    click(form_.ok);

    EXPECT_EQ(clicks, 1);
}

TEST_F(WindowTest, EachPressOfEnterEscapeAndF1CountsOnceHoweverLongItIsHeld) {
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

TEST_F(WindowTest, BackgroundsAreBrushesOfTheSystemsColours) {
    EXPECT_EQ(brushOf(form_.label), GetSysColorBrush(COLOR_BTNFACE));
    EXPECT_EQ(brushOf(form_.bar), GetSysColorBrush(COLOR_HIGHLIGHT));
    EXPECT_EQ(brushOf(form_.line), GetSysColorBrush(COLOR_BTNSHADOW));
    EXPECT_EQ(brushOf(form_.first), GetSysColorBrush(COLOR_BTNFACE));
}

TEST_F(WindowTest, ALineIsOnePixelThinAtLeast) {
    RECT box;
    GetClientRect(nativeOf(form_.line), &box);

    EXPECT_EQ(box.bottom, 1);
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

}  // namespace
}  // namespace kv
