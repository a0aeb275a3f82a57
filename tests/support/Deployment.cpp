#include "tests/support/Deployment.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace kv {

Tree imageOf(const SampleDisk& disk) {
    namespace fs = std::filesystem;
    const fs::path root = disk.disk.host("C:\\");
    Tree image;
    for (std::string path : disk.disk.tree("C:\\")) {
        const std::string place = "C:\\" + path;
        if (place == kSampleLog) continue;
        std::string& bytes = image[place];
        if (place.ends_with('\\')) continue;
        std::ranges::replace(path, '\\', '/');
        std::ifstream file(root / path, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(file), {});
    }
    return image;
}

Site sampleSite(Server server, UrlStyle style) {
    const SampleServer& sample = sampleServer(server);
    return {server, style, sample.home, sample.scripts, "10.0.0.1", "8080"};
}

void unpackNewerFiles(Tree& image) {
    for (const auto& [from, to] : copies(sampleSite(Server::Apache, UrlStyle::SiteRoot)))
        image.at(from) += ", newer";
}

void bring(const Tree& image, SampleDisk& disk) {
    const Tree before = imageOf(disk);
    for (const auto& [path, bytes] : image) {
        const auto found = before.find(path);
        if (found != before.end() && found->second == bytes) continue;
        if (path.ends_with('\\'))
            disk.disk.makeFolder(path.substr(0, path.size() - 1));
        else
            disk.disk.write(path, bytes);
    }
}

void installBeforehand(SampleDisk& disk, const Site& site) {
    Tree image = imageOf(disk);
    putDeployment(image, site);
    bring(image, disk);
}

void unpackNewerFiles(SampleDisk& disk) {
    Tree image = imageOf(disk);
    unpackNewerFiles(image);
    bring(image, disk);
}

void describeSite(frmWebConfig& form, const Site& site) {
    const SampleServer& sample = sampleServer(site.server);
    (form.*sample.installed).click();
    form.cmdNext.click();
    (site.style == UrlStyle::SiteRoot ? form.optUrlDefault : form.optUrlKv).click();
    form.cmdNext.click();
    (form.*sample.homeBox).typed(site.home);
    (form.*sample.scriptsBox).typed(site.scripts);
    form.cmdNext.click();
    form.txtWebsiteIP.typed(site.ip);
    form.txtWebsitePort.typed(site.port);
    form.cmdNext.click();
}

std::string width(int twips) {
    return "lblProgress Box 360,1560," + std::to_string(twips) + ",255";
}

Lines Growth::by(int twips, std::size_t steps) {
    Lines lines;
    for (std::size_t step = 0; step < steps; ++step) lines.push_back(width(width_ += twips));
    return lines;
}

Lines Growth::to(int twips) { return {width(width_ = twips)}; }

Lines finishPanelChanges(const RecordingObserver& observer) {
    Lines lines;
    for (const std::string& change : observer.changes) {
        if (change.starts_with("cmdFinish Enabled ") ||
            change.starts_with("lblFinishDescription Caption ") ||
            change.starts_with("lblFinishInstruction Caption ") ||
            change.starts_with("lblProgress Box ") || change.starts_with("picPanel(11) Visible"))
            lines.push_back(change);
    }
    return lines;
}

std::unique_ptr<Wizard> startedWizard(SampleDisk& disk) {
    auto wizard = std::make_unique<Wizard>(disk);
    wizard->load();
    return wizard;
}

void runOperation(Wizard& wizard) {
    wizard.disk.files.clearJournal();
    wizard.observer.changes.clear();
    wizard.form.cmdNext.click();
}

}  // namespace kv
