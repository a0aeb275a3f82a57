#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "PanelTexts.h"
#include "Scenario.h"
#include "SettingsText.h"

namespace kv::endtoend {

class ActionPanel : public Scenario {
protected:
    void record(const Entry& entry) const {
        place().write(settingsPath(), settingsText({"7", "", rowsOf(entry)}));
    }

    void startAndOpen() {
        start();
        next(wizard(), 13);
    }

    std::size_t pictureButtons() const {
        std::size_t count = 0;
        for (const ControlView& view : wizard().panelControls()) {
            if (view.kind == ControlKind::kCommandButton) {
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

    void expectFields(int folderPanel, std::string_view home, std::string_view scripts) const {
        next(wizard(), folderPanel);
        EXPECT_EQ(wizard().fieldText(0), home);
        EXPECT_EQ(wizard().fieldText(1), scripts);
    }
};

TEST_F(ActionPanel, ConfiguredProductCanBeModifiedSavedOrDeleted) {
    recordInstallation();

    startAndOpen();

    expectLabels({kModifyLabel, kBackupLabel, kDeleteLabel});
    EXPECT_TRUE(wizard().shows(kActionModifyTitle));
    EXPECT_TRUE(wizard().shows(texts::kActionModify[0]));
    back(wizard(), 0);
    next(wizard(), 13);
    expectLabels({kModifyLabel, kBackupLabel, kDeleteLabel});
}

TEST_F(ActionPanel, SavedConfigurationCanBeUpgradedOrInstalledAnew) {
    place().write("product\\cfg\\original\\korvane.bak", "");

    startAndOpen();

    expectLabels({kNewLabel, kUpgradeLabel});
    EXPECT_TRUE(wizard().shows(kActionNewTitle));
    EXPECT_TRUE(wizard().shows(texts::kActionNew[0]));
}

TEST_F(ActionPanel, ConfigurationCountsBeforeASavedOne) {
    recordInstallation();
    place().write("product\\cfg\\original\\korvane.bak", "");

    startAndOpen();

    expectLabels({kModifyLabel, kBackupLabel, kDeleteLabel});
}

TEST_F(ActionPanel, ReadOnlySavedConfigurationIsFound) {
    place().write("product\\cfg\\original\\korvane.bak", "");
    place().makeReadOnly("product\\cfg\\original\\korvane.bak");

    startAndOpen();

    expectLabels({kNewLabel, kUpgradeLabel});
}

TEST_F(ActionPanel, SavedConfigurationOfOtherLetterCaseIsNotFound) {
    place().write("product\\cfg\\original\\KORVANE.BAK", "");
    start();

    next(wizard(), 1);
}

TEST_F(ActionPanel, FolderOfTheSavedConfigurationsNameIsNotFound) {
    place().makeFolder("product\\cfg\\original\\korvane.bak");
    start();

    next(wizard(), 1);
}

TEST_F(ActionPanel, SavedConfigurationAppearingLaterIsFoundOnTheNextPass) {
    start();
    next(wizard(), 1);
    back(wizard(), 0);

    place().write("product\\cfg\\original\\korvane.bak", "");
    next(wizard(), 13);

    expectLabels({kNewLabel, kUpgradeLabel});
}

TEST_F(ActionPanel, NewAsksTheQuestionsWithNothingFilledIn) {
    place().write("product\\cfg\\original\\korvane.bak", "");
    startAndOpen();

    wizard().clickPictureButtonBeside(kNewLabel);
    wizard().waitForPanel(1);

    EXPECT_FALSE(wizard().isChosen(kInstalledApache));
    back(wizard(), 13);
    back(wizard(), 0);
}

TEST_F(ActionPanel, ModifyFillsTheQuestionsOfAnApacheServer) {
    record({"D:\\www\\site\\index.html", "D:\\www\\cgi", "D:\\kv", "1", "0", "10.0.0.1", "8080"});
    startAndOpen();

    wizard().clickPictureButtonBeside(kModifyLabel);
    wizard().waitForPanel(1);

    EXPECT_TRUE(wizard().isChosen(kInstalledApache));
    next(wizard(), 6);
    EXPECT_TRUE(wizard().isChosen(kUrlDefault));
    expectFields(7, "D:\\www\\site\\index.html", "D:\\www\\cgi");
    back(wizard(), 6);
    back(wizard(), 1);
    back(wizard(), 13);
}

TEST_F(ActionPanel, ModifyFillsTheQuestionsOfAnotherServer) {
    const std::string home = place().home();
    record({home, place().scripts(), "D:\\kv", "2", "1", "10.0.0.1", "8080"});
    startAndOpen();

    wizard().clickPictureButtonBeside(kModifyLabel);
    wizard().waitForPanel(1);

    EXPECT_TRUE(wizard().isChosen(kInstalledOther));
    next(wizard(), 6);
    EXPECT_TRUE(wizard().isChosen(kUrlKv));
    expectFields(9, home, place().scripts());
    next(wizard(), 14);
    EXPECT_EQ(wizard().fieldText(0), "10.0.0.1");
    EXPECT_EQ(wizard().fieldText(1), "8080");
}

TEST_F(ActionPanel, ModifyCutsAStoredPathAtItsLastBackslash) {
    Settings settings{"7", "", rowsOf({"D:\\www", "D:\\cgi", "D:\\kv", "0", "1", "", ""})};
    settings.rows[0] = "D:\\www\\site\\index.html";
    place().write(settingsPath(), settingsText(settings));
    startAndOpen();

    wizard().clickPictureButtonBeside(kModifyLabel);
    wizard().waitForPanel(1);

    EXPECT_TRUE(wizard().isChosen(kInstalledIis));
    next(wizard(), 6);
    expectFields(8, "D:\\www\\site", "D:\\cgi");
}

TEST_F(ActionPanel, ModifyOfAnUnknownServerChoosesNothing) {
    record({"D:\\www", "D:\\cgi", "D:\\kv", "7", "9", "", ""});
    startAndOpen();

    wizard().clickPictureButtonBeside(kModifyLabel);
    wizard().waitForPanel(1);

    wizard().click(kNext);
    expectWarning(kChooseOfChoices);
}

TEST_F(ActionPanel, ValuesOfModifyStayForAnotherAction) {
    recordInstallation();
    startAndOpen();
    wizard().clickPictureButtonBeside(kModifyLabel);
    wizard().waitForPanel(1);
    back(wizard(), 13);

    wizard().clickPictureButtonBeside(kBackupLabel);
    wizard().waitForPanel(10);
    back(wizard(), 13);
    wizard().clickPictureButtonBeside(kModifyLabel);
    wizard().waitForPanel(1);

    EXPECT_TRUE(wizard().isChosen(kInstalledApache));
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
    for (const int panel : {6, 7, 14, 10}) {
        next(wizard(), panel);
    }
    EXPECT_TRUE(wizard().shows(kConfirmWriting));
}

TEST_F(ActionPanel, UpgradeOfAReadableConfigurationAsksForConfirmation) {
    place().write("product\\cfg\\original\\korvane.bak", "");
    place().write("product\\cfg\\original\\kvi.bak", freshSettings());
    startAndOpen();

    wizard().clickPictureButtonBeside(kUpgradeLabel);
    wizard().waitForPanel(10);

    EXPECT_TRUE(wizard().shows(kConfirmWriting));
    back(wizard(), 13);
    expectLabels({kNewLabel, kUpgradeLabel});
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
