#include "process/DeployedFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/model/Operations.h"
#include "tests/support/Wizard.h"

namespace kv {
namespace {

using Option = OptionButton frmWebConfig::*;

const std::string kProduct = "C:\\Korvane";
const std::string kHome = "C:\\www";
const std::string kScripts = "C:\\srv\\cgi";

// The site of these folders; the kind says whether its scripts folder is made.
Site site(Server kind = Server::Apache, UrlStyle style = UrlStyle::Kv,
          const std::string& home = kHome) {
    return {kind, style, home, kScripts};
}

int steps(std::size_t count) { return static_cast<int>(count); }

// A way to choose a server kind, and what it means.
struct KindCase {
    const char* name;
    Option option;
    Server kind;
};

const KindCase kKinds[] = {
    {"ApacheInstalled", &frmWebConfig::optInstalledApache, Server::Apache},
    {"ApacheToInstall", &frmWebConfig::optInstallingApache, Server::Apache},
    {"NoPreference", &frmWebConfig::optInstallingAnyone, Server::Apache},
    {"IISInstalled", &frmWebConfig::optInstalledIIS, Server::IIS},
    {"IISToInstall", &frmWebConfig::optInstallingIIS, Server::IIS},
    {"OtherInstalled", &frmWebConfig::optInstalledOther, Server::Other},
    {"OtherToInstall", &frmWebConfig::optInstallingOther, Server::Other},
};

class DeployedFilesTest : public testing::Test {
protected:
    DeployedFilesTest() {
        bench_.disk.makeFolder(kHome);
        bench_.disk.makeFolder("C:\\srv");
    }

    int progress() const { return bench_.form.lblProgress.box().width - 255; }

    // The calls that change something.
    Lines changes() const {
        Lines lines = bench_.files.journal();
        std::erase_if(lines, [](const std::string& line) { return line.starts_with("findName"); });
        return lines;
    }

