// The ground for tests of the operations on a product that is installed already: two web servers
// beside it, what an installation in them looks like, and the walk of each operation.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Deployment.h"
#include "PanelTexts.h"
#include "Scenario.h"
#include "SettingsText.h"

namespace kv::endtoend {

inline const std::string kScriptsSettings = "cgi-bin\\kv\\kvi\\kvi.cfg";
inline const std::string kOriginal = "product\\cfg\\original\\";
inline const std::string kMainSettings = "product\\cfg\\general\\korvane.cfg";
inline const std::string kAdministratorSettings = "product\\cfg\\user\\dadmin\\kvadm.cfg";
inline const std::string kAnonymousSettings = "product\\cfg\\user\\anony\\kvan.cfg";
inline constexpr std::string_view kBackupTitle = "Configuration backup completed";
inline constexpr std::string_view kBackupCompleted =
    "The configuration backup completed, click on Finish to exit.";

// A web server's folders, relative to the workplace.
struct Server {
    std::string folder;
    bool siteRoot;

    std::string home() const { return folder + "\\htdocs"; }
    std::string scripts() const { return folder + "\\cgi-bin"; }
    DeploymentPlan plan() const { return {home(), scripts(), siteRoot, false}; }
};

inline const Server kOld{"server", true};
inline const Server kNew{"other", false};

// What a deletion takes away: the files, then the folders that are empty. In its order.
std::vector<std::string> deployedFiles(const Server& server);
std::vector<std::string> deployedFolders(const Server& server);
void takeAway(Tree& tree, const Server& server);

class Operations : public Scenario {
protected:
    Operations();

    std::string path(const std::string& relative) const { return place().path(relative); }

    Entry entry(const Server& server, std::string_view kind = "1") const;
    std::string record(const Server& server, std::string_view kind = "1") const;
    std::string scriptsRecord(const Server& server) const;
    std::string emptyRecord() const;

    // What the wizard leaves after installing into the server's folders.
    void addInstallation(Tree& tree, const Server& server, std::string_view kind = "1") const;

    // Puts such an installation on the disk, without the wizard.
    void haveInstallation(const Server& server, std::string_view kind = "1") const;

    void pick(std::string_view label, int expectedPanel);

    // From the confirmation on; checks the texts at the end and leaves.
    void confirm(std::string_view title = kCompletedTitle,
                 std::string_view instruction = kCompleted, int progress = kProgressDone);

    void installNew(const Server& server);
    void modifyTo(const Server& server, int folderPanel = 7);
    void goToModification(const Server& server, int folderPanel = 7);  // as far as panel 10
    void backUp();
    void removeInstallation();
    void upgrade();

    // A source that the product does not have is left out.
    void addBackup(Tree& tree) const;

    // A product with a backup of an installation in the old server, freshly unpacked over it.
    void haveUpgradeAtHand(std::string_view kind = "1");

    // What an upgrade of that leaves, given what it was before.
    Tree upgraded(Tree tree) const;

    void expectTree(const Tree& expected) const;
    // Of a run that has logged failures.
    void expectTreeBesideLog(const Tree& expected) const;
};

}  // namespace kv::endtoend
