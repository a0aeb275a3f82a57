#include "wizard/form/frmWebConfig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/model/Form.h"
#include "tests/support/Wizard.h"

namespace kv {
namespace {

ControlKind kindOf(design::Kind kind) {
    switch (kind) {
        case design::Kind::Label: return ControlKind::Label;
        case design::Kind::TextBox: return ControlKind::TextBox;
        case design::Kind::Option: return ControlKind::OptionButton;
        case design::Kind::Button: return ControlKind::CommandButton;
        case design::Kind::Picture: return ControlKind::PictureBox;
        case design::Kind::Line: return ControlKind::Line;
    }
    return ControlKind::Label;
}

const Control* find(const frmWebConfig& form, const std::string& name) {
    const auto controls = form.controls();
    const auto found = std::ranges::find(controls, name, &Control::name);
    return found == controls.end() ? nullptr : *found;
}

void expectMeasure(Twips measure, int designed) {
    if (designed != design::kOpen) {
        EXPECT_EQ(measure, designed);
    }
}

std::string testName(const testing::TestParamInfo<design::Control>& info) {
    std::string name = info.param.name;
    std::erase(name, ')');
    std::ranges::replace(name, '(', '_');
    return name;
}

class ControlTest : public testing::TestWithParam<design::Control> {
protected:
    frmWebConfig form_;
    const Control* const control_ = find(form_, GetParam().name);
};

TEST_P(ControlTest, IsThereInItsKindAndOnItsPanel) {
    ASSERT_NE(control_, nullptr);
    EXPECT_EQ(control_->kind(), kindOf(GetParam().kind));
    const int panel = GetParam().panel;
    EXPECT_EQ(control_->parent(), panel == design::kOnWindow
                                      ? nullptr
                                      : &form_.picPanel[static_cast<std::size_t>(panel)]);
}

TEST_P(ControlTest, StandsInItsPlace) {
    ASSERT_NE(control_, nullptr);
    const design::Box& designed = GetParam().box;
    expectMeasure(control_->box().left, designed.left);
    expectMeasure(control_->box().top, designed.top);
    expectMeasure(control_->box().width, designed.width);
    expectMeasure(control_->box().height, designed.height);
}

TEST_P(ControlTest, HasItsCaption) {
    ASSERT_NE(control_, nullptr);
    if (GetParam().caption != std::string_view(design::kOpenText)) {
        EXPECT_EQ(control_->caption(), GetParam().caption);
    }
}

INSTANTIATE_TEST_SUITE_P(Form, ControlTest, testing::ValuesIn(design::kControls), testName);

class frmWebConfigTest : public testing::Test {
protected:
    Lines namesOfAll(auto&& wanted) const {
        Lines names;
        for (const Control* control : form_.controls())
            if (wanted(*control)) names.emplace_back(control->name());
        std::ranges::sort(names);
        return names;
    }

