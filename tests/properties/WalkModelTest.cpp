// The walk through the wizard to its end: every panel with every way to it and every choice on the
// way, as a model of the walk says, against the wizard itself. Texts that lead to the same decision
// stand for each other: per server kind, folders that pass and folders that do not (the empty
// fields that the wizard fills with existing defaults are folders that pass), and addresses that
// pass or do not. The fields of another server, which nothing fills, do not pass at first.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <iostream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <unordered_set>
#include <vector>

#include "tests/support/Deployment.h"
#include "tests/support/PlainWizard.h"
#include "tests/support/disks/MemoryFileSystem.h"

namespace kv {
namespace {

// What an operation did to the files, as far as it tells the operations apart.
struct Work {
    int copies = 0;
    int deletions = 0;
    int removals = 0;
    int writes = 0;
    std::string firstCopy;  // its destination
    std::string firstDeletion;

    bool operator==(const Work&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Work& work) {
    return out << work.copies << " copies, the first to " << work.firstCopy << "; "
               << work.deletions << " deletions, the first of " << work.firstDeletion << "; "
               << work.removals << " removals; " << work.writes << " writes";
}

// Files that can be read and do not change; what would change them is counted.
class StillFileSystem final : public FileSystem {
public:
    explicit StillFileSystem(const Tree& image) : files_(image) {}

    void copyFile(const std::string&, const std::string& destination) override {
        if (work.copies++ == 0) work.firstCopy = destination;
    }
    void deleteFiles(const std::string& pattern) override {
        if (work.deletions++ == 0) work.firstDeletion = pattern;
    }
    void makeDirectory(const std::string&) override {}
    void removeDirectory(const std::string&) override { ++work.removals; }
    std::optional<std::string> findName(const std::string& path, Lookup lookup) override {
        return files_.findName(path, lookup);
    }
    std::int64_t fileLength(const std::string& path) override { return files_.fileLength(path); }
    std::unique_ptr<OpenFile> openForWrite(const std::string&) override {
        ++work.writes;
        return std::make_unique<Sink>();
    }
    std::unique_ptr<OpenFile> openForRead(const std::string& path) override {
        return files_.openForRead(path);
    }
    void append(const std::string&, std::string_view) override {}

    Work work;

private:
    class Sink final : public OpenFile {
    public:
        void write(std::string_view) override {}
        void truncate() override {}
        std::size_t read(std::span<char>) override { return 0; }
        void close() override {}
    };

    MemoryFileSystem files_;
};

// The model

enum Installed { kNoInstalled = -1, kInstalledIIS, kInstalledApache, kInstalledOther, kNothing };
enum Installing {
    kNoInstalling = -1,
    kInstallingIIS,
    kInstallingApache,
    kInstallingOther,
    kAnyone
};

enum class Action {
    Next,
    Back,
    Cancel,
    New,
    Upgrade,
    Modify,
    Backup,
    Delete,
    InstalledIIS,
    InstalledApache,
    InstalledOther,
    InstalledNothing,
    InstallingIIS,
    InstallingApache,
    InstallingOther,
    InstallingAnyone,
    UrlDefault,
    UrlKv,
    TypeGood,
    TypeBad,
};
constexpr int kActionCount = static_cast<int>(Action::TypeBad) + 1;

// The sample servers' places in lists of one element for each.
int placeOf(Server server) { return static_cast<int>(server); }

struct Model {
    std::vector<int> history{0};
    int installed = kNoInstalled;
    int installing = kNoInstalling;
    int url = -1;
    std::array<bool, 3> foldersPass{true, true, false};  // nothing fills those of another server
    bool addressPasses = true;
    int actionKind = 0;
    int actionPanelKind = 0;
    int entries = 0;

    bool operator==(const Model&) const = default;

    int panel() const { return history.back(); }

    std::optional<Server> server() const {
        if (installed == kInstalledApache || installing == kInstallingApache ||
            installing == kAnyone)
            return Server::Apache;
        if (installed == kInstalledIIS || installing == kInstallingIIS) return Server::IIS;
        if (installed == kInstalledOther || installing == kInstallingOther) return Server::Other;
        return std::nullopt;
    }

