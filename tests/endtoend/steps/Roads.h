// The roads through the panels, walked by clicks as a user would.
#pragma once

#include <string>
#include <string_view>

#include "tests/endtoend/driver/WizardDriver.h"
#include "tests/model/Product.h"

namespace kv::endtoend {

// How a user says which web server there is.
struct ServerRoad {
    std::string_view name;
    std::string_view installed;   // the choice on panel 1
    std::string_view installing;  // the choice on panel 2; empty when a server is installed
    int installPanel;             // the advice on installing it; 0 for none
    int folderPanel;
    Server server;
};

extern const ServerRoad kApacheInstalled;
extern const ServerRoad kApacheToInstall;
extern const ServerRoad kNoPreference;
extern const ServerRoad kIisInstalled;
extern const ServerRoad kIisToInstall;
extern const ServerRoad kOtherInstalled;
extern const ServerRoad kOtherToInstall;

void next(const WizardDriver& wizard, int expectedPanel);
void back(const WizardDriver& wizard, int expectedPanel);

// Panel 1 to panel 6, to the folder panel and to panel 14.
void chooseServer(const WizardDriver& wizard, const ServerRoad& road);
void chooseUrl(const WizardDriver& wizard, std::string_view url, int folderPanel);
void enterFolders(const WizardDriver& wizard, const std::string& home, const std::string& scripts);

}  // namespace kv::endtoend
