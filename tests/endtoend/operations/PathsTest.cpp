// Folders in every spelling that Windows knows, and in some that it does not.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/endtoend/driver/WideText.h"
#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestText = 32767;

// The spelling of a drive's path that Windows takes to the letter and at any length.
std::string unlimited(const std::string& path) { return "\\\\?\\" + path; }

}  // namespace

class Paths : public Scenario {
protected:
    void install(const std::string& home, const std::string& scripts) {
        goToFolders();
        enterFolders(wizard(), home, scripts);
        Scenario::install();
        EXPECT_EQ(wizard().progressWidth(), kProgressDone);
        finish();
    }

    // What an installation leaves that was told these folders, which are those of the site.
    static Tree installed(const Tree& before, const Site& site, const std::string& home,
                          const std::string& scripts) {
        Tree tree = afterInstallation(before, site);
        const std::string product = site.root + site.product + "\\";
        tree[installationFile(site)] =
            settingsBytes({home + "\\", scripts + "\\", product, "1", "0", "", ""}, product);
        tree[scriptsFile(site)] = settingsBytes({home + "\\"}, product);
        return tree;
    }

    void expectDoesNotExist(const std::string& entered) const {
        wizard().fillField(0, entered);
        wizard().click(kNext);
        expectWarning("\"" + entered + "\" does not exist.");
        EXPECT_EQ(wizard().currentPanel(), 7);
    }
};

TEST_F(Paths, FoldersOfMoreThan260CharactersAreInstalledInto) {
    const std::string deep = "server\\" + std::string(100, 'a') + "\\" + std::string(100, 'b') +
                             "\\" + std::string(100, 'c');
    const std::string home = deep + "\\htdocs";
    const std::string scripts = deep + "\\cgi-bin";
    place().makeFolder(home);
    place().makeFolder(scripts);
    const Tree before = place().tree();
    start();

    install(place().path(home), place().path(scripts));

    expectTree(afterInstallation(before, place().site(home, scripts)));
    expectNoLog();
}

// The program itself lies just below the limit, since not every system starts one beyond it; most
// of the product's files lie above.
TEST_F(Paths, AProductWithFilesBeyond260CharactersInstalls) {
    constexpr std::size_t kProgramLength = 255;
    const std::size_t rest = kProgramLength - place().program().size() - 2;
    const std::string parent =
        std::string(rest / 2, 'p') + "\\" + std::string(rest - rest / 2, 'q');
    const std::string product = place().path(parent) + "\\product";
    const Tree before = place().tree();
    place().makeFolder(parent);
    fs::rename(place().product(), product);

    startFrom(product + "\\bin\\kvwcfg.exe", place().root());
    wizard().waitForPanel(0);
    install(place().home(), place().scripts());

    // Recorded is where it lies, compared where it lay.
    Tree expected = afterInstallation(before, site());
    Site recorded = site();
    recorded.product = parent + "\\product";
    expected[installationFile(site())] = recordOf(recorded);
    expected[scriptsFile(site())] = scriptsRecordOf(recorded);
    Tree actual;
    for (const auto& [path, bytes] : place().tree())
        if (path.starts_with(parent + "\\product"))
            actual[path.substr(parent.size() + 1)] = bytes;
        else if (!path.starts_with("p"))
            actual[path] = bytes;
    EXPECT_EQ(differences(expected, actual), "");
}

TEST_F(Paths, AFolderTextOfTheLongestLengthIsAnswered) {
    start();
    goToFolders();
    const std::string text = "C:\\" + std::string(kLongestText - 3, 'a');

    pasteWide(wizard(), 0, {text.begin(), text.end()});
    wizard().click(kNext);

    const MessageBoxView box = wizard().waitForMessageBoxOfAnySize();
    const std::string shown = "\"" + text + "\" does not exist.";
    EXPECT_EQ(wideText(GetDlgItem(box.handle, 0xFFFF)), std::wstring(shown.begin(), shown.end()));
    wizard().pressIn(box, VK_RETURN);
    enterFolders(wizard(), place().home(), place().scripts());
    EXPECT_EQ(wizard().currentPanel(), 14);
}

TEST_F(Paths, TrailingDotsAndBlanksNameNoOtherFolder) {
    start();
    goToFolders();
    wizard().type(1, place().scripts());

    for (const char* end : {".", "..", " ", "  ", " .", ". "})
        expectDoesNotExist(place().home() + end);
}

