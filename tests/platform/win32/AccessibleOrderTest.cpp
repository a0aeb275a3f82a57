// The order in which a screen reader comes to the controls: that of reading, from the left to the
// right and from the top to the bottom.
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include <oleacc.h>

#include "gtest/gtest.h"
#include "platform/win32/window/Window.h"
#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

using Names = std::vector<std::string>;

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
using Accessible = std::unique_ptr<IAccessible, Releaser>;

// By panel number, in the names of the design.
const Names kPanelOrder[kPanelCount] = {
    {"lblPanelID(0)", "lblWelcome", "lblInstruction0", "lblCongratulation"},
    {"lblPanelID(1)", "lblDescription1", "lblInstruction1", "optInstalledIIS", "optInstalledApache",
     "optInstalledOther", "optInstalledNothing"},
    {"lblPanelID(2)", "lblDescription2", "lblInstruction2", "optInstallingIIS",
     "optInstallingApache", "optInstallingOther", "optInstallingAnyone"},
    {"lblPanelID(3)", "lblDescription3", "lblInstruction3", "lblDownloadApache",
     "cmdDownloadApache", "lblInstruction3_1", "lblInstruction3_3"},
    {"lblPanelID(4)", "lblDescription4", "lblInstruction4", "lblInstruction4_1",
     "lblInstruction4_2", "lblInstruction4_3"},
    {"lblPanelID(5)", "lblDescription5", "lblInstruction5", "lblInstruction5_1",
     "lblInstruction5_2"},
    {"lblPanelID(6)", "lblDescription6", "lblInstruction6", "lblInstruction6_1", "optUrlDefault",
     "optUrlKv", "lblInfo", "cmdHelpUrl"},
    {"lblPanelID(7)", "lblDescription7", "lblInstruction7", "lblFolderHomeApache",
     "txtFolderHomeApache", "cmdFolderHomeApache", "lblFolderScriptsApache",
     "txtFolderScriptsApache", "cmdFolderScriptsApache", "lblInfoFolderApache",
     "cmdHelpFolderApche"},
    {"lblPanelID(8)", "lblDescription8", "lblInstruction8", "lblFolderHomeIIS", "txtFolderHomeIIS",
     "cmdFolderHomeIIS", "lblFolderScriptsIIS", "txtFolderScriptsIIS", "cmdFolderScriptsIIS",
     "lblInfoFolderIIS", "cmdHelpFolderIIS"},
    {"lblPanelID(9)", "lblDescription9", "lblInstruction9", "lblFolderHomeOthers",
     "txtFolderHomeOthers", "cmdFolderHomeOthers", "lblFolderScriptsOthers",
     "txtFolderScriptsOthers", "cmdFolderScriptsOthers", "lblInfoFolderOthers"},
    {"lblPanelID(10)", "lblDescription10", "lblInstruction10"},
    {"lblPanelID(11)", "lblFinishDescription", "lblFinishInstruction", "lblProgress"},
    {"lblPanelID(12)", "lblErrDescription", "lblErrInstruction", "cmdHelpUpgrade"},
    {"lblPanelID(13)", "lblDescription13", "lblInstruction13", "cmdNew", "lblNew", "cmdUpgrade",
     "lblUpgrade", "cmdModify", "lblModify", "cmdBackup", "lblBackup", "cmdDelete", "lblDelete"},
    {"lblPanelID(14)", "lblDescription14", "lblInstruction14", "lblWebsiteIP", "txtWebsiteIP",
     "lblWebsitePort", "txtWebsitePort", "lblHelpWebsiteIP", "cmdHelpWebsiteIP"},
};

class AccessibleOrderTest : public ::testing::Test {
protected:
    AccessibleOrderTest() {
        while (window_.makeNextPanel()) {
        }
        (void)CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        for (Control* control : form_.controls()) {
            control->setVisible(true);
            windows_[window_.handleOf(*control)] = control;
        }
    }
    ~AccessibleOrderTest() override { CoUninitialize(); }

    static VARIANT child(LONG identifier) {
        VARIANT value{};
        value.vt = VT_I4;
        value.lVal = identifier;
        return value;
    }

    static Accessible clientOf(HWND window) {
        void* object = nullptr;
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                   &object);
        return Accessible(static_cast<IAccessible*>(object));
    }

    // The children of a window as they are handed to a screen reader. The lines that only adorn
    // are left out.
    Names childrenOf(HWND window) const {
        const Accessible client = clientOf(window);
        LONG count = 0;
        client->get_accChildCount(&count);
        std::vector<VARIANT> children(static_cast<std::size_t>(count));
        LONG obtained = 0;
        AccessibleChildren(client.get(), 0, count, children.data(), &obtained);
        Names names;
        for (LONG index = 0; index < obtained; ++index) {
            const Control* control = controlOf(children[static_cast<std::size_t>(index)]);
            if (control == nullptr)
                names.emplace_back("not one of the controls");
            else if (control->kind() != ControlKind::Line)
                names.emplace_back(control->name());
        }
        return names;
    }

    // Takes over what the variant refers to.
    const Control* controlOf(const VARIANT& element) const {
        if (element.vt != VT_DISPATCH) return nullptr;
        const std::unique_ptr<IUnknown, Releaser> owner(element.pdispVal);
        void* object = nullptr;
        if (element.pdispVal->QueryInterface(IID_IAccessible, &object) != S_OK) return nullptr;
        const Accessible accessible(static_cast<IAccessible*>(object));
        HWND window = nullptr;
        WindowFromAccessibleObject(accessible.get(), &window);
        const auto found = windows_.find(window);
        return found != windows_.end() ? found->second : nullptr;
    }

    frmWebConfig form_;
    ComApartment com_;
    Window window_{form_, com_, L"kvAccessibleOrderTest", {kWindowOuterWidth, kWindowInnerHeight}};
    std::map<HWND, const Control*> windows_;
};

TEST_F(AccessibleOrderTest, EachPanelIsReadFromItsTitleDown) {
    for (std::size_t panel = 0; panel < kPanelCount; ++panel)
        EXPECT_EQ(childrenOf(window_.handleOf(form_.picPanel[panel])), kPanelOrder[panel]);
}

TEST_F(AccessibleOrderTest, ThePanelsComeBeforeTheButtonsBelowThem) {
    Names expected{"PicConfig"};
    for (std::size_t panel = 0; panel < kPanelCount; ++panel)
        expected.push_back("picPanel(" + std::to_string(panel) + ")");
    expected.insert(expected.end(), {"cmdBack", "cmdNext", "cmdCancel", "cmdFinish"});

    EXPECT_EQ(childrenOf(window_.handle()), expected);
}

TEST_F(AccessibleOrderTest, NavigationFromControlToControlGoesTheSameWay) {
    VARIANT reached{};
    const Accessible client = clientOf(window_.handleOf(form_.picPanel[0]));
    const HRESULT answer = client->accNavigate(NAVDIR_FIRSTCHILD, child(CHILDID_SELF), &reached);
    if (answer == E_NOTIMPL) GTEST_SKIP() << "this system does not navigate from child to child";

    ASSERT_EQ(answer, S_OK);
    const Control* first = controlOf(reached);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->name(), "lblPanelID(0)");
}

}  // namespace
}  // namespace kv