    Workbench bench_;
    DeployedFiles deployed_{bench_.form, bench_.state, bench_.io, bench_.files, bench_.progress};
};

class ServerKindTest : public DeployedFilesTest, public testing::WithParamInterface<KindCase> {
protected:
    ServerKindTest() { (bench_.form.*GetParam().option).setValue(true); }
};

TEST_P(ServerKindTest, NamesTheFoldersWithoutTheirBlanks) {
    for (const Server server : {Server::Apache, Server::IIS, Server::Other}) {
        const SampleServer& sample = sampleServer(server);
        (bench_.form.*sample.homeBox).setText("  " + sample.home + " ");
        (bench_.form.*sample.scriptsBox).setText(" " + sample.scripts + "  ");
    }
    std::string home;
    std::string scripts;

    deployed_.wcpGetServerFolders(home, scripts);

    EXPECT_EQ(home, sampleServer(GetParam().kind).home);
    EXPECT_EQ(scripts, sampleServer(GetParam().kind).scripts);
}

TEST_P(ServerKindTest, MakesTheFoldersInOrderAndTheScriptsFolderOnlyForIis) {
    if (GetParam().kind != Server::IIS) bench_.disk.makeFolder(kScripts);

    deployed_.wcpMakeFolders(kHome, kScripts, 100);

    EXPECT_EQ(bench_.files.journal(), makeCalls(site(GetParam().kind)));
    EXPECT_TRUE(bench_.disk.exists("C:\\srv\\cgi\\kv\\kvi"));
    EXPECT_EQ(bench_.logEntries(), Lines{});
}

TEST_P(ServerKindTest, MakingTheFoldersIsSevenProgressSteps) {
    deployed_.wcpMakeFolders(kHome, kScripts, 100);

    EXPECT_EQ(progress(), 700);
}

TEST_P(ServerKindTest, CopiesProgramsAndWebFilesUnderKv) {
    bench_.form.optUrlKv.setValue(true);

    deployed_.wcpCopyWebFiles(kProduct, kHome, kScripts, 100);

    EXPECT_EQ(bench_.files.journal(), copyCalls(copies(site())));
    EXPECT_EQ(progress(), 100 * steps(copiedFileCount(UrlStyle::Kv)));
}

TEST_P(ServerKindTest, CopiesThreeMoreFilesAtTheSiteRoot) {
    bench_.form.optUrlDefault.setValue(true);

    deployed_.wcpCopyWebFiles(kProduct, kHome, kScripts, 100);

    EXPECT_EQ(bench_.files.journal(), copyCalls(copies(site(Server::Apache, UrlStyle::SiteRoot))));
    EXPECT_EQ(progress(), 100 * steps(copiedFileCount(UrlStyle::SiteRoot)));
}

INSTANTIATE_TEST_SUITE_P(DeployedFiles, ServerKindTest, testing::ValuesIn(kKinds), CaseName());

struct PrecedenceCase {
    const char* name;
    Option first;
    Option second;
    Server kind;
};

class PrecedenceTest : public DeployedFilesTest,
                       public testing::WithParamInterface<PrecedenceCase> {};

TEST_P(PrecedenceTest, DecidesWhichFoldersCount) {
    (bench_.form.*GetParam().first).setValue(true);
    (bench_.form.*GetParam().second).setValue(true);
    for (const Server server : {Server::Apache, Server::IIS, Server::Other})
        (bench_.form.*sampleServer(server).homeBox).setText(sampleServer(server).home);
    std::string home;
    std::string scripts;

    deployed_.wcpGetServerFolders(home, scripts);

    EXPECT_EQ(home, sampleServer(GetParam().kind).home);
}

INSTANTIATE_TEST_SUITE_P(
    DeployedFiles, PrecedenceTest,
    testing::Values(PrecedenceCase{"ApacheBeforeIIS", &frmWebConfig::optInstalledIIS,
                                   &frmWebConfig::optInstallingApache, Server::Apache},
                    PrecedenceCase{"NoPreferenceBeforeOther", &frmWebConfig::optInstalledOther,
                                   &frmWebConfig::optInstallingAnyone, Server::Apache},
                    PrecedenceCase{"IISBeforeOther", &frmWebConfig::optInstalledOther,
                                   &frmWebConfig::optInstallingIIS, Server::IIS}),
    CaseName());

TEST_F(DeployedFilesTest, WithoutAUrlStyleNothingIsCopiedIntoTheSiteRoot) {
    deployed_.wcpCopyWebFiles(kProduct, kHome, kScripts, 100);

    EXPECT_EQ(bench_.files.journal(), copyCalls(copies(site())));
}

TEST_F(DeployedFilesTest, WithoutAServerKindTheFoldersStayAsTheyWere) {
    std::string home = "before";
    std::string scripts;

    deployed_.wcpGetServerFolders(home, scripts);

    EXPECT_EQ(home, "before");
    EXPECT_EQ(scripts, "");
}

TEST_F(DeployedFilesTest, WithEmptyFoldersEveryPathBeginsWithABackslash) {
    deployed_.wcpMakeFolders("", "", 100);

    Lines made = changes();
    EXPECT_EQ(made, (Lines{"makeDirectory \\kv", "makeDirectory \\images",
                           "makeDirectory \\images\\kv", "makeDirectory \\images\\kv\\cimg",
                           "makeDirectory \\images\\kv\\kvimg", "makeDirectory \\kv\\kvi"}));
}

TEST_F(DeployedFilesTest, WithAnEmptyHomeFolderEveryDestinationBeginsWithABackslash) {
    bench_.form.optUrlDefault.setValue(true);

    deployed_.wcpCopyWebFiles(kProduct, "", kScripts, 50);

    EXPECT_EQ(bench_.files.journal(),
              copyCalls(copies(site(Server::Apache, UrlStyle::SiteRoot, ""))));
    EXPECT_EQ(bench_.files.journal().back(),
              "copyFile C:\\Korvane\\web-root\\images\\kvimg\\red_v1x2.gif -> "
              "\\images\\kv\\kvimg\\red_v1x2.gif");
    EXPECT_EQ(progress(), 50 * steps(copiedFileCount(UrlStyle::SiteRoot)));
}

TEST_F(DeployedFilesTest, WithAnEmptyHomeFolderEveryDeletedPathBeginsWithABackslash) {
    deployed_.wcpDeleteFiles(kProduct, "", kScripts, 50);

    EXPECT_EQ(bench_.files.journal(), deleteCalls(site(Server::Apache, UrlStyle::Kv, "")));
    EXPECT_EQ(bench_.files.journal().at(1 + kProgramFileCount), "deleteFiles \\kv\\favicon.ico");
    bench_.files.clearJournal();

    deployed_.wcpDeleteFolders("", kScripts, 50);

    EXPECT_EQ(bench_.files.journal(), removeCalls(site(Server::Apache, UrlStyle::Kv, "")));
    EXPECT_EQ(bench_.files.journal().back(), "removeDirectory \\kv");
}

TEST_F(DeployedFilesTest, WithAnEmptyProductFolderEverySourceBeginsWithABackslash) {
    deployed_.wcpCopyLibraries("", kScripts, 100);

    EXPECT_EQ(bench_.files.journal(),
              (Lines{"copyFile \\bin\\qtmdb.dll -> C:\\srv\\cgi\\kv\\qtmdb.dll",
                     "copyFile \\bin\\QTnbwB.dll -> C:\\srv\\cgi\\kv\\QTnbwB.dll"}));
}

TEST_F(DeployedFilesTest, TheInstalledFoldersAreTheEntrysCutAtTheirLastBackslash) {
    bench_.state.InstallEntries.resize(3);
    bench_.state.InstallEntries[0].fields = {"C:\\cgi\\", "C:\\www\\"};
    bench_.state.InstallEntries[1].fields = {"D:\\a\\cgi\\", "D:\\a\\www\\"};
    std::string home;
    std::string scripts;

    deployed_.wcpGetInstalledFolders(home, scripts, 1);
    EXPECT_EQ(home, "D:\\a\\www");
    EXPECT_EQ(scripts, "D:\\a\\cgi");

    deployed_.wcpGetInstalledFolders(home, scripts, 0);
    EXPECT_EQ(home, "C:\\www");
    EXPECT_EQ(scripts, "C:\\cgi");
}

// Code page 932, in which 0x95 begins a character of two bytes.
TEST_F(DeployedFilesTest, AnInstalledFolderKeepsItsLastCharacterWhole) {
    bench_.state.leadBytes.set(0x95);
    bench_.state.InstallEntries.resize(2);
    bench_.state.InstallEntries[0].fields = {"C:\\cgi\\\x95\x5C\\", "C:\\\x95\x5C\\"};
    std::string home;
    std::string scripts;

    deployed_.wcpGetInstalledFolders(home, scripts, 0);

    EXPECT_EQ(home, "C:\\\x95\x5C");
    EXPECT_EQ(scripts, "C:\\cgi\\\x95\x5C");
}

TEST_F(DeployedFilesTest, AnInstalledFolderOutsideTheListIsABoundsError) {
    std::string home;
    std::string scripts;

    EXPECT_EQ(failureOf([&] { deployed_.wcpGetInstalledFolders(home, scripts, 0); }), 9);
    EXPECT_EQ(failureOf([&] { deployed_.wcpGetInstalledFolders(home, scripts, -1); }), 9);
}

TEST_F(DeployedFilesTest, OnlyProgramsAreCopiedAsScriptFiles) {
    deployed_.wcpCopyScriptFiles(kProduct, kScripts, 300);

    std::vector<Copy> programs = programCopies(site());
    programs.resize(kPrograms.size());
    EXPECT_EQ(bench_.files.journal(), copyCalls(programs));
    EXPECT_EQ(progress(), 300 * steps(kPrograms.size()));
}

TEST_F(DeployedFilesTest, TwoLibrariesAreCopied) {
    deployed_.wcpCopyLibraries(kProduct, kScripts, 300);

    EXPECT_EQ(bench_.files.journal(),
              (Lines{"copyFile C:\\Korvane\\bin\\qtmdb.dll -> C:\\srv\\cgi\\kv\\qtmdb.dll",
                     "copyFile C:\\Korvane\\bin\\QTnbwB.dll -> C:\\srv\\cgi\\kv\\QTnbwB.dll"}));
    EXPECT_EQ(progress(), 300 * steps(kLibraries.size()));
}

TEST_F(DeployedFilesTest, FilesAreDeletedInTheirOwnOrder) {
    bench_.form.optUrlDefault.setValue(true);

    deployed_.wcpDeleteFiles(kProduct, kHome, kScripts, 50);

    EXPECT_EQ(bench_.files.journal(), deleteCalls(site()));
    EXPECT_EQ(progress(), 50 * steps(kDeletedFileCount));
}

TEST_F(DeployedFilesTest, SixFoldersAreRemovedInnermostFirst) {
    bench_.form.optInstalledIIS.setValue(true);

    deployed_.wcpDeleteFolders(kHome, kScripts, 50);

    EXPECT_EQ(bench_.files.journal(), removeCalls(site(Server::IIS)));
    EXPECT_EQ(progress(), 300);
}

TEST_F(DeployedFilesTest, RemovingWhatWasMadeLeavesTheImagesFolderAndIissScriptsFolder) {
    bench_.form.optInstalledIIS.setValue(true);
    deployed_.wcpMakeFolders(kHome, kScripts, 100);

    deployed_.wcpDeleteFolders(kHome, kScripts, 100);

    EXPECT_EQ(bench_.disk.tree(kHome), Lines{"images\\"});
    EXPECT_EQ(bench_.disk.tree("C:\\srv"), Lines{"cgi\\"});
    EXPECT_EQ(bench_.logEntries(), Lines{});
}

TEST_F(DeployedFilesTest, FoldersThatExistAreSkippedSilentlyAndStillCountAsProgress) {
    bench_.form.optInstalledIIS.setValue(true);
    deployed_.wcpMakeFolders(kHome, kScripts, 100);
    bench_.files.clearJournal();

    deployed_.wcpMakeFolders(kHome, kScripts, 100);

    EXPECT_EQ(changes(), Lines{});
    EXPECT_EQ(progress(), 1400);
    EXPECT_EQ(bench_.logEntries(), Lines{});
}

TEST_F(DeployedFilesTest, AFolderOfAnotherLetterCaseIsMadeAgainWhichFailsAndIsLogged) {
    bench_.disk.makeFolder("C:\\www\\Images");
    bench_.disk.makeFolder(kScripts);

    deployed_.wcpMakeFolders(kHome, kScripts, 100);

    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  75, Path/File access error, ioMakeDirectory"});
    EXPECT_TRUE(bench_.disk.exists("C:\\www\\Images\\kv\\kvimg"));
    EXPECT_EQ(progress(), 700);
}

TEST_F(DeployedFilesTest, MakingAMissingFolderReturnsTheStatusOfMakingIt) {
    EXPECT_EQ(deployed_.wcpMakeFolderIfMissing("C:\\www", "new"), 0);
    EXPECT_EQ(deployed_.wcpMakeFolderIfMissing("C:\\nowhere", "new"), 1);

    EXPECT_TRUE(bench_.disk.exists("C:\\www\\new"));
    EXPECT_EQ(bench_.logEntries(), Lines{"WARN  76, Path not found, ioMakeDirectory"});
}

TEST_F(DeployedFilesTest, MakingAFolderThatExistsDoesNothingAndReturnsZero) {
    EXPECT_EQ(deployed_.wcpMakeFolderIfMissing("C:\\", "www"), 0);

    EXPECT_EQ(changes(), Lines{});
}

TEST_F(DeployedFilesTest, EachFailedCopyIsLoggedAndTheNextFollows) {
    deployed_.wcpCopyLibraries(kProduct, kScripts, 100);

    EXPECT_EQ(bench_.logEntries().size(), 2u);
    EXPECT_EQ(progress(), 200);
}

TEST_F(DeployedFilesTest, DeletingWhatWasNeverDeployedFailsItemByItem) {
    deployed_.wcpDeleteFiles(kProduct, kHome, kScripts, 100);
    deployed_.wcpDeleteFolders(kHome, kScripts, 100);

    EXPECT_EQ(bench_.logEntries().size(), kDeletedFileCount + kRemovedFolderCount);
    EXPECT_EQ(progress(), 100 * steps(kDeletedFileCount + kRemovedFolderCount));
}

}  // namespace
}  // namespace kv
