// Every road through the wizard by the keyboard alone: the order of the Tab key, the arrow keys in
// a group of options, access keys, Enter, Esc, Space, F1 and Alt+F4, and where the focus stands.
#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/driver/Desktop.h"
#include "tests/endtoend/driver/Waiting.h"
#include "tests/endtoend/steps/Operations.h"
#include "tests/endtoend/steps/PanelTour.h"

namespace kv::endtoend {

namespace {

using Names = std::vector<std::string>;

// What a user knows a control by: its caption, or its kind and place from the top.
std::string nameOf(const WizardDriver& wizard, HWND handle) {
    std::map<std::string, std::vector<ControlView>> nameless;
    for (const ControlView& view : wizard.panelControls())
        if (view.kind == ControlKind::TextBox)
            nameless["text box "].push_back(view);
        else if (view.kind == ControlKind::CommandButton && view.text.empty())
            nameless["picture "].push_back(view);
        else if (view.text == kBrowse)
            nameless["browse "].push_back(view);
    for (auto& [kind, views] : nameless) {
        std::ranges::sort(views, {}, [](const ControlView& view) { return view.box.top; });
        for (std::size_t index = 0; index < views.size(); ++index)
            if (views[index].handle == handle) return kind + std::to_string(index + 1);
    }
    for (const ControlView& view : wizard.visibleControls())
        if (view.handle == handle) return view.text;
    return "nothing of the wizard";
}

// The stops of the Tab key from where the focus stands, until it is there again.
std::vector<HWND> tabStops(const WizardDriver& wizard, std::size_t count, bool backwards) {
    std::vector<HWND> stops{wizard.focus()};
    while (stops.size() <= count) {
        if (backwards)
            wizard.pressWith(VK_SHIFT, VK_TAB);
        else
            wizard.press(VK_TAB);
        stops.push_back(wizard.waitForFocusOtherThan(stops.back()));
    }
    return stops;
}

struct KeyboardCase {
    Names stops;       // of the Tab key, from where the focus stands first
    std::string help;  // the page that F1 opens
};

const Names kFrame{std::string(kBack), std::string(kNext), std::string(kCancel)};
const Names kFrameFromNext{std::string(kNext), std::string(kCancel), std::string(kBack)};

Names operator+(std::string_view one, const Names& others) {
    Names names{std::string(one)};
    names.insert(names.end(), others.begin(), others.end());
    return names;
}

Names folders(bool help) {
    Names names{"text box 1", "browse 1", "text box 2", "browse 2"};
    if (help) names.emplace_back("&Help");
    names.insert(names.end(), kFrame.begin(), kFrame.end());
    return names;
}

// By the names of the tour.
const std::map<std::string, KeyboardCase>& keyboardCases() {
    static const std::map<std::string, KeyboardCase> kCases{
        {"0", {{std::string(kNext), std::string(kCancel)}, ""}},
        {"0 configured", {{std::string(kNext), std::string(kCancel)}, ""}},
        {"1", {kInstalledIis + kFrame, ""}},
        {"2", {kInstallingIis + kFrame, ""}},
        {"3",
         {{std::string(kNext), std::string(kCancel), "&Download Apache", std::string(kBack)}, ""}},
        {"4", {kFrameFromNext, ""}},
        {"5", {kFrameFromNext, ""}},
        {"6", {kUrlDefault + ("&Help" + kFrame), "/support/kvdocs/kvurl.html"}},
        {"7", {folders(true), "/support/kvdocs/kvdapch.html"}},
        {"7 filled", {folders(true), "/support/kvdocs/kvdapch.html"}},
        {"8", {folders(true), "/support/kvdocs/kvdiis.html"}},
        {"9", {folders(false), ""}},
        {"10", {kFrameFromNext, ""}},
        {"11", {{std::string(kFinish)}, ""}},
        {"12", {{std::string(kFinish), "Help"}, "/support/kvdocs/kvupgrade.html"}},
        {"12 upgrade", {{std::string(kFinish), "Help"}, "/support/kvdocs/kvupgrade.html"}},
        {"13 modify",
         {{"picture 1", "picture 2", "picture 3", std::string(kBack), std::string(kCancel)}, ""}},
        {"13 new", {{"picture 1", "picture 2", std::string(kBack), std::string(kCancel)}, ""}},
        {"14", {"text box 1" + ("text box 2" + ("Help" + kFrame)), "/support/kvdocs/kvwebip.html"}},
    };
    return kCases;
}

Names namesOf(const WizardDriver& wizard, const std::vector<HWND>& handles) {
    Names names;
    for (HWND handle : handles) names.push_back(nameOf(wizard, handle));
    return names;
}

void expectStops(const WizardDriver& wizard, const Names& stops) {
    wizard.comeToFront();
    EXPECT_EQ(nameOf(wizard, wizard.waitForFocusOtherThan(nullptr)), stops.front());
    if (stops.size() == 1) return;
    Names expected = stops;
    expected.push_back(stops.front());
    EXPECT_EQ(namesOf(wizard, tabStops(wizard, stops.size(), false)), expected);
    std::ranges::reverse(expected);
    EXPECT_EQ(namesOf(wizard, tabStops(wizard, stops.size(), true)), expected);
}

}  // namespace

TEST(EveryPanelByKeyboard, IsGoneRoundInReadingOrder) {
    int panels = 0;

    visitPanels([&panels](const WizardDriver& wizard, const std::string& name) {
        SCOPED_TRACE("panel " + name);
        expectStops(wizard, keyboardCases().at(name).stops);
        ++panels;
    });

    EXPECT_EQ(panels, 19);
}

class HelpByKeyboard : public Scenario {
protected:
    HelpByKeyboard() : browser_(place().path("visited.txt")) {}

