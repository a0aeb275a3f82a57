// The ground that every test stands on: a workplace of its own and the wizard started in it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/driver/WizardDriver.h"
#include "tests/endtoend/driver/Workplace.h"
#include "tests/endtoend/steps/ProgressWidths.h"
#include "tests/endtoend/steps/Roads.h"
#include "tests/model/LogEntries.h"
#include "tests/model/Operations.h"

namespace kv::endtoend {

// A folder's name that hardly any other test has, made from the running test's name. It is short,
// as users type the paths of folders below it.
std::string scenarioName();

class Scenario : public testing::Test {
protected:
    Scenario();

    const Workplace& place() const { return place_; }
    const WizardDriver& wizard() const { return *wizard_; }
    std::string settingsPath() const { return "product\\bin\\kvi\\kvi.cfg"; }

    // Starts the wizard and waits for the panel that it opens on.
    void start(int expectedPanel = 0);
    void startOnAnyPanel();
    void startFrom(const std::string& program, const std::string& workingFolder);

    // From the first panel on, with Apache installed and the site root.
    void goToFolders(const ServerRoad& road = kApacheInstalled);
    void goToAddress(const ServerRoad& road = kApacheInstalled);

    // From panel 14 through the writing of everything, and out.
    void install();
    void finish();

    // The workplace's own server and its product, and the record of an earlier installation there.
    Site site() const { return place_.site("server\\htdocs", "server\\cgi-bin"); }
    void recordInstallation() const;

    // A message box with this text, of the kind that warnings have, is there; answers it.
    void expectWarning(std::string_view text) const;
    void expectLog(const Lines& entries) const;
    void expectNoLog() const;

    // The whole workplace; in the second form without the log, of a run that has logged failures.
    void expectTree(const Tree& expected) const;
    void expectTreeBesideLog(const Tree& expected) const;

private:
    Workplace place_;
    std::unique_ptr<WizardDriver> wizard_;
};

}  // namespace kv::endtoend
