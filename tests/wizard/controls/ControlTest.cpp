#include "wizard/controls/Control.h"

#include <algorithm>
#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "wizard/controls/Form.h"

namespace kv {
namespace {

constexpr Box kBox{10, 20, 300, 400};

struct TestForm : Form {
    TestForm() : Form("Test form") {}

    PictureBox picFirst{*this, {"picFirst", kBox}};
    PictureBox picSecond{*this, {"picSecond", kBox, "side"}};
    Label lblText{picFirst, {"lblText", kBox, "Text"}};
    Line lineOne{picFirst, {"lineOne", {1, 2, 300, 0}}};
    TextBox txtFolder{picFirst, {"txtFolder", kBox}};
    OptionButton optA{picFirst, {"optA", kBox, "&A"}};
    OptionButton optB{picFirst, {"optB", kBox, "&B"}};
    OptionButton optC{picFirst, {"optC", kBox, "&C"}};
    OptionButton optOther{picSecond, {"optOther", kBox, "&Other"}};
    CommandButton cmdHelp{picFirst, {"cmdHelp", kBox, "&Help", "icon"}};
    CommandButton cmdNext{*this, {"cmdNext", kBox, "&Next"}};
};

using Change = std::pair<std::string, Property>;
using Changes = std::vector<Change>;

class Recorder final : public ControlObserver {
public:
    void onChanged(Control& control, Property property) override {
        changes.emplace_back(control.name(), property);
        if (whileChanged) whileChanged();
    }
    void onClosed() override { ++closed; }

    Changes changes;
    std::function<void()> whileChanged;
    int closed = 0;
};

class ControlTest : public testing::Test {
protected:
    ControlTest() { form_.observe(&recorder_); }

    // What has been told so far, in an order of its own.
    Changes changes() {
        std::ranges::sort(recorder_.changes);
        return recorder_.changes;
    }