TEST_F(Paths, NamesOfDevicesAreNoFolders) {
    start();
    goToFolders();
    wizard().type(1, place().scripts());

    for (const char* name :
         {"CON", "NUL", "PRN", "AUX", "COM1", "LPT1", "nul.txt", "CON ", "NUL:"}) {
        expectDoesNotExist(place().path("server\\") + name);
        expectDoesNotExist("C:\\" + std::string(name));
    }
}

TEST_F(Paths, TheUnlimitedFormIsInstalledInto) {
    const std::string home = unlimited(place().home());
    const std::string scripts = unlimited(place().scripts());
    const Tree before = place().tree();
    start();

    install(home, scripts);

    expectTree(installed(before, site(), home, scripts));
    expectNoLog();
}

TEST_F(Paths, OfTheNetworkThatLeadNowhereDoNotExist) {
    start();
    goToFolders();
    wizard().type(1, place().scripts());

    for (const char* path : {"\\\\nowhere\\share\\www", "\\\\nowhere\\share", "\\\\nowhere",
                             "\\\\?\\UNC\\nowhere\\share\\www", "\\\\?\\Q:\\www", "\\\\?\\www",
                             "\\\\.\\www", "\\www-that-is-nowhere"})
        expectDoesNotExist(path);
}

// To another disk as well, where a folder cannot be renamed to.
void moveFolder(const std::string& from, const std::string& to) {
    fs::copy(from, to, fs::copy_options::recursive);
    fs::remove_all(from);
}

// A share of Wine's own: a folder below its folder of network names. Elsewhere the workplace by the
// system's own share of its drive.
class NetworkPaths : public Paths {
protected:
    NetworkPaths() {
        const std::string root = place().root();
        share_ = "\\\\localhost\\" + root.substr(0, 1) + "$" + root.substr(2);
        if (const char* prefix = std::getenv("WINEPREFIX")) {
            folder_ = windowsPath(prefix) + "\\dosdevices\\unc\\kv-server\\" + scenarioName();
            fs::create_directories(folder_);
            moveFolder(place().path("server"), folder_ + "\\server");
            fs::copy(place().product(), folder_ + "\\product", fs::copy_options::recursive);
            share_ = "\\\\kv-server\\" + scenarioName();
        }
    }
    ~NetworkPaths() override {
        std::error_code ignored;
        if (!folder_.empty()) fs::remove_all(folder_, ignored);
    }

    bool works() const {
        std::error_code ignored;
        return fs::exists(share_ + "\\server", ignored);
    }
    std::string onShare(const std::string& relative) const { return share_ + "\\" + relative; }

    // What lies on the share, seen as part of the workplace again.
    void bringBack() const {
        if (!folder_.empty()) moveFolder(folder_ + "\\server", place().path("server"));
    }

private:
    std::string folder_;
    std::string share_;
};

TEST_F(NetworkPaths, AreInstalledInto) {
    if (!works()) GTEST_SKIP() << "this system lends no share";
    const std::string home = onShare("server\\htdocs");
    const std::string scripts = onShare("server\\cgi-bin");
    Tree before = place().tree();
    for (const char* folder : {"server\\", "server\\htdocs\\", "server\\cgi-bin\\"})
        before[folder] = "";
    start();

    install(home, scripts);

    bringBack();
    expectTree(installed(before, site(), home, scripts));
    expectNoLog();
}

// The wizard finds its product from its drive letter on, which a share does not have.
TEST_F(NetworkPaths, AProductThereEndsWithOneMessage) {
    if (!works()) GTEST_SKIP() << "this system lends no share";
    const std::string program = onShare("product\\bin\\kvwcfg.exe");
    const PlainStart started({program.begin(), program.end()});

    const HWND message = started.waitForMessage();

    EXPECT_EQ(wideText(GetDlgItem(message, 0xFFFF)),
              L"The wizard has to close because of error 5: Invalid procedure call or argument.");
    PostMessageW(GetDlgItem(message, IDOK), BM_CLICK, 0, 0);
    EXPECT_EQ(started.waitForExit(), 1U);
}

TEST_F(Paths, AProductStartedByItsUnlimitedFormIsFoundByItsDrive) {
    const Tree before = place().tree();

    startFrom(unlimited(place().program()), place().root());
    wizard().waitForPanel(0);
    install(place().home(), place().scripts());

    expectTree(afterInstallation(before, site()));
    expectNoLog();
}

}  // namespace kv::endtoend
