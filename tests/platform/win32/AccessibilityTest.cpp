// What a screen reader gets of every control, asked for as a screen reader asks.
#include <memory>
#include <string>

#include <windows.h>

#include <oleacc.h>

#include <gtest/gtest.h>

#include "platform/win32/system/Text.h"
#include "platform/win32/window/Window.h"
#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
using Accessible = std::unique_ptr<IAccessible, Releaser>;

class AccessibilityTest : public ::testing::Test {
protected:
    AccessibilityTest() {
        (void)CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        while (window_.makeNextPanel()) {
        }
    }
    ~AccessibilityTest() override { CoUninitialize(); }

    Accessible accessible(const Control& control) const {
        void* object = nullptr;
        AccessibleObjectFromWindow(window_.handleOf(control), static_cast<DWORD>(OBJID_CLIENT),
                                   IID_IAccessible, &object);
        return Accessible(static_cast<IAccessible*>(object));
    }

    static VARIANT self() {
        VARIANT child{};
        child.vt = VT_I4;
        child.lVal = CHILDID_SELF;
        return child;
    }

    std::string nameOf(const Control& control) const {
        BSTR name = nullptr;
        accessible(control)->get_accName(self(), &name);
        const std::string text = name != nullptr ? fromWide(name) : "";
        SysFreeString(name);
        return text;
    }

    LONG roleOf(const Control& control) const {
        VARIANT role{};
        accessible(control)->get_accRole(self(), &role);
        return role.lVal;
    }

    LONG stateOf(const Control& control) const {
        VARIANT state{};
        accessible(control)->get_accState(self(), &state);
        return state.lVal;
    }

    // Whether the system gives its own windows of the class their role. Wine 8 does so for text
    // boxes only.
    static bool knows(const wchar_t* className, LONG expectedRole) {
        const HWND window =
            CreateWindowW(className, L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
        void* object = nullptr;
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                   &object);
        VARIANT role{};
        Accessible(static_cast<IAccessible*>(object))->get_accRole(self(), &role);
        DestroyWindow(window);
        return role.lVal == expectedRole;
    }

    // Whether the system attaches names to windows. Wine 8 has the service's interface only.
    static bool annotates() {
        void* object = nullptr;
        CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                         &object);
        if (object == nullptr) return false;
        const std::unique_ptr<IAccPropServices, Releaser> service(
            static_cast<IAccPropServices*>(object));
        return service->SetHwndPropStr(GetDesktopWindow(), static_cast<DWORD>(OBJID_CLIENT),
                                       CHILDID_SELF, PROPID_ACC_NAME, L"x") != E_NOTIMPL;
    }

    frmWebConfig form_;
    ComApartment com_;
    Window window_{form_, com_, L"kvAccessibilityTest", {kWindowOuterWidth, kWindowInnerHeight}};
};

std::string withoutMnemonic(std::string caption) {
    std::erase(caption, '&');
    return caption;
}

TEST_F(AccessibilityTest, ButtonsAndOptionsAreNamedByTheirCaptions) {
    for (const Control* control : form_.controls()) {
        const bool button = control->kind() == ControlKind::CommandButton ||
                            control->kind() == ControlKind::OptionButton;
        if (button && control->accessibleName().empty()) {
            EXPECT_EQ(nameOf(*control), withoutMnemonic(control->caption())) << control->name();
        }
    }
}

