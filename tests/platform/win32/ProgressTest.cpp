#include "platform/win32/window/Progress.h"

#include "tests/platform/win32/SmallWindow.h"

namespace kv {
namespace {

using ProgressTest = SmallWindow;

TEST_F(ProgressTest, ABarsWindowGrowsWithTheBar) {
    ShowWindow(window_.handle(), SW_SHOWNA);
    for (const Twips width : {600, 900, 1200, 1500}) {
        form_.bar.setWidth(width);

        RECT box;
        GetClientRect(nativeOf(form_.bar), &box);
        EXPECT_EQ(box.right, width / 15);
    }
}

TEST_F(ProgressTest, ABarIsPaintedWholeWhenATextTellsOfAStep) {
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
TEST_F(ProgressTest, ABarIsPaintedSomeTwentyTimesASecond) {
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
TEST_F(ProgressTest, ATextThatChangesIsPaintedWithAllThatHasChangedBefore) {
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

}  // namespace
}  // namespace kv
