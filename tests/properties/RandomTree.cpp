#include "tests/properties/RandomTree.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kv {
namespace {

// Beside the names in use: nearly the same, the same as elsewhere, hidden, in other code pages.
const std::array<const char*, 24> kForeignNames{
    "kv.exe.bak",  "kv.ex",     "kv2.exe",      "index.htm",    "index.html.old", "Default.html",
    " index.html", ".htaccess", "Thumbs.db",    "favicon.ico~", "red_dot1x1.gi",  "kvi.cfg.new",
    "kvi",         "kv",        "images",       "kvimg",        "cimg",           "mine.txt",
    "qtmdb.dl",    "\xE9t\xE9", "a b  c.d.e.f", "kvi.cfg",      "kv.exe",         "logo.gif"};

// Folders beside the deployed ones, and some of them.
const std::array<const char*, 14> kForeignPlaces{"H",
                                                 "H\\images",
                                                 "H\\images\\other",
                                                 "H\\kv",
                                                 "H\\images\\kv",
                                                 "H\\kv2",
                                                 "H\\images\\kv\\kvimg",
                                                 "H\\images\\kv\\cimg",
                                                 "S",
                                                 "S\\kv",
                                                 "S\\kv\\kvi",
                                                 "S\\kv\\deep\\er",
                                                 "S\\other",
                                                 "P\\web-root\\mine"};

const std::array<const char*, 6> kLinkTargets{"C:\\else\\one",     "C:\\else\\one\\kvimg",
                                              "C:\\else\\one\\kv", "C:\\else\\one\\kv\\kvi",
                                              "C:\\else\\two",     "C:\\else\\two\\kvimg"};

const std::array<const char*, 6> kNamesInTargets{"kv.exe",  "index.html",   "red_dot1x1.gif",
                                                 "kvi.cfg", "precious.txt", "file11x11.gif"};

std::string longName(char letter) { return std::string(200, letter); }

std::string parentOf(const std::string& path) { return path.substr(0, path.rfind('\\')); }
std::string nameOf(const std::string& path) { return path.substr(path.rfind('\\') + 1); }
bool isDrive(const std::string& path) { return path.size() == 2 && path[1] == ':'; }

unsigned char lower(char c) {
    return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
}

std::string describe(const TreeNode& node) {
    constexpr std::array kKinds{"file", "folder", "link to a file", "link to a folder"};
    return std::string(kKinds[node.kind]) + (node.readOnly ? ", read-only " : " ") + node.path +
           (node.kind == TreeNode::Folder ? "" : " = " + node.bytes);
}

}  // namespace

bool LessInAnyCase::operator()(std::string_view one, std::string_view other) const noexcept {
    // Called millions of times, and most paths begin alike: only what differs is folded.
    const char* a = one.data();
    const char* b = other.data();
    const char* const end = a + (one.size() < other.size() ? one.size() : other.size());
    for (; a != end; ++a, ++b)
        if (*a != *b && lower(*a) != lower(*b)) return lower(*a) < lower(*b);
    return one.size() < other.size();
}

const TreeNode* LinkedTree::find(std::string_view path) const {
    const auto found = nodes_.find(path);
    return found == nodes_.end() ? nullptr : &found->second;
}

bool LinkedTree::put(const TreeNode& node) {
    if (find(node.path)) return false;
    const std::string parent = parentOf(node.path);
    if (isDrive(parent)) {
        add(node);
        return true;
    }
    if (!find(parent) && !put({parent, TreeNode::Folder})) return false;
    const TreeNode* above = find(parent);
    if (above->kind != TreeNode::Folder) return false;
    // The folders above have their own spelling.
    TreeNode placed = node;
    placed.path = above->path + '\\' + nameOf(node.path);
    add(std::move(placed));
    return true;
}

void LinkedTree::add(TreeNode node) {
    std::string path = node.path;
    nodes_.insert_or_assign(std::move(path), std::move(node));
}