    // What the walk's future depends on.
    std::string key() const {
        const bool chosen = panel() != 0 && panel() != 13;
        std::string text;
        for (const int visited : history) text += static_cast<char>('A' + visited);
        for (const int value : {installed, installing, url, chosen ? actionKind : 0,
                                panel() == 0 ? 0 : actionPanelKind, entries})
            text += static_cast<char>('1' + value);
        for (const bool value : foldersPass) text += value ? '+' : '-';
        return text + (addressPasses ? '+' : '-');
    }
};

// The product as a wizard finds it.
struct Beginning {
    const char* name;
    int entries;  // recorded
    bool saved;   // korvane.bak is there
    bool savedReadable;
};

void PrintTo(const Beginning& beginning, std::ostream* out) { *out << beginning.name; }

struct Outcome {
    Model model;
    Lines messages;
    std::optional<Work> work;
};

// The recorded and the saved installation are Apache's under /kv.
const Site kRecorded = sampleSite(Server::Apache, UrlStyle::Kv);

Work workOf(const Model& model) {
    const std::string recordedProgram = kRecorded.scripts + "\\kv\\kv.exe";
    const std::string recordedCopy = kRecorded.scripts + "\\kv\\kvi\\kvi.cfg";
    const auto copies =
        static_cast<int>(copiedFileCount(model.url == 0 ? UrlStyle::SiteRoot : UrlStyle::Kv));
    constexpr auto kDeleted = static_cast<int>(kDeletedFileCount);
    constexpr auto kRemoved = static_cast<int>(kRemovedFolderCount);
    const std::string program =
        model.server() ? sampleServer(*model.server()).scripts + "\\kv\\kv.exe" : "";
    switch (model.actionKind) {
        case 0: return {copies + 1, 0, 0, 2, program, ""};
        case 1: return {copies, kDeleted, kRemoved, 2, program, recordedCopy};
        case 2: return {0, kDeleted, kRemoved, 1, "", recordedCopy};
        case 3: return {4, 0, 0, 0, kSavedInstallation, ""};
        case 4: return {static_cast<int>(kProgramFileCount) + 3, 0, 0, 1, recordedProgram, ""};
        default: return {};
    }
}

const char* folderMessage(Server server) {
    return server == Server::Other ? "Please enter folder's full path name."
                                   : "\"C:\\missing\" does not exist.";
}

// Nothing for an action that the panel does not offer.
class Walk {
public:
    explicit Walk(const Beginning& beginning) : beginning_(beginning) {}

    std::optional<Outcome> after(const Model& model, Action action) const {
        switch (action) {
            case Action::Next: return next(model);
            case Action::Back: return back(model);
            case Action::Cancel: return std::nullopt;
            case Action::New:
            case Action::Upgrade: return model.actionPanelKind == 1 ? act(model, action) : dead();
            case Action::Modify:
            case Action::Backup:
            case Action::Delete: return model.actionPanelKind == 2 ? act(model, action) : dead();
            case Action::InstalledIIS:
            case Action::InstalledApache:
            case Action::InstalledOther:
            case Action::InstalledNothing:
                return choose(model, 1, &Model::installed, action, Action::InstalledIIS);
            case Action::InstallingIIS:
            case Action::InstallingApache:
            case Action::InstallingOther:
            case Action::InstallingAnyone:
                return choose(model, 2, &Model::installing, action, Action::InstallingIIS);
            case Action::UrlDefault:
            case Action::UrlKv: return choose(model, 6, &Model::url, action, Action::UrlDefault);
            case Action::TypeGood: return type(model, true);
            case Action::TypeBad: return type(model, false);
        }
        return dead();
    }

    // Texts that do not pass are tried one at a time: those of one panel do not bear on another's.
    static bool leftOut(const Model& model, Action action) {
        if (action != Action::TypeBad) return false;
        const int panel = model.panel();
        return (panel != 7 && !model.foldersPass[0]) || (panel != 8 && !model.foldersPass[1]) ||
               (panel != 14 && !model.addressPasses);
    }

private:
    using Result = std::optional<Outcome>;

