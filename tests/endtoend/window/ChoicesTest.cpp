#include <string>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

using Choices = Scenario;

TEST_F(Choices, NothingChosenIsWarnedAboutAndStays) {
    start();
    next(wizard(), 1);
    wizard().click(kNext);
    expectWarning(kChooseOfChoices);
    EXPECT_EQ(wizard().currentPanel(), 1);

    wizard().choose(kInstalledNothing);
    next(wizard(), 2);
    wizard().click(kNext);
    expectWarning(kChooseOfOptions);
    EXPECT_EQ(wizard().currentPanel(), 2);

    wizard().choose(kInstallingOther);
    next(wizard(), 5);
    next(wizard(), 6);
    wizard().click(kNext);
    expectWarning(kChooseUrl);
    EXPECT_EQ(wizard().currentPanel(), 6);

    // Nothing was pushed by the refusals.
    back(wizard(), 5);
    back(wizard(), 2);
    back(wizard(), 1);
    back(wizard(), 0);
    EXPECT_FALSE(wizard().frameButton(kBack).enabled);
}

TEST_F(Choices, EachOptionClearsTheOthersOfItsPanel) {
    start();
    next(wizard(), 1);

    for (const std::string_view option :
         {kInstalledIis, kInstalledApache, kInstalledOther, kInstalledNothing}) {
        wizard().choose(option);
        for (const std::string_view other :
             {kInstalledIis, kInstalledApache, kInstalledOther, kInstalledNothing})
            EXPECT_EQ(wizard().isChosen(other), other == option) << other;
    }
}

// The first option of a panel has the focus whenever the user comes to the panel or to the window.
TEST_F(Choices, ComingToAnOptionChoosesNothing) {
    const auto expectFocusAndNothingChosen = [this] {
        wizard().waitForFocus(wizard().button(kInstalledIis).handle);
        for (const std::string_view option :
             {kInstalledIis, kInstalledApache, kInstalledOther, kInstalledNothing})
            EXPECT_FALSE(wizard().isChosen(option)) << option;
    };
    start();

    next(wizard(), 1);
    expectFocusAndNothingChosen();
    wizard().clickTitleBar();
    // The keys come after the click, so that it has been handled when they have.
    wizard().press(VK_TAB);
    wizard().waitForFocus(wizard().frameButton(kBack).handle);
    wizard().pressWith(VK_SHIFT, VK_TAB);
    expectFocusAndNothingChosen();
    wizard().leaveAndReturn();
    expectFocusAndNothingChosen();
    wizard().press(VK_ESCAPE);
    wizard().answer(wizard().waitForMessageBox(), IDNO);
    expectFocusAndNothingChosen();
}

TEST_F(Choices, ComingBackToAPanelLeavesTheChoiceAsItWas) {
    start();
    next(wizard(), 1);
    wizard().choose(kInstalledOther);
    next(wizard(), 6);

    back(wizard(), 1);
    EXPECT_TRUE(wizard().isChosen(kInstalledOther));
    back(wizard(), 0);
    next(wizard(), 1);
    EXPECT_TRUE(wizard().isChosen(kInstalledOther));
    wizard().leaveAndReturn();
    EXPECT_TRUE(wizard().isChosen(kInstalledOther));
}

TEST_F(Choices, ServersToInstallLeadToTheirAdvice) {
    start();
    next(wizard(), 1);
    wizard().choose(kInstalledNothing);
    next(wizard(), 2);

    for (const ServerRoad& road :
         {kIisToInstall, kApacheToInstall, kOtherToInstall, kNoPreference}) {
        wizard().choose(road.installing);
        next(wizard(), road.installPanel);
        next(wizard(), 6);
        back(wizard(), road.installPanel);
        back(wizard(), 2);
    }
}

TEST_F(Choices, BackKeepsTheRoadAndEveryValue) {
    start();
    next(wizard(), 1);
    chooseServer(wizard(), kOtherToInstall);
    chooseUrl(wizard(), kUrlKv, 9);
    enterFolders(wizard(), place().home(), place().scripts());
    wizard().type(0, "10.0.0.1");
    wizard().type(1, "8080");
    next(wizard(), 10);

    back(wizard(), 14);
    EXPECT_EQ(wizard().fieldText(0), "10.0.0.1");
    EXPECT_EQ(wizard().fieldText(1), "8080");
    back(wizard(), 9);
    EXPECT_EQ(wizard().fieldText(0), place().home());
    EXPECT_EQ(wizard().fieldText(1), place().scripts());
    back(wizard(), 6);
    EXPECT_TRUE(wizard().isChosen(kUrlKv));
    back(wizard(), 5);
    back(wizard(), 2);
    EXPECT_TRUE(wizard().isChosen(kInstallingOther));
    back(wizard(), 1);
    EXPECT_TRUE(wizard().isChosen(kInstalledNothing));
    back(wizard(), 0);

    // And the same road forward again without another choice.
    for (const int panel : {1, 2, 5, 6, 9, 14, 10}) next(wizard(), panel);
}

TEST_F(Choices, TwoQuickClicksOnAButtonAreTwoClicks) {
    start();
    goToAddress();

    wizard().doubleClick(kBack);
    wizard().waitForPanel(6);
    wizard().doubleClick(kBack);
    wizard().waitForPanel(0);
    wizard().doubleClick(kNext);
    wizard().waitForPanel(6);
}

TEST_F(Choices, WindowHasItsTitle) {
    start();

    EXPECT_EQ(wizard().title(), kWizardTitle);
}

}  // namespace kv::endtoend
