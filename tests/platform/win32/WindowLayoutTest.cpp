// Lays out all panels at the resolutions of today's screens, in every text they can show.
#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include <windows.h>

#include <gtest/gtest.h>

#include "platform/win32/system/Text.h"
#include "platform/win32/window/Window.h"
#include "wizard/form/frmWebConfig.h"

namespace kv {
namespace {

using Form = frmWebConfig;

struct Texts {
    Label Form::*label;
    std::vector<const char*> texts;
};

// Every text that a label takes on while the program runs, besides the one it starts with.
const std::vector<Texts>& textsAtRunTime() {
    static const std::vector<Texts> kTexts{
        {&Form::lblInstruction0,
         {"The Configuration Wizard will help you for the modifying, backing up, or deleting "
          "current configuration. Click on Next to contihue or Cancel to exit the Configuration "
          "Wizard."}},
        {&Form::lblFolderHomeApache,
         {"If the Document Root is incorrect, please click on [...] to find it",
          "Enter full path / name for document root, or click on [...] to find it"}},
        {&Form::lblFolderScriptsApache,
         {"If the cgi-bin folder is incorrect, please click on [...] to find it",
          "Enter full path / name for cgi-bin folder, or click on [...] to find it"}},
        {&Form::lblFolderHomeIIS,
         {"If the Home directory is incorrect, please click on [...] to find it",
          "Enter full path / name for Home directory, or click on [...] to find it"}},
        {&Form::lblFolderScriptsIIS,
         {"If the Scripts folder is incorrect, please click on [...] to find it",
          "Enter full path / name for Scripts directory, or click on [...] to find it"}},
        {&Form::lblInstruction10,
         {"Configuration Wizard is going to backup settings to disk. Click on Next to continue, or "
          "click on Cancel to exit.",
          "Configuration Wizard is going to delete settings from disk and files to web server's "
          "folders. Click on Next to continue, or click on Cancel to exit."}},
        {&Form::lblFinishDescription,
         {"Saving configuration settings", "Modifying configuration settings",
          "Deleting configuration settings", "Updating configuration settings",
          "Configuration backup completed"}},
        {&Form::lblFinishInstruction,
         {"Ceating folders...", "Copying files...", "Writing settings to configuration file...",
          "Deleting files...", "Deleting folders...", "backing up files...", "Restoring data...",
          "The configuration backup completed, click on Finish to exit."}},
        {&Form::lblErrInstruction,
         {"The previous settings are not available, click on Help for detailed instructions to get "
          "upgrading done."}},
        {&Form::lblDescription13, {"New or Upgrading", "Modification, Backing Up, or Deletion"}},
        {&Form::lblInstruction13,
         {"Click on New, or Upgrading to continue, click on Back to previous, or click on Cancel "
          "to exit",
          "Click on Midify, Backup, or Delete to continue, click on Back to previous, or click on "
          "Cancel to exit"}},
    };
    return kTexts;
}

class WindowLayout : public ::testing::TestWithParam<int> {
protected:
    WindowLayout()
        : window_(form_, com_, L"kvLayoutTest", {kWindowOuterWidth, kWindowInnerHeight}) {
        while (window_.makeNextPanel()) {
        }
        RECT place;
        GetWindowRect(window_.handle(), &place);
        SendMessageW(window_.handle(), WM_DPICHANGED, MAKEWPARAM(GetParam(), GetParam()),
                     reinterpret_cast<LPARAM>(&place));
    }

    RECT boxOf(const Control& control) const {
        RECT box;
        GetWindowRect(window_.handleOf(control), &box);
        return box;
    }

    // The room that the control's caption takes in its font, wrapped to the width for a label.
    SIZE textSize(const Control& control) const {
        const HWND child = window_.handleOf(control);
        const HDC context = GetDC(child);
        SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(child, WM_GETFONT, 0, 0)));
        RECT room;
        GetClientRect(child, &room);
        const bool wraps = control.kind() == ControlKind::Label;
        DrawTextW(context, toWide(control.caption()).c_str(), -1, &room,
                  static_cast<UINT>(DT_CALCRECT | (wraps ? DT_WORDBREAK : DT_SINGLELINE)));
        ReleaseDC(child, context);
        return {room.right - room.left, room.bottom - room.top};
    }

    void expectTextFits(const Control& control) const {
        if (control.caption().empty()) return;
        RECT room;
        GetClientRect(window_.handleOf(control), &room);
        if (control.kind() == ControlKind::OptionButton)
            room.right -= MulDiv(GetSystemMetrics(SM_CXMENUCHECK) + 4, GetParam(), 96);
        const SIZE size = textSize(control);
        EXPECT_LE(size.cx, room.right) << control.name() << ": " << control.caption();
        EXPECT_LE(size.cy, room.bottom) << control.name() << ": " << control.caption();
    }

    frmWebConfig form_;
    ComApartment com_;
    Window window_;
};

TEST_P(WindowLayout, EveryTextFitsItsBox) {
    for (const Control* control : form_.controls()) expectTextFits(*control);
    for (const Texts& row : textsAtRunTime()) {
        for (const char* text : row.texts) {
            (form_.*row.label).setCaption(text);
            expectTextFits(form_.*row.label);
        }
    }
}