    static Result dead() { return std::nullopt; }

    static Result stay(const Model& model, const char* message) {
        return Outcome{model, {message}, {}};
    }

    static Result push(Model model, int panel) {
        model.history.push_back(panel);
        return Outcome{std::move(model), {}, {}};
    }

    static Result back(Model model) {
        if (model.panel() == 0 || model.panel() == 11 || model.panel() == 12) return dead();
        model.history.pop_back();
        return Outcome{std::move(model), {}, {}};
    }

    static Result choose(Model model, int panel, int Model::*choice, Action action, Action first) {
        if (model.panel() != panel) return dead();
        model.*choice = static_cast<int>(action) - static_cast<int>(first);
        return Outcome{std::move(model), {}, {}};
    }

    static Result type(Model model, bool good) {
        switch (model.panel()) {
            case 7: model.foldersPass[0] = good; break;
            case 8: model.foldersPass[1] = good; break;
            case 9: model.foldersPass[2] = good; break;
            case 14: model.addressPasses = good; break;
            default: return dead();
        }
        return Outcome{std::move(model), {}, {}};
    }

    Result act(Model model, Action action) const {
        if (model.panel() != 13) return dead();
        switch (action) {
            case Action::New: model.actionKind = 0; return push(model, 1);
            case Action::Modify:
                model.actionKind = 1;
                model.installed = kInstalledApache;
                model.url = 1;
                model.foldersPass[0] = true;
                model.addressPasses = true;
                return push(model, 1);
            case Action::Delete: model.actionKind = 2; return push(model, 10);
            case Action::Backup: model.actionKind = 3; return push(model, 10);
            default: break;
        }
        model.actionKind = 4;
        if (!beginning_.savedReadable) {
            model.history.back() = 12;
            return Outcome{std::move(model), {}, {}};
        }
        model.entries = 1;
        return push(model, 10);
    }

    Result next(Model model) const {
        switch (model.panel()) {
            case 0: return welcome(model);
            case 1:
                if (model.installed == kNoInstalled)
                    return stay(model, "Please select one of four choices.");
                return push(model, model.installed == kNothing ? 2 : 6);
            case 2:
                switch (model.installing) {
                    case kInstallingIIS: return push(model, 4);
                    case kInstallingApache:
                    case kAnyone: return push(model, 3);
                    case kInstallingOther: return push(model, 5);
                    default: return stay(model, "Please select one of four options.");
                }
            case 3:
            case 4:
            case 5: return push(model, 6);
            case 6:
                if (model.url == -1) return stay(model, "Please select one of two options.");
                return push(model, folderPanel(model));
            case 7:
            case 8:
            case 9: {
                const Server server = *model.server();
                if (!model.foldersPass.at(static_cast<std::size_t>(placeOf(server))))
                    return stay(model, folderMessage(server));
                return push(model, 14);
            }
            case 14:
                if (!model.addressPasses)
                    return stay(model, "The Web site IP address is incorrect.");
                return push(model, 10);
            case 10: {
                Result result = push(model, 11);
                result->work = workOf(model);
                if (model.actionKind == 0) ++result->model.entries;
                return result;
            }
            default: return dead();
        }
    }

    Result welcome(Model model) const {
        if (model.entries != 0) {
            model.actionPanelKind = 2;
            return push(model, 13);
        }
        if (beginning_.saved) {
            model.actionPanelKind = 1;
            return push(model, 13);
        }
        model.actionKind = 0;
        return push(model, 1);
    }

    static int folderPanel(const Model& model) {
        switch (*model.server()) {
            case Server::Apache: return 7;
            case Server::IIS: return 8;
            case Server::Other: return 9;
        }
        return 0;
    }

