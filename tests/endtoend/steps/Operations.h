// The ground for tests of the operations on a product that is installed already: two web servers
// beside it, and the walk of each operation.
#pragma once

#include <string>
#include <string_view>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Scenario.h"
#include "tests/model/LogEntries.h"

namespace kv::endtoend {

inline const std::string kOriginal = "product\\cfg\\original\\";
inline const std::string kMainSettings = "product\\cfg\\general\\korvane.cfg";
inline const std::string kAdministratorSettings = "product\\cfg\\user\\dadmin\\kvadm.cfg";
inline const std::string kAnonymousSettings = "product\\cfg\\user\\anony\\kvan.cfg";
inline constexpr std::string_view kBackupTitle = "Configuration backup completed";
inline constexpr std::string_view kBackupCompleted =
    "The configuration backup completed, click on Finish to exit.";

class Operations : public Scenario {
protected:
    Operations();

    std::string path(const std::string& relative) const { return place().path(relative); }

    // Puts an installation on the disk, or one to be upgraded, without the wizard.
    void haveInstallation(const Site& site) const;
    void haveUpgradeAtHand(const Site& site) const;

    void pick(std::string_view label, int expectedPanel);

    // From the confirmation on; checks the texts at the end and leaves.
    void confirm(std::string_view title = kCompletedTitle,
                 std::string_view instruction = kCompleted, int progress = kProgressDone);

    void goToInstallation(const Site& site);  // as far as panel 10
    void installNew(const Site& site);
    void goToModification(const Site& site);  // as far as panel 10
    void modifyTo(const Site& site);
    void backUp();
    void removeInstallation();
    void upgrade();

    const Site old_ = site();
    const Site new_ = place().site("other\\htdocs", "other\\cgi-bin", Server::Apache, UrlStyle::Kv);
};

}  // namespace kv::endtoend
