// The product's life on one disk, over several starts of the wizard.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/Deployment.h"

namespace kv {
namespace {

constexpr const char* kSaved = "C:\\Korvane\\cfg\\original\\";

class ProductLifeTest : public testing::Test {
protected:
    // Starts the wizard.
    void start() {
        wizard_ = std::make_unique<Wizard>(disk_);
        wizard_->load();
    }
    frmWebConfig& form() { return wizard_->form; }
    void next() { form().cmdNext.click(); }
    void back() { form().cmdBack.click(); }

    // From the confirmation to the end of the operation and of the wizard.
    void confirmAndFinish() {
        ASSERT_EQ(wizard_->currentPanel(), 10);
        next();
        EXPECT_EQ(wizard_->currentPanel(), 11);
        EXPECT_EQ(form().lblProgress.box().width, 5655);
        form().cmdFinish.click();
        EXPECT_EQ(wizard_->observer.closings, 1);
        EXPECT_EQ(wizard_->messages.informations, Lines{});
    }

    // Whole lives of the wizard, and what they are to make of the disk.
    void install(const Site& site) {
        start();
        next();
        describeSite(form(), site);
        confirmAndFinish();
        expected_ = afterInstallation(expected_, site);
    }
    void modify(const Site& before, const Site& after) {
        start();
        next();
        form().cmdModify.click();
        describeSite(form(), after);
        confirmAndFinish();
        expected_ = afterModification(expected_, before, after);
    }
    void backUp() {
        start();
        next();
        form().cmdBackup.click();
        confirmAndFinish();
        expected_ = afterBackup(expected_, {});
    }
    void deleteInstallation(const Site& site) {
        start();
        next();
        form().cmdDelete.click();
        confirmAndFinish();
        expected_ = afterDeletion(expected_, site);
    }

    // Changes a file on the disk as something other than the wizard does.
    void write(const std::string& path, const std::string& bytes) {
        disk_.disk.write(path, bytes);
        expected_[path] = bytes;
    }

    // A product unpacked beside a saved configuration that holds the site's installation.
    void putAside(const Site& site) {
        const std::string saved = kSaved;
        write(saved + "kvi.bak", recordOf(site));
        write(saved + "korvane.bak", cfgBytes({"#"}));
        write(saved + "kvadm.bak", "saved administrator");
        write(saved + "kvan.bak", "saved anonymous");
    }

    void expectDisk(const Lines& log = {}) {
        EXPECT_EQ(differences(expected_, imageOf(disk_)), "");
        EXPECT_EQ(disk_.log(), log);
    }