    const Beginning& beginning_;
};

// The wizard

Tree imageOfBeginning(const Beginning& beginning) {
    Tree image;
    for (const char* folder :
         {"C:\\Korvane\\", "C:\\Korvane\\bin\\", "C:\\Korvane\\bin\\kvi\\", "C:\\Korvane\\log\\",
          "C:\\Korvane\\cfg\\", "C:\\Korvane\\cfg\\original\\", "C:\\Korvane\\cfg\\general\\",
          "C:\\Program Files\\", "C:\\Program Files\\Apache Group\\",
          "C:\\Program Files\\Apache Group\\Apache2\\",
          "C:\\Program Files\\Apache Group\\Apache2\\htdocs\\",
          "C:\\Program Files\\Apache Group\\Apache2\\cgi-bin\\", "C:\\Inetpub\\",
          "C:\\Inetpub\\wwwroot\\", "C:\\Inetpub\\scripts\\", "C:\\Other Server\\",
          "C:\\Other Server\\docs\\", "C:\\Other Server\\cgi\\"})
        image[folder] = "";
    const std::string recorded = recordOf(kRecorded);
    image[kSampleInstallationFile] = beginning.entries > 0 ? recorded : settingsBytes({});
    image[kSampleMain] = cfgBytes({"#"});
    if (beginning.saved) image[kSavedMain] = cfgBytes({"#"});
    if (beginning.savedReadable) image[kSavedInstallation] = recorded;
    return image;
}

struct Buttons {
    const char* next;  // enabled, default, visible
    const char* back;
    const char* cancel;
    const char* finish;
};

Buttons buttonsOf(int panel) {
    switch (panel) {
        case 0: return {"yyy", "nny", "yny", "nnn"};
        case 13: return {"nny", "yny", "yny", "nnn"};
        case 11:
        case 12: return {"nnn", "nny", "nny", "yyy"};
        default: return {"yyy", "yny", "yny", "nnn"};
    }
}

const char* confirmationOf(int actionKind) {
    switch (actionKind) {
        case 2:
            return "Configuration Wizard is going to delete settings from disk and files to web "
                   "server's folders. Click on Next to continue, or click on Cancel to exit.";
        case 3:
            return "Configuration Wizard is going to backup settings to disk. Click on Next to "
                   "continue, or click on Cancel to exit.";
        default:
            return "Configuration Wizard is going to write settings to disk and copy files to web "
                   "server's folders. Click on Next to continue, or click on Cancel to exit.";
    }
}

// A wizard in the hands of its user.
class Window {
public:
    explicit Window(StillFileSystem& files) : files_(files), wizard_(files) { forget(); }

    void forget() {
        wizard_.messages.informations.clear();
        wizard_.messages.questions.clear();
        files_.work = {};
    }

    void perform(Action action) {
        switch (action) {
            case Action::Next: form_.cmdNext.click(); break;
            case Action::Back: form_.cmdBack.click(); break;
            case Action::Cancel: form_.cmdCancel.click(); break;
            case Action::New: form_.cmdNew.click(); break;
            case Action::Upgrade: form_.cmdUpgrade.click(); break;
            case Action::Modify: form_.cmdModify.click(); break;
            case Action::Backup: form_.cmdBackup.click(); break;
            case Action::Delete: form_.cmdDelete.click(); break;
            case Action::InstalledIIS: form_.optInstalledIIS.click(); break;
            case Action::InstalledApache: form_.optInstalledApache.click(); break;
            case Action::InstalledOther: form_.optInstalledOther.click(); break;
            case Action::InstalledNothing: form_.optInstalledNothing.click(); break;
            case Action::InstallingIIS: form_.optInstallingIIS.click(); break;
            case Action::InstallingApache: form_.optInstallingApache.click(); break;
            case Action::InstallingOther: form_.optInstallingOther.click(); break;
            case Action::InstallingAnyone: form_.optInstallingAnyone.click(); break;
            case Action::UrlDefault: form_.optUrlDefault.click(); break;
            case Action::UrlKv: form_.optUrlKv.click(); break;
            case Action::TypeGood: type(true); break;
            case Action::TypeBad: type(false); break;
        }
    }