void LinkedTree::remove(std::string_view path) {
    const auto found = nodes_.find(path);
    if (found != nodes_.end()) nodes_.erase(found);
}

bool LinkedTree::hasChildren(const std::string& folder) const {
    const std::string inside = folder + '\\';
    const auto next = nodes_.lower_bound(inside);
    if (next == nodes_.end()) return false;
    const std::string_view beginning = std::string_view(next->first).substr(0, inside.size());
    return !LessInAnyCase()(beginning, inside) && !LessInAnyCase()(inside, beginning);
}

std::string LinkedTree::resolved(const std::string& path) const {
    if (path.find('\\') == std::string::npos || isDrive(parentOf(path))) return path;
    std::string parent = resolved(parentOf(path));
    const TreeNode* node = find(parent);
    if (node && node->kind == TreeNode::FolderLink) parent = resolved(node->bytes);
    return parent + '\\' + nameOf(path);
}

std::string differences(const LinkedTree& expected, const LinkedTree& actual,
                        const Paths& excepted) {
    const auto counts = [&](const TreeNode& node) {
        return !node.path.starts_with("C:\\Korvane\\log\\") && !excepted.contains(node.path);
    };
    std::string lines;
    for (const auto& [path, node] : expected.nodes()) {
        const TreeNode* found = actual.find(path);
        if (!found && counts(node))
            lines += "missing: " + describe(node) + '\n';
        else if (found && *found != node && counts(node))
            lines += "changed: " + describe(node) + "\n      to " + describe(*found) + '\n';
    }
    for (const auto& [path, node] : actual.nodes())
        if (!expected.find(path) && counts(node)) lines += "new: " + describe(node) + '\n';
    return lines;
}

Site TreeMaker::site() {
    Site site = sampleSite(Server::Other, oneIn(2) ? UrlStyle::Kv : UrlStyle::SiteRoot);
    const std::string far = "C:\\" + longName('d') + '\\' + longName('e') + "\\htdocs";
    const std::array<std::array<std::string, 2>, 16> places{{
        {"C:\\srv\\htdocs", "C:\\srv\\cgi-bin"},
        {"C:\\srv\\htdocs", "C:\\srv\\cgi-bin"},
        {"C:\\srv\\www", "C:\\srv\\www"},
        {"C:\\srv\\www", "C:\\srv\\www\\cgi-bin"},
        {"C:\\srv\\cgi-bin\\docs", "C:\\srv\\cgi-bin"},
        {"C:\\srv\\www", "C:\\srv\\www\\kv"},
        {"C:\\srv\\www\\kv\\kvi", "C:\\srv\\www"},
        {"C:\\srv\\www", "C:\\srv\\www\\images\\kv\\kvimg"},
        {"C:", "C:"},
        {"C:", "D:"},
        {"D:", "C:\\srv\\cgi-bin"},
        {"C:\\Korvane\\web-root", "C:\\Korvane\\bin"},
        {"C:\\Korvane", "C:\\Korvane"},
        {far, "C:\\srv\\cgi-bin"},
        {"C:\\SRV\\HtDocs", "c:\\srv\\CGI-BIN"},
        {"C:\\s*\\htdocs", ""},
    }};
    const auto& chosen = oneOf(places);
    site.home = chosen[0];
    site.scripts = chosen[1];
    return site;
}

LinkedTree TreeMaker::around(const Site& site) {
    LinkedTree tree;
    putProduct(tree);
    for (const char* folder : {"C:\\srv\\htdocs", "C:\\srv\\cgi-bin", "D:\\other"})
        tree.put({folder, TreeNode::Folder});
    if (site.home.find('*') != std::string::npos) {
        putForeign(tree, sampleSite(Server::Other));
        return tree;
    }
    putFolders(tree, site);
    putFiles(tree, site);
    putForeign(tree, site);
    return tree;
}

