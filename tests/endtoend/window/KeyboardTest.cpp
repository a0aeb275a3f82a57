#include <set>
#include <string>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

class Keyboard : public Scenario {
protected:
    // Keys are handled in order, so when the question stands, everything before it is done.
    void askByEscapeAndStay() const {
        wizard().press(VK_ESCAPE);
        const MessageBoxView question = wizard().waitForMessageBox();
        EXPECT_EQ(question.text, kReallyCancel);
        wizard().answer(question, IDNO);
    }

    void enter(int expectedPanel) const {
        wizard().press(VK_RETURN);
        wizard().waitForPanel(expectedPanel);
    }

    // The controls that the Tab key comes to, until it is where it began.
    std::set<HWND> tabRound() const {
        std::set<HWND> reached;
        HWND before = wizard().focus();
        while (reached.insert(before).second) {
            wizard().press(VK_TAB);
            before = wizard().waitForFocusOtherThan(before);
        }
        return reached;
    }

    void tabTo(HWND control) const {
        for (HWND before = wizard().focus(); before != control;) {
            wizard().press(VK_TAB);
            before = wizard().waitForFocusOtherThan(before);
        }
    }
};

TEST_F(Keyboard, EnterGoesOnFromEveryPanel) {
    start();

    enter(1);
    wizard().choose(kInstalledNothing);
    enter(2);
    wizard().choose(kInstallingAnyone);
    enter(3);
    enter(6);
    wizard().choose(kUrlKv);
    enter(7);
    wizard().fillField(0, place().home());
    wizard().fillField(1, place().scripts());
    enter(14);
    wizard().type(1, "8080");
    enter(10);
    wizard().press(VK_RETURN);
    wizard().waitForOperationEnd();
    wizard().press(VK_RETURN);

    EXPECT_EQ(wizard().waitForExit(), 0U);
    EXPECT_NE(place().read(settingsPath()).find("26\0172\0208080\r\n"), std::string::npos);
}

TEST_F(Keyboard, EnterAfterBackGoesOnAgain) {
    start();
    next(wizard(), 1);
    wizard().choose(kInstalledApache);
    next(wizard(), 6);
    wizard().pressWith(VK_MENU, 'B');
    wizard().waitForPanel(1);

    enter(6);
}

TEST_F(Keyboard, AccessKeysOfNextAndBackWorkFromATextBox) {
    start();
    goToAddress();
    wizard().type(0, "10.0.0.1");

    wizard().pressWith(VK_MENU, 'N');
    wizard().waitForPanel(10);
    wizard().pressWith(VK_MENU, 'B');
    wizard().waitForPanel(14);
    EXPECT_EQ(wizard().fieldText(0), "10.0.0.1");
    wizard().pressWith(VK_MENU, 'B');
    wizard().waitForPanel(7);
}

TEST_F(Keyboard, BackHasNoAccessOnTheFirstPanel) {
    start();

    wizard().pressWith(VK_MENU, 'B');

    askByEscapeAndStay();
    EXPECT_EQ(wizard().currentPanel(), 0);
}

TEST_F(Keyboard, EscapeAsksAndYesEnds) {
    start();

    wizard().press(VK_ESCAPE);
    wizard().answer(wizard().waitForMessageBox(), IDYES);

    EXPECT_EQ(wizard().waitForExit(), 0U);
}

TEST_F(Keyboard, EnterOnTheCancelQuestionStays) {
    start();
    wizard().press(VK_ESCAPE);
    const MessageBoxView question = wizard().waitForMessageBox();

    wizard().pressIn(question, VK_RETURN);

    EXPECT_EQ(wizard().currentPanel(), 0);
    next(wizard(), 1);
}

TEST_F(Keyboard, EnterAndNextsKeyDoNothingOnTheActionPanel) {
    recordInstallation();
    start();
    enter(13);

    wizard().pressWith(VK_MENU, 'N');
    askByEscapeAndStay();

    EXPECT_EQ(wizard().currentPanel(), 13);
}

TEST_F(Keyboard, EscapeDoesNothingAtTheEnd) {
    start();
    goToAddress();
    install();

    wizard().press(VK_ESCAPE);
    wizard().press(VK_RETURN);

    EXPECT_EQ(wizard().waitForExit(), 0U);
}

TEST_F(Keyboard, EnterFinishesOnTheErrorPanel) {
    place().remove(settingsPath());
    start(12);

    wizard().press(VK_RETURN);

    EXPECT_EQ(wizard().waitForExit(), 0U);
}

