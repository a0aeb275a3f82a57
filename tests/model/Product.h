// The product's files and the places that an installation puts them in, each list in its order.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/model/Tree.h"

namespace kv {

// What is deployed, in the order of the copies.
inline constexpr auto kPrograms = std::to_array<std::string_view>({
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
inline constexpr auto kLibraries = std::to_array<std::string_view>({
    "qtmdb.dll",
    "QTnbwB.dll",
});
inline constexpr auto kWebFiles = std::to_array<std::string_view>({
    "favicon.ico",
    "index.html",
    "Default.htm",
});
inline constexpr auto kImages = std::to_array<std::string_view>({
    "arrowlsd.gif",     "arrowlse.gif",   "arrowrsd.gif",    "arrowrse.gif",     "arrowtopd.gif",
    "arrowtope.gif",    "arrowupd.gif",   "arrowupe.gif",    "btn-bgr.gif",      "chk_no11x11.gif",
    "chk_yes11x11.gif", "close16x16.gif", "kvlogo30x60.gif", "kvlogo60x120.gif", "kvlogo80x160.gif",
    "kvsite42x530.gif", "file11x11.gif",  "folder11x11.gif", "quest_b.gif",      "red_dot1x1.gif",
    "red_v1x2.gif",
});

// The deletion takes this program after that one; all others have their place in the list above.
inline constexpr std::string_view kDeletedLate = "kvabout.exe";
inline constexpr std::string_view kDeletedBeforeIt = "kvlogon.exe";

// Below the document root and below the scripts folder, in the order in which they are made.
inline constexpr auto kHomeFolders = std::to_array<std::string_view>({
    "kv",
    "images",
    "images\\kv",
    "images\\kv\\cimg",
    "images\\kv\\kvimg",
});
inline constexpr auto kScriptsFolders = std::to_array<std::string_view>({
    "kv",
    "kv\\kvi",
});

inline constexpr std::size_t kProgramFileCount = kPrograms.size() + kLibraries.size();
inline constexpr std::size_t kDeletedFileCount =
    1 + kProgramFileCount + kWebFiles.size() + kImages.size();  // the record in the scripts folder
inline constexpr std::size_t kRemovedFolderCount = 6;
inline constexpr std::size_t kMadeFolderCount = kHomeFolders.size() + kScriptsFolders.size();

// Which file of the product a backup puts aside, and under which name in cfg\original.
struct Backup {
    const char* name;
    const char* source;
    const char* saved;
};
inline constexpr std::array<Backup, 4> kBackups{{
    {"Installation", "bin\\kvi\\kvi.cfg", "cfg\\original\\kvi.bak"},
    {"Main", "cfg\\general\\korvane.cfg", "cfg\\original\\korvane.bak"},
    {"Administrator", "cfg\\user\\dadmin\\kvadm.cfg", "cfg\\original\\kvadm.bak"},
    {"Anonymous", "cfg\\user\\anony\\kvan.cfg", "cfg\\original\\kvan.bak"},
}};

inline constexpr const char* kHelpEntryPage = "hlp\\eng\\kvhentryeng.html";
inline constexpr const char* kHelpExitPage = "hlp\\eng\\kvhexiteng.html";

enum class Server { Apache, IIS, Other };
enum class UrlStyle { SiteRoot, Kv };

constexpr std::size_t copiedFileCount(UrlStyle style) {
    const std::size_t sites = style == UrlStyle::SiteRoot ? 2 : 1;
    return kProgramFileCount + sites * kWebFiles.size() + kImages.size();
}

const char* nameOf(Server server);
const char* codeOf(Server server);

// A web server, how the product is reached through it, and its address. Folders have no backslash
// at their end.
struct Site {
    Server server = Server::Apache;
    UrlStyle style = UrlStyle::SiteRoot;
    std::string home;
    std::string scripts;
    std::string ip = {};
    std::string port = {};
    std::string product = "C:\\Korvane";
    std::string root = {};  // of all these folders, where they are told from a root
};

// The site's files of those names.
std::string installationFile(const Site& site);
std::string scriptsFile(const Site& site);

// The paths, of which those that begin with H\, S\ or P\ begin with the site's document root, its
// scripts folder or the product's folder instead.
Lines placed(const Site& site, const Lines& paths);

// The files in the order of their deletion, the folders in the order of their removal and in that
// of their making.
Lines deployedFiles(const Site& site);
Lines deployedFolders(const Site& site);
Lines foldersMade(const Site& site);

// The two ends of each copy.
struct Copy {
    std::string from;
    std::string to;
};
std::vector<Copy> programCopies(const Site& site);  // libraries included
std::vector<Copy> copies(const Site& site);         // those and the web files

}  // namespace kv