    const Site apache_ = sampleSite(Server::Apache, UrlStyle::SiteRoot);
    const Site other_ = sampleSite(Server::Other, UrlStyle::Kv);
    SampleDisk disk_;
    Tree expected_ = imageOf(disk_);
    std::unique_ptr<Wizard> wizard_;
};

// What the log gets from a deletion of a tree that is not there.
const Lines kNothingToDelete = joined(
    {Lines(kDeletedFileCount, "WARN  76, Path not found, ioDeleteFile"),
     {"WARN  76, Path not found, ioDeleteDirectory", "SERV  53, File not found, ioDeleteDirectory",
      "WARN  76, Path not found, ioDeleteDirectory", "WARN  76, Path not found, ioDeleteDirectory",
      "SERV  53, File not found, ioDeleteDirectory",
      "SERV  53, File not found, ioDeleteDirectory"}});

TEST_F(ProductLifeTest, FromTheInstallationToTheUpgradeAndOn) {
    write(kSampleMain, cfgBytes({"00|T|1001", "15|*Optional Language 1|the customer's"}));

    install(apache_);
    expectDisk();

    modify(apache_, other_);
    expectDisk();
    EXPECT_TRUE(disk_.disk.exists(apache_.home + "\\index.html"));

    modify(other_, apache_);
    expectDisk();

    write(kSampleAdministrator, "the customer's administrator");
    backUp();
    expectDisk();

    deleteInstallation(apache_);
    expectDisk();

    // Newer files are unpacked over the product.
    unpackNewerFiles(disk_);
    unpackNewerFiles(expected_);
    write(kSampleMain, cfgBytes({"00|T|1001", "15|*Language|new", "16|*More|new"}));
    write(kSampleAdministrator, "a new administrator");
    start();
    EXPECT_EQ(wizard_->program.state().InstallEntryCount, 0);
    next();
    EXPECT_TRUE(form().cmdNew.reachable());
    EXPECT_TRUE(form().cmdUpgrade.reachable());
    form().cmdUpgrade.click();
    confirmAndFinish();
    expected_ = afterUpgrade(expected_, apache_);
    for (const std::string& file : deployedFiles(apache_)) expected_.erase(file);
    EXPECT_EQ(
        expected_[kSampleMain],
        cfgBytes({"00|T|1001", "15|*Optional Language 1|the customer's", "16|*More|new", ""}));
    Lines log(kProgramFileCount, "WARN  76, Path not found, ioCopyFile");
    expectDisk(log);

    modify(apache_, apache_);
    expectDisk(joined({log, kNothingToDelete}));
}

TEST_F(ProductLifeTest, AnUpgradeOfAStandingDeploymentKeepsItsPagesUntilItIsModified) {
    install(apache_);
    backUp();
    unpackNewerFiles(disk_);
    unpackNewerFiles(expected_);
    write(kSampleInstallationFile, settingsBytes({}));

    start();
    next();
    form().cmdUpgrade.click();
    confirmAndFinish();
    expected_ = afterUpgrade(expected_, apache_);
    expectDisk();

    modify(apache_, apache_);
    expectDisk();
}

TEST_F(ProductLifeTest, ADeletionLeavesTheSiteRootFilesToTheNextInstallation) {
    const Site underKv = sampleSite(Server::Apache, UrlStyle::Kv);

    install(apache_);
    deleteInstallation(apache_);
    expectDisk();
    unpackNewerFiles(disk_);
    unpackNewerFiles(expected_);
    install(underKv);
    expectDisk();

    for (const char* name : {"favicon.ico", "index.html", "Default.htm"}) {
        EXPECT_EQ(disk_.disk.read(apache_.home + '\\' + name),
                  sampleContent(std::string("web-root\\") + name));
    }
}

TEST_F(ProductLifeTest, AnIISInstallationThatWasDeletedFindsItsScriptsFolderAgain) {
    const Site iis = sampleSite(Server::IIS, UrlStyle::Kv);

    install(iis);
    deleteInstallation(iis);
    EXPECT_TRUE(disk_.disk.exists(iis.scripts));
    install(iis);

    expectDisk();
}

TEST_F(ProductLifeTest, ASecondBackupReplacesTheFirst) {
    install(apache_);
    backUp();
    modify(apache_, other_);
    write(kSampleAnonymous, "another anonymous");
    backUp();

    expectDisk();
    EXPECT_EQ(disk_.disk.read(kSavedInstallation), recordOf(other_));
}

TEST_F(ProductLifeTest, FailuresOfSeveralStartsGatherInOneLog) {
    install(apache_);
    for (const std::string& file : deployedFiles(apache_)) disk_.disk.remove(file);
    deleteInstallation(apache_);
    expectDisk(Lines(kDeletedFileCount, "SERV  53, File not found, ioDeleteFile"));

    disk_.disk.remove(kSampleInstallationFile);
    start();
    EXPECT_EQ(wizard_->currentPanel(), 12);
    form().cmdFinish.click();

    expected_.erase(kSampleInstallationFile);
    expectDisk(joined({Lines(kDeletedFileCount, "SERV  53, File not found, ioDeleteFile"),
                       {"SERV  53, File not found, iocCfgReadFile"}}));
}

// Roads by Back

TEST_F(ProductLifeTest, ModifyFillsThePanelsAndABackupAfterBackRunsAsABackup) {
    install(apache_);
    start();
    next();
    form().cmdModify.click();
    ASSERT_EQ(wizard_->currentPanel(), 1);

    back();
    form().cmdBackup.click();

    EXPECT_EQ(form().lblInstruction10.caption(),
              "Configuration Wizard is going to backup settings to disk. Click on Next to "
              "continue, or click on Cancel to exit.");
    confirmAndFinish();
    EXPECT_EQ(wizard_->history(), (Panels{0, 13, 10, 11}));
    EXPECT_TRUE(form().optInstalledApache.value());
    EXPECT_TRUE(form().optUrlDefault.value());
    EXPECT_EQ(form().txtFolderHomeApache.text(), apache_.home);
    EXPECT_EQ(form().txtFolderScriptsApache.text(), apache_.scripts);
    EXPECT_EQ(form().txtWebsiteIP.text(), "10.0.0.1");
    EXPECT_EQ(form().txtWebsitePort.text(), "8080");
    expected_ = afterBackup(expected_, {});
    expectDisk();
}

TEST_F(ProductLifeTest, NewAfterUpgradeAndBackOverlapsTheSavedEntry) {
    putAside(apache_);
    start();
    next();
    form().cmdUpgrade.click();
    ASSERT_EQ(wizard_->currentPanel(), 10);
    EXPECT_EQ(wizard_->program.state().InstallEntryCount, 1);

    back();
    form().cmdNew.click();
    describeSite(form(), other_);
    confirmAndFinish();

    EXPECT_EQ(wizard_->program.state().InstallEntryCount, 2);
    putDeployment(expected_, other_);
    expected_["C:\\Korvane\\hlp\\eng\\kvhexiteng.html"] =
        sampleContent("hlp\\eng\\kvhentryeng.html");
    expected_[kSampleInstallationFile] =
        settingsBytes({"C:\\Program Files\\Apache Group\\Apache2\\htdocs\\",
                       "C:\\Program Files\\Apache Group\\Apache2\\cgi-bin\\", "C:\\Korvane\\",
                       "C:\\Other Server\\docs\\", "C:\\Other Server\\cgi\\", "C:\\Korvane\\", "2",
                       "1", "10.0.0.1", "8080", "", "", "", ""});
    expectDisk();
}

TEST_F(ProductLifeTest, AnOverlappedEntryFillsNoFolderAndChoosesNothing) {
    putAside(apache_);
    start();
    next();
    form().cmdUpgrade.click();
    back();
    form().cmdNew.click();
    describeSite(form(), other_);
    confirmAndFinish();

    start();
    EXPECT_EQ(wizard_->program.state().InstallEntryCount, 2);
    next();
    form().cmdModify.click();

    EXPECT_EQ(wizard_->currentPanel(), 1);
    for (const Control* control : form().controls()) {
        const auto* option = dynamic_cast<const OptionButton*>(control);
        if (option) {
            EXPECT_FALSE(option->value()) << option->name();
        }
    }
    for (TextBox frmWebConfig::*box :
         {&frmWebConfig::txtFolderHomeApache, &frmWebConfig::txtFolderScriptsApache,
          &frmWebConfig::txtFolderHomeIIS, &frmWebConfig::txtFolderScriptsIIS,
          &frmWebConfig::txtFolderHomeOthers, &frmWebConfig::txtFolderScriptsOthers}) {
        EXPECT_EQ((form().*box).text(), "");
    }
    EXPECT_EQ(form().txtWebsiteIP.text(), "C:\\Korvane\\");
    EXPECT_EQ(form().txtWebsitePort.text(), "2");
}

TEST_F(ProductLifeTest, AfterUpgradeAndTwoStepsBackTheReadEntryCanBeDeleted) {
    putAside(apache_);
    putDeployment(expected_, apache_);
    bring(expected_, disk_);
    write(kSampleInstallationFile, settingsBytes({}));
    start();
    const std::string welcome = form().lblInstruction0.caption();
    next();
    form().cmdUpgrade.click();

    back();
    back();
    EXPECT_EQ(wizard_->currentPanel(), 0);
    EXPECT_EQ(form().lblInstruction0.caption(), welcome);
    next();

    EXPECT_EQ(wizard_->currentPanel(), 13);
    EXPECT_EQ(form().lblDescription13.caption(), "Modification, Backing Up, or Deletion");
    EXPECT_TRUE(form().cmdModify.reachable());
    EXPECT_TRUE(form().cmdBackup.reachable());
    EXPECT_TRUE(form().cmdDelete.reachable());
    EXPECT_FALSE(form().cmdNew.reachable());
    EXPECT_FALSE(form().cmdUpgrade.reachable());
    form().cmdDelete.click();
    confirmAndFinish();
    takeAway(expected_, apache_);
    expectDisk();
}

TEST_F(ProductLifeTest, ASecondUpgradeClickReadsTheSavedFileAnew) {
    putAside(apache_);
    putDeployment(expected_, other_);
    bring(expected_, disk_);
    write(kSampleInstallationFile, settingsBytes({}));
    unpackNewerFiles(disk_);
    unpackNewerFiles(expected_);
    start();
    next();
    form().cmdUpgrade.click();
    back();
    write(kSavedInstallation, recordOf(other_));

    form().cmdUpgrade.click();
    confirmAndFinish();

    EXPECT_EQ(wizard_->program.state().InstallEntryCount, 1);
    expected_ = afterUpgrade(expected_, other_);
    expectDisk();
}

TEST_F(ProductLifeTest, AnUpgradeThatCannotReadTheSavedFileCanOnlyBeFinished) {
    write(kSavedMain, "saved");
    start();
    next();
    form().cmdUpgrade.click();

    for (CommandButton* button :
         {&form().cmdBack, &form().cmdNext, &form().cmdCancel, &form().cmdUpgrade}) {
        EXPECT_FALSE(button->reachable()) << button->name();
        button->click();
        EXPECT_EQ(wizard_->currentPanel(), 12);
        EXPECT_EQ(wizard_->history(), (Panels{0, 12}));
    }
    EXPECT_EQ(wizard_->messages.questions, Lines{});
    EXPECT_TRUE(form().cmdFinish.reachable());

    form().cmdFinish.click();
    EXPECT_EQ(wizard_->observer.closings, 1);
    expectDisk({"SERV  53, File not found, iocCfgReadFile"});
}

TEST_F(ProductLifeTest, ACancelledWizardLeavesTheDiskAsItWas) {
    putAside(apache_);
    start();
    next();
    form().cmdUpgrade.click();
    wizard_->messages.answers = {false, true};

    form().cmdCancel.click();
    EXPECT_EQ(wizard_->observer.closings, 0);
    EXPECT_EQ(wizard_->currentPanel(), 10);
    form().cmdCancel.click();

    EXPECT_EQ(wizard_->observer.closings, 1);
    expectDisk();
}

}  // namespace
}  // namespace kv