    Recorder recorder_;
    TestForm form_;
};

// What a control is

TEST_F(ControlTest, TheFormHasItsControlsInTheOrderOfTheirDeclaration) {
    std::vector<std::string> names;
    for (const Control* control : form_.controls()) names.emplace_back(control->name());

    EXPECT_EQ(names,
              (std::vector<std::string>{"picFirst", "picSecond", "lblText", "lineOne", "txtFolder",
                                        "optA", "optB", "optC", "optOther", "cmdHelp", "cmdNext"}));
}

TEST_F(ControlTest, AControlKnowsItsKind) {
    EXPECT_EQ(form_.picFirst.kind(), ControlKind::PictureBox);
    EXPECT_EQ(form_.lblText.kind(), ControlKind::Label);
    EXPECT_EQ(form_.lineOne.kind(), ControlKind::Line);
    EXPECT_EQ(form_.txtFolder.kind(), ControlKind::TextBox);
    EXPECT_EQ(form_.optA.kind(), ControlKind::OptionButton);
    EXPECT_EQ(form_.cmdHelp.kind(), ControlKind::CommandButton);
    EXPECT_EQ(form_.cmdNext.kind(), ControlKind::CommandButton);
}

TEST_F(ControlTest, AControlKnowsItsFormAndItsParent) {
    for (const Control* control : form_.controls()) EXPECT_EQ(&control->form(), &form_);
    EXPECT_EQ(form_.picFirst.parent(), nullptr);
    EXPECT_EQ(form_.cmdNext.parent(), nullptr);
    EXPECT_EQ(form_.optOther.parent(), &form_.picSecond);
    EXPECT_EQ(form_.cmdHelp.parent(), &form_.picFirst);
}

TEST_F(ControlTest, AControlStartsAsDeclared) {
    EXPECT_EQ(form_.lblText.box(), kBox);
    EXPECT_EQ(form_.lblText.caption(), "Text");
    EXPECT_EQ(form_.optA.caption(), "&A");
    EXPECT_EQ(form_.txtFolder.text(), "");
    EXPECT_FALSE(form_.optA.value());
    EXPECT_FALSE(form_.cmdNext.isDefault());
    EXPECT_EQ(form_.cmdHelp.picture(), "icon");
    EXPECT_EQ(form_.cmdNext.picture(), "");
    EXPECT_EQ(form_.picFirst.picture(), "");
    EXPECT_EQ(form_.picSecond.picture(), "side");
}

TEST_F(ControlTest, AControlStartsEnabledAndVisible) {
    for (const Control* control : form_.controls()) {
        EXPECT_TRUE(control->enabled()) << control->name();
        EXPECT_TRUE(control->visible()) << control->name();
        EXPECT_TRUE(control->reachable()) << control->name();
    }
}

// Changes

struct Setting {
    const char* fact;
    std::function<void(TestForm&)> change;
    Change told;
};
void PrintTo(const Setting& change, std::ostream* out) { *out << change.fact; }

class ChangeOfAControl : public ControlTest, public testing::WithParamInterface<Setting> {};

TEST_P(ChangeOfAControl, IsToldOnce) {
    GetParam().change(form_);

    EXPECT_EQ(recorder_.changes, Changes{GetParam().told});
}

TEST_P(ChangeOfAControl, IsNotToldAgainWhenNothingChanges) {
    GetParam().change(form_);
    recorder_.changes.clear();

    GetParam().change(form_);

    EXPECT_EQ(recorder_.changes, Changes{});
}

TEST_P(ChangeOfAControl, NeedsNoObserver) {
    form_.observe(nullptr);

    GetParam().change(form_);

    EXPECT_EQ(recorder_.changes, Changes{});
}

INSTANTIATE_TEST_SUITE_P(
    Control, ChangeOfAControl,
    testing::Values(
        Setting{"Box",
                [](TestForm& form) {
                    form.lblText.setBox({1, 2, 3, 4});
                },
                {"lblText", Property::Box}},
        Setting{
            "Left", [](TestForm& form) { form.lblText.setLeft(11); }, {"lblText", Property::Box}},
        Setting{"Width",
                [](TestForm& form) { form.lineOne.setWidth(301); },
                {"lineOne", Property::Box}},
        Setting{"Caption",
                [](TestForm& form) { form.lblText.setCaption("Other"); },
                {"lblText", Property::Caption}},
        Setting{"NoCaption",
                [](TestForm& form) { form.cmdNext.setCaption(""); },
                {"cmdNext", Property::Caption}},
        Setting{"AccessibleName",
                [](TestForm& form) { form.cmdHelp.setAccessibleName("Help"); },
                {"cmdHelp", Property::AccessibleName}},
        Setting{"AccessibleValue",
                [](TestForm& form) { form.picFirst.setAccessibleValue("50 %"); },
                {"picFirst", Property::AccessibleValue}},
        Setting{"Disabled",
                [](TestForm& form) { form.cmdNext.setEnabled(false); },
                {"cmdNext", Property::Enabled}},
        Setting{"Hidden",
                [](TestForm& form) { form.picFirst.setVisible(false); },
                {"picFirst", Property::Visible}},
        Setting{"Text",
                [](TestForm& form) { form.txtFolder.setText("C:\\"); },
                {"txtFolder", Property::Text}},
        Setting{"On", [](TestForm& form) { form.optA.setValue(true); }, {"optA", Property::Value}},
        Setting{"Clicked", [](TestForm& form) { form.optA.click(); }, {"optA", Property::Value}},
        Setting{"Default",
                [](TestForm& form) { form.cmdNext.setDefault(true); },
                {"cmdNext", Property::Default}}),
    [](const auto& change) { return std::string(change.param.fact); });

TEST_F(ControlTest, WhatIsSetToItsOwnValueIsNotTold) {
    form_.lblText.setBox(kBox);
    form_.lblText.setLeft(10);
    form_.lblText.setWidth(300);
    form_.lblText.setCaption("Text");
    form_.lblText.setEnabled(true);
    form_.lblText.setVisible(true);
    form_.txtFolder.setText("");
    form_.optA.setValue(false);
    form_.cmdNext.setDefault(false);

    EXPECT_EQ(recorder_.changes, Changes{});
}

TEST_F(ControlTest, ChangesAreThereWhenTheyAreTold) {
    std::string caption;
    recorder_.whileChanged = [&] { caption = form_.lblText.caption(); };

    form_.lblText.setCaption("New");

    EXPECT_EQ(caption, "New");
}

TEST_F(ControlTest, LeftAndWidthLeaveTheRestOfTheBox) {
    form_.lblText.setLeft(11);
    form_.lblText.setWidth(301);

    EXPECT_EQ(form_.lblText.box(), (Box{11, 20, 301, 400}));
}

TEST_F(ControlTest, WhatIsSetBackIsToldEachTime) {
    form_.cmdNext.setEnabled(false);
    form_.cmdNext.setEnabled(true);

    EXPECT_EQ(recorder_.changes,
              (Changes{{"cmdNext", Property::Enabled}, {"cmdNext", Property::Enabled}}));
    EXPECT_TRUE(form_.cmdNext.enabled());
}

// Text boxes

TEST_F(ControlTest, ATypedTextIsNotToldBack) {
    form_.txtFolder.typed("C:\\www");

    EXPECT_EQ(form_.txtFolder.text(), "C:\\www");
    EXPECT_EQ(recorder_.changes, Changes{});
}

TEST_F(ControlTest, ATextEqualToTheTypedOneIsNoChange) {
    form_.txtFolder.typed("C:\\www");

    form_.txtFolder.setText("C:\\www");

    EXPECT_EQ(recorder_.changes, Changes{});
}

TEST_F(ControlTest, ATypedTextCanBeSetBack) {
    form_.txtFolder.typed("C:\\www");

    form_.txtFolder.setText("");

    EXPECT_EQ(form_.txtFolder.text(), "");
    EXPECT_EQ(recorder_.changes, (Changes{{"txtFolder", Property::Text}}));
}

// Options

TEST_F(ControlTest, TurningAnOptionOnTurnsTheOneBeforeOff) {
    form_.optA.setValue(true);
    recorder_.changes.clear();

    form_.optB.setValue(true);

    EXPECT_FALSE(form_.optA.value());
    EXPECT_TRUE(form_.optB.value());
    EXPECT_FALSE(form_.optC.value());
    EXPECT_EQ(changes(), (Changes{{"optA", Property::Value}, {"optB", Property::Value}}));
}

TEST_F(ControlTest, TheOptionsOfAnotherParentStay) {
    form_.optOther.setValue(true);

    form_.optA.setValue(true);

    EXPECT_TRUE(form_.optOther.value());
    EXPECT_TRUE(form_.optA.value());
}

TEST_F(ControlTest, AllOptionsOfAParentMayBeOff) {
    form_.optA.setValue(true);
    form_.optOther.setValue(true);
    recorder_.changes.clear();

    form_.optA.setValue(false);

    EXPECT_FALSE(form_.optA.value());
    EXPECT_FALSE(form_.optB.value());
    EXPECT_TRUE(form_.optOther.value());
    EXPECT_EQ(changes(), (Changes{{"optA", Property::Value}}));
}

TEST_F(ControlTest, TheFormKnowsTheOptionThatIsOnOfEachParent) {
    form_.optB.setValue(true);
    form_.optOther.setValue(true);

    EXPECT_EQ(form_.chosenOption(form_.picFirst), &form_.optB);
    EXPECT_EQ(form_.chosenOption(form_.picSecond), &form_.optOther);
}

TEST_F(ControlTest, AParentWithoutAnOptionThatIsOnHasNone) {
    form_.optOther.setValue(true);

    EXPECT_EQ(form_.chosenOption(form_.picFirst), nullptr);
}

TEST_F(ControlTest, AClickChoosesAnOption) {
    form_.optA.click();
    form_.optC.click();

    EXPECT_FALSE(form_.optA.value());
    EXPECT_TRUE(form_.optC.value());
}

TEST_F(ControlTest, AClickDoesNotTurnAnOptionOff) {
    form_.optA.click();

    form_.optA.click();

    EXPECT_TRUE(form_.optA.value());
}

TEST_F(ControlTest, AnOptionOutOfReachCanBeSet) {
    form_.picFirst.setVisible(false);
    form_.optA.setEnabled(false);

    form_.optA.setValue(true);

    EXPECT_TRUE(form_.optA.value());
}

// Reach

struct Obstacle {
    const char* fact;
    std::function<void(TestForm&, bool)> set;
};
void PrintTo(const Obstacle& obstacle, std::ostream* out) { *out << obstacle.fact; }

class ControlOutOfReach : public ControlTest, public testing::WithParamInterface<Obstacle> {
protected:
    ControlOutOfReach() {
        form_.cmdHelp.onClick = [&] { ++clicks_; };
        GetParam().set(form_, false);
    }

