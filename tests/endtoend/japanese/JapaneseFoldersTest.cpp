// Folders with Japanese names under the Japanese code page, in which the second byte of many a
// character is that of the backslash: they are looked for, shown, made, recorded and removed as any
// other.
#include <filesystem>
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

constexpr UINT kJapanese = 932;

// The second byte of each of them is 5C.
constexpr std::wstring_view kTable = L"\u8868";          // 95 5C
constexpr std::wstring_view kSo = L"\u30BD";             // 83 5C
constexpr std::wstring_view kAbility = L"\u6A5F\u80FD";  // 8B 40 94 5C

std::wstring wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

// As the names of files are in the workplace's tree.
std::string utf8(std::wstring_view text) { return fs::path(text).string(); }

// As they stand in the files, and in the window's texts for who asks for bytes.
std::string japanese(std::wstring_view text) {
    std::string bytes(text.size() * 2, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(kJapanese, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

// A web server's folders, relative to the workplace.
struct Web {
    std::wstring home;
    std::wstring scripts;
};

const Web kFirst{std::wstring(kTable), std::wstring(kSo)};
const Web kSecond{L"server\\" + std::wstring(kAbility) + L"\\" + std::wstring(kTable),
                  L"server\\" + std::wstring(kAbility) + L"\\cgi" + std::wstring(kSo) + L"bin"};
const Web kIis{L"inetpub\\" + std::wstring(kAbility),
               L"inetpub\\\u5B9F\u884C" + std::wstring(kTable)};

}  // namespace

class JapaneseFolders : public Scenario {
protected:
    void SetUp() override {
        if (GetACP() != kJapanese)
            GTEST_SKIP() << "the code page is " << GetACP() << ", not the Japanese one";
        for (const std::wstring& folder :
             {kFirst.home, kFirst.scripts, kSecond.home, kSecond.scripts, kIis.home})
            fs::create_directories(full(folder));
    }

    std::wstring full(std::wstring_view relative) const {
        return wide(place().root()) + L"\\" + std::wstring(relative);
    }

    HWND box(std::size_t index) const { return wizard().textBoxes().at(index).handle; }

    void enter(const std::wstring& home, const std::wstring& scripts) const {
        typeWide(wizard(), 0, home);
        typeWide(wizard(), 1, scripts);
    }

    void enter(const Web& web) const { enter(full(web.home), full(web.scripts)); }

    void expectFields(const std::wstring& home, const std::wstring& scripts) const {
        EXPECT_EQ(wideText(box(0)), home);
        EXPECT_EQ(wideText(box(1)), scripts);
    }

    // Its files as they are in the tree; its record in the window's own bytes.
    Site site(const Web& web, Server kind = Server::Apache) const {
        return place().site(utf8(web.home), utf8(web.scripts), kind, UrlStyle::Kv);
    }
    void record(Tree& tree, const Web& web, Server kind) const {
        Site recorded = site(web, kind);
        recorded.root = "";
        recorded.home = japanese(full(web.home));
        recorded.scripts = japanese(full(web.scripts));
        recorded.product = place().product();
        tree[settingsPath()] = recordOf(recorded);
        tree[scriptsFile(site(web))] = scriptsRecordOf(recorded);
    }

    Tree installed(const Tree& before, const Web& web, Server kind = Server::Apache) const {
        Tree tree = afterInstallation(before, site(web, kind));
        record(tree, web, kind);
        return tree;
    }

    void confirmAndLeave() {
        install();
        EXPECT_EQ(wizard().progressWidth(), kProgressDone);
        finish();
    }

    void goToUrlKv(const ServerRoad& road) const {
        next(wizard(), 1);
        chooseServer(wizard(), road);
        chooseUrl(wizard(), kUrlKv, road.folderPanel);
    }
};

TEST_F(JapaneseFolders, AreInstalledIntoModifiedAndDeleted) {
    const Tree before = place().tree();
    start();
    goToUrlKv(kApacheInstalled);
    enter(kFirst);
    next(wizard(), 14);
    confirmAndLeave();

    Tree expected = installed(before, kFirst);
    expectTree(expected);

    start();
    next(wizard(), 13);
    wizard().clickPictureButtonBeside(kModifyLabel);
    wizard().waitForPanel(1);
    next(wizard(), 6);
    next(wizard(), 7);
    expectFields(full(kFirst.home), full(kFirst.scripts));
    enter(kSecond);
    next(wizard(), 14);
    confirmAndLeave();

    expected = afterModification(expected, site(kFirst), site(kSecond));
    record(expected, kSecond, Server::Apache);
    expectTree(expected);

    start();
    next(wizard(), 13);
    wizard().clickPictureButtonBeside(kDeleteLabel);
    wizard().waitForPanel(10);
    wizard().click(kNext);
    wizard().waitForOperationEnd();
    finish();

    expectTree(afterDeletion(expected, site(kSecond)));
    expectNoLog();
}

// Of IIS's scripts folder only the parent has to be there.
TEST_F(JapaneseFolders, AreMadeForTheScriptsOfIis) {
    const Tree expected = installed(place().tree(), kIis, Server::IIS);
    start();
    goToUrlKv(kIisInstalled);
    enter(kIis);
    next(wizard(), 14);

    confirmAndLeave();

    expectTree(expected);
    EXPECT_TRUE(fs::exists(full(L"inetpub\\\u5B9F\u884C\u8868\\kv\\kv.exe")));
    expectNoLog();
}

TEST_F(JapaneseFolders, LoseOneBackslashAtTheirEndAndNothingElse) {
    start();
    goToFolders();
    enter(full(kFirst.home) + L"\\", full(kFirst.scripts));

    next(wizard(), 14);

    back(wizard(), 7);
    expectFields(full(kFirst.home), full(kFirst.scripts));
}

TEST_F(JapaneseFolders, ThatAreMissingAreNamedInFull) {
    const std::wstring missing = full(L"server\\\u8868");
    start();
    goToFolders(kOtherInstalled);
    enter(missing, full(kFirst.scripts));

    wizard().click(kNext);

    expectWarning(japanese(L"\"" + missing + L"\" does not exist."));
    expectFields(missing, full(kFirst.scripts));
    EXPECT_EQ(wizard().currentPanel(), 9);
}

TEST_F(JapaneseFolders, WhoseParentIsMissingAreRefusedForIis) {
    const std::wstring parent = full(L"server\\\u8868");
    start();
    goToFolders(kIisInstalled);
    enter(full(kIis.home), parent + L"\\\u5B9F\u884C\u8868");

    wizard().click(kNext);

    expectWarning(japanese(L"\"" + parent + L"\" does not exist."));
    EXPECT_EQ(wizard().currentPanel(), 8);
}

// The byte of a backslash is none within a character.
TEST_F(JapaneseFolders, WithoutABackslashAreRefusedWithAnExample) {
    start();
    goToFolders();
    enter(std::wstring(kTable), full(kFirst.scripts));

    wizard().click(kNext);

    expectWarning(
        japanese(L"\"\u8868\" cannot be used. Please enter folder's full path name, such "
                 L"as C:\\Inetpub\\scripts."));
    expectFields(std::wstring(kTable), full(kFirst.scripts));
    EXPECT_EQ(wizard().currentPanel(), 7);
    expectNoLog();
}

TEST_F(JapaneseFolders, InADrivesRootAreFound) {
    const BorrowedFolder home(L"C:\\\u8868");
    const BorrowedFolder scripts(L"C:\\\u30BD");
    start();
    goToFolders();
    enter(L"C:\\\u8868", L"C:\\\u30BD");

    next(wizard(), 14);
}

// The product's own folder, and that of its programs.
TEST_F(JapaneseFolders, HoldTheProduct) {
    const std::string product = utf8(L"\u88FD\u54C1\u8868");
    place().remove("server");
    fs::rename(fs::path(place().product()), fs::path(full(L"\u88FD\u54C1\u8868")));
    fs::rename(fs::path(full(L"\u88FD\u54C1\u8868\\bin")),
               fs::path(full(L"\u88FD\u54C1\u8868\\\u30BD")));
    fs::remove_all(fs::path(full(L"\u88FD\u54C1\u8868\\\u30BD\\kvi")));

    startFrom(japanese(full(L"\u88FD\u54C1\u8868\\\u30BD\\kvwcfg.exe")), place().root());
    wizard().waitForPanel(12);
    finish();

    EXPECT_EQ(logEntries(place().read(product + "\\log\\kvwcfg00.log")),
              Lines{"WARN  76, Path not found, iocCfgReadFile"});
}

}  // namespace kv::endtoend
