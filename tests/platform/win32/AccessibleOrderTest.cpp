// The order in which a screen reader comes to the controls: that of reading, from the left to the
// right and from the top to the bottom.
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include <oleacc.h>

#include <gtest/gtest.h>

#include "platform/win32/window/Window.h"
#include "tests/model/Form.h"
#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

using Names = std::vector<std::string>;

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
using Accessible = std::unique_ptr<IAccessible, Releaser>;

// Without the lines, which only adorn.
Names designedOn(int panel) {
    Names names;
    for (const design::Control& control : design::kControls)
        if (control.panel == panel && control.kind != design::Kind::Line)
            names.emplace_back(control.name);
    return names;
}

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
        EXPECT_EQ(childrenOf(window_.handleOf(form_.picPanel[panel])),
                  designedOn(static_cast<int>(panel)));
}

TEST_F(AccessibleOrderTest, ThePanelsComeBeforeTheButtonsBelowThem) {
    EXPECT_EQ(childrenOf(window_.handle()), designedOn(design::kOnWindow));
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
