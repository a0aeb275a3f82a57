#include "tests/model/Operations.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace kv {
namespace {

Lines prefixed(const char* prefix, Lines lines) {
    for (std::string& line : lines) line.insert(0, prefix);
    return lines;
}

// A file that is not there is not copied.
void copyFile(Tree& tree, const std::string& from, const std::string& to) {
    if (const auto source = tree.find(from); source != tree.end()) tree[to] = source->second;
}

// Of a file that is not there: none.
std::string bytesOf(const Tree& tree, const std::string& path) {
    const auto found = tree.find(path);
    return found == tree.end() ? "" : found->second;
}

bool isEmpty(const Tree& tree, const std::string& folder) {
    const auto first = tree.upper_bound(folder);
    return first == tree.end() || !first->first.starts_with(folder);
}

std::string in(const Site& site, const char* path) { return site.product + '\\' + path; }

Lines scriptsRecordCalls(const Site& site) {
    const std::string path = scriptsFile(site);
    return joined(
        {{"findName " + path + ", files and folders"}, settingsCalls(path, scriptsRecordOf(site))});
}

}  // namespace

const char* nameOf(Operation operation) {
    switch (operation) {
        case Operation::New: return "New";
        case Operation::Modify: return "Modify";
        case Operation::Delete: return "Delete";
        case Operation::Backup: return "Backup";
        case Operation::Upgrade: return "Upgrade";
    }
    return "";
}

void deploy(Tree& tree, const Site& site) {
    for (const std::string& folder : foldersMade(site)) tree[folder + '\\'] = "";
    for (const auto& [from, to] : copies(site)) copyFile(tree, from, to);
}

void takeAway(Tree& tree, const Site& site) {
    for (const std::string& file : deployedFiles(site)) tree.erase(file);
    for (const std::string& folder : deployedFolders(site))
        if (isEmpty(tree, folder + '\\')) tree.erase(folder + '\\');
}

void record(Tree& tree, const Site& site) {
    tree[installationFile(site)] = recordOf(site);
    tree[scriptsFile(site)] = scriptsRecordOf(site);
}

void putDeployment(Tree& tree, const Site& site) {
    deploy(tree, site);
    record(tree, site);
}

Tree afterInstallation(Tree tree, const Site& site) {
    deploy(tree, site);
    overwrite(tree, installationFile(site), recordOf(site));
    tree[scriptsFile(site)] = scriptsRecordOf(site);
    copyFile(tree, in(site, kHelpEntryPage), in(site, kHelpExitPage));
    return tree;
}

Tree afterModification(Tree tree, const Site& before, const Site& after) {
    takeAway(tree, before);
    putDeployment(tree, after);
    return tree;
}

Tree afterDeletion(Tree tree, const Site& site) {
    takeAway(tree, site);
    tree[installationFile(site)] = emptyRecordOf(site);
    return tree;
}

Tree afterBackup(Tree tree, const Site& site) {
    for (const Backup& file : kBackups) copyFile(tree, in(site, file.source), in(site, file.saved));
    return tree;
}

Tree afterUpgrade(Tree tree, const Site& site) {
    for (const auto& [from, to] : programCopies(site)) copyFile(tree, from, to);
    for (const Backup& file : kBackups) {
        const std::string source = in(site, file.source);
        const std::string saved = in(site, file.saved);
        if (file.name == std::string_view("Main"))
            overwrite(tree, source, migrated(bytesOf(tree, source), bytesOf(tree, saved)));
        else
            copyFile(tree, saved, source);
    }
    return tree;
}

Tree afterOperation(Operation operation, Tree tree, const Site& site, const Site& moved) {
    switch (operation) {
        case Operation::New: return afterInstallation(std::move(tree), site);
        case Operation::Modify: return afterModification(std::move(tree), site, moved);
        case Operation::Delete: return afterDeletion(std::move(tree), site);
        case Operation::Backup: return afterBackup(std::move(tree), site);
        case Operation::Upgrade: return afterUpgrade(std::move(tree), site);
    }
    return tree;
}

