#include "tests/model/Product.h"

#include <algorithm>

namespace kv {
namespace {

using Names = std::span<const std::string_view>;

std::string below(const std::string& folder, std::string_view name) {
    return folder + '\\' + std::string(name);
}

void add(Lines& paths, const std::string& folder, Names names) {
    for (const std::string_view name : names) paths.push_back(below(folder, name));
}

void add(std::vector<Copy>& copies, const std::string& from, const std::string& to, Names names) {
    for (const std::string_view name : names)
        copies.push_back({below(from, name), below(to, name)});
}

Lines programsDeleted(const std::string& folder) {
    Lines paths;
    add(paths, folder, kPrograms);
    std::erase(paths, below(folder, kDeletedLate));
    paths.insert(std::ranges::find(paths, below(folder, kDeletedBeforeIt)) + 1,
                 below(folder, kDeletedLate));
    return paths;
}

}  // namespace

const char* nameOf(Server server) {
    switch (server) {
        case Server::Apache: return "Apache";
        case Server::IIS: return "IIS";
        case Server::Other: return "Other";
    }
    return "";
}

const char* codeOf(Server server) {
    switch (server) {
        case Server::Apache: return "1";
        case Server::IIS: return "0";
        case Server::Other: return "2";
    }
    return "";
}

std::string installationFile(const Site& site) { return site.product + "\\bin\\kvi\\kvi.cfg"; }

std::string scriptsFile(const Site& site) { return site.scripts + "\\kv\\kvi\\kvi.cfg"; }

Lines placed(const Site& site, const Lines& paths) {
    Lines result;
    for (const std::string& path : paths) {
        if (path.starts_with("H\\"))
            result.push_back(site.home + path.substr(1));
        else if (path.starts_with("S\\"))
            result.push_back(site.scripts + path.substr(1));
        else if (path.starts_with("P\\"))
            result.push_back(site.product + path.substr(1));
        else
            result.push_back(path);
    }
    return result;
}

Lines deployedFiles(const Site& site) {
    Lines paths{scriptsFile(site)};
    for (std::string& path : programsDeleted(site.scripts + "\\kv"))
        paths.push_back(std::move(path));
    add(paths, site.scripts + "\\kv", kLibraries);
    add(paths, site.home + "\\kv", kWebFiles);
    add(paths, site.home + "\\images\\kv\\kvimg", kImages);
    return paths;
}

Lines deployedFolders(const Site& site) {
    return placed(site, {"S\\kv\\kvi", "S\\kv", "H\\images\\kv\\kvimg", "H\\images\\kv\\cimg",
                         "H\\images\\kv", "H\\kv"});
}

Lines foldersMade(const Site& site) {
    Lines paths;
    add(paths, site.home, kHomeFolders);
    if (site.server == Server::IIS) paths.push_back(site.scripts);
    add(paths, site.scripts, kScriptsFolders);
    return paths;
}

std::vector<Copy> programCopies(const Site& site) {
    std::vector<Copy> result;
    add(result, site.product + "\\bin", site.scripts + "\\kv", kPrograms);
    add(result, site.product + "\\bin", site.scripts + "\\kv", kLibraries);
    return result;
}

std::vector<Copy> copies(const Site& site) {
    const std::string web = site.product + "\\web-root";
    std::vector<Copy> result = programCopies(site);
    add(result, web + "\\kv", site.home + "\\kv", kWebFiles);
    if (site.style == UrlStyle::SiteRoot) add(result, web, site.home, kWebFiles);
    add(result, web + "\\images\\kvimg", site.home + "\\images\\kv\\kvimg", kImages);
    return result;
}

}  // namespace kv
