#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/PanelTour.h"
#include "tests/endtoend/steps/Scenario.h"
#include "tests/model/Form.h"

namespace kv::endtoend {

namespace {

int pixels(int twips) { return MulDiv(twips, 96, 1440); }

// The thinnest line is a pixel wide.
bool agrees(int seen, int twips) {
    return twips == design::kOpen || seen == (twips == 0 && seen != 0 ? 1 : pixels(twips));
}

bool stands(const Rectangle& box, const design::Box& place) {
    return agrees(box.left, place.left) && agrees(box.top, place.top) &&
           agrees(box.width, place.width) && agrees(box.height, place.height);
}

bool isOfKind(const ControlView& view, design::Kind kind) {
    switch (kind) {
        case design::Kind::TextBox: return view.kind == ControlKind::TextBox;
        case design::Kind::Option: return view.kind == ControlKind::OptionButton;
        case design::Kind::Button: return view.kind == ControlKind::CommandButton;
        default: return view.kind == ControlKind::Label;
    }
}

// In words, for who has to find out what stands there instead.
std::string boxesOf(const std::vector<ControlView>& views, design::Kind kind) {
    std::string text;
    for (const ControlView& view : views) {
        if (isOfKind(view, kind)) {
            text += "\"" + view.text + "\" at (" + std::to_string(view.box.left) + ", " +
                    std::to_string(view.box.top) + ") " + std::to_string(view.box.width) + " x " +
                    std::to_string(view.box.height) + " pixels\n";
        }
    }
    return text;
}

void expectStands(const std::string& panel, const design::Control& control) {
    const std::vector<ControlView> views = panelTour().at(panel).onPanel();
    EXPECT_TRUE(std::ranges::any_of(views,
                                    [&](const ControlView& view) {
                                        return isOfKind(view, control.kind) &&
                                               stands(view.box, control.box);
                                    }))
        << control.name << " expected at (" << pixels(control.box.left) << ", "
        << pixels(control.box.top) << ") " << pixels(control.box.width) << " x "
        << pixels(control.box.height) << "; seen is\n"
        << boxesOf(views, control.kind);
}

// What only the start of the wizard, an operation or the choice of actions puts into its place.
struct MovedControl {
    std::string_view panel;  // in the tour
    design::Control control;
};

const MovedControl kMovedControls[] = {
    {"11", {"lblProgress", design::Kind::Label, 11, {360, 1560, 5655, 255}, ""}},
    {"13 new", {"cmdNew", design::Kind::Button, 13, {720, 1800, 735, 735}, ""}},
    {"13 new", {"cmdUpgrade", design::Kind::Button, 13, {720, 3120, 735, 735}, ""}},
    {"13 new", {"lblNew", design::Kind::Label, 13, {1680, 2040, 3495, design::kOpen}, ""}},
    {"13 new", {"lblUpgrade", design::Kind::Label, 13, {1680, 3360, 3495, design::kOpen}, ""}},
    {"13 modify", {"cmdModify", design::Kind::Button, 13, {720, 1680, 735, 735}, ""}},
    {"13 modify", {"cmdBackup", design::Kind::Button, 13, {720, 2520, 735, 735}, ""}},
    {"13 modify", {"cmdDelete", design::Kind::Button, 13, {720, 3360, 735, 735}, ""}},
    {"13 modify", {"lblModify", design::Kind::Label, 13, {1680, 1920, 3495, design::kOpen}, ""}},
    {"13 modify", {"lblBackup", design::Kind::Label, 13, {1680, 2760, 3495, design::kOpen}, ""}},
    {"13 modify", {"lblDelete", design::Kind::Label, 13, {1680, 3600, 3615, design::kOpen}, ""}},
};

constexpr design::Box kSidePicture = design::controlOf("PicConfig").box;
constexpr design::Box kBackPlace = design::controlOf("cmdBack").box;
constexpr design::Box kNextPlace = design::controlOf("cmdNext").box;
constexpr design::Box kCancelPlace = design::controlOf("cmdCancel").box;
constexpr design::Box kFinishOutside = design::controlOf("cmdFinish").box;

}  // namespace

TEST(Geometry, EveryControlStandsInItsPlace) {
    for (const design::Control& control : design::kControls) {
        const bool moved = std::ranges::any_of(kMovedControls, [&](const MovedControl& other) {
            return other.control.name == std::string_view(control.name);
        });
        const bool isName = std::string_view(control.name).starts_with("lblPanelID");
        if (control.panel == design::kOnWindow || control.box.left == design::kOpen || isName ||
            moved)
            continue;
        const std::string panel = std::to_string(control.panel);
        expectStands(control.panel == 13 ? "13 new" : panel, control);
    }
    for (const MovedControl& moved : kMovedControls)
        expectStands(std::string(moved.panel), moved.control);
}

TEST(Geometry, EveryPanelStandsBesideThePicture) {
    for (const auto& [name, snapshot] : panelTour()) {
        for (const ControlView& view : snapshot.controls)
            if (view.handle == snapshot.panelWindow) {
                EXPECT_TRUE(stands(view.box, design::kPanelBox)) << name;
            }
    }
}

TEST(Geometry, PanelNamesStandAtTheTop) {
    for (const ControlView& view : panelTour().at("0").controls)
        if (std::find(kPanelNames.begin(), kPanelNames.end(), view.text) != kPanelNames.end()) {
            EXPECT_TRUE(stands(view.box, design::kPanelNameBox)) << view.text;
        }
}

TEST(Geometry, FrameButtonsStandInARow) {
    for (const auto& [name, snapshot] : panelTour()) {
        EXPECT_TRUE(stands(snapshot.frameButton(kBack).box, kBackPlace)) << name;
        EXPECT_TRUE(stands(snapshot.frameButton(kNext).box, kNextPlace)) << name;
        EXPECT_TRUE(stands(snapshot.frameButton(kCancel).box, kCancelPlace)) << name;
    }
}

TEST(Geometry, FinishTakesThePlaceOfNextOnlyAtTheEnd) {
    for (const auto& [name, snapshot] : panelTour()) {
        const bool atEnd = snapshot.panel == 11 || snapshot.panel == 12;

        EXPECT_TRUE(stands(snapshot.frameButton(kFinish).box, atEnd ? kNextPlace : kFinishOutside))
            << name;
    }
}

TEST(Geometry, SidePictureStandsAtTheLeft) {
    const std::vector<ControlView> views = panelTour().at("0").onFrame();

    EXPECT_TRUE(std::any_of(views.begin(), views.end(), [](const ControlView& view) {
        return view.visible && stands(view.box, kSidePicture);
    }));
}

TEST(Geometry, WindowHasItsSizeOnEveryPanel) {
    for (const auto& [name, snapshot] : panelTour()) {
        EXPECT_EQ(snapshot.window.width, pixels(design::kWindowWidth)) << name;
        EXPECT_EQ(snapshot.client.height, pixels(design::kWindowClientHeight)) << name;
    }
}

using Resizing = Scenario;

TEST_F(Resizing, WindowReturnsToItsSize) {
    start();
    RECT before{};
    GetWindowRect(wizard().window(), &before);

    SetWindowPos(wizard().window(), nullptr, 0, 0, 800, 600, SWP_NOZORDER | SWP_NOMOVE);
    RECT after{};
    GetWindowRect(wizard().window(), &after);

    EXPECT_EQ(after.right - after.left, before.right - before.left);
    EXPECT_EQ(after.bottom - after.top, before.bottom - before.top);
}

}  // namespace kv::endtoend
