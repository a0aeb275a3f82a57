#include "tests/endtoend/steps/PanelTour.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <stdexcept>
#include <utility>

#include "tests/endtoend/driver/Workplace.h"
#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Roads.h"
#include "tests/model/SettingsFile.h"

namespace kv::endtoend {

namespace {

constexpr std::string_view kSettingsFile = "product\\bin\\kvi\\kvi.cfg";

Rectangle boxOf(RECT box) {
    return {box.left, box.top, box.right - box.left, box.bottom - box.top};
}

Snapshot take(const WizardDriver& wizard) {
    Snapshot snapshot;
    snapshot.panel = wizard.currentPanel();
    RECT box{};
    GetWindowRect(wizard.window(), &box);
    snapshot.window = boxOf(box);
    GetClientRect(wizard.window(), &box);
    snapshot.client = boxOf(box);
    snapshot.controls = wizard.controls();
    snapshot.panelWindow = wizard.panelWindow(snapshot.panel);
    snapshot.topWindow = wizard.window();
    snapshot.visiblePanels = wizard.visiblePanels();
    return snapshot;
}

class Tour {
public:
    explicit Tour(PanelVisitor visitor) : visitor_(std::move(visitor)) {}

    void make() {
        visitEveryQuestion();
        visitFailedStart();
        visitConfigured();
        visitUpgradable();
    }

private:
    void keep(const WizardDriver& wizard, const std::string& name) {
        if (visited_.insert(name).second) visitor_(wizard, name);
    }

    // Server installation panels, the URL panel and a folder panel, and back to panel 2.
    void visitServer(const WizardDriver& wizard, const ServerRoad& road) {
        wizard.choose(road.installing);
        next(wizard, road.installPanel);
        keep(wizard, std::to_string(road.installPanel));
        next(wizard, 6);
        keep(wizard, "6");
        chooseUrl(wizard, kUrlKv, road.folderPanel);
        keep(wizard, std::to_string(road.folderPanel));
    }

    void visitEveryQuestion() {
        place_.write(kSettingsFile, freshSettings());
        const WizardDriver wizard(place_.program());
        keep(wizard, "0");
        next(wizard, 1);
        keep(wizard, "1");
        wizard.choose(kInstalledNothing);
        next(wizard, 2);
        keep(wizard, "2");
        for (const ServerRoad& road : {kIisToInstall, kOtherToInstall, kApacheToInstall}) {
            visitServer(wizard, road);
            if (road.folderPanel != 7) {
                back(wizard, 6);
                back(wizard, road.installPanel);
                back(wizard, 2);
            }
        }
        enterFolders(wizard, place_.home(), place_.scripts());
        keep(wizard, "14");
        back(wizard, 7);
        back(wizard, 6);
        next(wizard, 7);
        keep(wizard, "7 filled");
        next(wizard, 14);
        next(wizard, 10);
        keep(wizard, "10");
        wizard.click(kNext);
        wizard.waitForOperationEnd();
        keep(wizard, "11");
    }

    void visitFailedStart() {
        place_.remove(kSettingsFile);
        keep(WizardDriver(place_.program()), "12");
    }

    void visitConfigured() {
        place_.write(kSettingsFile, recordOf({.home = "Q:\\web", .scripts = "Q:\\cgi"}));
        const WizardDriver wizard(place_.program());
        keep(wizard, "0 configured");
        next(wizard, 13);
        keep(wizard, "13 modify");
    }

    void visitUpgradable() {
        place_.write(kSettingsFile, freshSettings());
        place_.write("product\\cfg\\original\\korvane.bak", "");
        const WizardDriver wizard(place_.program());
        next(wizard, 13);
        keep(wizard, "13 new");
        wizard.clickPictureButtonBeside(kUpgradeLabel);
        wizard.waitForPanel(12);
        keep(wizard, "12 upgrade");
    }

    Workplace place_{"PanelTour"};
    PanelVisitor visitor_;
    std::set<std::string> visited_;
};

void savePicture(const WizardDriver& wizard, const std::string& name) {
    if (std::getenv("KV_PICTURES") != nullptr) {
        std::string fileName = "panel-" + name + ".png";
        std::ranges::replace(fileName, ' ', '-');
        wizard.savePicture(pathFromEnvironment("KV_PICTURES") + "\\" + fileName);
    }
}

std::map<std::string, Snapshot> takeSnapshots() {
    std::map<std::string, Snapshot> snapshots;
    visitPanels([&snapshots](const WizardDriver& wizard, const std::string& name) {
        snapshots.emplace(name, take(wizard));
        savePicture(wizard, name);
    });
    return snapshots;
}

}  // namespace

std::vector<ControlView> Snapshot::onPanel() const {
    std::vector<ControlView> found;
    for (const ControlView& view : controls)
        if (view.visible && view.parent == panelWindow) found.push_back(view);
    return found;
}

std::vector<ControlView> Snapshot::onFrame() const {
    std::vector<ControlView> found;
    for (const ControlView& view : controls)
        if (view.parent == topWindow) found.push_back(view);
    return found;
}

const ControlView& Snapshot::frameButton(std::string_view caption) const {
    const auto found =
        std::find_if(controls.begin(), controls.end(), [this, caption](const ControlView& view) {
            return view.parent == topWindow && view.text == caption;
        });
    if (found == controls.end()) throw std::out_of_range("no frame button " + std::string(caption));
    return *found;
}

void visitPanels(const PanelVisitor& visitor) { Tour(visitor).make(); }

const std::map<std::string, Snapshot>& panelTour() {
    static const std::map<std::string, Snapshot> kTour = takeSnapshots();
    return kTour;
}

}  // namespace kv::endtoend
