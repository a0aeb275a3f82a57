// The wizard runs with an administrator's rights, from a folder that others may have filled: how a
// broken stack ends it, and which libraries it takes.
#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include <oleacc.h>
#include <tlhelp32.h>

#include "tests/endtoend/driver/Desktop.h"
#include "tests/endtoend/driver/Waiting.h"
#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"

namespace kv::endtoend {

namespace {

constexpr DWORD kStackOverrun = 0xC0000409;

// Libraries that the system loads on its own for a program with a window, themes, a folder browser
// or a screen reader; real Windows has more of them than Wine.
constexpr std::array<std::string_view, 40> kKnownPlants{"advapi32.dll",
                                                        "apphelp.dll",
                                                        "bcrypt.dll",
                                                        "bcryptprimitives.dll",
                                                        "comctl32.dll",
                                                        "comdlg32.dll",
                                                        "coremessaging.dll",
                                                        "coreuicomponents.dll",
                                                        "cryptbase.dll",
                                                        "cryptsp.dll",
                                                        "dwmapi.dll",
                                                        "gdiplus.dll",
                                                        "imm32.dll",
                                                        "iphlpapi.dll",
                                                        "linkinfo.dll",
                                                        "mpr.dll",
                                                        "msasn1.dll",
                                                        "msctf.dll",
                                                        "msimg32.dll",
                                                        "netapi32.dll",
                                                        "ntmarta.dll",
                                                        "ntshrui.dll",
                                                        "oleacc.dll",
                                                        "profapi.dll",
                                                        "propsys.dll",
                                                        "rsaenh.dll",
                                                        "secur32.dll",
                                                        "setupapi.dll",
                                                        "shfolder.dll",
                                                        "sspicli.dll",
                                                        "textinputframework.dll",
                                                        "textshaping.dll",
                                                        "userenv.dll",
                                                        "uxtheme.dll",
                                                        "version.dll",
                                                        "windowscodecs.dll",
                                                        "winmm.dll",
                                                        "wintypes.dll",
                                                        "wtsapi32.dll",
                                                        "xmllite.dll"};

// Windows maps these once, when it starts, and takes no file for them afterwards; so it does with
// what they import, and with what else is listed in its registry. Wine has no such list and takes
// the imports of a program from beside it.
constexpr std::array<std::string_view, 19> kMappedByWindows{
    "advapi32.dll",   "bcryptprimitives.dll",
    "combase.dll",    "coml2.dll",
    "gdi32.dll",      "gdi32full.dll",
    "imm32.dll",      "kernel32.dll",
    "kernelbase.dll", "msctf.dll",
    "msvcp_win.dll",  "msvcrt.dll",
    "ntdll.dll",      "ole32.dll",
    "rpcrt4.dll",     "sechost.dll",
    "ucrtbase.dll",   "user32.dll",
    "win32u.dll"};
constexpr std::string_view kWinesOwn = "zlib1.dll";  // below Wine's kernelbase

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

bool isListedByWindows(std::string_view name) {
    HKEY list = nullptr;
    RegOpenKeyExA(HKEY_LOCAL_MACHINE,
                  "SYSTEM\\CurrentControlSet\\Control\\Session Manager\\KnownDLLs", 0,
                  KEY_QUERY_VALUE, &list);
    std::array<char, MAX_PATH> value{};
    std::array<char, MAX_PATH> file{};
    bool listed = false;
    for (DWORD i = 0; !listed; ++i) {
        auto valueSize = static_cast<DWORD>(value.size());
        auto fileSize = static_cast<DWORD>(file.size() - 1);
        file.fill('\0');
        if (RegEnumValueA(list, i, value.data(), &valueSize, nullptr, nullptr,
                          reinterpret_cast<BYTE*>(file.data()), &fileSize) != ERROR_SUCCESS)
            break;
        listed = lowerCase(file.data()) == name;
    }
    RegCloseKey(list);
    return listed;
}

bool isMappedByWindows(std::string_view name) {
    return name == kWinesOwn || isListedByWindows(name) ||
           std::find(kMappedByWindows.begin(), kMappedByWindows.end(), name) !=
               kMappedByWindows.end();
}

// Wine prefers its own libraries to files of the same name wherever they lie. As long as an object
// of this class lives, the program prefers the files, as it does on Windows.
class FilesFirst {
public:
    explicit FilesFirst(const std::string& program)
        : key_("Software\\Wine\\AppDefaults\\" + program) {}
    ~FilesFirst() { RegDeleteTreeA(HKEY_CURRENT_USER, key_.c_str()); }
    FilesFirst(const FilesFirst&) = delete;
    FilesFirst& operator=(const FilesFirst&) = delete;