void TreeMaker::putProduct(LinkedTree& tree) {
    for (const auto& [from, to] : copies(sampleSite(Server::Other, UrlStyle::SiteRoot)))
        tree.put({from, TreeNode::File, content()});
    tree.put({kSampleInstallationFile, TreeNode::File, content()});
    tree.put({"C:\\Korvane\\log", TreeNode::Folder});
    tree.put({kSampleMain, TreeNode::File, content()});
    tree.put({"C:\\New Server\\docs", TreeNode::Folder});
    tree.put({"C:\\New Server\\cgi", TreeNode::Folder});
    if (!links_) return;
    for (const char* folder : kLinkTargets)
        for (const char* name : kNamesInTargets)
            if (oneIn(2)) tree.put({std::string(folder) + '\\' + name, TreeNode::File, content()});
    tree.put({"C:\\else\\files\\precious.txt", TreeNode::File, content()});
}

void TreeMaker::putFolders(LinkedTree& tree, const Site& site) {
    Lines folders = deployedFolders(site);
    folders.push_back(site.home + "\\images");
    std::ranges::sort(folders, {}, &std::string::size);
    for (const std::string& folder : folders) {
        if (oneIn(25)) continue;
        if (oneIn(40))
            tree.put({folder, TreeNode::File, content()});
        else if (links_ && oneIn(12))
            tree.put({folder, TreeNode::FolderLink, oneOf(kLinkTargets)});
        else
            tree.put({oneIn(12) ? parentOf(folder) + '\\' + otherCase(nameOf(folder)) : folder,
                      TreeNode::Folder});
    }
}

void TreeMaker::putFiles(LinkedTree& tree, const Site& site) {
    Lines files = deployedFiles(site);
    for (const auto& [from, to] : copies(site)) files.push_back(to);
    for (const std::string& file : files) {
        const TreeNode* folder = tree.find(parentOf(file));
        if (!isDrive(parentOf(file)) && (!folder || folder->kind != TreeNode::Folder)) continue;
        if (oneIn(20))
            putDamaged(tree, file);
        else if (!oneIn(15))
            tree.put({file, TreeNode::File, content()});
    }
}

void TreeMaker::putDamaged(LinkedTree& tree, const std::string& path) {
    switch (below(links_ ? 5 : 4)) {
        case 0: tree.put({path, TreeNode::File, content(), true}); break;
        case 1: tree.put({path, TreeNode::Folder}); break;
        case 2: tree.put({path + '\\' + foreignName(), TreeNode::File, content()}); break;
        case 3:
            tree.put({parentOf(path) + '\\' + otherCase(nameOf(path)), TreeNode::File, content()});
            break;
        default: tree.put({path, TreeNode::FileLink, "C:\\else\\files\\precious.txt"});
    }
}

void TreeMaker::putForeign(LinkedTree& tree, const Site& site) {
    const bool tidy = oneIn(3);  // nobody has put anything into the deployed folders
    for (int i = below(12); i > 0; --i) {
        const std::string folder =
            placed(site, {std::string(oneOf(kForeignPlaces)) + "\\"}).front();
        std::string path = folder + foreignName();
        const TreeNode* parent = tree.find(folder.substr(0, folder.size() - 1));
        if (tidy && parent) continue;
        tree.put({path, oneIn(6) ? TreeNode::Folder : TreeNode::File, "", false});
        const TreeNode* made = tree.find(path);
        if (!made || made->kind != TreeNode::File || !made->bytes.empty()) continue;
        tree.remove(path);
        tree.put({path, TreeNode::File, content(), oneIn(8)});
    }
}

std::string TreeMaker::foreignName() {
    if (oneIn(10)) return longName(static_cast<char>('a' + below(26))) + ".txt";
    return oneIn(6) ? otherCase(oneOf(kForeignNames)) : oneOf(kForeignNames);
}

std::string TreeMaker::otherCase(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z' && !oneIn(3)) c = static_cast<char>(c - ('a' - 'A'));
    return text;
}

// No two files hold the same.
std::string TreeMaker::content() { return "content " + std::to_string(random_()); }

}  // namespace kv