    // Whatever is not as the model says; nothing when all is.
    std::string differenceFrom(const Model& model) const {
        const int panel = model.panel();
        const Buttons buttons = buttonsOf(panel);
        std::string text;
        for (std::size_t n = 0; n < form_.picPanel.size(); ++n) {
            const bool current = static_cast<int>(n) == panel;
            if (form_.picPanel[n].visible() != current) text += "visible panels; ";
            if (form_.picPanel[n].enabled() != current) text += "enabled panels; ";
            if (form_.lblPanelID[n].visible()) text += "panel names; ";
        }
        if (triple(form_.cmdNext) != buttons.next) text += "Next; ";
        if (triple(form_.cmdBack) != buttons.back) text += "Back; ";
        if (triple(form_.cmdCancel) != buttons.cancel) text += "Cancel; ";
        if (triple(form_.cmdFinish) != buttons.finish) text += "Finish; ";
        if (form_.cmdFinish.box().left != (panel == 11 || panel == 12 ? 5640 : 8160))
            text += "the place of Finish; ";
        if (history() != model.history) text += "history; ";
        if (state_.ActionKind != model.actionKind) text += "ActionKind; ";
        if (state_.InstallEntryCount != model.entries) text += "InstallEntryCount; ";
        if (installed() != model.installed) text += "options of panel 1; ";
        if (installing() != model.installing) text += "options of panel 2; ";
        if (url() != model.url) text += "options of panel 6; ";
        if (panel == 13) text += actionPanelDifference(model.actionPanelKind);
        if (panel == 10 && form_.lblInstruction10.caption() != confirmationOf(model.actionKind))
            text += "the confirmation; ";
        return text;
    }

    const FakeMessageBoxes& messages() const { return wizard_.messages; }
    const Work& work() const { return files_.work; }

private:
    void type(bool good) {
        if (form_.picPanel[7].visible())
            typeFolders(Server::Apache, good ? "" : "C:\\missing", "");
        else if (form_.picPanel[8].visible())
            typeFolders(Server::IIS, "", good ? "" : "C:\\missing\\scripts");
        else if (form_.picPanel[9].visible())
            typeFolders(Server::Other, good ? "" : "  ", "");
        else if (form_.picPanel[14].visible())
            form_.txtWebsiteIP.typed(good ? "10.0.0.1" : "10.0.1");
    }

    // An empty text stands for the sample server's folder.
    void typeFolders(Server server, const std::string& home, const std::string& scripts) {
        const SampleServer& sample = sampleServer(server);
        (form_.*sample.homeBox).typed(home.empty() ? sample.home : home);
        (form_.*sample.scriptsBox).typed(scripts.empty() ? sample.scripts : scripts);
    }

    static std::string triple(const CommandButton& button) {
        std::string text;
        for (const bool value : {button.enabled(), button.isDefault(), button.visible()})
            text += value ? 'y' : 'n';
        return text;
    }

    // With what lies behind the current entry, which must be empty.
    std::vector<int> history() const {
        const int index = state_.PanelHistoryIndex;
        if (index < 0 || index > 15) return {};
        const auto end = state_.PanelHistory.begin() + index + 1;
        std::vector<int> visited(state_.PanelHistory.begin(), end);
        std::copy_if(end, state_.PanelHistory.end(), std::back_inserter(visited),
                     [](std::int16_t panel) { return panel != -1; });
        return visited;
    }

    // The place of the one option that is on; -1 for none, -2 for several.
    static int onlyOne(std::initializer_list<const OptionButton*> options) {
        int chosen = -1;
        int place = 0;
        for (const OptionButton* option : options) {
            if (option->value()) chosen = chosen == -1 ? place : -2;
            ++place;
        }
        return chosen;
    }
    int installed() const {
        return onlyOne({&form_.optInstalledIIS, &form_.optInstalledApache, &form_.optInstalledOther,
                        &form_.optInstalledNothing});
    }
    int installing() const {
        return onlyOne({&form_.optInstallingIIS, &form_.optInstallingApache,
                        &form_.optInstallingOther, &form_.optInstallingAnyone});
    }
    int url() const { return onlyOne({&form_.optUrlDefault, &form_.optUrlKv}); }

