// The whole wizard without a screen: the form and the program on a test's disk, with a sample
// product to deploy, web servers to deploy it into, and fakes for the rest of the outside world. A
// test works it as a user does, by clicks and typed texts.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/Program.h"
#include "common/Patience.h"
#include "common/Shell.h"
#include "common/modCmnLog.h"
#include "common/modKvIO.h"
#include "config/modKvIOCfg.h"
#include "process/ProgressLine.h"
#include "tests/model/SettingsFile.h"
#include "tests/support/FakeClock.h"
#include "tests/support/disks/FaultyFileSystem.h"
#include "tests/support/disks/TestDisk.h"
#include "wizard/controls/MessageBoxes.h"
#include "wizard/form/frmWebConfig.h"
#include "wizard/form/modWebCfgVariables.h"

namespace kv {

using Panels = std::vector<int>;

class FakeShell final : public Shell {
public:
    struct Opened {
        std::string document;
        std::string operation;
        int showMode;

        bool operator==(const Opened&) const = default;
    };
    struct Browsed {
        std::string title;
        unsigned flags;

        bool operator==(const Browsed&) const = default;
    };

    int openDocument(const std::string& document, const std::string& operation,
                     int showMode) override;
    std::string browseForFolder(const std::string& title, unsigned flags) override;

    std::vector<Opened> opened;
    int result = 42;  // of every openDocument

    std::vector<Browsed> browsed;
    std::deque<std::string> folders;  // the answers of the next browses; after them: cancelled
};

class FakeMessageBoxes final : public MessageBoxes {
public:
    void information(const std::string& text) override;
    bool yesNoDefaultNo(const std::string& text) override;

    Lines informations;
    Lines questions;
    std::deque<bool> answers;  // of the next questions; after them: No
};

// Records each change of a property as "<control> <property> <value>", in order; a box is
// "left,top,width,height", a yes/no value "yes" or "no". A report of the value that a property
// already has is no change. The focus has no value.
class RecordingObserver final : public ControlObserver {
public:
    // Takes the form's present values as known and listens from now on.
    void watch(Form& form);

    void onChanged(Control& control, Property property) override;
    void onClosed() override { ++closings; }

    // The changes that show on the screen: without those of the focus and of what only screen
    // readers tell.
    Lines onScreen() const;

    Lines changes;
    int closings = 0;

private:
    std::map<std::pair<const Control*, Property>, std::string> known_;
};

// Name the tests of a table after their rows' names, or after their server.
struct CaseName {
    template <class Row>
    std::string operator()(const testing::TestParamInfo<Row>& info) const {
        return info.param.name;
    }
};
struct ServerName {
    std::string operator()(const testing::TestParamInfo<Server>& info) const;
};

// A web server of the sample disk, and the controls that describe it.
struct SampleServer {
    Server kind;
    std::string home;
    std::string scripts;  // of IIS: missing, its parent is there
    OptionButton frmWebConfig::*installed;
    TextBox frmWebConfig::*homeBox;
    TextBox frmWebConfig::*scriptsBox;
    int folderPanel;
};
const SampleServer& sampleServer(Server kind);

inline constexpr const char* kSampleProduct = "C:\\Korvane";
inline constexpr const char* kSamplePlace = "C:\\Korvane\\bin";  // the program's own folder
inline constexpr const char* kSampleInstallationFile = "C:\\Korvane\\bin\\kvi\\kvi.cfg";
inline constexpr const char* kSampleMain = "C:\\Korvane\\cfg\\general\\korvane.cfg";
inline constexpr const char* kSampleAdministrator = "C:\\Korvane\\cfg\\user\\dadmin\\kvadm.cfg";
inline constexpr const char* kSampleAnonymous = "C:\\Korvane\\cfg\\user\\anony\\kvan.cfg";
inline constexpr const char* kSavedInstallation = "C:\\Korvane\\cfg\\original\\kvi.bak";
inline constexpr const char* kSavedMain = "C:\\Korvane\\cfg\\original\\korvane.bak";
inline constexpr const char* kSavedAdministrator = "C:\\Korvane\\cfg\\original\\kvadm.bak";
inline constexpr const char* kSavedAnonymous = "C:\\Korvane\\cfg\\original\\kvan.bak";
inline constexpr const char* kSampleLog = "C:\\Korvane\\log\\kvwcfg00.log";

// Makes the control one that a user can act on, whatever panel is shown.
void bringIntoReach(Control& control);

// What the sample product's file of that path, relative to the product's folder, holds.
std::string sampleContent(std::string_view relativePath);

// The layers below the window's behaviour, wired by hand on an empty disk, for tests of one of
// them. The program lies in C:\Korvane\bin.
class Workbench {
public:
    Workbench();

    // The log's entries so far. Takes all faults off first.
    Lines logEntries();

    TestDisk disk;
    FaultyFileSystem files{disk.fileSystem()};
    FakeClock clock;
    Patience patience{clock};
    modCmnLog log{files, clock, patience, "kvwcfg"};
    modKvIO io{files, log, patience};
    modKvIOCfg configuration{io, files, log};
    frmWebConfig form;
    WizardState state;
    ProgressLine progress{form};
    FakeShell shell;
    FakeMessageBoxes messages;
};

// A disk with the product unpacked and not yet installed, and with web servers to install it in.
// Journal and faults are those of the program's calls, not of the test's own ones.
class SampleDisk {
public:
    SampleDisk();

    // The log's entries; none without a log file.
    Lines log() const;

    TestDisk disk;
    FaultyFileSystem files{disk.fileSystem()};
};

class Wizard {
public:
    explicit Wizard(SampleDisk& disk, const ProgramPlace& place = {kSamplePlace, "kvwcfg"});

    // Starts the program.
    void load() { program.load(); }

    // The visible panels, and the number of the only one; -1 when there are none or several.
    Panels visiblePanels() const;
    int currentPanel() const;

    // The panels visited, the current one last.
    Panels history() const;

    // Steps from one panel to the next: from panel 1 to 6, from there to the folder panel,
    // from there, with the sample server's folders typed into the boxes, to 14, and from panel 1
    // to 10.
    void chooseServer(Server server);
    void chooseUrlStyle(UrlStyle style);
    void typeFolders(Server server);
    void describeSite(Server server, UrlStyle style);

    // From the Welcome panel of a disk without installation to the folder panel, 14 and 10.
    void goToFolders(Server server, UrlStyle style = UrlStyle::SiteRoot);
    void goToWebsite(Server server, UrlStyle style = UrlStyle::SiteRoot);
    void goToConfirmation(Server server, UrlStyle style);

    // A new installation from the Welcome panel to its end on panel 11.
    void install(Server server, UrlStyle style);

    // Closes the window, which brings the log to disk, and returns what the log then holds.
    Lines closeAndReadLog();

    SampleDisk& disk;
    FakeClock clock;
    FakeShell shell;
    FakeMessageBoxes messages;
    frmWebConfig form;
    RecordingObserver observer;
    Program program;
};

}  // namespace kv
