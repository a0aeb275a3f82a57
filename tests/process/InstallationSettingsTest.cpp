#include "process/InstallationSettings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/Wizard.h"

namespace kv {
namespace {

using Option = OptionButton frmWebConfig::*;

constexpr const char* kScriptsCopy = "C:\\cgi\\kv\\kvi\\kvi.cfg";

const Site kSite{Server::Apache, UrlStyle::SiteRoot, "C:\\www", "C:\\cgi", "10.0.0.1", "8080"};
const std::string kOneEntry = recordOf(kSite);
const std::string kNoEntry = emptyRecordOf(kSite);
const std::string kHomeFolderOnly = scriptsRecordOf(kSite);

class InstallationSettingsTest : public testing::Test {
protected:
    InstallationSettingsTest() {
        bench_.state.CfgPropertyValues[0] = "C:\\Korvane\\";
        bench_.disk.makeFolder("C:\\Korvane\\bin\\kvi");
        bench_.disk.makeFolder("C:\\cgi\\kv\\kvi");
        bench_.form.optInstalledApache.setValue(true);
        bench_.form.optUrlDefault.setValue(true);
        bench_.form.txtWebsiteIP.setText("10.0.0.1");
        bench_.form.txtWebsitePort.setText("8080");
    }

    int writeNew(const std::string& home = "C:\\www", const std::string& scripts = "C:\\cgi") {
        return settings_.wcpConfigInstallWriteNew("C:\\Korvane", home, scripts);
    }
    int writeModify() {
        return settings_.wcpConfigInstallWriteModify("C:\\Korvane", "C:\\www", "C:\\cgi");
    }
    int writeScripts() { return settings_.wcpConfigInstallWriteScripts("C:\\www", "C:\\cgi"); }

    // An entry in the order of memory: the scripts folder first.
    void addEntry(const InstallEntry& entry) {
        auto& entries = bench_.state.InstallEntries;
        const auto index = static_cast<std::size_t>(bench_.state.InstallEntryCount++);
        entries.resize(index + 2);
        entries[index] = entry;
    }

    std::string installationFile() const { return bench_.disk.read(kSampleInstallationFile); }
    std::string scriptsCopy() const { return bench_.disk.read(kScriptsCopy); }

