#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

using ActionPanel = Scenario;

// Though their panels have not been made when they are filled.
TEST_F(ActionPanel, ModifyFillsTheQuestionsOfAnotherServer) {
    Site other = site();
    other.server = Server::Other;
    other.style = UrlStyle::Kv;
    other.ip = "10.0.0.1";
    other.port = "8080";
    place().write(settingsPath(), recordOf(other));
    start();
    next(wizard(), 13);

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

}  // namespace kv::endtoend