TEST_F(Keyboard, SpacePressesTheFocusedButton) {
    start();
    next(wizard(), 1);
    wizard().choose(kInstalledNothing);
    next(wizard(), 2);
    tabTo(wizard().frameButton(kNext).handle);

    wizard().press(VK_SPACE);

    expectWarning(kChooseOfOptions);
}

TEST_F(Keyboard, TabReachesEveryFieldAndButton) {
    start();
    goToFolders();
    wizard().type(0, "");

    const std::set<HWND> reached = tabRound();

    for (const ControlView& view : wizard().visibleControls())
        if (view.enabled &&
            (view.kind == ControlKind::TextBox || view.kind == ControlKind::CommandButton)) {
            EXPECT_TRUE(reached.contains(view.handle)) << view.text;
        }
}

TEST_F(Keyboard, OptionIsChosenByKeys) {
    start();
    next(wizard(), 1);
    wizard().choose(kInstalledIis);

    wizard().press(VK_DOWN);
    wizard().waitForFocus(wizard().button(kInstalledApache).handle);
    wizard().press(VK_SPACE);

    wizard().waitForChoice(kInstalledApache);
    EXPECT_FALSE(wizard().isChosen(kInstalledIis));
}

class HeldKeys : public Keyboard {
protected:
    static constexpr int kRepeats = 20;

    // The keys are handled in order, so that a question that comes up now is not theirs.
    void expectToStayOn(int panel) const {
        wizard().waitForPanel(panel);
        askByEscapeAndStay();
        EXPECT_EQ(wizard().currentPanel(), panel);
    }
};

TEST_F(HeldKeys, EnterGoesOnOnce) {
    start();

    wizard().hold(VK_RETURN, kRepeats);

    expectToStayOn(1);
}

TEST_F(HeldKeys, EnterOnAButtonPressesItOnce) {
    start();
    goToAddress();
    tabTo(wizard().frameButton(kBack).handle);

    wizard().hold(VK_RETURN, kRepeats);

    expectToStayOn(7);
}

TEST_F(HeldKeys, EnterBeginsAnOperationAndDoesNotLeaveItsEnd) {
    start();
    goToAddress();
    next(wizard(), 10);

    wizard().hold(VK_RETURN, kRepeats);
    wizard().waitForOperationEnd();
    wizard().press(VK_TAB);
    wizard().waitForFocus(wizard().frameButton(kFinish).handle);

    EXPECT_FALSE(wizard().hasEnded());
    wizard().press(VK_RETURN);
    EXPECT_EQ(wizard().waitForExit(), 0U);
}

TEST_F(HeldKeys, EachPressOfEnterCounts) {
    start();
    next(wizard(), 1);
    wizard().choose(kInstalledApache);
    back(wizard(), 0);

    wizard().press(VK_RETURN);
    wizard().press(VK_RETURN);

    expectToStayOn(6);
}

TEST_F(HeldKeys, AnAccessKeyGoesBackOnce) {
    start();
    goToAddress();

    wizard().holdWith(VK_MENU, 'B', kRepeats);

    expectToStayOn(7);
}

TEST_F(HeldKeys, ALetterThatPressesAButtonFromAnotherDoesSoOnce) {
    start();
    next(wizard(), 1);
    wizard().choose(kInstalledApache);
    next(wizard(), 6);
    tabTo(wizard().frameButton(kCancel).handle);

    wizard().hold('B', kRepeats);

    expectToStayOn(1);
}

TEST_F(HeldKeys, ALetterThatHasPressedAButtonIsNotTypedIntoTheNextPanel) {
    start();
    goToAddress();
    tabTo(wizard().frameButton(kCancel).handle);

    wizard().hold('B', kRepeats);

    expectToStayOn(7);
    EXPECT_EQ(wizard().fieldText(0), place().home());
}

TEST_F(HeldKeys, SpacePressesAButtonOnce) {
    start();
    goToAddress();
    tabTo(wizard().frameButton(kBack).handle);

    wizard().hold(VK_SPACE, kRepeats);

    expectToStayOn(7);
}

TEST_F(HeldKeys, ATextBoxTakesEachRepeatedCharacter) {
    start();
    goToAddress();
    wizard().type(0, "");

    wizard().hold('7', 3);
    askByEscapeAndStay();

    EXPECT_EQ(wizard().fieldText(0), "7777");
}

TEST_F(HeldKeys, TabAndArrowsRepeat) {
    start();
    next(wizard(), 1);

    wizard().hold(VK_DOWN, 2);
    wizard().waitForChoice(kInstalledNothing);
    wizard().hold(VK_TAB, 1);
    wizard().waitForFocus(wizard().frameButton(kNext).handle);
}

}  // namespace kv::endtoend