TEST_F(AccessibilityTest, EachTextBoxIsNamedByTheLabelBeforeIt) {
    EXPECT_EQ(nameOf(form_.txtFolderHomeApache),
              "Varify the full path of documnet root by clicking on the button [...]");
    EXPECT_EQ(nameOf(form_.txtFolderScriptsApache),
              "Varify the full path of cgi-bin by clicking on the button [...]");
    EXPECT_EQ(nameOf(form_.txtFolderHomeIIS),
              "Varify the full path of home directory by clicking on the button [...]");
    EXPECT_EQ(nameOf(form_.txtFolderScriptsIIS),
              "Varify the full path of Scripts directory by clicking on the button [...]");
    EXPECT_EQ(nameOf(form_.txtFolderHomeOthers),
              "Enter the full path / name of documnet root, or click on [...] to find it");
    EXPECT_EQ(nameOf(form_.txtFolderScriptsOthers),
              "Enter the full path / name of cgi-bin, or click on the button [...] to find it");
    EXPECT_EQ(nameOf(form_.txtWebsiteIP),
              "Enter the IP address if the web server listen to specified IP address:");
    EXPECT_EQ(nameOf(form_.txtWebsitePort),
              "Enter the Port if the web server listen to a Port other than 80:");
}

TEST_F(AccessibilityTest, TextBoxesHaveTheRoleOfTheirKind) {
    for (const Control* control : form_.controls()) {
        if (control->kind() == ControlKind::TextBox) {
            EXPECT_EQ(roleOf(*control), ROLE_SYSTEM_TEXT) << control->name();
        }
    }
}

TEST_F(AccessibilityTest, LabelsHaveTheRoleOfTheirKind) {
    if (!knows(L"STATIC", ROLE_SYSTEM_STATICTEXT))
        GTEST_SKIP() << "this system tells nothing of labels but their names";
    for (const Control* control : form_.controls()) {
        if (control->kind() == ControlKind::Label && control->accessibleValue().empty()) {
            EXPECT_EQ(roleOf(*control), ROLE_SYSTEM_STATICTEXT) << control->name();
        }
    }
}

TEST_F(AccessibilityTest, ButtonsHaveTheRoleOfTheirKindAndOptionsTellWhetherTheyAreOn) {
    if (!knows(L"BUTTON", ROLE_SYSTEM_PUSHBUTTON))
        GTEST_SKIP() << "this system tells nothing of buttons but their names";
    form_.optInstalledApache.setValue(true);

    for (const Control* control : form_.controls()) {
        if (control->kind() == ControlKind::OptionButton) {
            EXPECT_EQ(roleOf(*control), ROLE_SYSTEM_RADIOBUTTON) << control->name();
        }
        if (control->kind() == ControlKind::CommandButton) {
            EXPECT_EQ(roleOf(*control), ROLE_SYSTEM_PUSHBUTTON) << control->name();
        }
    }
    EXPECT_NE(stateOf(form_.optInstalledApache) & STATE_SYSTEM_CHECKED, 0);
    EXPECT_EQ(stateOf(form_.optInstalledIIS) & STATE_SYSTEM_CHECKED, 0);
}

TEST_F(AccessibilityTest, DisabledButtonsSaySo) {
    form_.cmdBack.setEnabled(false);

    EXPECT_NE(stateOf(form_.cmdBack) & STATE_SYSTEM_UNAVAILABLE, 0);
    EXPECT_EQ(stateOf(form_.cmdNext) & STATE_SYSTEM_UNAVAILABLE, 0);
}

TEST_F(AccessibilityTest, PictureButtonsBrowseButtonsAndTheProgressLineHaveNamesOfTheirOwn) {
    if (!annotates()) GTEST_SKIP() << "this system attaches no names to windows";
    // The first look at the window attaches them.
    SendMessageW(window_.handle(), WM_GETOBJECT, 0, OBJID_CLIENT);

    EXPECT_EQ(nameOf(form_.cmdNew), "New installation");
    EXPECT_EQ(nameOf(form_.cmdFolderHomeApache), "Browse for the document root");
    EXPECT_EQ(nameOf(form_.lblProgress), "Progress");
    EXPECT_EQ(roleOf(form_.lblProgress), ROLE_SYSTEM_PROGRESSBAR);
    EXPECT_EQ(roleOf(form_.picPanel[1]), ROLE_SYSTEM_PROPERTYPAGE);
}

}  // namespace
}  // namespace kv
