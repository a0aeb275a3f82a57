// Walks through the wizard as a user would and takes a picture of every panel on the way:
//
//     kv_walk <kvwcfg.exe> <document root> <scripts folder> <folder for pictures> [<walk>]
//
// The walks are new, modify, backup, delete and upgrade. The folders must exist; a new installation
// needs a freshly laid out product, an upgrade one with a backup and without an installation. Ends
// with 0 when the walk came to its end, else with 1.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/endtoend/driver/Desktop.h"
#include "tests/endtoend/driver/WizardDriver.h"
#include "tests/endtoend/driver/Workplace.h"
#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Roads.h"

namespace kv::endtoend {
namespace {

struct Places {
    std::string program;
    std::string home;
    std::string scripts;
    std::string pictures;
};

// Tells of every panel that the walk comes to, in words and as a picture.
class Reporter {
public:
    explicit Reporter(std::string folder) : folder_(std::move(folder)) {
        std::filesystem::create_directories(folder_);
    }

    void report(const WizardDriver& wizard, std::string_view pictureName) {
        std::printf("panel %d  %s\n", wizard.currentPanel(), titleOf(wizard).c_str());
        std::fflush(stdout);
        const std::string number = std::to_string(++pictures_);
        wizard.savePicture(folder_ + "\\" + (pictures_ < 10 ? "0" : "") + number + "-" +
                           std::string(pictureName) + ".png");
    }

private:
    // The topmost label of a panel is its title.
    static std::string titleOf(const WizardDriver& wizard) {
        const std::vector<ControlView> views = wizard.panelControls();
        const ControlView* topmost = nullptr;
        for (const ControlView& view : views)
            if (view.kind == ControlKind::Label && !view.text.empty() &&
                (topmost == nullptr || view.box.top < topmost->box.top))
                topmost = &view;
        return topmost == nullptr ? "" : topmost->text;
    }

    std::string folder_;
    int pictures_ = 0;
};

void expectText(const WizardDriver& wizard, std::string_view text) {
    if (!wizard.shows(text))
        throw DriverFailure("not to be read: " + std::string(text) + "\n" + wizard.describe());
}

// Starts the wizard and goes on from its Welcome panel.
class Walker {
public:
    explicit Walker(const Places& places) : wizard(places.program), reporter(places.pictures) {
        reporter.report(wizard, "welcome");
        wizard.press(VK_RETURN);
    }

    // Presses a button of the action panel.
    void pick(std::string_view label, int panel) const {
        wizard.clickPictureButtonBeside(label);
        wizard.waitForPanel(panel);
    }

    void goToActions() {
        wizard.waitForPanel(13);
        reporter.report(wizard, "actions");
    }

    // From the server panel with its choice made to the confirmation, with clicks and keys.
    void walkThroughInputs(const Places& places, std::string_view url) {
        reporter.report(wizard, "server");
        next(wizard, 6);
        wizard.choose(url);
        reporter.report(wizard, "url");

        wizard.pressWith(VK_MENU, 'N');
        wizard.waitForPanel(7);
        wizard.fillField(0, places.home);
        wizard.fillField(1, places.scripts);
        reporter.report(wizard, "folders");

        wizard.press(VK_RETURN);
        wizard.waitForPanel(14);
        reporter.report(wizard, "address");
        next(wizard, 10);
    }

    // Confirms, waits for the operation and leaves.
    void confirm(std::string_view confirmation, std::string_view completed) {
        expectText(wizard, confirmation);
        reporter.report(wizard, "confirmation");
        wizard.click(kNext);
        wizard.waitForOperationEnd();
        expectText(wizard, completed);
        reporter.report(wizard, "finish");

        wizard.click(kFinish);
        if (const DWORD code = wizard.waitForExit(); code != 0)
            throw DriverFailure("the wizard ended with code " + std::to_string(code));
    }

    const WizardDriver wizard;
    Reporter reporter;
};

// Apache is installed, the product answers at the site root.
void walkNewInstallation(const Places& places) {
    Walker walker(places);
    walker.wizard.waitForPanel(1);
    walker.wizard.choose(kInstalledApache);
    walker.walkThroughInputs(places, kUrlDefault);
    walker.confirm(kConfirmWriting, kCompleted);
}

// To the given folders and the other way of answering.
void walkModification(const Places& places) {
    Walker walker(places);
    walker.goToActions();
    walker.pick(kModifyLabel, 1);
    walker.walkThroughInputs(places, kUrlKv);
    walker.confirm(kConfirmWriting, kCompleted);
}

void walkBackup(const Places& places) {
    Walker walker(places);
    walker.goToActions();
    walker.pick(kBackupLabel, 10);
    walker.confirm(kConfirmBackup, "The configuration backup completed, click on Finish to exit.");
}

void walkDeletion(const Places& places) {
    Walker walker(places);
    walker.goToActions();
    walker.pick(kDeleteLabel, 10);
    walker.confirm(kConfirmDeletion, kCompleted);
}

void walkUpgrade(const Places& places) {
    Walker walker(places);
    walker.goToActions();
    walker.pick(kUpgradeLabel, 10);
    walker.confirm(kConfirmWriting, kCompleted);
}

struct Walk {
    std::string_view name;
    void (*go)(const Places&);
};

// The first is walked when none is named.
constexpr Walk kWalks[] = {
    {"new", walkNewInstallation}, {"modify", walkModification}, {"backup", walkBackup},
    {"delete", walkDeletion},     {"upgrade", walkUpgrade},
};

const Walk* findWalk(std::string_view name) {
    for (const Walk& walk : kWalks)
        if (walk.name == name) return &walk;
    return nullptr;
}

std::string fullPath(const std::string& path) {
    return std::filesystem::absolute(windowsPath(path)).string();
}

int walk(const std::vector<std::string>& arguments) {
    const Walk* chosen = arguments.size() == 5   ? findWalk(arguments[4])
                         : arguments.size() == 4 ? &kWalks[0]
                                                 : nullptr;
    if (chosen == nullptr) {
        std::fprintf(stderr,
                     "usage: kv_walk <kvwcfg.exe> <document root> <scripts folder> <folder for "
                     "pictures> [<walk>]\nwalks:");
        for (const Walk& known : kWalks)
            std::fprintf(stderr, " %.*s", static_cast<int>(known.name.size()), known.name.data());
        std::fprintf(stderr, "\n");
        return 1;
    }
    try {
        const UnmanagedWindows unmanagedWindows;
        chosen->go({fullPath(arguments[0]), fullPath(arguments[1]), fullPath(arguments[2]),
                    fullPath(arguments[3])});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "kv_walk: %s\n", failure.what());
        return 1;
    }
    return 0;
}

}  // namespace
}  // namespace kv::endtoend

int main(int argc, char** argv) {
    return kv::endtoend::walk(std::vector<std::string>(argv + 1, argv + argc));
}
