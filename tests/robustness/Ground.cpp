#include "Ground.h"

#include <cstdlib>
#include <utility>

#include "Deployment.h"
#include "PanelTexts.h"
#include "QuickUser.h"
#include "SettingsText.h"

namespace kv::endtoend {

namespace {

const std::string kOriginal = "product\\cfg\\original\\";

// Which file a backup makes of which.
const std::pair<std::string, std::string> kBackups[] = {
    {kSettings, "kvi.bak"},
    {"product\\cfg\\general\\korvane.cfg", "korvane.bak"},
    {"product\\cfg\\user\\dadmin\\kvadm.cfg", "kvadm.bak"},
    {"product\\cfg\\user\\anony\\kvan.cfg", "kvan.bak"},
};

void step(const WizardDriver& wizard, int panel) {
    press(wizard, kNext);
    wizard.waitForPanel(panel);
}

}  // namespace

std::string_view nameOf(Operation operation) {
    switch (operation) {
        case Operation::kNew: return "new installation";
        case Operation::kModify: return "modification";
        case Operation::kDelete: return "deletion";
        case Operation::kBackup: return "backup";
        case Operation::kUpgrade: return "upgrade";
    }
    return "";
}

int countFromEnvironment(const char* variable, int shortCount) {
    const char* value = std::getenv(variable);
    return value == nullptr || *value == '\0' ? shortCount : std::atoi(value);
}

Ground::Ground(const std::string& scenario) : place_(scenario) {
    place_.makeFolder(kSecondServer + "\\htdocs");
    place_.makeFolder(kSecondServer + "\\cgi-bin");
    place_.write(kSettings, freshSettings());
}

std::string Ground::record(const std::string& server) const {
    return settingsText(
        {"7", place_.product() + "\\",
         rowsOf({home(server), scripts(server), place_.product(), "1", "0", "", ""})});
}

void Ground::install(Tree& tree, const std::string& server) const {
    deploy(tree, {server + "\\htdocs", server + "\\cgi-bin", true, false});
    tree[kSettings] = record(server);
    tree[server + "\\cgi-bin\\kv\\kvi\\kvi.cfg"] =
        settingsText({"1", place_.product() + "\\", {home(server) + "\\"}});
}

void Ground::backUp(Tree& tree) const {
    for (const auto& [source, name] : kBackups) {
        tree[kOriginal + name] = tree.at(source);
    }
}

Tree Ground::before(Operation operation) const {
    Tree tree = place_.tree();
    if (operation == Operation::kNew) {
        return tree;
    }
    install(tree, kFirstServer);
    if (operation == Operation::kUpgrade) {
        backUp(tree);
        tree[kSettings] = freshSettings();
        tree["product\\bin\\kv.exe"] = "a newer program";
        tree["product\\cfg\\user\\dadmin\\kvadm.cfg"] = "as unpacked";
        tree["product\\cfg\\user\\anony\\kvan.cfg"] = "as unpacked";
    }
    return tree;
}

void Ground::restore(const Tree& wanted) const {
    const Tree present = place_.tree();
    // From the end, so that a folder is empty before its turn comes.
    for (auto item = present.rbegin(); item != present.rend(); ++item) {
        if (!wanted.contains(item->first)) {
            const bool isFolder = item->first.ends_with('\\');
            place_.remove(item->first.substr(0, item->first.size() - (isFolder ? 1 : 0)));
        }
    }
    for (const auto& [path, bytes] : wanted) {
        const auto found = present.find(path);
        if (found != present.end() && found->second == bytes) {
            continue;
        }
        if (path.ends_with('\\')) {
            place_.makeFolder(path);
        } else {
            place_.write(path, bytes);
        }
    }
}

std::unique_ptr<WizardDriver> Ground::start() const {
    return std::make_unique<WizardDriver>(place_.program(), place_.root());
}

void Ground::goToConfirmation(const WizardDriver& wizard, Operation operation,
                              const std::string& server) const {
    if (operation != Operation::kNew) {
        step(wizard, 13);
    }
    switch (operation) {
        case Operation::kBackup: pressBeside(wizard, kBackupLabel); break;
        case Operation::kDelete: pressBeside(wizard, kDeleteLabel); break;
        case Operation::kUpgrade: pressBeside(wizard, kUpgradeLabel); break;
        case Operation::kModify: pressBeside(wizard, kModifyLabel); break;
        case Operation::kNew: step(wizard, 1); break;
    }
    if (operation == Operation::kNew || operation == Operation::kModify) {
        const std::string chosen =
            !server.empty() ? server
                            : (operation == Operation::kNew ? kFirstServer : kSecondServer);
        press(wizard, kInstalledApache);
        step(wizard, 6);
        press(wizard, kUrlDefault);
        step(wizard, 7);
        put(wizard, 0, home(chosen));
        put(wizard, 1, scripts(chosen));
        step(wizard, 14);
        step(wizard, 10);
    }
    wizard.waitForPanel(10);
}

void Ground::run(Operation operation, const std::string& server) const {
    const auto wizard = start();
    wizard->waitForPanel(0);
    goToConfirmation(*wizard, operation, server);
    press(*wizard, kNext);
    wizard->waitForOperationEnd();
    pressAndLeave(*wizard, kFinish);
    wizard->waitForExit();
}

Tree Ground::treeBesideLog() const {
    Tree tree = place_.tree();
    tree.erase(kLogFile);
    return tree;
}

std::string Ground::log() const { return place_.exists(kLogFile) ? place_.read(kLogFile) : ""; }

}  // namespace kv::endtoend