    std::string actionPanelDifference(int kind) const {
        std::string text;
        for (const CommandButton* button : {&form_.cmdNew, &form_.cmdUpgrade}) {
            if (button->reachable() != (kind == 1)) text += std::string(button->name()) + "; ";
        }
        for (const CommandButton* button : {&form_.cmdModify, &form_.cmdBackup, &form_.cmdDelete}) {
            if (button->reachable() != (kind == 2)) text += std::string(button->name()) + "; ";
        }
        return text;
    }

    StillFileSystem& files_;
    PlainWizard wizard_;
    frmWebConfig& form_ = wizard_.form;
    const WizardState& state_ = wizard_.program.state();
};

// The exploration

class WalkModelTest : public testing::TestWithParam<Beginning> {
protected:
    void explore() {
        Model first;
        first.entries = GetParam().entries;
        ASSERT_EQ(Window(files_).differenceFrom(first), "");
        discover(first, {});
        while (!pending_.empty() && !HasFailure()) {
            const Place place = std::move(pending_.front());
            pending_.pop_front();
            tryDeadActions(place);
            for (int i = 0; i < kActionCount && !HasFailure(); ++i) {
                const Action action = static_cast<Action>(i);
                if (!Walk::leftOut(place.model, action)) tryAction(place, action);
            }
        }
    }

    std::size_t states() const { return known_.size(); }
    int steps() const { return steps_; }

private:
    using Path = std::vector<Action>;
    struct Place {
        Model model;
        Path path;  // a way to it from the start
    };

    void discover(const Model& model, Path path) {
        if (known_.insert(model.key()).second) pending_.push_back({model, std::move(path)});
    }

    // A new wizard that has gone there.
    std::unique_ptr<Window> windowAt(const Place& place) {
        auto window = std::make_unique<Window>(files_);
        for (const Action action : place.path) window->perform(action);
        window->forget();
        return window;
    }

    // None of the actions that the panel does not offer changes anything; Cancel asks where it can.
    void tryDeadActions(const Place& place) {
        const auto window = windowAt(place);
        for (int i = 0; i < kActionCount; ++i) {
            const Action action = static_cast<Action>(i);
            if (!walk_.after(place.model, action)) window->perform(action);
        }

        const bool asks = place.model.panel() != 11 && place.model.panel() != 12;
        EXPECT_EQ(window->differenceFrom(place.model), "") << "dead actions, " << place.model.key();
        EXPECT_EQ(window->messages().informations, Lines{}) << place.model.key();
        EXPECT_EQ(window->messages().questions.size(), asks ? 1U : 0U) << place.model.key();
        EXPECT_EQ(window->work(), Work()) << place.model.key();
    }

    void tryAction(const Place& place, Action action) {
        const std::optional<Outcome> expected = walk_.after(place.model, action);
        if (!expected) return;
        ++steps_;
        const auto window = windowAt(place);

        window->perform(action);

        const std::string difference = window->differenceFrom(expected->model);
        if (difference.empty() && window->messages().informations == expected->messages &&
            window->work() == expected->work.value_or(Work())) {
            Path path = place.path;
            path.push_back(action);
            discover(expected->model, std::move(path));
            return;
        }
        ADD_FAILURE() << "action " << static_cast<int>(action) << " in " << place.model.key()
                      << "\nnot as expected: " << difference << "\nwork: " << window->work()
                      << "\nexpected: " << expected->work.value_or(Work())
                      << "\nmessages: " << testing::PrintToString(window->messages().informations);
    }

    const Walk walk_{GetParam()};
    StillFileSystem files_{imageOfBeginning(GetParam())};
    std::unordered_set<std::string> known_;
    std::deque<Place> pending_;
    int steps_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Beginnings, WalkModelTest,
                         testing::Values(Beginning{"NothingInstalled", 0, false, false},
                                         Beginning{"Installed", 1, false, false},
                                         Beginning{"PutAside", 0, true, true},
                                         Beginning{"PutAsideUnreadably", 0, true, false}),
                         [](const auto& row) { return row.param.name; });

TEST_P(WalkModelTest, TheWizardGoesWhereTheModelGoes) {
    explore();

    std::cout << GetParam().name << ": " << states() << " states, " << steps() << " steps\n";
    RecordProperty("states", static_cast<int>(states()));
}

}  // namespace
}  // namespace kv
