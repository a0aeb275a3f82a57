// The installation information file, through the start of the program and through each operation
// that the program then offers: the bytes are the file. Each operation runs on a disk of its own.
#include <algorithm>
#include <functional>
#include <set>

#include "common/RunTimeError.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/model/LogEntries.h"
#include "tests/support/Deployment.h"
#include "tests/support/PlainWizard.h"

namespace kv {
namespace {

// Two servers, the first of which has a deployment; the second takes a new one.
const Site& deployedSite() {
    static const Site site = sampleSite(Server::Apache, UrlStyle::SiteRoot);
    return site;
}
const Site& newSite() {
    static const Site site = sampleSite(Server::IIS, UrlStyle::SiteRoot);
    return site;
}

const Tree& sampleImage() {
    static const Tree image = [] {
        Tree made = imageOf(SampleDisk());
        putDeployment(made, deployedSite());
        return made;
    }();
    return image;
}

Tree imageWith(const char* path, std::string_view bytes) {
    Tree image = sampleImage();
    image[path] = bytes;
    return image;
}

class FuzzedWizard {
public:
    explicit FuzzedWizard(const Tree& image) : disk_(image) {}

    int panel() const { return wizard_.panel(); }

    Lines closeAndReadLog() {
        form.close();
        return logEntries(disk_.read(kSampleLog));
    }

private:
    MemoryFileSystem disk_;

public:
    FaultyFileSystem files{disk_};

private:
    PlainWizard wizard_{files};

public:
    frmWebConfig& form = wizard_.form;
    const FakeMessageBoxes& messages = wizard_.messages;
    const WizardState& state = wizard_.program.state();
};

// The number of the failure that the click lets through to the program, which ends with it; 0 for
// none.
int failureOfClick(CommandButton& button) {
    return failureOf([&] { button.click(); });
}

// The paths that the calls of a journal change, and what those calls may change for a site.
std::set<std::string> changed(const Lines& journal) {
    std::set<std::string> paths;
    for (const std::string& line : journal) {
        const std::string call = line.substr(0, line.find(' '));
        if (call == "copyFile")
            paths.insert(line.substr(line.find(" -> ") + 4));
        else if (call == "deleteFiles" || call == "removeDirectory" || call == "makeDirectory" ||
                 call == "openForWrite")
            paths.insert(line.substr(call.size() + 1));
    }
    return paths;
}

void add(std::set<std::string>& paths, const Lines& more) {
    paths.insert(more.begin(), more.end());
}

std::set<std::string> removalsFor(const Site& site) {
    std::set<std::string> paths{kSampleInstallationFile};
    add(paths, deployedFiles(site));
    add(paths, deployedFolders(site));
    return paths;
}

std::set<std::string> additionsFor(const Site& site) {
    std::set<std::string> paths = removalsFor(site);
    for (const auto& [from, to] : copies(site)) paths.insert(to);
    add(paths, {site.home + "\\images", site.scripts, "C:\\Korvane\\hlp\\eng\\kvhexiteng.html"});
    return paths;
}

std::set<std::string> operator+(std::set<std::string> paths, const std::set<std::string>& more) {
    paths.insert(more.begin(), more.end());
    return paths;
}

// The site whose folders the first entry names; no such site when the folders are not full paths.
std::optional<Site> recordedSite(const WizardState& state) {
    const auto& entry = state.InstallEntries.at(0).fields;
    const std::size_t home = entry[1].rfind('\\');
    const std::size_t scripts = entry[0].rfind('\\');
    if (home == std::string::npos || scripts == std::string::npos) return std::nullopt;
    Site site = newSite();
    site.home = entry[1].substr(0, home);
    site.scripts = entry[0].substr(0, scripts);
    return site;
}

void claimCompletion(FuzzedWizard& wizard, const char* title) {
    claim(wizard.panel() == 11, "an operation ends on the finish panel");
    claim(wizard.form.lblFinishDescription.caption() == title, "with its title");
    claim(
        wizard.form.lblFinishInstruction.caption().ends_with("completed, click on Finish to exit."),
        "and its instruction");
    claim(wizard.form.cmdFinish.enabled(), "and can be finished");
    claim(wizard.messages.informations.empty(), "and says no more");
}

void claimChanges(const FuzzedWizard& wizard, const std::set<std::string>& allowed) {
    const std::set<std::string> paths = changed(wizard.files.journal());
    claim(std::ranges::includes(allowed, paths), "nothing but what is listed is touched");
}

// Presses Next on the confirmation. An operation that needs full paths and does not have them fails
// before it touches anything.
void runOperation(FuzzedWizard& wizard, const std::optional<Site>& recorded,
                  const std::set<std::string>& allowed) {
    claim(wizard.panel() == 10, "the user is asked to confirm");
    wizard.files.clearJournal();
    const int failure = failureOfClick(wizard.form.cmdNext);
    claim(failure == (recorded ? 0 : 5), "only folders that are no full paths stop an operation");
    claimChanges(wizard, recorded ? allowed : std::set<std::string>{});
    if (recorded) claimCompletion(wizard, "Configuration completed");
}

void tryNewInstallation(const Tree& image) {
    FuzzedWizard wizard(image);
    wizard.form.cmdNext.click();
    describeSite(wizard.form, newSite());
    runOperation(wizard, newSite(), additionsFor(newSite()));
    claim(wizard.form.lblProgress.box().width == 5655, "on a good disk the line is completed");
}

void tryDeletion(const Tree& image) {
    FuzzedWizard wizard(image);
    wizard.form.cmdNext.click();
    wizard.form.cmdDelete.click();
    const auto site = recordedSite(wizard.state);
    runOperation(wizard, site, site ? removalsFor(*site) : std::set<std::string>{});
}

void tryBackup(const Tree& image) {
    FuzzedWizard wizard(image);
    wizard.form.cmdNext.click();
    wizard.form.cmdBackup.click();
    wizard.files.clearJournal();
    wizard.form.cmdNext.click();
    claimCompletion(wizard, "Configuration backup completed");
    const std::string original = "C:\\Korvane\\cfg\\original\\";
    claimChanges(wizard, {original + "kvi.bak", original + "korvane.bak", original + "kvadm.bak",
                          original + "kvan.bak"});
    claim(wizard.closeAndReadLog().empty(), "and nothing of it fails");
}

void tryModification(const Tree& image) {
    FuzzedWizard wizard(image);
    wizard.form.cmdNext.click();
    const auto site = recordedSite(wizard.state);
    const int failure = failureOfClick(wizard.form.cmdModify);
    claim(failure == 0 || (failure == 5 && !site), "only such folders cannot be shown");
    if (failure != 0) return;
    describeSite(wizard.form, newSite());
    runOperation(wizard, site,
                 site ? removalsFor(*site) + additionsFor(newSite()) : std::set<std::string>{});
}

// The file as the one that a backup has put aside.
void tryUpgrade(std::string_view bytes) {
    Tree image = imageWith(kSavedInstallation, bytes);
    image[kSampleInstallationFile] = settingsBytes({});
    image[kSavedMain] = "";
    FuzzedWizard wizard(image);
    wizard.form.cmdNext.click();
    wizard.form.cmdUpgrade.click();
    if (wizard.panel() == 12) {
        claim(wizard.form.cmdFinish.enabled(), "a file that cannot be read ends the wizard");
        return;
    }
    claim(wizard.panel() == 10, "the user is asked to confirm");
    const WizardState& state = wizard.state;
    wizard.files.clearJournal();
    if (state.InstallEntries.empty()) {
        claim(failureOfClick(wizard.form.cmdNext) == 9, "without an entry there is no upgrade");
        claimChanges(wizard, {});
        return;
    }
    const auto site = recordedSite(state);
    if (!site) return runOperation(wizard, site, {});
    std::set<std::string> allowed{kSampleInstallationFile, kSampleMain, kSampleAdministrator,
                                  kSampleAnonymous};
    for (const auto& [from, to] : programCopies(*site)) allowed.insert(to);
    runOperation(wizard, site, allowed);
}

void tryStart(const Tree& image) {
    FuzzedWizard wizard(image);
    const bool offered = wizard.panel() == 0;
    const int entries = wizard.state.InstallEntryCount;

    claim(offered || wizard.panel() == 12, "the wizard starts with a welcome or with an error");
    claim(offered || (wizard.form.cmdFinish.visible() && wizard.form.cmdFinish.enabled()),
          "from an error there is the way out");
    claim(changed(wizard.files.journal()).empty(), "a start changes nothing");
    // That of the parser, and that of a record without its number of rows.
    const Lines log = wizard.closeAndReadLog();
    claim(log.size() <= 2, "and logs two failures at most");
    claim(log.size() < 2 || log[1] == "WARN  9, Subscript out of range, wcpConfigInstallRead",
          "each under its name");
    if (!offered) return;
    if (entries == 0) return tryNewInstallation(image);
    tryDeletion(image);
    tryBackup(image);
    tryModification(image);
}

}  // namespace

void tryInput(std::string_view input) {
    tryStart(imageWith(kSampleInstallationFile, input));
    tryUpgrade(input);
}

}  // namespace kv