    void SetUp() override {
        if (!browser_.works()) GTEST_SKIP() << "this system lets no program choose the browser";
    }

    // The pages opened so far, without the web site's address.
    Names pages() const {
        Names found;
        if (!place().exists("visited.txt")) return found;
        const std::string text = place().read("visited.txt");
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = text.find('\n', begin);
            const std::string address = text.substr(begin, end - begin);
            const std::size_t host = address.find("://") + 3;
            found.push_back(address.substr(address.find('/', host)));
            begin = end + 1;
        }
        return found;
    }

    void expectNext(const std::string& page) {
        expected_.push_back(page);
        comesTrue([&] { return pages().size() >= expected_.size(); }, kLimitMilliseconds);
        EXPECT_EQ(pages(), expected_);
    }

    void expectHelp(const std::string& page) {
        wizard().press(VK_F1);
        expectNext(page);
    }

    // Keys are handled in order, so what F1 does here is done before the next panel.
    void expectNoHelp() const { wizard().press(VK_F1); }

private:
    static constexpr DWORD kLimitMilliseconds = 10000;

    NotedBrowser browser_;
    Names expected_;
};

TEST_F(HelpByKeyboard, F1AndAccessKeysOpenThePageOfThePanel) {
    start();
    expectNoHelp();
    next(wizard(), 1);
    expectNoHelp();
    wizard().choose(kInstalledNothing);
    next(wizard(), 2);
    expectNoHelp();
    wizard().choose(kInstallingIis);
    next(wizard(), 4);
    expectNoHelp();
    next(wizard(), 6);
    expectHelp("/support/kvdocs/kvurl.html");
    wizard().pressWith(VK_MENU, 'H');
    expectNext("/support/kvdocs/kvurl.html");
    chooseUrl(wizard(), kUrlKv, 8);
    expectHelp("/support/kvdocs/kvdiis.html");
    wizard().pressWith(VK_MENU, 'H');
    expectNext("/support/kvdocs/kvdiis.html");
    back(wizard(), 6);
    back(wizard(), 4);
    back(wizard(), 2);
    wizard().choose(kInstallingApache);
    next(wizard(), 3);
    expectNoHelp();
    wizard().pressWith(VK_MENU, 'D');
    expectNext("/download/kvddapache.html");
    next(wizard(), 6);
    next(wizard(), 7);
    expectHelp("/support/kvdocs/kvdapch.html");
    enterFolders(wizard(), place().home(), place().scripts());
    expectHelp("/support/kvdocs/kvwebip.html");
    next(wizard(), 10);
    expectNoHelp();
    wizard().pressWith(VK_MENU, 'B');
    wizard().waitForPanel(14);
    expectHelp("/support/kvdocs/kvwebip.html");
}

TEST_F(HelpByKeyboard, F1OpensThePageOfTheErrorPanel) {
    place().remove(settingsPath());
    start(12);

    expectHelp("/support/kvdocs/kvupgrade.html");
}

class RoadsByKeyboard : public Operations {
protected:
    void enter(int expectedPanel) const {
        wizard().press(VK_RETURN);
        wizard().waitForPanel(expectedPanel);
    }

    void expectFocus(std::string_view name) const {
        EXPECT_EQ(nameOf(wizard(), wizard().waitForFocusOtherThan(nullptr)), name);
    }

    void press(WORD key, int times = 1) const {
        for (int count = 0; count < times; ++count) {
            const HWND before = wizard().focus();
            wizard().press(key);
            wizard().waitForFocusOtherThan(before);
        }
    }

    // Moves in the group and finds the option chosen.
    void choose(WORD key, std::string_view option) const {
        press(key);
        expectFocus(option);
        wizard().waitForChoice(option);
    }

    void typeAndGoOn(const std::string& text) const {
        wizard().typeAtFocus(text);
        press(VK_TAB);
    }

