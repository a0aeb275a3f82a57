#include "tests/robustness/Ground.h"

#include <cstdlib>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/robustness/QuickUser.h"

namespace kv::endtoend {

namespace {

void step(const WizardDriver& wizard, int panel) {
    press(wizard, kNext);
    wizard.waitForPanel(panel);
}

}  // namespace

int countFromEnvironment(const char* variable, int shortCount) {
    const char* value = std::getenv(variable);
    return value == nullptr || *value == '\0' ? shortCount : std::atoi(value);
}

Ground::Ground(const std::string& scenario) : place_(scenario) {
    place_.makeFolder(second().home);
    place_.makeFolder(second().scripts);
    place_.write(kSettings, freshSettings());
}

Tree Ground::before(Operation operation) const {
    Tree tree = place_.tree();
    if (operation == Operation::Upgrade) return withUpgradeAtHand(tree, first());
    if (operation != Operation::New) putDeployment(tree, first());
    return tree;
}

Tree Ground::after(Operation operation, const Tree& before) const {
    return afterOperation(operation, before, first(), second());
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
    place_.bring(wanted);
}

std::unique_ptr<WizardDriver> Ground::start() const {
    return std::make_unique<WizardDriver>(place_.program(), place_.root());
}

Site Ground::usualSite(Operation operation) const {
    return operation == Operation::Modify ? second() : first();
}

void Ground::goToConfirmation(const WizardDriver& wizard, Operation operation) const {
    goToConfirmation(wizard, operation, usualSite(operation));
}

void Ground::goToConfirmation(const WizardDriver& wizard, Operation operation,
                              const Site& site) const {
    step(wizard, operation == Operation::New ? 1 : 13);
    switch (operation) {
        case Operation::Backup: pressBeside(wizard, kBackupLabel); break;
        case Operation::Delete: pressBeside(wizard, kDeleteLabel); break;
        case Operation::Upgrade: pressBeside(wizard, kUpgradeLabel); break;
        case Operation::Modify: pressBeside(wizard, kModifyLabel); break;
        case Operation::New: break;
    }
    if (operation == Operation::New || operation == Operation::Modify) {
        press(wizard, kInstalledApache);
        step(wizard, 6);
        press(wizard, kUrlDefault);
        step(wizard, 7);
        put(wizard, 0, home(site));
        put(wizard, 1, scripts(site));
        step(wizard, 14);
        step(wizard, 10);
    }
    wizard.waitForPanel(10);
}

void Ground::run(Operation operation) const { run(operation, usualSite(operation)); }

void Ground::run(Operation operation, const Site& site) const {
    const auto wizard = start();
    wizard->waitForPanel(0);
    goToConfirmation(*wizard, operation, site);
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