    int clicks_ = 0;
};

TEST_P(ControlOutOfReach, IsNotReachable) {
    EXPECT_FALSE(form_.cmdHelp.reachable());
    EXPECT_FALSE(form_.optA.reachable());
}

TEST_P(ControlOutOfReach, TakesNoClick) {
    form_.cmdHelp.click();
    form_.optA.click();

    EXPECT_EQ(clicks_, 0);
    EXPECT_FALSE(form_.optA.value());
}

TEST_P(ControlOutOfReach, TakesClicksOnceItIsBack) {
    GetParam().set(form_, true);

    form_.cmdHelp.click();
    form_.optA.click();

    EXPECT_EQ(clicks_, 1);
    EXPECT_TRUE(form_.optA.value());
}

TEST_P(ControlOutOfReach, DoesNotTakeOthersAlong) {
    EXPECT_TRUE(form_.cmdNext.reachable());
    EXPECT_TRUE(form_.optOther.reachable());
}

INSTANTIATE_TEST_SUITE_P(
    Control, ControlOutOfReach,
    testing::Values(
        Obstacle{"Disabled",
                 [](TestForm& form, bool on) {
                     form.cmdHelp.setEnabled(on);
                     form.optA.setEnabled(on);
                 }},
        Obstacle{"Hidden",
                 [](TestForm& form, bool on) {
                     form.cmdHelp.setVisible(on);
                     form.optA.setVisible(on);
                 }},
        Obstacle{"ParentDisabled", [](TestForm& form, bool on) { form.picFirst.setEnabled(on); }},
        Obstacle{"ParentHidden", [](TestForm& form, bool on) { form.picFirst.setVisible(on); }}),
    [](const auto& obstacle) { return std::string(obstacle.param.fact); });

TEST_F(ControlTest, AHiddenParentLeavesItsControlsVisibleAsSuch) {
    form_.picFirst.setVisible(false);

    EXPECT_TRUE(form_.cmdHelp.visible());
    EXPECT_TRUE(form_.cmdHelp.enabled());
}

// Buttons

TEST_F(ControlTest, EachClickOfAButtonRunsItsAction) {
    int clicks = 0;
    form_.cmdNext.onClick = [&] { ++clicks; };

    form_.cmdNext.click();
    form_.cmdNext.click();

    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(recorder_.changes, Changes{});
}

TEST_F(ControlTest, AButtonWithoutAnActionTakesClicks) { EXPECT_NO_THROW(form_.cmdNext.click()); }

TEST_F(ControlTest, AButtonMayTakeItselfOutOfReach) {
    int clicks = 0;
    form_.cmdNext.onClick = [&] {
        ++clicks;
        form_.cmdNext.setEnabled(false);
    };

    form_.cmdNext.click();
    form_.cmdNext.click();

    EXPECT_EQ(clicks, 1);
}

// The form

TEST_F(ControlTest, AFormHasItsCaptionAndNoCancelButton) {
    EXPECT_EQ(form_.caption(), "Test form");
    EXPECT_EQ(form_.cancelButton(), nullptr);
}

TEST_F(ControlTest, TheCancelButtonIsTheOneSet) {
    form_.setCancelButton(form_.cmdHelp);

    EXPECT_EQ(form_.cancelButton(), &form_.cmdHelp);
}

TEST_F(ControlTest, FocusIsToldEachTime) {
    form_.setFocus(form_.txtFolder);
    form_.setFocus(form_.txtFolder);

    EXPECT_EQ(recorder_.changes,
              (Changes{{"txtFolder", Property::Focus}, {"txtFolder", Property::Focus}}));
}

TEST_F(ControlTest, ClosingUnloadsAndIsToldOnce) {
    int unloads = 0;
    form_.onUnload = [&] { ++unloads; };

    form_.close();
    form_.close();

    EXPECT_EQ(unloads, 1);
    EXPECT_EQ(recorder_.closed, 1);
}

TEST_F(ControlTest, ClosingWhileUnloadingDoesNothing) {
    int unloads = 0;
    form_.onUnload = [&] {
        ++unloads;
        form_.close();
    };

    form_.close();

    EXPECT_EQ(unloads, 1);
    EXPECT_EQ(recorder_.closed, 1);
}

TEST_F(ControlTest, AFormClosesWithoutObserverAndUnloadStep) {
    form_.observe(nullptr);

    EXPECT_NO_THROW(form_.close());

    EXPECT_EQ(recorder_.closed, 0);
}

TEST_F(ControlTest, AnotherObserverTakesTheFirstOnesPlace) {
    Recorder second;

    form_.observe(&second);
    form_.lblText.setCaption("New");
    form_.observe(nullptr);

    EXPECT_EQ(recorder_.changes, Changes{});
    EXPECT_EQ(second.changes, (Changes{{"lblText", Property::Caption}}));
}

}  // namespace
}  // namespace kv
