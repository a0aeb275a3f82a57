#include "platform/win32/window/NativeControls.h"

#include "tests/platform/win32/SmallWindow.h"

namespace kv {
namespace {

using NativeControlsTest = SmallWindow;

TEST_F(NativeControlsTest, EachControlIsANativeWindowOfItsKindWithItsCaption) {
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

TEST_F(NativeControlsTest, ControlsAreVisitedInTheOrderOfTheirDeclaration) {
    const HWND panel = nativeOf(form_.panel);

    EXPECT_EQ(GetWindow(panel, GW_CHILD), nativeOf(form_.label));
    EXPECT_EQ(GetWindow(nativeOf(form_.text), GW_HWNDNEXT), nativeOf(form_.first));
    EXPECT_EQ(GetWindow(panel, GW_HWNDNEXT), nativeOf(form_.ok));
}

TEST_F(NativeControlsTest, AButtonThatIsMovedWhileHiddenIsShownInItsNewPlace) {
    form_.ok.setVisible(false);
    form_.ok.setLeft(1500);
    form_.ok.setVisible(true);

    RECT box;
    GetWindowRect(nativeOf(form_.ok), &box);
    MapWindowPoints(nullptr, window_.handle(), reinterpret_cast<POINT*>(&box), 2);
    EXPECT_EQ(box.left, 1500 / 15);
    EXPECT_EQ(box.right, (1500 + 1095) / 15);
}

TEST_F(NativeControlsTest, AChangeOfTheFormShowsAtOnce) {
    form_.label.setCaption("New");
    form_.text.setText("C:\\www");
    form_.ok.setEnabled(false);
    form_.label.setVisible(false);

    EXPECT_EQ(nativeText(form_.label), "New");
    EXPECT_EQ(nativeText(form_.text), "C:\\www");
    EXPECT_FALSE(IsWindowEnabled(nativeOf(form_.ok)));
    EXPECT_EQ(GetWindowLongW(nativeOf(form_.label), GWL_STYLE) & WS_VISIBLE, 0);
}

TEST_F(NativeControlsTest, AGroupOfOptionsIsOneStopOfTheTabKey) {
    EXPECT_TRUE(isTabStop(form_.first));
    EXPECT_FALSE(isTabStop(form_.second));

    form_.second.setValue(true);

    EXPECT_FALSE(isTabStop(form_.first));
    EXPECT_TRUE(isTabStop(form_.second));
}

TEST_F(NativeControlsTest, AGroupThatLosesItsChoiceIsStoppedAtAtItsFirstOption) {
    form_.second.setValue(true);

    form_.second.setValue(false);

    EXPECT_TRUE(isTabStop(form_.first));
    EXPECT_FALSE(isTabStop(form_.second));
    EXPECT_FALSE(checked(form_.second));
}

TEST_F(NativeControlsTest, ALineIsOnePixelThinAtLeast) {
    RECT box;
    GetClientRect(nativeOf(form_.line), &box);

    EXPECT_EQ(box.bottom, 1);
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

}  // namespace
}  // namespace kv