Tree withUpgradeAtHand(Tree tree, const Site& site) {
    putDeployment(tree, site);
    tree = afterBackup(std::move(tree), site);
    tree[installationFile(site)] = freshSettings();
    tree[in(site, "bin\\kv.exe")] = "a newer program";
    for (const Backup& file : kBackups)
        if (std::string_view(file.source).starts_with("cfg\\user\\"))
            tree[in(site, file.source)] = "as unpacked";
    return tree;
}

void overwrite(Tree& tree, const std::string& path, const std::string& bytes) {
    std::string& held = tree[path];
    held.replace(0, std::min(held.size(), bytes.size()), bytes);
}

Lines makeCalls(const Site& site) {
    Lines calls;
    for (const std::string& folder : foldersMade(site)) {
        calls.push_back("findName " + folder + ", files and folders");
        calls.push_back("makeDirectory " + folder);
    }
    return calls;
}

Lines copyCalls(const std::vector<Copy>& copies) {
    Lines lines;
    for (const auto& [from, to] : copies) lines.push_back("copyFile " + from + " -> " + to);
    return lines;
}

Lines deleteCalls(const Site& site) { return prefixed("deleteFiles ", deployedFiles(site)); }

Lines removeCalls(const Site& site) { return prefixed("removeDirectory ", deployedFolders(site)); }

Lines settingsCalls(const std::string& path, const std::string& bytes) {
    Lines calls{"openForWrite " + path};
    std::size_t begin = 0;
    for (const char* heading : {"#\r\n# *Peoperty Section", "#\r\n# *Data Section", "\n\n"}) {
        const std::size_t end = std::min(bytes.find(heading), bytes.size());
        if (end > begin)
            calls.push_back("write " + path + ", " + std::to_string(end - begin) + " bytes");
        begin = end;
    }
    calls.push_back("close " + path);
    return calls;
}

Lines rewritingCalls(const std::string& path, const std::string& bytes) {
    Lines calls = settingsCalls(path, bytes);
    calls.insert(calls.begin() + 1, "truncate " + path);
    return calls;
}

Lines installationCalls(const Site& site) {
    return joined({makeCalls(site), copyCalls(copies(site)),
                   settingsCalls(installationFile(site), recordOf(site)), scriptsRecordCalls(site),
                   copyCalls({{in(site, kHelpEntryPage), in(site, kHelpExitPage)}})});
}

Lines modificationCalls(const Site& before, const Site& after) {
    return joined(
        {deleteCalls(before), removeCalls(before), makeCalls(after), copyCalls(copies(after)),
         rewritingCalls(installationFile(after), recordOf(after)), scriptsRecordCalls(after)});
}

Lines deletionCalls(const Site& site) {
    return joined({deleteCalls(site), removeCalls(site),
                   rewritingCalls(installationFile(site), emptyRecordOf(site))});
}

Lines backupCalls(const Site& site) {
    std::vector<Copy> saved;
    for (const Backup& file : kBackups)
        saved.push_back({in(site, file.source), in(site, file.saved)});
    return copyCalls(saved);
}

Lines upgradeCalls(const Site& site, const std::string& newMain, const std::string& oldMain) {
    const auto reading = [](const std::string& path, const std::string& bytes) {
        return Lines{"fileLength " + path, "openForRead " + path,
                     "read " + path + ", " + std::to_string(bytes.size()) + " bytes",
                     "close " + path};
    };
    Lines calls = copyCalls(programCopies(site));
    for (const Backup& file : kBackups) {
        const std::string source = in(site, file.source);
        const std::string saved = in(site, file.saved);
        if (file.name == std::string_view("Main")) {
            const std::size_t written = migrated(newMain, oldMain).size();
            calls = joined({calls,
                            reading(source, newMain),
                            reading(saved, oldMain),
                            {"openForWrite " + source,
                             "write " + source + ", " + std::to_string(written) + " bytes",
                             "close " + source}});
        } else {
            calls.push_back("copyFile " + saved + " -> " + source);
        }
    }
    return calls;
}

std::size_t failingCalls(const Lines& calls) {
    return static_cast<std::size_t>(std::ranges::count_if(
        calls, [](const std::string& call) { return !call.starts_with("findName "); }));
}

}  // namespace kv
