#include <string>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

class Leaving : public Scenario {
protected:
    MessageBoxView cancelQuestion() const {
        wizard().click(kCancel);
        return wizard().waitForMessageBox();
    }

    // A failure while the wizard runs, so that there is something to be logged at its end.
    void installWithoutHelpPage() {
        place().remove("product\\hlp\\eng\\kvhentryeng.html");
        start();
        goToAddress();
        install();
    }
};

TEST_F(Leaving, CancelAsksWithNoAsTheDefault) {
    start();

    const MessageBoxView question = cancelQuestion();

    EXPECT_EQ(question.text, kReallyCancel);
    EXPECT_EQ(question.title, kWizardTitle);
    EXPECT_EQ(question.icon, BoxIcon::Question);
    EXPECT_EQ(question.buttons, (std::vector<int>{IDYES, IDNO}));
    EXPECT_EQ(question.defaultButton, IDNO);
}

TEST_F(Leaving, CancelAndNoChangesNothing) {
    start();
    goToFolders();
    wizard().type(0, "half a path");

    const MessageBoxView question = cancelQuestion();
    const HWND focusAsked = wizard().frameButton(kCancel).handle;
    wizard().answer(question, IDNO);

    wizard().waitForFocus(focusAsked);
    EXPECT_EQ(wizard().currentPanel(), 7);
    EXPECT_EQ(wizard().fieldText(0), "half a path");
    back(wizard(), 6);
    EXPECT_TRUE(wizard().isChosen(kUrlDefault));
}

TEST_F(Leaving, CancelByKeyAndNoLeavesTheFocusInItsField) {
    start();
    goToFolders();
    wizard().type(0, "half a path");
    const HWND field = wizard().focus();

    wizard().press(VK_ESCAPE);
    wizard().answer(wizard().waitForMessageBox(), IDNO);

    wizard().waitForFocus(field);
}

TEST_F(Leaving, CancelAndYesEndsWithoutATrace) {
    const Tree before = place().tree();
    start();
    goToAddress();
    next(wizard(), 10);

    wizard().answer(cancelQuestion(), IDYES);

    EXPECT_EQ(wizard().waitForExit(), 0U);
    EXPECT_EQ(differences(before, place().tree()), "");
}

TEST_F(Leaving, WindowsOwnCloseEndsWithoutAQuestion) {
    start();
    goToAddress();

    wizard().closeWindow();

    EXPECT_EQ(wizard().waitForExit(), 0U);
    expectNoLog();
}

TEST_F(Leaving, FinishWritesTheLog) {
    installWithoutHelpPage();
    expectNoLog();

    finish();

    expectLog({"SERV  53, File not found, ioCopyFile"});
}

TEST_F(Leaving, WindowsOwnCloseWritesTheLogToo) {
    installWithoutHelpPage();

    wizard().closeWindow();

    EXPECT_EQ(wizard().waitForExit(), 0U);
    expectLog({"SERV  53, File not found, ioCopyFile"});
}

}  // namespace kv::endtoend