    Workbench bench_;
    InstallationSettings settings_{bench_.form, bench_.state, bench_.configuration, bench_.files};
};

TEST_F(InstallationSettingsTest, TheHeaderHasTypeVersionAndCountsAndZeros) {
    CfgHeader header;
    header.fill("before");

    wcpConfigHeaderSet(header, 1008, 1, 14);

    EXPECT_EQ(header, (CfgHeader{"1008", "1.3.0", "1", "14", "0", "0", "0", "0", "0", "0", "0"}));
}

TEST_F(InstallationSettingsTest, TheFirstInstallationIsSevenRows) {
    EXPECT_EQ(writeNew(), 0);

    EXPECT_EQ(installationFile(), kOneEntry);
    EXPECT_EQ(bench_.state.InstallEntryCount, 1);
}

TEST_F(InstallationSettingsTest, TheSecondInstallationOverwritesTheLastColumnsOfTheFirst) {
    addEntry({{"S0\\", "H0\\", "P0\\", "0", "1", "0.0.0.0", "1000"}});

    EXPECT_EQ(writeNew(), 0);

    EXPECT_EQ(installationFile(),
              settingsBytes({"H0\\", "S0\\", "P0\\", "C:\\www\\", "C:\\cgi\\", "C:\\Korvane\\", "1",
                             "0", "10.0.0.1", "8080", "", "", "", ""}));
    EXPECT_EQ(bench_.state.InstallEntryCount, 2);
}

TEST_F(InstallationSettingsTest, TheThirdInstallationStartsThreeRowsAfterTheSecond) {
    addEntry({{"S0\\", "H0\\", "P0\\", "0", "1", "0.0.0.0", "1000"}});
    addEntry({{"S1\\", "H1\\", "P1\\", "2", "1", "1.1.1.1", "1001"}});

    EXPECT_EQ(writeNew(), 0);

    EXPECT_EQ(installationFile(), settingsBytes({"H0\\",      "S0\\",      "P0\\",
                                                 "H1\\",      "S1\\",      "P1\\",
                                                 "C:\\www\\", "C:\\cgi\\", "C:\\Korvane\\",
                                                 "1",         "0",         "10.0.0.1",
                                                 "8080",      "",          "",
                                                 "",          "",          "",
                                                 "",          "",          ""}));
    EXPECT_EQ(bench_.state.InstallEntryCount, 3);
}

TEST_F(InstallationSettingsTest, TheHeaderListKeepsWhatWasWrittenLast) {
    addEntry({});

    writeNew();

    EXPECT_EQ(bench_.state.CfgHeaderValues,
              (CfgHeader{"1008", "1.3.0", "1", "14", "0", "0", "0", "0", "0", "0", "0"}));
}

TEST_F(InstallationSettingsTest, ANewInstallationIsWrittenOverAnOlderFileWhoseRestStays) {
    bench_.disk.write(kSampleInstallationFile, std::string(3000, 'x'));

    EXPECT_EQ(writeNew(), 0);

    EXPECT_EQ(installationFile(), kOneEntry + std::string(3000 - kOneEntry.size(), 'x'));
}

TEST_F(InstallationSettingsTest, ANewInstallationMakesNoBackup) {
    bench_.disk.write(kSampleInstallationFile, "old");
    bench_.disk.makeFolder("C:\\Korvane\\bin\\kvi\\backup");

    writeNew();

    EXPECT_EQ(bench_.disk.tree("C:\\Korvane\\bin\\kvi"), (Lines{"backup\\", "kvi.cfg"}));
}

TEST_F(InstallationSettingsTest, AFailedWriteIsReturnedLoggedAndStillCountsTheEntry) {
    bench_.disk.remove("C:\\Korvane\\bin\\kvi");

    EXPECT_EQ(writeNew(), 1);

    EXPECT_EQ(bench_.state.InstallEntryCount, 1);
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  76, Path not found, iocCfgWriteFile"});
}

TEST_F(InstallationSettingsTest, TheBackslashIsAppendedWhateverTheFolderEndsWith) {
    writeNew("C:\\www\\", "C:");

    EXPECT_EQ(installationFile(), settingsBytes({"C:\\www\\\\", "C:\\", "C:\\Korvane\\", "1", "0",
                                                 "10.0.0.1", "8080"}));
}

TEST_F(InstallationSettingsTest, BlanksAroundIpAddressAndPortAreNotWritten) {
    bench_.form.txtWebsiteIP.setText("  10.0.0.1 ");
    bench_.form.txtWebsitePort.setText(" 8080  ");

    writeNew();

    EXPECT_EQ(installationFile(), kOneEntry);
}

struct CodeCase {
    const char* name;
    std::vector<Option> options;
    const char* code;
};

class KindCodeTest : public InstallationSettingsTest, public testing::WithParamInterface<CodeCase> {
protected:
    KindCodeTest() {
        bench_.form.optInstalledApache.setValue(false);
        for (const Option option : GetParam().options) (bench_.form.*option).setValue(true);
    }