    frmWebConfig form_;
};

TEST_F(frmWebConfigTest, IsTitledWithTheWizardsName) {
    EXPECT_EQ(form_.caption(), "Korvane Configuration Wizard");
}

TEST_F(frmWebConfigTest, IsEightThousandThreeHundredWideAndItsClientArea5430High) {
    EXPECT_EQ(kWindowOuterWidth, design::kWindowWidth);
    EXPECT_EQ(kWindowInnerHeight, design::kWindowClientHeight);
}

TEST_F(frmWebConfigTest, HoldsTheDesignedControlsOnceEachAndTwoSeparatorLines) {
    std::multiset<std::string> designed;
    for (const design::Control& row : design::kControls) designed.insert(row.name);
    std::multiset<std::string> present;
    for (const Control* control : form_.controls())
        if (!control->name().starts_with("lineSeparator")) present.emplace(control->name());

    EXPECT_EQ(present, designed);
    EXPECT_EQ(form_.controls().size(), designed.size() + 2);
}

TEST_F(frmWebConfigTest, PanelThreeHasAnEtchedSeparatorOfTwoLines) {
    std::vector<Box> lines;
    for (const Control* control : form_.controls())
        if (control->kind() == ControlKind::Line && control->parent() == &form_.picPanel[3])
            lines.push_back(control->box());

    EXPECT_EQ(lines, (std::vector<Box>{{120, 1920, 6300, 0}, {120, 1928, 6300, 0}}));
}

// Their last line tells of a help button or of the server's own pages.
TEST_F(frmWebConfigTest, TheFoldersOfEachServerStandAlike) {
    const auto placesOn = [&](std::size_t panel) {
        std::vector<Box> places;
        for (const Control* control : form_.controls())
            if (control->parent() == &form_.picPanel[panel]) places.push_back(control->box());
        constexpr std::size_t kUpToTheScriptsFolder = 9;
        places.resize(kUpToTheScriptsFolder);
        return places;
    };

    EXPECT_EQ(placesOn(8), placesOn(7));
    EXPECT_EQ(placesOn(9), placesOn(7));
}

TEST_F(frmWebConfigTest, TheTextsBesideTheHelpButtonsStandAtTheirHeight) {
    const std::pair<const Label&, const CommandButton&> rows[] = {
        {form_.lblDownloadApache, form_.cmdDownloadApache},
        {form_.lblInfo, form_.cmdHelpUrl},
        {form_.lblInfoFolderApache, form_.cmdHelpFolderApche},
        {form_.lblInfoFolderIIS, form_.cmdHelpFolderIIS},
        {form_.lblHelpWebsiteIP, form_.cmdHelpWebsiteIP},
    };
    for (const auto& [text, button] : rows) {
        EXPECT_GE(text.box().top, button.box().top) << text.name();
        EXPECT_LT(text.box().top, button.box().top + button.box().height) << text.name();
        EXPECT_LE(text.box().left + text.box().width, button.box().left) << text.name();
    }
}

TEST_F(frmWebConfigTest, TheExampleDomainsStandInTheAdviceOnApache) {
    const std::string caption = form_.lblInstruction3_3.caption();

    EXPECT_TRUE(caption.starts_with(
        "If you don't have a registed domain name and static IP address, a fake domain name, such "
        "as indicated by installation wizard \""));
    EXPECT_TRUE(caption.ends_with("\", can be used."));
    EXPECT_EQ(std::ranges::count(caption, '"'), 4);
    EXPECT_NE(caption.find("\"www."), std::string::npos);
    EXPECT_EQ(form_.lblInstruction3_3.parent(), &form_.picPanel[3]);
}

TEST_F(frmWebConfigTest, TheErrorPanelsTextNamesTheSupportsAddress) {
    const std::string caption = form_.lblErrInstruction.caption();

    EXPECT_TRUE(
        caption.starts_with("The installation is not correct, please try the installation again, "
                            "or send email to "));
    EXPECT_TRUE(caption.ends_with(". Click on Finish to exit."));
    EXPECT_NE(caption.find('@'), std::string::npos);
    EXPECT_EQ(form_.lblErrInstruction.parent(), &form_.picPanel[12]);
}

TEST_F(frmWebConfigTest, TheTitlesOfThePanelsHaveTheTitleFont) {
    const auto inTitleFont = [](const Control& control) {
        const auto* label = dynamic_cast<const Label*>(&control);
        return label && label->font() == Font::Title;
    };

    Lines titles;
    for (const design::Control& row : design::kControls)
        if (row.box == design::kTitleBox && row.panel != 0) titles.emplace_back(row.name);
    std::ranges::sort(titles);
    EXPECT_EQ(namesOfAll(inTitleFont), titles);
}

TEST_F(frmWebConfigTest, TheWelcomePanelHasFontsOfItsOwn) {
    EXPECT_EQ(form_.lblWelcome.font(), Font::Welcome);
    EXPECT_EQ(form_.lblCongratulation.font(), Font::Congratulation);
    EXPECT_EQ(form_.lblInstruction0.font(), Font::Normal);
}

TEST_F(frmWebConfigTest, TheProgressLineHasTheHighlightColour) {
    EXPECT_EQ(form_.lblProgress.background(), Colour::Highlight);
}

TEST_F(frmWebConfigTest, TheSidePictureAndTheActionButtonsShowPicturesOfTheirOwn) {
    const std::set<std::string_view> pictures{
        form_.PicConfig.picture(), form_.cmdNew.picture(),    form_.cmdUpgrade.picture(),
        form_.cmdModify.picture(), form_.cmdBackup.picture(), form_.cmdDelete.picture()};

    EXPECT_EQ(pictures.size(), 6u);
    EXPECT_FALSE(pictures.contains(""));
}

TEST_F(frmWebConfigTest, NoOptionIsChosenAndNoBoxHoldsText) {
    for (const Control* control : form_.controls()) {
        if (const auto* option = dynamic_cast<const OptionButton*>(control)) {
            EXPECT_FALSE(option->value()) << control->name();
        }
        if (const auto* box = dynamic_cast<const TextBox*>(control)) {
            EXPECT_EQ(box->text(), "") << control->name();
        }
    }
}

struct SpokenName {
    const char* control;
    const char* name;
};

// What a screen reader says of the controls that show a picture, an ellipsis or nothing.
const SpokenName kSpokenNames[] = {
    {"cmdFolderHomeApache", "Browse for the document root"},
    {"cmdFolderScriptsApache", "Browse for the cgi-bin folder"},
    {"cmdFolderHomeIIS", "Browse for the home directory"},
    {"cmdFolderScriptsIIS", "Browse for the Scripts directory"},
    {"cmdFolderHomeOthers", "Browse for the document root"},
    {"cmdFolderScriptsOthers", "Browse for the cgi-bin folder"},
    {"cmdNew", "New installation"},
    {"cmdUpgrade", "Upgrade"},
    {"cmdModify", "Modify"},
    {"cmdBackup", "Backup"},
    {"cmdDelete", "Delete"},
    {"lblProgress", "Progress"},
};

class SpokenNameTest : public testing::TestWithParam<SpokenName> {};

TEST_P(SpokenNameTest, IsWhatAScreenReaderSays) {
    const frmWebConfig form;
    const Control* control = find(form, GetParam().control);

    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->accessibleName(), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Form, SpokenNameTest, testing::ValuesIn(kSpokenNames),
                         [](const auto& row) { return std::string(row.param.control); });

TEST_F(frmWebConfigTest, NoOtherControlOnAPanelHasANameOfItsOwnForAScreenReader) {
    Lines named;
    for (const SpokenName& row : kSpokenNames) named.emplace_back(row.control);
    std::ranges::sort(named);

    EXPECT_EQ(
        namesOfAll([](const Control& c) { return !isPanel(c) && !c.accessibleName().empty(); }),
        named);
}

class StartedFormTest : public testing::Test {
protected:
    StartedFormTest() { wizard_.load(); }