// What belongs together: the progress line and its frame, the two lines of a separator, Back and
// Next, whose borders share a pixel, and the action panel's two sets of buttons, of which one is
// visible at a time.
bool mayOverlap(const Form& form, const Control& one, const Control& other) {
    const auto isOneOf = [](const Control& control, std::initializer_list<const Control*> set) {
        return std::ranges::find(set, &control) != set.end();
    };
    if (one.kind() == ControlKind::Line && other.kind() == ControlKind::Line) return true;
    if (one.kind() == ControlKind::Line && &other == &form.lblProgress) return true;
    if (&one == &form.cmdBack && &other == &form.cmdNext) return true;
    const std::initializer_list<const Control*> newOrUpgrade{&form.cmdNew, &form.cmdUpgrade,
                                                             &form.lblNew, &form.lblUpgrade};
    const std::initializer_list<const Control*> others{&form.cmdModify, &form.cmdBackup,
                                                       &form.cmdDelete, &form.lblModify,
                                                       &form.lblBackup, &form.lblDelete};
    return isOneOf(one, newOrUpgrade) && isOneOf(other, others);
}

TEST_P(WindowLayout, NoTwoControlsOverlap) {
    const auto controls = form_.controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
        for (std::size_t k = i + 1; k < controls.size(); ++k) {
            const Control& one = *controls[i];
            const Control& other = *controls[k];
            const bool names = one.name().starts_with("lblPanelID");
            if (one.parent() != other.parent() || names || mayOverlap(form_, one, other)) continue;
            // The panels share one place.
            if (one.kind() == ControlKind::PictureBox && other.kind() == ControlKind::PictureBox &&
                &one != &form_.PicConfig)
                continue;
            const RECT first = boxOf(one);
            const RECT second = boxOf(other);
            RECT both;
            EXPECT_FALSE(IntersectRect(&both, &first, &second)) << one.name() << other.name();
        }
    }
}

TEST_P(WindowLayout, NoControlLeavesItsPanel) {
    for (const Control* control : form_.controls()) {
        if (control->parent() == nullptr) continue;
        const RECT panel = boxOf(*control->parent());
        const RECT box = boxOf(*control);
        RECT both;
        IntersectRect(&both, &panel, &box);
        EXPECT_TRUE(EqualRect(&both, &box)) << control->name();
    }
}

TEST_P(WindowLayout, TheWindowHasItsOuterWidthAndItsInnerHeight) {
    RECT outer, inner;
    GetWindowRect(window_.handle(), &outer);
    GetClientRect(window_.handle(), &inner);

    EXPECT_EQ(outer.right - outer.left, MulDiv(8300, GetParam(), 1440));
    EXPECT_EQ(inner.bottom, MulDiv(5430, GetParam(), 1440));
}

TEST_P(WindowLayout, TheFrameButtonsLieInsideTheClientArea) {
    RECT inner;
    GetClientRect(window_.handle(), &inner);
    MapWindowPoints(window_.handle(), nullptr, reinterpret_cast<POINT*>(&inner), 2);

    for (const CommandButton* button : {&form_.cmdBack, &form_.cmdNext, &form_.cmdCancel}) {
        EXPECT_LE(boxOf(*button).right, inner.right) << button->name();
        EXPECT_LE(boxOf(*button).bottom, inner.bottom) << button->name();
    }
}

std::string dpiName(const ::testing::TestParamInfo<int>& info) {
    return std::to_string(info.param) + "Dpi";
}

// The pixels of 8.25, 9, 11.25 and 14.25 points, of which 72 are an inch.
struct FontCase {
    int dpi;
    LONG text;
    LONG congratulation;
    LONG title;
    LONG welcome;
};

constexpr FontCase kFontCases[] = {
    {96, 11, 12, 15, 19}, {144, 17, 18, 23, 29}, {192, 22, 24, 30, 38}, {288, 33, 36, 45, 57}};

class WindowFonts : public WindowLayout {
protected:
    void expectFont(const Control& control, LONG pixels, LONG weight) const {
        LOGFONTW font{};
        const auto handle =
            reinterpret_cast<HGDIOBJ>(SendMessageW(window_.handleOf(control), WM_GETFONT, 0, 0));
        ASSERT_NE(GetObjectW(handle, sizeof font, &font), 0) << control.name();
        EXPECT_STREQ(font.lfFaceName, L"Tahoma") << control.name();
        EXPECT_EQ(font.lfHeight, -pixels) << control.name();
        EXPECT_EQ(font.lfWeight, weight) << control.name();
        EXPECT_EQ(font.lfItalic, FALSE) << control.name();
    }
};

TEST_P(WindowFonts, AreTahomaInFourSizesOfWhichTitlesAreBold) {
    const FontCase* sizes = std::ranges::find(kFontCases, GetParam(), &FontCase::dpi);
    ASSERT_NE(sizes, std::end(kFontCases));

    expectFont(form_.lblWelcome, sizes->welcome, FW_NORMAL);
    expectFont(form_.lblCongratulation, sizes->congratulation, FW_NORMAL);
    for (const Label* title :
         {&form_.lblDescription1, &form_.lblDescription7, &form_.lblDescription13})
        expectFont(*title, sizes->title, FW_BOLD);
    for (const Control* control : std::initializer_list<const Control*>{
             &form_.lblInstruction0, &form_.optInstalledIIS, &form_.txtWebsiteIP, &form_.cmdNext,
             &form_.lblFinishInstruction})
        expectFont(*control, sizes->text, FW_NORMAL);
}

INSTANTIATE_TEST_SUITE_P(Dpi, WindowFonts, ::testing::Values(96, 144, 192, 288), dpiName);

INSTANTIATE_TEST_SUITE_P(Dpi, WindowLayout, ::testing::Values(96, 120, 144, 192, 288), dpiName);

}  // namespace
}  // namespace kv
