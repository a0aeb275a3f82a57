#include "process/DeployedFiles.h"

#include <algorithm>
#include <array>

#include "common/RunTimeError.h"
#include "common/Text.h"
#include "common/modKvIO.h"
#include "process/Existence.h"
#include "process/ProgressLine.h"
#include "wizard/form/ServerKind.h"
#include "wizard/form/frmWebConfig.h"
#include "wizard/form/modWebCfgVariables.h"

namespace kv {
namespace {

using Name = std::string_view;

constexpr auto kPrograms = std::to_array<Name>({
    "kv.exe",
    "kvabout.exe",
    "kvcfg.exe",
    "kvclpbd.exe",
    "kvdir.exe",
    "kvfile.exe",
    "kvhlp.exe",
    "kvimg.exe",
    "kvjs.exe",
    "kvlogon.exe",
    "kvwlcm.exe",
});

// They are deleted in the order in which they are copied, but for "kvabout.exe", which goes only
// after "kvlogon.exe".
constexpr auto kProgramsAsDeleted = [] {
    auto programs = kPrograms;
    const auto about = std::ranges::find(programs, "kvabout.exe");
    const auto logon = std::ranges::find(programs, "kvlogon.exe");
    std::rotate(about, about + 1, logon + 1);
    return programs;
}();

constexpr auto kLibraries = std::to_array<Name>({"qtmdb.dll", "QTnbwB.dll"});

constexpr auto kWebFiles = std::to_array<Name>({"favicon.ico", "index.html", "Default.htm"});

constexpr auto kImages = std::to_array<Name>({
    "arrowlsd.gif",     "arrowlse.gif",   "arrowrsd.gif",    "arrowrse.gif",     "arrowtopd.gif",
    "arrowtope.gif",    "arrowupd.gif",   "arrowupe.gif",    "btn-bgr.gif",      "chk_no11x11.gif",
    "chk_yes11x11.gif", "close16x16.gif", "kvlogo30x60.gif", "kvlogo60x120.gif", "kvlogo80x160.gif",
    "kvsite42x530.gif", "file11x11.gif",  "folder11x11.gif", "quest_b.gif",      "red_dot1x1.gif",
    "red_v1x2.gif",
});

}  // namespace

DeployedFiles::DeployedFiles(const frmWebConfig& form, const WizardState& state, modKvIO& io,
                             FileSystem& fileSystem, ProgressLine& progress)
    : form_(form), state_(state), io_(io), fileSystem_(fileSystem), progress_(progress) {}

void DeployedFiles::wcpGetServerFolders(std::string& homeFolder, std::string& scriptsFolder) const {
    const ServerKind* kind = chosenServerKind(form_);
    if (kind == nullptr) return;
    homeFolder = trim((form_.*kind->home.box).text());
    scriptsFolder = trim((form_.*kind->scripts.box).text());
}

void DeployedFiles::wcpGetInstalledFolders(std::string& homeFolder, std::string& scriptsFolder,
                                           std::int16_t index) const {
    const InstallEntry& entry = elementAt(state_.InstallEntries, index);
    homeFolder = splitPath(entry.fields[kEntryHomeFolder], state_.leadBytes).parent;
    scriptsFolder = splitPath(entry.fields[kEntryScriptsFolder], state_.leadBytes).parent;
}

void DeployedFiles::wcpMakeFolders(const std::string& homeFolder, const std::string& scriptsFolder,
                                   std::int16_t progressStep) {
    const auto make = [&](const std::string& parent, std::string_view name) {
        wcpMakeFolderIfMissing(parent, name);
        progress_.widen(progressStep);
    };
    const std::string images = joinPath(homeFolder, "images");
    const std::string kvImages = joinPath(images, "kv");
    make(homeFolder, "kv");
    make(homeFolder, "images");
    make(images, "kv");
    make(kvImages, "cimg");
    make(kvImages, "kvimg");

    const ServerKind* kind = chosenServerKind(form_);
    if (kind != nullptr && kind->makesScriptsFolder) {
        const PathHalves scripts = splitPath(scriptsFolder, state_.leadBytes);
        wcpMakeFolderIfMissing(scripts.parent, scripts.name);
    }
    make(scriptsFolder, "kv");
    make(joinPath(scriptsFolder, "kv"), "kvi");
}

// HomeFolder\images and a scripts folder made for IIS stay: others may have come to use them.
void DeployedFiles::wcpDeleteFolders(const std::string& homeFolder,
                                     const std::string& scriptsFolder, std::int16_t progressStep) {
    const std::string kvImages = joinPath(homeFolder, "images", "kv");
    for (const std::string& folder :
         {joinPath(scriptsFolder, "kv", "kvi"), joinPath(scriptsFolder, "kv"),
          joinPath(kvImages, "kvimg"), joinPath(kvImages, "cimg"), kvImages,
          joinPath(homeFolder, "kv")}) {
        io_.ioDeleteDirectory(folder);
        progress_.widen(progressStep);
    }
}

void DeployedFiles::wcpCopyWebFiles(const std::string& productFolder, const std::string& homeFolder,
                                    const std::string& scriptsFolder, std::int16_t progressStep) {
    wcpCopyScriptFiles(productFolder, scriptsFolder, progressStep);
    wcpCopyLibraries(productFolder, scriptsFolder, progressStep);

    const std::string webRoot = joinPath(productFolder, "web-root");
    copyEach(kWebFiles, joinPath(webRoot, "kv"), joinPath(homeFolder, "kv"), progressStep);
    if (form_.optUrlDefault.value()) copyEach(kWebFiles, webRoot, homeFolder, progressStep);
    copyEach(kImages, joinPath(webRoot, "images", "kvimg"),
             joinPath(homeFolder, "images", "kv", "kvimg"), progressStep);
}

void DeployedFiles::wcpCopyScriptFiles(const std::string& productFolder,
                                       const std::string& scriptsFolder,
                                       std::int16_t progressStep) {
    copyEach(kPrograms, joinPath(productFolder, "bin"), joinPath(scriptsFolder, "kv"),
             progressStep);
}

void DeployedFiles::wcpCopyLibraries(const std::string& productFolder,
                                     const std::string& scriptsFolder, std::int16_t progressStep) {
    copyEach(kLibraries, joinPath(productFolder, "bin"), joinPath(scriptsFolder, "kv"),
             progressStep);
}

// The copies in the site root stay: the site may have made them its own pages.
void DeployedFiles::wcpDeleteFiles(const std::string& /*productFolder*/,
                                   const std::string& homeFolder, const std::string& scriptsFolder,
                                   std::int16_t progressStep) {
    const std::string scripts = joinPath(scriptsFolder, "kv");
    constexpr std::array<Name, 1> kInstallationFile{"kvi.cfg"};
    deleteEach(kInstallationFile, joinPath(scripts, "kvi"), progressStep);
    deleteEach(kProgramsAsDeleted, scripts, progressStep);
    deleteEach(kLibraries, scripts, progressStep);
    deleteEach(kWebFiles, joinPath(homeFolder, "kv"), progressStep);
    deleteEach(kImages, joinPath(homeFolder, "images", "kv", "kvimg"), progressStep);
}

int DeployedFiles::wcpMakeFolderIfMissing(std::string_view parent, std::string_view name) {
    if (!wcpFolderMissing(fileSystem_, parent, name)) return 0;
    return io_.ioMakeDirectory(joinPath(parent, name));
}

void DeployedFiles::copyEach(Names names, const std::string& from, const std::string& to,
                             std::int16_t progressStep) {
    for (const Name name : names) {
        io_.ioCopyFile(joinPath(from, name), joinPath(to, name), false);
        progress_.widen(progressStep);
    }
}

void DeployedFiles::deleteEach(Names names, const std::string& folder, std::int16_t progressStep) {
    for (const Name name : names) {
        io_.ioDeleteFile(joinPath(folder, name), false);
        progress_.widen(progressStep);
    }
}

}  // namespace kv
