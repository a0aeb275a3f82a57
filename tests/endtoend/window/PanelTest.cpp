#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/PanelTour.h"
#include "tests/model/Form.h"
#include "tests/model/Tree.h"

namespace kv::endtoend {

namespace {

// What reads otherwise than in the design, or is hidden: then the text is empty.
struct ChangedText {
    std::string_view control;
    std::string_view text;
};

struct PanelCase {
    std::string_view name;  // in the tour
    std::vector<ChangedText> changed = {};

    std::string_view textOf(const design::Control& control) const {
        const auto found = std::ranges::find(changed, control.name, &ChangedText::control);
        return found != changed.end() ? found->text : control.caption;
    }
};

void PrintTo(const PanelCase& which, std::ostream* out) { *out << which.name; }

std::string testName(std::string_view tourName) {
    std::string name = "Panel" + std::string(tourName);
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

// Texts that the design leaves partly open, by the parts that it fixes.
bool isSupportText(std::string_view text) {
    return text.starts_with(kSupportBeginning) && text.ends_with(kSupportEnd) &&
           text.find('@') != std::string_view::npos;
}

bool isFakeDomainText(std::string_view text) {
    return text.starts_with(kFakeDomainBeginning) && text.ends_with(kFakeDomainEnd);
}

// Heights of Tahoma at 96 dpi: 8.25, 9, 11.25 (bold) and 14.25 points.
constexpr int kTextHeight = 11;
constexpr int kCongratulationHeight = 12;
constexpr int kTitleHeight = 15;
constexpr int kWelcomeHeight = 19;
constexpr int kOptionMark = 18;

int fontHeight(std::string_view text) {
    if (text == kPanelTitles[0]) return kWelcomeHeight;
    if (text == captionOf("lblCongratulation")) return kCongratulationHeight;
    const bool isTitle = std::ranges::count(kPanelTitles, text) > 0 || text == kActionNewTitle ||
                         text == kActionModifyTitle;
    return isTitle ? kTitleHeight : kTextHeight;
}

// A place to measure texts in Tahoma; only titles are bold.
class Typesetter {
public:
    explicit Typesetter(int height)
        : context_(CreateCompatibleDC(nullptr)),
          font_(CreateFontA(-height, 0, 0, 0, height == kTitleHeight ? FW_BOLD : FW_NORMAL, FALSE,
                            FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                            DEFAULT_QUALITY, DEFAULT_PITCH, "Tahoma")),
          previous_(SelectObject(context_, font_)) {}
    ~Typesetter() {
        SelectObject(context_, previous_);
        DeleteObject(font_);
        DeleteDC(context_);
    }
    Typesetter(const Typesetter&) = delete;
    Typesetter& operator=(const Typesetter&) = delete;

    HDC context() const { return context_; }

private:
    HDC context_;
    HFONT font_;
    HGDIOBJ previous_;
};

bool hasTahoma() {
    const Typesetter typesetter(kTextHeight);
    std::array<char, LF_FACESIZE> face{};
    GetTextFaceA(typesetter.context(), static_cast<int>(face.size()), face.data());
    return std::string_view(face.data()) == "Tahoma";
}

// The space that a text takes when its lines are broken at this width.
SIZE spaceFor(const std::string& text, int height, int width) {
    const Typesetter typesetter(height);
    RECT box{0, 0, width, 0};
    DrawTextA(typesetter.context(), text.c_str(), -1, &box,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    return {box.right, box.bottom};
}

const PanelCase kPanelCases[] = {
    {"0"},
    {"0 configured", {{"lblInstruction0", kWelcomeConfigured}}},
    {"1"},
    {"2"},
    {"3"},
    {"4"},
    {"5"},
    {"6"},
    {"7",
     {{"lblFolderHomeApache", kHomeApacheEmpty}, {"lblFolderScriptsApache", kScriptsApacheEmpty}}},
    {"7 filled",
     {{"lblFolderHomeApache", kHomeApacheFilled},
      {"lblFolderScriptsApache", kScriptsApacheFilled}}},
    {"8", {{"lblFolderHomeIIS", kHomeIisEmpty}, {"lblFolderScriptsIIS", kScriptsIisEmpty}}},
    {"9"},
    {"10"},
    {"11"},
    {"12"},
    {"12 upgrade", {{"lblErrInstruction", kUpgradeUnavailable}}},
    {"13 new",
     {{"lblDescription13", kActionNewTitle},
      {"lblInstruction13", kActionNewInstruction},
      {"lblModify", ""},
      {"lblBackup", ""},
      {"lblDelete", ""}}},
    {"13 modify",
     {{"lblDescription13", kActionModifyTitle},
      {"lblInstruction13", kActionModifyInstruction},
      {"lblNew", ""},
      {"lblUpgrade", ""}}},
    {"14"},
};

}  // namespace

class EveryPanel : public testing::TestWithParam<PanelCase> {
protected:
    const Snapshot& panel() const { return panelTour().at(std::string(GetParam().name)); }
};

TEST_P(EveryPanel, ShowsExactlyItsTexts) {
    const int number = panel().panel;
    Lines expected;
    for (const design::Control& control : design::kControls) {
        const std::string text(GetParam().textOf(control));
        const bool isName = control.box == design::kPanelNameBox;
        if (control.panel == number && !isName && !text.empty() && text != design::kOpenText)
            expected.push_back(text);
    }

    Lines shown;
    for (const ControlView& view : panel().onPanel()) {
        const bool open = (number == 12 && isSupportText(view.text)) ||
                          (number == 3 && isFakeDomainText(view.text));
        if (!open && !view.text.empty() && view.kind != ControlKind::TextBox)
            shown.push_back(view.text);
    }

    std::sort(expected.begin(), expected.end());
    std::sort(shown.begin(), shown.end());
    EXPECT_EQ(shown, expected);
}

TEST_P(EveryPanel, IsTheOnlyOneVisibleAndHidesItsName) {
    EXPECT_EQ(panel().visiblePanels, std::vector<int>{panel().panel});
    EXPECT_EQ(panel().panel, std::stoi(std::string(GetParam().name)));
    for (const ControlView& view : panel().controls) {
        const bool isName =
            std::find(kPanelNames.begin(), kPanelNames.end(), view.text) != kPanelNames.end();
        EXPECT_FALSE(isName && view.visible) << view.text;
    }
}

TEST_P(EveryPanel, SetsTheStatesOfTheFrameButtons) {
    const int number = panel().panel;
    const bool terminal = number == 11 || number == 12;
    const ControlView& back = panel().frameButton(kBack);
    const ControlView& next = panel().frameButton(kNext);
    const ControlView& cancel = panel().frameButton(kCancel);
    const ControlView& finish = panel().frameButton(kFinish);

    EXPECT_EQ(next.visible, !terminal);
    EXPECT_EQ(next.enabled, !terminal && number != 13);
    EXPECT_TRUE(back.visible);
    EXPECT_EQ(back.enabled, !terminal && number != 0);
    EXPECT_TRUE(cancel.visible);
    EXPECT_EQ(cancel.enabled, !terminal);
    EXPECT_EQ(finish.visible, terminal);
    EXPECT_EQ(finish.enabled, terminal);
}

TEST_P(EveryPanel, ClipsNoControl) {
    const auto box = [this] {
        for (const ControlView& view : panel().controls)
            if (view.handle == panel().panelWindow) return view.box;
        return Rectangle{};
    }();

    for (const ControlView& view : panel().onPanel()) {
        EXPECT_GE(view.box.left, 0) << view.text;
        EXPECT_GE(view.box.top, 0) << view.text;
        EXPECT_LE(view.box.right(), box.width) << view.text;
        EXPECT_LE(view.box.bottom(), box.height) << view.text;
    }
}

TEST_P(EveryPanel, OverlapsNoControls) {
    // The progress line's frame touches the line that fills it, by design.
    const auto isLine = [](const ControlView& view) {
        return view.text.empty() && (view.box.width <= 3 || view.box.height <= 3);
    };
    const auto overlap = [](const Rectangle& one, const Rectangle& other) {
        return one.left < other.right() && other.left < one.right() && one.top < other.bottom() &&
               other.top < one.bottom();
    };
    std::vector<ControlView> views = panel().onPanel();
    std::erase_if(views, isLine);

    for (std::size_t one = 0; one < views.size(); ++one) {
        for (std::size_t other = one + 1; other < views.size(); ++other) {
            EXPECT_FALSE(overlap(views[one].box, views[other].box)) << views[one].text << "\n"
                                                                    << views[other].text;
        }
    }
}

TEST_P(EveryPanel, ShowsItsTextsWhole) {
    if (!hasTahoma()) GTEST_SKIP() << "another font stands in for Tahoma";
    for (const ControlView& view : panel().onPanel()) {
        if (view.kind == ControlKind::Label && !view.text.empty()) {
            const SIZE needed = spaceFor(view.text, fontHeight(view.text), view.box.width);
            EXPECT_LE(needed.cx, view.box.width) << view.text;
            EXPECT_LE(needed.cy, view.box.height) << view.text;
        }
        if (view.kind == ControlKind::OptionButton) {
            EXPECT_LE(spaceFor(view.text, kTextHeight, 10000).cx, view.box.width - kOptionMark)
                << view.text;
        }
    }
}

TEST_P(EveryPanel, StartsWithNothingChosen) {
    for (const ControlView& view : panel().onPanel()) EXPECT_FALSE(view.checked) << view.text;
}

INSTANTIATE_TEST_SUITE_P(All, EveryPanel, testing::ValuesIn(kPanelCases),
                         [](const testing::TestParamInfo<PanelCase>& which) {
                             return testName(which.param.name);
                         });

TEST(ErrorPanel, NamesTheSupportAddressWhenTheStartFailed) {
    const std::vector<ControlView> views = panelTour().at("12").onPanel();

    EXPECT_EQ(std::count_if(views.begin(), views.end(),
                            [](const ControlView& view) { return isSupportText(view.text); }),
              1);
}

TEST(ApacheInstallationPanel, GivesTwoQuotedExamplesOfNames) {
    const std::vector<ControlView> views = panelTour().at("3").onPanel();
    const auto advice = std::find_if(views.begin(), views.end(), [](const ControlView& view) {
        return isFakeDomainText(view.text);
    });

    ASSERT_NE(advice, views.end());
    const std::string examples = advice->text.substr(
        kFakeDomainBeginning.size(),
        advice->text.size() - kFakeDomainBeginning.size() - kFakeDomainEnd.size());
    EXPECT_EQ(std::count(examples.begin(), examples.end(), '"'), 4) << examples;
    EXPECT_NE(examples.find("\"www."), std::string::npos) << examples;
}

}  // namespace kv::endtoend