    // Asks, stays, and finds the focus where it was.
    void escapeAndStay() const {
        const HWND before = wizard().focus();
        wizard().press(VK_ESCAPE);
        const MessageBoxView question = wizard().waitForMessageBox();
        EXPECT_EQ(question.text, kReallyCancel);
        wizard().pressIn(question, VK_RETURN);
        wizard().waitForFocus(before);
    }

    // Of a warning that Enter brings up; the focus is afterwards where it was.
    void enterAndExpectWarning(std::string_view text) const {
        const HWND before = wizard().focus();
        wizard().press(VK_RETURN);
        const MessageBoxView box = wizard().waitForMessageBox();
        EXPECT_EQ(box.text, text);
        wizard().pressIn(box, VK_RETURN);
        wizard().waitForFocus(before);
    }

    void enterAndExpectRefusal(std::string_view text, std::size_t field) const {
        wizard().press(VK_RETURN);
        const MessageBoxView box = wizard().waitForMessageBox();
        EXPECT_EQ(box.text, text);
        wizard().pressIn(box, VK_RETURN);
        expectRefused(field);
    }

    void expectRefused(std::size_t field) const {
        const ControlView box = wizard().textBoxes().at(field);
        wizard().waitForFocus(box.handle);
        EXPECT_TRUE(wizard().hasAllSelected(box)) << box.text;
    }

    void enterToTheEnd() {
        wizard().press(VK_RETURN);
        wizard().waitForOperationEnd();
        wizard().waitForFocus(wizard().frameButton(kFinish).handle);
        wizard().press(VK_RETURN);
        EXPECT_EQ(wizard().waitForExit(), 0U);
    }

    void startOnActions() {
        start();
        enter(13);
        expectFocus("picture 1");
    }
};

TEST_F(RoadsByKeyboard, ANewInstallationWithEveryMistakeOnTheWay) {
    Site site = new_;
    site.server = Server::Other;
    site.ip = "10.0.0.1";
    site.port = "8080";
    const Tree expected = afterInstallation(place().tree(), site);
    start();

    escapeAndStay();
    enter(1);
    enterAndExpectWarning(kChooseOfChoices);
    escapeAndStay();
    choose(VK_UP, kInstalledNothing);
    enter(2);
    enterAndExpectWarning(kChooseOfOptions);
    escapeAndStay();
    choose(VK_DOWN, kInstallingApache);
    choose(VK_RIGHT, kInstallingOther);
    enter(5);
    escapeAndStay();
    enter(6);
    enterAndExpectWarning(kChooseUrl);
    escapeAndStay();
    choose(VK_DOWN, kUrlKv);
    enter(9);
    enterAndExpectRefusal(kEnterFolder, 0);
    escapeAndStay();
    wizard().typeAtFocus("Q:\\nowhere\\htdocs");
    enterAndExpectRefusal("\"Q:\\nowhere\\htdocs\" does not exist.", 0);
    typeAndGoOn(path(new_.home));
    press(VK_TAB);
    wizard().typeAtFocus("Q:\\nowhere\\cgi-bin");
    enterAndExpectRefusal("\"Q:\\nowhere\\cgi-bin\" does not exist.", 1);
    wizard().typeAtFocus(path(new_.scripts));
    enter(14);
    escapeAndStay();
    typeAndGoOn("10.0.0");
    wizard().typeAtFocus("http");
    wizard().press(VK_RETURN);
    for (const std::string_view text : {kWrongAddress, kWrongPort}) {
        const MessageBoxView box = wizard().waitForMessageBox();
        EXPECT_EQ(box.text, text);
        wizard().pressIn(box, VK_RETURN);
    }
    expectRefused(0);
    wizard().typeAtFocus("10.0.0.1");
    enterAndExpectRefusal(kWrongPort, 1);
    wizard().typeAtFocus("8080");
    enter(10);
    escapeAndStay();
    enterToTheEnd();

    expectTree(expected);
    expectNoLog();
}

TEST_F(RoadsByKeyboard, AModification) {
    haveInstallation(old_);
    const Tree expected = afterModification(place().tree(), old_, new_);
    startOnActions();

    escapeAndStay();
    wizard().press(VK_SPACE);
    wizard().waitForPanel(1);
    expectFocus(kInstalledApache);
    enter(6);
    expectFocus(kUrlDefault);
    choose(VK_DOWN, kUrlKv);
    enter(7);
    // The Tab key comes to a field with its text selected, so typing replaces it.
    press(VK_TAB, 2);
    wizard().typeAtFocus(path(new_.scripts));
    for (int stops = 0; stops < 2; ++stops) {
        const HWND before = wizard().focus();
        wizard().pressWith(VK_SHIFT, VK_TAB);
        wizard().waitForFocusOtherThan(before);
    }
    expectFocus("text box 1");
    wizard().typeAtFocus(path(new_.home));
    enter(14);
    enter(10);
    enterToTheEnd();

    expectTree(expected);
}

