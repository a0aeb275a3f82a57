#include "tests/endtoend/steps/Scenario.h"

#include <functional>

#include "tests/endtoend/steps/PanelTexts.h"

namespace kv::endtoend {

std::string scenarioName() {
    constexpr std::size_t kNames = 100000;
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test.test_suite_name()) + "." + test.name();
    return std::to_string(std::hash<std::string>{}(name) % kNames);
}

Scenario::Scenario() : place_(scenarioName()) { place_.write(settingsPath(), freshSettings()); }

void Scenario::start(int expectedPanel) {
    startOnAnyPanel();
    wizard_->waitForPanel(expectedPanel);
}

void Scenario::startOnAnyPanel() { startFrom(place_.program(), place_.root()); }

void Scenario::startFrom(const std::string& program, const std::string& workingFolder) {
    wizard_.reset();
    wizard_ = std::make_unique<WizardDriver>(program, workingFolder);
}

void Scenario::goToFolders(const ServerRoad& road) {
    next(wizard(), 1);
    chooseServer(wizard(), road);
    chooseUrl(wizard(), kUrlDefault, road.folderPanel);
}

void Scenario::goToAddress(const ServerRoad& road) {
    goToFolders(road);
    enterFolders(wizard(), place_.home(), place_.scripts());
}

void Scenario::install() {
    next(wizard(), 10);
    wizard().click(kNext);
    wizard().waitForOperationEnd();
}

void Scenario::finish() {
    wizard().click(kFinish);
    EXPECT_EQ(wizard().waitForExit(), 0U);
}

void Scenario::recordInstallation() const { place_.write(settingsPath(), recordOf(site())); }

void Scenario::expectWarning(std::string_view text) const {
    const MessageBoxView box = wizard().waitForMessageBox();
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.title, kWizardTitle);
    EXPECT_EQ(box.icon, BoxIcon::Information);
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    wizard().answer(box, IDOK);
}

void Scenario::expectLog(const Lines& entries) const {
    ASSERT_TRUE(place_.exists("product\\log\\kvwcfg00.log")) << "there is no log file";
    EXPECT_EQ(logEntries(place_.read("product\\log\\kvwcfg00.log")), entries);
}

void Scenario::expectNoLog() const {
    EXPECT_FALSE(place_.exists("product\\log\\kvwcfg00.log"))
        << place_.read("product\\log\\kvwcfg00.log");
}

void Scenario::expectTree(const Tree& expected) const {
    EXPECT_EQ(differences(expected, place_.tree()), "");
}

void Scenario::expectTreeBesideLog(const Tree& expected) const {
    Tree actual = place_.tree();
    EXPECT_EQ(actual.erase("product\\log\\kvwcfg00.log"), 1U);
    EXPECT_EQ(differences(expected, actual), "");
}

}  // namespace kv::endtoend
