#include <algorithm>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "PanelTexts.h"
#include "PanelTour.h"
#include "Scenario.h"

namespace kv::endtoend {

namespace {

// A measure that the design leaves open.
constexpr int kOpen = -1;

// Twips, 1/1440 inch.
struct Place {
    int left = kOpen;
    int top = kOpen;
    int width = kOpen;
    int height = kOpen;
};

enum class Kind { kText, kTextBox, kBrowse, kPicture };

struct PlacedControl {
    std::string_view panel;  // in the tour
    Kind kind;
    std::string_view text;  // what a text box or picture button is known by is its place
    Place place;
};

int pixels(int twips) { return MulDiv(twips, 96, 1440); }

bool agrees(int seen, int twips) { return twips == kOpen || seen == pixels(twips); }

bool stands(const Rectangle& box, const Place& place) {
    return agrees(box.left, place.left) && agrees(box.top, place.top) &&
           agrees(box.width, place.width) && agrees(box.height, place.height);
}

bool isOfKind(const ControlView& view, const PlacedControl& control) {
    switch (control.kind) {
        case Kind::kText: return view.text == control.text;
        case Kind::kTextBox: return view.kind == ControlKind::kTextBox;
        case Kind::kBrowse: return view.text == kBrowse;
        case Kind::kPicture: return view.kind == ControlKind::kCommandButton && view.text.empty();
    }
    return false;
}

std::string boxesOf(const std::vector<ControlView>& views, const PlacedControl& control) {
    std::string text;
    for (const ControlView& view : views) {
        if (isOfKind(view, control)) {
            text += "seen at (" + std::to_string(view.box.left) + ", " +
                    std::to_string(view.box.top) + ") " + std::to_string(view.box.width) + " x " +
                    std::to_string(view.box.height) + " pixels\n";
        }
    }
    return text;
}

constexpr Place kTitle{120, 240, 6135, 495};
constexpr Place kInstruction{120, 840, 6135, kOpen};

const PlacedControl kPlacedControls[] = {
    {"0", Kind::kText, texts::kWelcome[0], kInstruction},
    {"1", Kind::kText, kPanelTitles[1], kTitle},
    {"1", Kind::kText, texts::kServerExist[0], kInstruction},
    {"1", Kind::kText, kInstalledIis, {360, 1680, 6015, 255}},
    {"1", Kind::kText, kInstalledApache, {360, 2160, 6015, 255}},
    {"1", Kind::kText, kInstalledOther, {360, 2640, 6015, 255}},
    {"1", Kind::kText, kInstalledNothing, {360, 3120, 6015, 255}},
    {"2", Kind::kText, kPanelTitles[2], kTitle},
    {"2", Kind::kText, texts::kServerInstall[0], kInstruction},
    {"2", Kind::kText, kInstallingIis, {360, 1680, 6015, 255}},
    {"2", Kind::kText, kInstallingApache, {360, 2160, 6015, 255}},
    {"2", Kind::kText, kInstallingOther, {360, 2640, 6015, 255}},
    {"2", Kind::kText, kInstallingAnyone, {360, 3120, 6015, 255}},
    {"3", Kind::kText, kPanelTitles[3], kTitle},
    {"3", Kind::kText, texts::kServerInstallApache[0], kInstruction},
    {"3", Kind::kText, "&Download Apache", {4680, 1440, 1695, 375}},
    {"4", Kind::kText, kPanelTitles[4], kTitle},
    {"4", Kind::kText, texts::kInstallIis[0], kInstruction},
    {"5", Kind::kText, kPanelTitles[5], kTitle},
    {"5", Kind::kText, texts::kInstallOther[0], kInstruction},
    {"6", Kind::kText, kPanelTitles[6], kTitle},
    {"6", Kind::kText, texts::kAccess[0], kInstruction},
    {"6", Kind::kText, kUrlDefault, {360, 2040, 5895, 255}},
    {"6", Kind::kText, kUrlKv, {360, 2520, 5895, 255}},
    {"7", Kind::kText, kPanelTitles[7], kTitle},
    {"7", Kind::kText, kEnterFolders, kInstruction},
    {"7", Kind::kText, kHomeApacheEmpty, {360, 1440, kOpen, kOpen}},
    {"7", Kind::kText, kScriptsApacheEmpty, {360, 2520, kOpen, kOpen}},
    {"7", Kind::kTextBox, "", {600, 1800, 5295, 315}},
    {"7", Kind::kTextBox, "", {600, 2880, 5295, 315}},
    {"7", Kind::kBrowse, "", {6000, 1800, 375, 375}},
    {"7", Kind::kBrowse, "", {6000, 2880, 375, 375}},
    {"7", Kind::kText, "&Help", {4680, 3720, 1695, 375}},
    {"8", Kind::kText, kPanelTitles[8], kTitle},
    {"8", Kind::kText, kEnterFolders, kInstruction},
    {"8", Kind::kText, kHomeIisEmpty, {360, 1440, kOpen, kOpen}},
    {"8", Kind::kText, kScriptsIisEmpty, {360, 2520, kOpen, kOpen}},
    {"8", Kind::kTextBox, "", {600, 1800, 5295, 315}},
    {"8", Kind::kTextBox, "", {600, 2880, 5295, 315}},
    {"8", Kind::kBrowse, "", {6000, 1800, 375, 375}},
    {"8", Kind::kBrowse, "", {6000, 2880, 375, 375}},
    {"8", Kind::kText, "&Help", {4680, 3720, 1695, 375}},
    {"9", Kind::kText, kPanelTitles[9], kTitle},
    {"9", Kind::kText, kEnterFolders, kInstruction},
    {"9", Kind::kText, texts::kOtherFolders[1], {360, 1440, kOpen, kOpen}},
    {"9", Kind::kText, texts::kOtherFolders[2], {360, 2520, kOpen, kOpen}},
    {"9", Kind::kTextBox, "", {600, 1800, 5295, 315}},
    {"9", Kind::kTextBox, "", {600, 2880, 5295, 315}},
    {"9", Kind::kBrowse, "", {6000, 1800, 375, 375}},
    {"9", Kind::kBrowse, "", {6000, 2880, 375, 375}},
    {"10", Kind::kText, kPanelTitles[10], kTitle},
    {"10", Kind::kText, kConfirmWriting, kInstruction},
    {"11", Kind::kText, "", {360, 1560, 5655, 255}},
    {"12", Kind::kText, "Help", {5160, 1800, 1095, 375}},
    {"12 upgrade", Kind::kText, "Help", {5160, 1800, 1095, 375}},
    {"13 new", Kind::kText, kActionNewTitle, kTitle},
    {"13 new", Kind::kText, texts::kActionNew[0], kInstruction},
    {"13 new", Kind::kPicture, "", {720, 1800, 735, 735}},
    {"13 new", Kind::kPicture, "", {720, 3120, 735, 735}},
    {"13 new", Kind::kText, kNewLabel, {1680, 2040, 3495, kOpen}},
    {"13 new", Kind::kText, kUpgradeLabel, {1680, 3360, 3495, kOpen}},
    {"13 modify", Kind::kText, kActionModifyTitle, kTitle},
    {"13 modify", Kind::kText, texts::kActionModify[0], kInstruction},
    {"13 modify", Kind::kPicture, "", {720, 1680, 735, 735}},
    {"13 modify", Kind::kPicture, "", {720, 2520, 735, 735}},
    {"13 modify", Kind::kPicture, "", {720, 3360, 735, 735}},
    {"13 modify", Kind::kText, kModifyLabel, {1680, 1920, 3495, kOpen}},
    {"13 modify", Kind::kText, kBackupLabel, {1680, 2760, 3495, kOpen}},
    {"13 modify", Kind::kText, kDeleteLabel, {1680, 3600, 3615, kOpen}},
    {"14", Kind::kText, kPanelTitles[14], kTitle},
    {"14", Kind::kText, texts::kAddress[0], kInstruction},
    {"14", Kind::kTextBox, "", {1080, 1800, 4815, 315}},
    {"14", Kind::kTextBox, "", {1080, 2760, 4815, 315}},
    {"14", Kind::kText, "Help", {4440, 3600, kOpen, kOpen}},
};

constexpr Place kPanelPlace{1560, 0, 6495, 4750};
constexpr Place kPanelNamePlace{120, 0, kOpen, kOpen};
constexpr Place kSidePicture{120, 120, 1335, 5175};
constexpr Place kBackPlace{4560, 4920, 1095, 375};
constexpr Place kNextPlace{5640, 4920, 1095, 375};
constexpr Place kCancelPlace{6960, 4920, 1095, 375};
constexpr Place kFinishOutside{8160, 4920, 1095, 375};
constexpr int kWindowWidth = 8300;
constexpr int kClientHeight = 5430;

}  // namespace

TEST(Geometry, EveryControlStandsInItsPlace) {
    for (const PlacedControl& control : kPlacedControls) {
        const std::vector<ControlView> views = panelTour().at(std::string(control.panel)).onPanel();
        const bool found = std::any_of(views.begin(), views.end(), [&](const ControlView& view) {
            return isOfKind(view, control) && stands(view.box, control.place);
        });

        EXPECT_TRUE(found) << "panel " << control.panel << ": \"" << control.text
                           << "\" expected at (" << pixels(control.place.left) << ", "
                           << pixels(control.place.top) << ") " << pixels(control.place.width)
                           << " x " << pixels(control.place.height) << "\n"
                           << boxesOf(views, control);
    }
}

TEST(Geometry, EveryPanelStandsBesideThePicture) {
    for (const auto& [name, snapshot] : panelTour()) {
        for (const ControlView& view : snapshot.controls) {
            if (view.handle == snapshot.panelWindow) {
                EXPECT_TRUE(stands(view.box, kPanelPlace)) << name;
            }
        }
    }
}

TEST(Geometry, PanelNamesStandAtTheTop) {
    for (const ControlView& view : panelTour().at("0").controls) {
        if (std::find(kPanelNames.begin(), kPanelNames.end(), view.text) != kPanelNames.end()) {
            EXPECT_TRUE(stands(view.box, kPanelNamePlace)) << view.text;
        }
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
        EXPECT_EQ(snapshot.window.width, pixels(kWindowWidth)) << name;
        EXPECT_EQ(snapshot.client.height, pixels(kClientHeight)) << name;
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
