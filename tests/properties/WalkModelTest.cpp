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
#include <optional>
#include <ostream>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "process/ExistingInstallation.h"
#include "process/FolderCheck.h"
#include "process/ShellServices.h"
#include "process/modWebCfgProcess.h"
#include "tests/support/Deployment.h"
#include "tests/support/disks/MemoryFileSystem.h"
#include "wizard/panels/ActionPanel.h"
#include "wizard/panels/Deciders.h"
#include "wizard/panels/InputChecks.h"
#include "wizard/panels/Navigation.h"
#include "wizard/panels/StartUp.h"

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

// The window's behaviour wired by hand, so that its state can be saved and restored.
class Window final : private ControlObserver {
public:
    explicit Window(const Beginning& beginning) : files_(imageOfBeginning(beginning)) {
        for (Control* control : form_.controls()) {
            places_[control] = parts_.size();
            parts_.push_back({control, dynamic_cast<OptionButton*>(control),
                              dynamic_cast<CommandButton*>(control),
                              dynamic_cast<TextBox*>(control)});
            look_.push_back({});
            look(parts_.size() - 1);
        }
        form_.observe(this);
        startUp_.load({kSamplePlace, "kvwcfg"});
    }

    // What changes of a control; texts as numbers.
    struct Look {
        std::uint16_t flags = 0;
        std::uint16_t caption = 0;
        std::uint16_t text = 0;

        bool operator==(const Look&) const = default;
    };

    // All that a walk changes.
    struct Snapshot {
        std::vector<Look> looks;
        Twips finishLeft = 0;
        Twips progress = 0;
        std::array<std::int16_t, 16> history{};
        std::int16_t historyIndex = 0;
        std::int16_t actionKind = 0;
        std::int16_t actionPanelKind = 0;
        std::int16_t entryCount = 0;
        std::uint16_t entries = 0;
    };

    Snapshot save() {
        Snapshot snapshot;
        snapshot.looks = look_;
        snapshot.finishLeft = form_.cmdFinish.box().left;
        snapshot.progress = form_.lblProgress.box().width;
        snapshot.history = state_.PanelHistory;
        snapshot.historyIndex = state_.PanelHistoryIndex;
        snapshot.actionKind = state_.ActionKind;
        snapshot.actionPanelKind = state_.ActionPanelKind;
        snapshot.entryCount = state_.InstallEntryCount;
        snapshot.entries = static_cast<std::uint16_t>(state_.InstallEntries.size());
        if (snapshot.entries > 0) knownEntries_ = state_.InstallEntries;
        return snapshot;
    }

    void restore(const Snapshot& snapshot) {
        // An option that goes on turns others off, which is put right by the second pass.
        for (int pass = 0; pass < 2; ++pass) {
            const Look* saved = snapshot.looks.data();
            const Look* present = look_.data();
            for (std::size_t i = 0; i < parts_.size(); ++i) {
                if (!(saved[i] == present[i])) restore(parts_[i], saved[i]);
            }
        }
        form_.cmdFinish.setLeft(snapshot.finishLeft);
        form_.lblProgress.setWidth(snapshot.progress);
        state_.PanelHistory = snapshot.history;
        state_.PanelHistoryIndex = snapshot.historyIndex;
        state_.ActionKind = snapshot.actionKind;
        state_.ActionPanelKind = snapshot.actionPanelKind;
        state_.InstallEntryCount = snapshot.entryCount;
        if (snapshot.entries == 0) state_.InstallEntries.clear();
        if (snapshot.entries > 0 && state_.InstallEntries.empty())
            state_.InstallEntries = knownEntries_;
        forget();
    }