    SampleDisk disk_;
    Wizard wizard_{disk_};
};

TEST_F(StartedFormTest, HidesAllPanelsButTheWelcomeAllPanelNamesFinishAndTheActionControls) {
    std::set<std::string> hidden;
    for (const Control* control : wizard_.form.controls())
        if (!control->visible()) hidden.emplace(control->name());

    std::set<std::string> expected{"cmdFinish", "cmdNew",    "cmdUpgrade", "cmdModify",
                                   "cmdBackup", "cmdDelete", "lblNew",     "lblUpgrade",
                                   "lblModify", "lblBackup", "lblDelete"};
    for (std::size_t n = 0; n < design::kPanelCount; ++n) {
        expected.insert("lblPanelID(" + std::to_string(n) + ")");
        if (n != 0) expected.insert("picPanel(" + std::to_string(n) + ")");
    }
    EXPECT_EQ(hidden, expected);
}

TEST_F(StartedFormTest, DisablesTheHiddenPanelsBackFinishAndTheActionButtons) {
    std::set<std::string> disabled;
    for (const Control* control : wizard_.form.controls())
        if (!control->enabled() && !control->name().starts_with("lblPanelID"))
            disabled.emplace(control->name());

    std::set<std::string> expected{"cmdBack",   "cmdFinish", "cmdNew",   "cmdUpgrade",
                                   "cmdModify", "cmdBackup", "cmdDelete"};
    for (std::size_t n = 1; n < design::kPanelCount; ++n)
        expected.insert("picPanel(" + std::to_string(n) + ")");
    EXPECT_EQ(disabled, expected);
}

}  // namespace
}  // namespace kv
