// Each operation once for each kind of web server, through the real window and on the real disk,
// and a product's life over several starts. What an operation does in every other case is tested
// without a window, below process/ and app/; this shows that all is wired.
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/Operations.h"

namespace kv::endtoend {

class EveryKind : public Operations, public testing::WithParamInterface<Server> {
protected:
    Site oldSite() const { return ofKind(old_); }
    Site newSite() const { return ofKind(new_); }

private:
    static Site ofKind(Site site) {
        site.server = GetParam();
        return site;
    }
};

TEST_P(EveryKind, ANewInstallationDeploysAndRecordsAndTouchesNothingElse) {
    Site site = newSite();
    if (site.server == Server::IIS) place().remove(site.scripts);
    site.ip = "10.0.0.1";
    site.port = "8080";
    const Tree before = place().tree();
    goToInstallation(site);
    back(wizard(), 14);
    wizard().type(0, " 10 . 0.0. 1");
    wizard().type(1, " 8080 ");
    next(wizard(), 10);

    confirm();

    expectTree(afterInstallation(before, site));
    expectNoLog();
}

// What an older version left is longer than what takes its place, and other people's files lie
// beside it.
TEST_P(EveryKind, ANewInstallationReplacesAnOlderOne) {
    const Site site = oldSite();
    haveInstallation(site);
    for (const Copy& copy : copies(site))
        place().write(copy.to, place().read(copy.to) + "the older version was longer\r\n");
    place().write(scriptsFile(site), std::string(2000, 'x'));
    place().write(settingsPath(), freshSettings());
    place().write("server\\htdocs\\images\\own.gif", "the administrator's own");
    place().write("server\\cgi-bin\\kv\\own.exe", "the administrator's own");
    const Tree before = place().tree();

    installNew(site);

    expectTree(afterInstallation(before, site));
    expectNoLog();
}

TEST_P(EveryKind, AModificationMovesTheDeploymentAndRecordsTheNewPlace) {
    haveInstallation(oldSite());
    const Tree before = place().tree();

    modifyTo(newSite());

    expectTree(afterModification(before, oldSite(), newSite()));
    expectNoLog();
}

TEST_P(EveryKind, ADeletionLeavesTheSiteRootAndTheImagesFolder) {
    haveInstallation(oldSite());
    const Tree before = place().tree();

    removeInstallation();

    expectTree(afterDeletion(before, oldSite()));
    EXPECT_TRUE(place().exists("server\\htdocs\\favicon.ico"));
    EXPECT_TRUE(place().exists("server\\htdocs\\images"));
    expectNoLog();
}

TEST_P(EveryKind, ABackupCopiesTheFourFilesAndNothingElse) {
    haveInstallation(oldSite());
    const Tree before = place().tree();

    backUp();

    expectTree(afterBackup(before, oldSite()));
    expectNoLog();
}

TEST_P(EveryKind, AnUpgradeReplacesTheProgramsAndBringsTheConfigurationBack) {
    haveUpgradeAtHand(oldSite());
    const Tree before = place().tree();

    upgrade();

    expectTree(afterUpgrade(before, oldSite()));
    expectNoLog();
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind,
                         testing::Values(Server::Apache, Server::IIS, Server::Other),
                         [](const testing::TestParamInfo<Server>& which) {
                             return std::string(nameOf(which.param));
                         });

// The sample is what the tests take for the product.
TEST_F(Operations, TheProductHasEveryFileThatIsDeployedOrBackedUp) {
    for (const Copy& copy : copies(old_)) EXPECT_TRUE(place().exists(copy.from)) << copy.from;
    for (const Backup& file : kBackups)
        EXPECT_TRUE(place().exists(std::string("product\\") + file.source)) << file.source;
}

TEST_F(Operations, AProductsLifeIsWholeAtEveryStep) {
    Tree expected = place().tree();

    installNew(old_);
    expected = afterInstallation(expected, old_);
    expectTree(expected);

    modifyTo(new_);
    expected = afterModification(expected, old_, new_);
    expectTree(expected);

    modifyTo(old_);
    expected = afterModification(expected, new_, old_);
    expectTree(expected);

    backUp();
    expected = afterBackup(expected, old_);
    expectTree(expected);

    removeInstallation();
    expected = afterDeletion(expected, old_);
    expectTree(expected);
    expectNoLog();

    for (const std::string& file : {std::string("product\\bin\\kv.exe"), kAdministratorSettings}) {
        place().write(file, "of a newer product");
        expected[file] = "of a newer product";
    }

    // The deletion took away the folder of the programs, and the upgrade makes none.
    upgrade();
    expected = afterUpgrade(expected, old_);
    takeAway(expected, old_);
    expectTreeBesideLog(expected);
    Lines log = times(kProgramFileCount, kMissingPath);
    expectLog(log);

    modifyTo(new_);
    expected = afterModification(expected, old_, new_);
    expectTreeBesideLog(expected);
    expectLog(log + nothingToDelete());
}

}  // namespace kv::endtoend