    void prefer(const std::string& library) const {
        constexpr std::string_view kOrder = "native,builtin";
        RegSetKeyValueA(HKEY_CURRENT_USER, (key_ + "\\DllOverrides").c_str(),
                        library.substr(0, library.rfind('.')).c_str(), REG_SZ, kOrder.data(),
                        static_cast<DWORD>(kOrder.size() + 1));
    }

private:
    std::string key_;
};

std::string nameOf(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

// The files of all libraries in a process, in lower case; the program itself is none.
Lines librariesOf(HANDLE process) {
    Lines paths;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, GetProcessId(process));
    MODULEENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Module32FirstW(snapshot, &entry); more; more = Module32NextW(snapshot, &entry))
        paths.push_back(lowerCase(std::filesystem::path(entry.szExePath).string()));
    CloseHandle(snapshot);
    std::erase_if(paths, [](const std::string& path) { return path.ends_with(".exe"); });
    return paths;
}

std::string besideThisProgram(std::string_view name) {
    std::array<char, 1024> path{};
    GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::string own = path.data();
    return own.substr(0, own.rfind('\\') + 1) + std::string(name);
}

DWORD exitCodeOf(std::string command, const std::string& folder) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.c_str(), &startup, &process))
        throw std::runtime_error("cannot start " + command);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

// Only the process itself is told of its error mode, so that a thread of it has to ask.
DWORD errorModeOf(HANDLE process) {
    const auto ask = reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "GetErrorMode")));
    HANDLE thread = CreateRemoteThread(process, nullptr, 0, ask, nullptr, 0, nullptr);
    if (thread == nullptr) throw std::runtime_error("cannot ask the process");
    WaitForSingleObject(thread, INFINITE);
    DWORD mode = 0;
    GetExitCodeThread(thread, &mode);
    CloseHandle(thread);
    return mode;
}

}  // namespace

class Hardening : public Scenario {
protected:
    // Everything for which the wizard loads libraries while it runs; the libraries it then has.
    Lines librariesOfATour() {
        startFrom(place().program(), place().path("work"));
        wizard().waitForPanel(0);
        askAsAScreenReader();
        goToFolders();
        wizard().clickBrowseButton(0);
        wizard().leaveFolderBrowser(wizard().waitForFolderBrowser(), IDCANCEL);
        wizard().fillField(0, "");
        wizard().click(kNext);
        expectWarning(kEnterFolder);
        return librariesOf(wizard().process());
    }

    bool hasLoaded(const std::string& name) const {
        const Lines libraries = librariesOf(wizard().process());
        return std::any_of(libraries.begin(), libraries.end(),
                           [&name](const std::string& path) { return nameOf(path) == name; });
    }

    void waitForFile(const std::string& path) const {
        EXPECT_TRUE(comesTrue([&] { return place().exists(path); }, 10000)) << path;
    }

    void plant(const std::string& name) const {
        const std::string bytes = readPlant();
        place().write("product\\bin\\" + name, bytes);
        place().write("work\\" + name, bytes);
    }