TEST_F(RoadsByKeyboard, ABackupADeletionAndAnUpgrade) {
    haveInstallation(old_);
    place().makeFolder("server\\cgi-bin\\kv\\own");
    Tree expected = place().tree();

    startOnActions();
    press(VK_TAB);
    expectFocus("picture 2");
    enter(10);
    enterToTheEnd();
    expected = afterBackup(expected, old_);
    expectTree(expected);

    startOnActions();
    press(VK_TAB, 2);
    expectFocus("picture 3");
    enter(10);
    enterToTheEnd();
    expected = afterDeletion(expected, old_);
    expectTreeBesideLog(expected);

    startOnActions();
    press(VK_TAB);
    expectFocus("picture 2");
    wizard().press(VK_SPACE);
    wizard().waitForPanel(10);
    enterToTheEnd();
    expected = afterUpgrade(expected, old_);
    expectTreeBesideLog(expected);
    expectLog(times(1, kFolderNotEmpty));
}

TEST_F(RoadsByKeyboard, TheArrowsGoRoundEachGroup) {
    start();
    enter(1);
    expectFocus(kInstalledIis);
    for (const std::string_view option :
         {kInstalledApache, kInstalledOther, kInstalledNothing, kInstalledIis})
        choose(VK_DOWN, option);
    for (const std::string_view option :
         {kInstalledNothing, kInstalledOther, kInstalledApache, kInstalledIis})
        choose(VK_UP, option);
    choose(VK_LEFT, kInstalledNothing);
    choose(VK_RIGHT, kInstalledIis);
    choose(VK_LEFT, kInstalledNothing);
    enter(2);
    choose(VK_LEFT, kInstallingAnyone);
    enter(3);
    enter(6);
    wizard().press(VK_SPACE);
    wizard().waitForChoice(kUrlDefault);
    choose(VK_DOWN, kUrlKv);
    choose(VK_DOWN, kUrlDefault);
}

TEST_F(RoadsByKeyboard, TheChosenOptionIsTheStopOfItsGroup) {
    start();
    enter(1);
    choose(VK_DOWN, kInstalledApache);
    choose(VK_DOWN, kInstalledOther);
    enter(6);

    wizard().pressWith(VK_MENU, 'B');
    wizard().waitForPanel(1);

    expectStops(wizard(), kInstalledOther + kFrame);
}

TEST_F(RoadsByKeyboard, EnterPressesTheFocusedButtonAndNotTheDefault) {
    start();
    enter(1);
    press(VK_TAB);
    expectFocus(kBack);

    enter(0);

    expectFocus(kNext);
    press(VK_TAB);
    expectFocus(kCancel);
    enterAndExpectWarning(kReallyCancel);
    EXPECT_EQ(wizard().currentPanel(), 0);
}

TEST_F(RoadsByKeyboard, TheFolderBrowserOpensAndClosesByKeys) {
    start();
    goToFolders();
    press(VK_TAB);
    expectFocus("browse 1");
    const HWND button = wizard().focus();

    wizard().press(VK_SPACE);
    const HWND browser = wizard().waitForFolderBrowser();
    MessageBoxView dialog;
    dialog.handle = browser;
    wizard().pressIn(dialog, VK_ESCAPE);

    wizard().waitForFocus(button);
    EXPECT_EQ(wizard().fieldText(0), "");
}

TEST_F(RoadsByKeyboard, AltF4EndsFromATextBoxWithoutAQuestion) {
    start();
    goToFolders();
    wizard().type(0, "half a path");
    const Tree before = place().tree();

    wizard().pressWith(VK_MENU, VK_F4);

    EXPECT_EQ(wizard().waitForExit(), 0U);
    expectTree(before);
}

TEST_F(RoadsByKeyboard, NoKeyLeadsBackFromAFailedUpgradeAndAltF4WritesTheLog) {
    haveUpgradeAtHand(old_);
    place().remove(kOriginal + "kvi.bak");
    startOnActions();
    press(VK_TAB);
    enter(12);
    expectFocus(kFinish);

    wizard().press(VK_ESCAPE);
    wizard().pressWith(VK_MENU, 'B');
    wizard().pressWith(VK_MENU, 'N');
    press(VK_TAB);
    expectFocus("Help");
    EXPECT_EQ(wizard().currentPanel(), 12);
    wizard().pressWith(VK_MENU, VK_F4);

    EXPECT_EQ(wizard().waitForExit(), 0U);
    expectLog({"SERV  53, File not found, iocCfgReadFile"});
}

}  // namespace kv::endtoend