    std::string expected() const {
        return settingsBytes(
            {"C:\\www\\", "C:\\cgi\\", "C:\\Korvane\\", GetParam().code, "0", "10.0.0.1", "8080"});
    }
};

TEST_P(KindCodeTest, IsTheFourthColumnOfANewInstallation) {
    writeNew();

    EXPECT_EQ(installationFile(), expected());
}

TEST_P(KindCodeTest, IsTheFourthColumnOfAModification) {
    writeModify();

    EXPECT_EQ(installationFile(), expected());
}

INSTANTIATE_TEST_SUITE_P(
    InstallationSettings, KindCodeTest,
    testing::Values(CodeCase{"ApacheInstalled", {&frmWebConfig::optInstalledApache}, "1"},
                    CodeCase{"ApacheToInstall", {&frmWebConfig::optInstallingApache}, "1"},
                    CodeCase{"NoPreference", {&frmWebConfig::optInstallingAnyone}, "1"},
                    CodeCase{"IISInstalled", {&frmWebConfig::optInstalledIIS}, "0"},
                    CodeCase{"IISToInstall", {&frmWebConfig::optInstallingIIS}, "0"},
                    CodeCase{"OtherInstalled", {&frmWebConfig::optInstalledOther}, "2"},
                    CodeCase{"OtherToInstall", {&frmWebConfig::optInstallingOther}, "2"},
                    CodeCase{"ApacheBeforeIIS",
                             {&frmWebConfig::optInstalledIIS, &frmWebConfig::optInstallingAnyone},
                             "1"},
                    CodeCase{"IISBeforeOther",
                             {&frmWebConfig::optInstalledOther, &frmWebConfig::optInstallingIIS},
                             "0"},
                    CodeCase{"NoServer", {&frmWebConfig::optInstalledNothing}, ""}),
    CaseName());

class StyleCodeTest : public InstallationSettingsTest,
                      public testing::WithParamInterface<CodeCase> {};

TEST_P(StyleCodeTest, IsTheFifthColumn) {
    bench_.form.optUrlDefault.setValue(false);
    for (const Option option : GetParam().options) (bench_.form.*option).setValue(true);

    writeNew();

    EXPECT_EQ(installationFile(), settingsBytes({"C:\\www\\", "C:\\cgi\\", "C:\\Korvane\\", "1",
                                                 GetParam().code, "10.0.0.1", "8080"}));
}

INSTANTIATE_TEST_SUITE_P(InstallationSettings, StyleCodeTest,
                         testing::Values(CodeCase{"SiteRoot", {&frmWebConfig::optUrlDefault}, "0"},
                                         CodeCase{"Kv", {&frmWebConfig::optUrlKv}, "1"},
                                         CodeCase{"None", {}, ""}),
                         CaseName());

TEST_F(InstallationSettingsTest, AModificationWritesTheFileOfAFirstInstallation) {
    EXPECT_EQ(writeModify(), 0);

    EXPECT_EQ(installationFile(), kOneEntry);
}

TEST_F(InstallationSettingsTest, AModificationAfterSeveralInstallationsLeavesOneEntry) {
    writeNew();
    addEntry({{"S1\\", "H1\\", "P1\\", "2", "1", "1.1.1.1", "1001"}});
    writeNew();

    EXPECT_EQ(writeModify(), 0);

    EXPECT_EQ(installationFile(), kOneEntry);
    EXPECT_EQ(bench_.state.InstallEntryCount, 3);
}

TEST_F(InstallationSettingsTest, AModificationEmptiesTheOldFileFirst) {
    bench_.disk.write(kSampleInstallationFile, std::string(3000, 'x'));

    writeModify();

    EXPECT_EQ(installationFile(), kOneEntry);
    ASSERT_GE(bench_.files.journal().size(), 2u);
    EXPECT_EQ(bench_.files.journal()[0], "openForWrite C:\\Korvane\\bin\\kvi\\kvi.cfg");
    EXPECT_EQ(bench_.files.journal()[1], "truncate C:\\Korvane\\bin\\kvi\\kvi.cfg");
}

TEST_F(InstallationSettingsTest, AMissingFileIsNoFailureOfAModification) {
    EXPECT_EQ(writeModify(), 0);

    EXPECT_EQ(bench_.logEntries(), Lines{});
}

TEST_F(InstallationSettingsTest, AModificationLeavesAFileThatCannotBeEmptiedAsItIs) {
    bench_.disk.write(kSampleInstallationFile, std::string(3000, 'x'));
    bench_.files.add({.text = "truncate", .number = ErrorNumber::PermissionDenied});

    EXPECT_EQ(writeModify(), 1);

    EXPECT_EQ(installationFile(), std::string(3000, 'x'));
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  70, Permission denied, iocCfgWriteFile"});
}

TEST_F(InstallationSettingsTest, AFailedWriteOfAModificationIsReturned) {
    bench_.disk.remove("C:\\Korvane\\bin\\kvi");

    EXPECT_EQ(writeModify(), 1);

    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  76, Path not found, iocCfgWriteFile"});
}

TEST_F(InstallationSettingsTest, ADeletionLeavesAFileWithoutDataSection) {
    addEntry({});
    bench_.disk.write(kSampleInstallationFile, kOneEntry);

    EXPECT_EQ(settings_.wcpConfigInstallWriteDelete(), 0);

    EXPECT_EQ(installationFile(), kNoEntry);
    EXPECT_EQ(bench_.state.InstallEntryCount, 1);
}

TEST_F(InstallationSettingsTest, ADeletionWithoutAFileStillWritesIt) {
    EXPECT_EQ(settings_.wcpConfigInstallWriteDelete(), 0);

    EXPECT_EQ(installationFile(), kNoEntry);
    EXPECT_EQ(bench_.logEntries(), Lines{});
}

TEST_F(InstallationSettingsTest, ADeletionLeavesAFileThatCannotBeEmptiedAsItIs) {
    bench_.disk.write(kSampleInstallationFile, kOneEntry);
    bench_.files.add({.text = "truncate", .number = ErrorNumber::PermissionDenied});

    EXPECT_EQ(settings_.wcpConfigInstallWriteDelete(), 1);

    EXPECT_EQ(installationFile(), kOneEntry);
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  70, Permission denied, iocCfgWriteFile"});
}

TEST_F(InstallationSettingsTest, AFailedWriteOfADeletionIsReturned) {
    bench_.disk.remove("C:\\Korvane\\bin\\kvi");

    EXPECT_EQ(settings_.wcpConfigInstallWriteDelete(), 1);
}

TEST_F(InstallationSettingsTest, TheScriptsCopyHoldsTheHomeFolderOnly) {
    EXPECT_EQ(writeScripts(), 0);

    EXPECT_EQ(scriptsCopy(), kHomeFolderOnly);
}

TEST_F(InstallationSettingsTest, TheScriptsCopyIsLookedUpAmongFilesAndFoldersBeforeItIsWritten) {
    writeScripts();

    ASSERT_GE(bench_.files.journal().size(), 2u);
    EXPECT_EQ(bench_.files.journal()[0], "findName C:\\cgi\\kv\\kvi\\kvi.cfg, files and folders");
    EXPECT_EQ(bench_.files.journal()[1], "openForWrite C:\\cgi\\kv\\kvi\\kvi.cfg");
}

TEST_F(InstallationSettingsTest, AnOlderScriptsCopyIsEmptiedFirst) {
    bench_.disk.write(kScriptsCopy, std::string(3000, 'x'));

    EXPECT_EQ(writeScripts(), 0);

    EXPECT_EQ(scriptsCopy(), kHomeFolderOnly);
    EXPECT_EQ(bench_.files.journal()[2], "truncate C:\\cgi\\kv\\kvi\\kvi.cfg");
}

TEST_F(InstallationSettingsTest, AScriptsCopyOfAnotherLetterCaseIsNotEmptiedButOverwritten) {
    bench_.disk.write("C:\\cgi\\kv\\kvi\\KVI.CFG", std::string(3000, 'x'));

    EXPECT_EQ(writeScripts(), 0);

    EXPECT_EQ(scriptsCopy(), kHomeFolderOnly + std::string(3000 - kHomeFolderOnly.size(), 'x'));
    EXPECT_EQ(bench_.disk.tree("C:\\cgi\\kv\\kvi"), Lines{"KVI.CFG"});
}

TEST_F(InstallationSettingsTest, AFailedLookUpOfTheScriptsCopyIsIgnored) {
    bench_.disk.write(kScriptsCopy, std::string(3000, 'x'));
    bench_.files.add({.text = "findName"});

    EXPECT_EQ(writeScripts(), 0);

    EXPECT_EQ(scriptsCopy(), kHomeFolderOnly + std::string(3000 - kHomeFolderOnly.size(), 'x'));
    EXPECT_EQ(bench_.logEntries(), Lines{});
}

TEST_F(InstallationSettingsTest, AScriptsCopyThatCannotBeEmptiedStaysAsItIs) {
    bench_.disk.write(kScriptsCopy, std::string(3000, 'x'));
    bench_.files.add({.text = "truncate", .number = ErrorNumber::PermissionDenied});

    EXPECT_EQ(writeScripts(), 1);

    EXPECT_EQ(scriptsCopy(), std::string(3000, 'x'));
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  70, Permission denied, iocCfgWriteFile"});
}

TEST_F(InstallationSettingsTest, WithoutTheFolderOfTheScriptsCopyTheWriteFailsAndNoneIsMade) {
    bench_.disk.remove("C:\\cgi\\kv\\kvi");

    EXPECT_EQ(writeScripts(), 1);

    EXPECT_FALSE(bench_.disk.exists("C:\\cgi\\kv\\kvi"));
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  76, Path not found, iocCfgWriteFile"});
}

TEST_F(InstallationSettingsTest, TheScriptsCopyOverwritesTheHeaderListAndNotTheCount) {
    writeScripts();

    EXPECT_EQ(bench_.state.CfgHeaderValues[3], "1");
    EXPECT_EQ(bench_.state.InstallEntryCount, 0);
}

}  // namespace
}  // namespace kv