    Lines loadedPlants() const {
        Lines loaded;
        for (const auto& [path, bytes] : place().tree())
            if (path.ends_with(".loaded")) loaded.push_back(path);
        return loaded;
    }

private:
    void askAsAScreenReader() const {
        void* object = nullptr;
        if (SUCCEEDED(AccessibleObjectFromWindow(
                wizard().window(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, &object)))
            static_cast<IAccessible*>(object)->Release();
    }

    std::string readPlant() const {
        if (!place().exists("plant"))
            std::filesystem::copy(besideThisProgram("kv_planted.dll"), place().path("plant"));
        return place().read("plant");
    }
};

// An empty drive is a failure like others: the folder is not there.
TEST_F(Hardening, TheSystemAsksForNoDisk) {
    start();

    EXPECT_EQ(errorModeOf(wizard().process()) & (SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX),
              SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

TEST_F(Hardening, LinksPlantedByOrdinaryUsersAreRefused) {
    start();
    constexpr DWORD kUntouched = 0xFFFFFFFF;
    constexpr DWORD kEnforced = 1;
    DWORD flags = kUntouched;
    if (!GetProcessMitigationPolicy(wizard().process(), ProcessRedirectionTrustPolicy, &flags,
                                    sizeof flags) ||
        flags == kUntouched)
        GTEST_SKIP() << "this system trusts all links alike";

    EXPECT_EQ(flags & kEnforced, kEnforced);
}

TEST_F(Hardening, AnOverrunOfTheStackEndsTheProgramAtOnce) {
    const std::string program = "\"" + besideThisProgram("kv_overrun.exe") + "\" ";

    EXPECT_EQ(exitCodeOf(program + "16", place().root()), 0U);
    EXPECT_EQ(exitCodeOf(program + "80", place().root()), kStackOverrun);
}

TEST_F(Hardening, NoLibraryIsTakenFromBesideTheProgramOrFromTheWorkingFolder) {
    place().makeFolder("work");
    std::set<std::string> names(kKnownPlants.begin(), kKnownPlants.end());
    for (const std::string& path : librariesOfATour()) names.insert(nameOf(path));
    const FilesFirst filesFirst("kvwcfg.exe");
    for (const std::string& name : names) {
        plant(name);
        if (!isMappedByWindows(name)) filesFirst.prefer(name);
    }
    RecordProperty("plantedLibraries", static_cast<int>(names.size()));

    const Lines libraries = librariesOfATour();

    EXPECT_GE(libraries.size(), 10U);
    const std::string ours = lowerCase(place().root());
    for (const std::string& path : libraries)
        EXPECT_TRUE(!path.starts_with(ours) || isMappedByWindows(nameOf(path))) << path;
    EXPECT_EQ(loadedPlants(), Lines{});
}

// It may work on in the background when its call returns.
TEST_F(Hardening, TheShellIsLoadedWhenItIsNeededAndStays) {
    const NotedBrowser browser(place().path("visited.txt"));
    if (!browser.works()) GTEST_SKIP() << "this system lets no program choose the browser";
    place().remove(settingsPath());
    start(12);
    EXPECT_FALSE(hasLoaded("shell32.dll"));

    wizard().click("Help");
    waitForFile("visited.txt");

    EXPECT_TRUE(hasLoaded("shell32.dll"));
}

// That the plants would be seen: a program that does not take care takes them.
TEST_F(Hardening, ACarelessProgramTakesWhatLiesBesideIt) {
    place().makeFolder("work");
    const FilesFirst filesFirst("careless.exe");
    std::string command = "\"" + place().path("product\\bin\\careless.exe") + "\"";
    Lines expected;
    for (const std::string_view known : kKnownPlants) {
        const std::string name(known);
        // The latter Windows itself brings into programs that it does not know.
        if (isMappedByWindows(name) || name == "apphelp.dll") continue;
        plant(name);
        filesFirst.prefer(name);
        command += " " + name;
        expected.push_back("product\\bin\\" + name + ".loaded");
    }
    std::filesystem::copy(besideThisProgram("kv_careless.exe"),
                          place().path("product\\bin\\careless.exe"));

    exitCodeOf(command, place().path("work"));

    EXPECT_EQ(loadedPlants(), expected);
}

}  // namespace kv::endtoend
