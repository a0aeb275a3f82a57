#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

class ActionPanel : public Scenario {
protected:
    void startAndOpen() {
        start();
        next(wizard(), 13);
    }

    std::size_t pictureButtons() const {
        std::size_t count = 0;
        for (const ControlView& view : wizard().panelControls()) {
            if (view.kind == ControlKind::CommandButton) {
                EXPECT_EQ(view.text, "");
                EXPECT_TRUE(view.enabled);
                ++count;
            }
        }
        return count;
    }

    void expectLabels(const std::vector<std::string_view>& expected) const {
        for (const std::string_view label :
             {kNewLabel, kUpgradeLabel, kModifyLabel, kBackupLabel, kDeleteLabel}) {
            const bool wanted =
                std::find(expected.begin(), expected.end(), label) != expected.end();
            EXPECT_EQ(wizard().shows(label), wanted) << label;
        }
        EXPECT_EQ(pictureButtons(), expected.size());
    }
};

TEST_F(ActionPanel, ConfiguredProductCanBeModifiedSavedOrDeleted) {
    recordInstallation();

    startAndOpen();

    expectLabels({kModifyLabel, kBackupLabel, kDeleteLabel});
    EXPECT_TRUE(wizard().shows(kActionModifyTitle));
    EXPECT_TRUE(wizard().shows(kActionModifyInstruction));
    back(wizard(), 0);
    next(wizard(), 13);
    expectLabels({kModifyLabel, kBackupLabel, kDeleteLabel});
}

TEST_F(ActionPanel, SavedConfigurationCanBeUpgradedOrInstalledAnew) {
    place().write("product\\cfg\\original\\korvane.bak", "");

    startAndOpen();

    expectLabels({kNewLabel, kUpgradeLabel});
    EXPECT_TRUE(wizard().shows(kActionNewTitle));
    EXPECT_TRUE(wizard().shows(kActionNewInstruction));
}

TEST_F(ActionPanel, ModifyFillsTheQuestionsOfAnotherServer) {
    Site other = site();
    other.server = Server::Other;
    other.style = UrlStyle::Kv;
    other.ip = "10.0.0.1";
    other.port = "8080";
    place().write(settingsPath(), recordOf(other));
    startAndOpen();

    wizard().clickPictureButtonBeside(kModifyLabel);
    wizard().waitForPanel(1);

    EXPECT_TRUE(wizard().isChosen(kInstalledOther));
    next(wizard(), 6);
    EXPECT_TRUE(wizard().isChosen(kUrlKv));
    next(wizard(), 9);
    EXPECT_EQ(wizard().fieldText(0), place().home());
    EXPECT_EQ(wizard().fieldText(1), place().scripts());
    next(wizard(), 14);
    EXPECT_EQ(wizard().fieldText(0), "10.0.0.1");
    EXPECT_EQ(wizard().fieldText(1), "8080");
}

TEST_F(ActionPanel, EachActionHasItsConfirmation) {
    recordInstallation();
    startAndOpen();

    wizard().clickPictureButtonBeside(kBackupLabel);
    wizard().waitForPanel(10);
    EXPECT_TRUE(wizard().shows(kConfirmBackup));
    back(wizard(), 13);

    wizard().clickPictureButtonBeside(kDeleteLabel);
    wizard().waitForPanel(10);
    EXPECT_TRUE(wizard().shows(kConfirmDeletion));
    back(wizard(), 13);

    wizard().clickPictureButtonBeside(kModifyLabel);
    wizard().waitForPanel(1);
    for (const int panel : {6, 7, 14, 10}) next(wizard(), panel);
    EXPECT_TRUE(wizard().shows(kConfirmWriting));
}

TEST_F(ActionPanel, UpgradeOfAnUnreadableConfigurationEndsOnTheErrorPanel) {
    place().write("product\\cfg\\original\\korvane.bak", "");
    startAndOpen();

    wizard().clickPictureButtonBeside(kUpgradeLabel);
    wizard().waitForPanel(12);

    EXPECT_TRUE(wizard().shows(kUpgradeUnavailable));
    EXPECT_TRUE(wizard().button("Help").enabled);
    EXPECT_FALSE(wizard().frameButton(kBack).enabled);
    EXPECT_EQ(wizard().frameButton(kFinish).box, wizard().frameButton(kNext).box);
    finish();
    expectLog({"SERV  53, File not found, iocCfgReadFile"});
}

}  // namespace kv::endtoend