    void forget() {
        messages_.informations.clear();
        messages_.questions.clear();
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

    const FakeMessageBoxes& messages() const { return messages_; }
    const Work& work() const { return files_.work; }

private:
    // A control as what it is; null for what it is not.
    struct Part {
        Control* control;
        OptionButton* option;
        CommandButton* button;
        TextBox* box;
    };

    static std::uint16_t flagsOf(const Part& part) {
        return static_cast<std::uint16_t>((part.control->enabled() ? 1 : 0) +
                                          (part.control->visible() ? 2 : 0) +
                                          (part.option && part.option->value() ? 4 : 0) +
                                          (part.button && part.button->isDefault() ? 8 : 0));
    }

    void onChanged(Control& control, Property) override { look(places_.at(&control)); }
    void onClosed() override {}

    // Sees how the control looks now.
    void look(std::size_t place) {
        const Part& part = parts_[place];
        look_[place] = {flagsOf(part), numberOf(part.control->caption()),
                        numberOf(part.box ? part.box->text() : "")};
    }

    std::uint16_t numberOf(const std::string& text) {
        const auto [place, added] =
            numbers_.try_emplace(text, static_cast<std::uint16_t>(texts_.size()));
        if (added) texts_.push_back(text);
        return place->second;
    }

    void restore(const Part& part, const Look& saved) {
        part.control->setEnabled((saved.flags & 1) != 0);
        part.control->setVisible((saved.flags & 2) != 0);
        if (part.option) part.option->setValue((saved.flags & 4) != 0);
        if (part.button) part.button->setDefault((saved.flags & 8) != 0);
        part.control->setCaption(texts_[saved.caption]);
        if (part.box) part.box->setText(texts_[saved.text]);
    }

    void type(bool good) {
        if (form_.picPanel[7].visible())
            typeFolders(Server::Apache, good ? "" : "C:\\missing", "");
        else if (form_.picPanel[8].visible())
            typeFolders(Server::IIS, "", good ? "" : "C:\\missing\\scripts");
        else if (form_.picPanel[9].visible())
            typeFolders(Server::Other, good ? "" : "  ", "");
        else if (form_.picPanel[14].visible())
            typeInto(form_.txtWebsiteIP, good ? "10.0.0.1" : "10.0.1");
    }

    // An empty text stands for the sample server's folder.
    void typeFolders(Server server, const std::string& home, const std::string& scripts) {
        const SampleServer& sample = sampleServer(server);
        typeInto(form_.*sample.homeBox, home.empty() ? sample.home : home);
        typeInto(form_.*sample.scriptsBox, scripts.empty() ? sample.scripts : scripts);
    }

    void typeInto(TextBox& box, const std::string& text) {
        box.typed(text);
        look(places_.at(&box));
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

    StillFileSystem files_;
    FakeClock clock_;
    FakeShell shell_;
    FakeMessageBoxes messages_;
    frmWebConfig form_;
    WizardState state_;
    Patience patience_{clock_};
    modCmnLog log_{files_, clock_, patience_, "kvwcfg"};
    modKvIO io_{files_, log_, patience_};
    modKvIOCfg configuration_{io_, files_, log_};
    ExistingInstallation installation_{state_, configuration_, log_};
    FolderCheck folderCheck_{files_, messages_, state_.leadBytes};
    ShellServices shellServices_{shell_, files_};
    modWebCfgProcess process_{form_, state_, io_, configuration_, files_, log_, patience_};
    ActionPanel actionPanel_{form_, state_, installation_};
    Deciders deciders_{form_, state_, actionPanel_, shellServices_, files_, messages_};
    InputChecks inputChecks_{form_, folderCheck_, messages_};
    Navigation navigation_{form_,        state_,   deciders_, inputChecks_,
                           actionPanel_, process_, messages_};
    StartUp startUp_{form_, state_, actionPanel_, installation_, navigation_, log_};

    std::vector<Part> parts_;
    std::vector<Look> look_;  // of each part
    std::unordered_map<const Control*, std::size_t> places_;
    std::unordered_map<std::string, std::uint16_t> numbers_;
    Lines texts_;
    std::vector<InstallEntry> knownEntries_;
};

// The exploration

class WalkModelTest : public testing::TestWithParam<Beginning> {
protected:
    void explore() {
        Model first;
        first.entries = GetParam().entries;
        ASSERT_EQ(window_.differenceFrom(first), "");
        discover(first);
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
    struct Place {
        Model model;
        Window::Snapshot snapshot;
    };

    void discover(const Model& model) {
        if (known_.insert(model.key()).second) pending_.push_back({model, window_.save()});
    }

    // None of the actions that the panel does not offer changes anything; Cancel asks where it can.
    void tryDeadActions(const Place& place) {
        window_.restore(place.snapshot);
        for (int i = 0; i < kActionCount; ++i) {
            const Action action = static_cast<Action>(i);
            if (!walk_.after(place.model, action)) window_.perform(action);
        }

        const bool asks = place.model.panel() != 11 && place.model.panel() != 12;
        EXPECT_EQ(window_.differenceFrom(place.model), "") << "dead actions, " << place.model.key();
        EXPECT_EQ(window_.messages().informations, Lines{}) << place.model.key();
        EXPECT_EQ(window_.messages().questions.size(), asks ? 1U : 0U) << place.model.key();
        EXPECT_EQ(window_.work(), Work()) << place.model.key();
    }

    void tryAction(const Place& place, Action action) {
        const std::optional<Outcome> expected = walk_.after(place.model, action);
        if (!expected) return;
        ++steps_;
        window_.restore(place.snapshot);

        window_.perform(action);

        const std::string difference = window_.differenceFrom(expected->model);
        if (difference.empty() && window_.messages().informations == expected->messages &&
            window_.work() == expected->work.value_or(Work())) {
            discover(expected->model);
            return;
        }
        ADD_FAILURE() << "action " << static_cast<int>(action) << " in " << place.model.key()
                      << "\nnot as expected: " << difference << "\nwork: " << window_.work()
                      << "\nexpected: " << expected->work.value_or(Work())
                      << "\nmessages: " << testing::PrintToString(window_.messages().informations);
    }

    const Walk walk_{GetParam()};
    Window window_{GetParam()};
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
