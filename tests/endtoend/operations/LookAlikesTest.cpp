// Characters that the code page cannot hold. Windows would put something similar in their place,
// and so name another folder than the user did.
#include <array>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <windows.h>

#include <shlobj.h>

#include "tests/endtoend/driver/WideText.h"
#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

namespace {

namespace fs = std::filesystem;

// Below the workplace: what the user enters, the folder that looks like it and exists, and what the
// wizard says.
struct LookAlike {
    std::string_view name;
    std::wstring_view entered;
    std::string_view existing;
    std::string_view shown;
};

void PrintTo(const LookAlike& which, std::ostream* out) { *out << which.name; }

const LookAlike kLookAlikes[] = {
    {"InfinityAndEight", L"server\\\u221E", "server\\8", "server\\?"},
    {"FullWidthBackslash", L"server\uFF3Chtdocs", "server\\htdocs", "server?htdocs"},
    {"FullWidthSlash", L"server\uFF0Fhtdocs", "server\\htdocs", "server?htdocs"},
    {"FullWidthLetter", L"server\\htdoc\uFF53", "server\\htdocs", "server\\htdoc?"},
    {"LetterWithMacron", L"server\\\u0100", "server\\A", "server\\?"},
    {"FullWidthFullStop", L"server\\a\uFF0Eb", "server\\a.b", "server\\a?b"},
    {"BoldDigitOfTwoUnits", L"server\\\U0001D7D6", "server\\8", "server\\??"},
    {"BlankOfOtherWidth", L"server\\a\u2003b", "server\\a b", "server\\a?b"},
};

std::wstring wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

fs::path desktopFolder() {
    std::array<wchar_t, MAX_PATH> path{};
    SHGetFolderPathW(nullptr, CSIDL_DESKTOPDIRECTORY, nullptr, 0, path.data());
    return path.data();
}

// Folders of these names on the user's desktop for as long as the object lives.
class DesktopFolders {
public:
    DesktopFolders() {
        fs::create_directories(infinity_);
        fs::create_directories(eight_);
    }
    ~DesktopFolders() {
        std::error_code ignored;
        fs::remove(infinity_, ignored);
        fs::remove(eight_, ignored);
    }
    DesktopFolders(const DesktopFolders&) = delete;
    DesktopFolders& operator=(const DesktopFolders&) = delete;

private:
    fs::path infinity_ = desktopFolder() / L"\u221E";
    fs::path eight_ = desktopFolder() / L"8";
};

}  // namespace

class LookAlikes : public Scenario, public testing::WithParamInterface<LookAlike> {
protected:
    std::wstring entered() const {
        return wide(place().root()) + L"\\" + std::wstring(GetParam().entered);
    }

    void expectRefusal() {
        const Tree before = place().tree();
        wizard().type(1, place().scripts());
        wizard().click(kNext);
        expectWarning("\"" + place().path(GetParam().shown) + "\" does not exist.");
        EXPECT_EQ(wizard().currentPanel(), 7);
        EXPECT_EQ(differences(before, place().tree()), "");
    }
};

TEST_P(LookAlikes, TypedDoNotExist) {
    place().makeFolder(GetParam().existing);
    start();
    goToFolders();

    typeWide(wizard(), 0, entered());

    expectRefusal();
}

TEST_P(LookAlikes, PastedDoNotExist) {
    place().makeFolder(GetParam().existing);
    start();
    goToFolders();

    pasteWide(wizard(), 0, entered());

    expectRefusal();
}

INSTANTIATE_TEST_SUITE_P(All, LookAlikes, testing::ValuesIn(kLookAlikes),
                         [](const testing::TestParamInfo<LookAlike>& which) {
                             return std::string(which.param.name);
                         });

class LookAlikeFolders : public Scenario {};

TEST_F(LookAlikeFolders, ChosenInTheBrowserDoNotExist) {
    const DesktopFolders folders;
    start();
    goToFolders();
    wizard().type(1, place().scripts());

    // The names in the browser belong to another process; the text box tells which one it was.
    std::string chosen;
    for (int item = 0; !chosen.ends_with('?'); ++item) {
        wizard().clickBrowseButton(0);
        const HWND browser = wizard().waitForFolderBrowser();
        const bool isFolder = wizard().chooseOnDesktop(browser, item);
        wizard().leaveFolderBrowser(browser, isFolder ? IDOK : IDCANCEL);
        chosen = wizard().fieldText(0);
    }

    EXPECT_TRUE(chosen.ends_with("\\Desktop\\?")) << chosen;
    wizard().click(kNext);
    expectWarning("\"" + chosen + "\" does not exist.");
}

// Of the IIS scripts folder only the parent has to exist: the folder itself is then made.
TEST_F(LookAlikeFolders, AreNotMadeInTheirPlace) {
    place().makeFolder("server\\8");
    start();
    goToFolders(kIisInstalled);
    wizard().fillField(0, place().home());
    typeWide(wizard(), 1, wide(place().root()) + L"\\server\\\u221E");
    next(wizard(), 14);

    install();
    finish();

    EXPECT_TRUE(fs::is_empty(place().path("server\\8")));
    Lines expected(3, "SERV  52, Bad file name or number, ioMakeDirectory");
    expected.insert(expected.end(), 13, "SERV  52, Bad file name or number, ioCopyFile");
    expected.push_back("WARN  52, Bad file name or number, iocCfgWriteFile");
    expectLog(expected);
}

class LookAlikeProduct : public Scenario {
protected:
    // The product once more, in a folder or under a name that the code page does not hold.
    void expectPlainFailure(const std::wstring& program) {
        const Tree before = place().tree();
        const PlainStart started(program);
        const HWND message = started.waitForMessage();

        EXPECT_EQ(wideText(message), wide(std::string(kWizardTitle)));
        EXPECT_EQ(wideText(GetDlgItem(message, kMessageText)),
                  L"The wizard has to close because of error 52: Bad file name or number.");
        PostMessageW(GetDlgItem(message, IDOK), BM_CLICK, 0, 0);
        EXPECT_EQ(started.waitForExit(), 1U);
        EXPECT_EQ(differences(before, place().tree()), "");
    }

    static constexpr int kMessageText = 0xFFFF;
};

TEST_F(LookAlikeProduct, InAFolderEndsWithOneMessage) {
    fs::copy(place().product(), place().path("product 8"), fs::copy_options::recursive);
    const fs::path folder = fs::path(place().root()) / L"product \u221E";
    fs::copy(place().product(), folder, fs::copy_options::recursive);

    expectPlainFailure((folder / L"bin" / L"kvwcfg.exe").wstring());
}

TEST_F(LookAlikeProduct, UnderANameEndsWithOneMessage) {
    const fs::path program = fs::path(place().product()) / L"bin" / L"kvw\u0107fg.exe";
    fs::copy(place().program(), program);

    expectPlainFailure(program.wstring());
}

}  // namespace kv::endtoend
