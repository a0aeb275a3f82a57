// The window while the system's colours change under it.
#include <array>
#include <memory>

#include <windows.h>

#include <gtest/gtest.h>

#include "platform/win32/window/Window.h"
#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

constexpr COLORREF kOtherFace = RGB(0, 0, 96);
constexpr COLORREF kOtherText = RGB(255, 255, 0);
constexpr COLORREF kOtherHighlight = RGB(128, 0, 0);

// The colours that the form uses, others while an object of this class lives.
class OtherColours {
public:
    OtherColours() {
        for (std::size_t i = 0; i < kChanged.size(); ++i) before_[i] = GetSysColor(kChanged[i]);
        set({kOtherFace, kOtherText, kOtherHighlight});
    }
    ~OtherColours() { set(before_); }
    OtherColours(const OtherColours&) = delete;
    OtherColours& operator=(const OtherColours&) = delete;

private:
    static constexpr std::array<int, 3> kChanged{COLOR_BTNFACE, COLOR_BTNTEXT, COLOR_HIGHLIGHT};

    static void set(const std::array<COLORREF, 3>& colours) {
        SetSysColors(static_cast<int>(kChanged.size()), kChanged.data(), colours.data());
    }

    std::array<COLORREF, 3> before_{};
};

constexpr const wchar_t* kToldProperty = L"kvTold";

// Stands before a control's own procedure, which the window's user data holds.
LRESULT CALLBACK noteColourChange(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SYSCOLORCHANGE) SetPropW(window, kToldProperty, window);
    const auto original = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return CallWindowProcW(original, window, message, wParam, lParam);
}

// One window for all tests: Wine takes two seconds to take a shown one away.
class ColoursTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        shown_ = std::make_unique<Shown>();
        while (shown_->window.makeNextPanel()) {
        }
        for (std::size_t panel = 0; panel < kPanelCount; ++panel)
            shown_->form.picPanel[panel].setVisible(panel == 11);
        ShowWindow(shown_->window.handle(), SW_SHOW);
    }

    // A window that has gone asks the thread to end; the next test must not hear of it.
    static void TearDownTestSuite() {
        shown_.reset();
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
        }
    }

    void SetUp() override { paint(); }

    void paint() const {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        UpdateWindow(window_.handle());
        GdiFlush();
    }

    // Of the middle of the control.
    COLORREF colourOf(const Control& control) const { return colourAt(control, 2, 2); }

    COLORREF colourAt(const Control& control, int xShare, int yShare) const {
        const HWND child = window_.handleOf(control);
        RECT box;
        GetClientRect(child, &box);
        const HDC context = GetDC(child);
        const COLORREF colour = GetPixel(context, box.right / xShare, box.bottom / yShare);
        ReleaseDC(child, context);
        return colour;
    }

    // Whether a letter of the control has been drawn in the colour.
    bool hasInk(const Control& control, COLORREF colour) const {
        const HWND child = window_.handleOf(control);
        RECT box;
        GetClientRect(child, &box);
        const HDC context = GetDC(child);
        bool found = false;
        for (int y = 0; y < box.bottom && !found; ++y)
            for (int x = 0; x < box.right && !found; ++x) found = GetPixel(context, x, y) == colour;
        ReleaseDC(child, context);
        return found;
    }

    struct Shown {
        frmWebConfig form;
        ComApartment com;
        Window window{form, com, L"kvColoursTest", {kWindowOuterWidth, kWindowInnerHeight}};
    };
    static inline std::unique_ptr<Shown> shown_;

    frmWebConfig& form_ = shown_->form;
    Window& window_ = shown_->window;
};

TEST_F(ColoursTest, AChangeIsSeenAtOnceInGroundsTextsAndTheProgressLine) {
    const COLORREF faceBefore = colourAt(form_.lblFinishDescription, 1000, 1000);
    ASSERT_EQ(faceBefore, GetSysColor(COLOR_BTNFACE));

    const OtherColours colours;
    paint();

    EXPECT_EQ(colourAt(form_.lblFinishDescription, 1000, 1000), kOtherFace);
    EXPECT_TRUE(hasInk(form_.lblFinishDescription, kOtherText));
    EXPECT_TRUE(hasInk(form_.lblFinishInstruction, kOtherText));
    EXPECT_EQ(colourOf(form_.lblProgress), kOtherHighlight);
    EXPECT_EQ(colourAt(form_.picPanel[11], 1000, 1000), kOtherFace);
}

TEST_F(ColoursTest, TheNewsAloneMakesTheWholeWindowPaintAnew) {
    ASSERT_FALSE(GetUpdateRect(window_.handleOf(form_.lblProgress), nullptr, FALSE));

    SendMessageW(window_.handle(), WM_SYSCOLORCHANGE, 0, 0);

    EXPECT_TRUE(GetUpdateRect(window_.handle(), nullptr, FALSE));
    EXPECT_TRUE(GetUpdateRect(window_.handleOf(form_.lblProgress), nullptr, FALSE));
    EXPECT_TRUE(GetUpdateRect(window_.handleOf(form_.cmdNext), nullptr, FALSE));
}

TEST_F(ColoursTest, TheNewsReachesTheControls) {
    const HWND box = window_.handleOf(form_.txtWebsiteIP);
    const auto original =
        SetWindowLongPtrW(box, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(noteColourChange));
    SetWindowLongPtrW(box, GWLP_USERDATA, original);

    SendMessageW(window_.handle(), WM_SYSCOLORCHANGE, 0, 0);

    EXPECT_EQ(GetPropW(box, kToldProperty), box);
    SetWindowLongPtrW(box, GWLP_WNDPROC, original);
    RemovePropW(box, kToldProperty);
}

}  // namespace
}  // namespace kv
