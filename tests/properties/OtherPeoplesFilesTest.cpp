// Whatever lies on the disk: a deletion and a modification change nothing but the files that they
// list, the listed folders that are empty, and the settings.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <string>
#include <utility>

#include "tests/properties/RandomTree.h"
#include "tests/support/PlainWizard.h"
#include "tests/support/disks/MemoryFileSystem.h"

namespace kv {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kFirstSeed = 20070116;
constexpr const char* kNewHome = "C:\\New Server\\docs";
constexpr const char* kNewScripts = "C:\\New Server\\cgi";

// A disk in memory with a tree on it.
class MemoryDisk {
public:
    static constexpr TreeMaker::Links kLinks = TreeMaker::Links::No;

    explicit MemoryDisk(const LinkedTree& tree) : files_(imageOf(tree)) {
        for (const auto& [key, node] : tree.nodes()) {
            if (!node.readOnly) continue;
            files_.makeReadOnly(node.path);
            readOnly_.insert(node.path);
        }
    }

    FileSystem& files() { return files_; }

    LinkedTree tree() const {
        LinkedTree tree;
        for (const auto& [path, bytes] : files_.image()) {
            if (path.ends_with('\\'))
                tree.add({path.substr(0, path.size() - 1), TreeNode::Folder});
            else
                tree.add({path, TreeNode::File, bytes, readOnly_.contains(path)});
        }
        return tree;
    }

private:
    static Tree imageOf(const LinkedTree& tree) {
        Tree image;
        for (const auto& [key, node] : tree.nodes())
            image[node.kind == TreeNode::Folder ? node.path + '\\' : node.path] = node.bytes;
        return image;
    }

    MemoryFileSystem files_;
    std::set<std::string> readOnly_;
};

// The host's disk, which is brought about and looked at without the file system under test.
class HostDisk {
public:
    static constexpr TreeMaker::Links kLinks = TreeMaker::Links::Yes;

    explicit HostDisk(const LinkedTree& tree) {
        disk_.addDrive('D');
        root_ = fs::path(disk_.host("C:\\")).parent_path();
        if (!root_.has_filename()) root_ = root_.parent_path();
        for (const auto& [key, node] : tree.nodes()) make(node);
    }

    FileSystem& files() { return disk_.fileSystem(); }

    LinkedTree tree() const {
        LinkedTree tree;
        for (const char drive : {'C', 'D'}) addTo(tree, root_ / std::string(1, drive));
        return tree;
    }

private:
    fs::path hostPath(const std::string& path) const {
        std::string place = path.substr(0, 1) + path.substr(2);
        for (char& c : place)
            if (c == '\\') c = '/';
        return root_ / place;
    }

    // Parents come first in a tree's order.
    void make(const TreeNode& node) const {
        const fs::path place = hostPath(node.path);
        switch (node.kind) {
            case TreeNode::Folder: fs::create_directory(place); break;
            case TreeNode::FileLink:
            case TreeNode::FolderLink: fs::create_symlink(hostPath(node.bytes), place); break;
            case TreeNode::File: std::ofstream(place, std::ios::binary) << node.bytes; break;
        }
        if (node.readOnly) fs::permissions(place, fs::perms::owner_write, fs::perm_options::remove);
    }

    std::string pathOf(const fs::path& place) const {
        std::string path = place.lexically_relative(root_).string();
        for (char& c : path)
            if (c == '/') c = '\\';
        return path.insert(1, ":");
    }

    void addTo(LinkedTree& tree, const fs::path& folder) const {
        for (const auto& entry : fs::directory_iterator(folder)) {
            const std::string path = pathOf(entry.path());
            if (entry.is_symlink()) {
                const bool toFolder = entry.is_directory();
                tree.add({path, toFolder ? TreeNode::FolderLink : TreeNode::FileLink,
                          pathOf(fs::read_symlink(entry.path()))});
            } else if (entry.is_directory()) {
                tree.add({path, TreeNode::Folder});
                addTo(tree, entry.path());
            } else {
                std::ifstream file(entry.path(), std::ios::binary);
                const bool readOnly =
                    (entry.status().permissions() & fs::perms::owner_write) == fs::perms::none;
                tree.add({path, TreeNode::File,
                          std::string(std::istreambuf_iterator<char>(file), {}), readOnly});
            }
        }
    }

    TestDisk disk_;
    fs::path root_;
};

void putSettings(LinkedTree& tree, const std::string& bytes) {
    tree.add({kSampleInstallationFile, TreeNode::File, bytes});
}

// Takes away what a deletion does: each listed file, be it a link, unless it is read-only; then
// each listed folder that has nothing left in it. Of a link to a folder, a junction for instance,
// the link goes, whatever the folder holds, and the folder stays.
void takeDeployment(LinkedTree& tree, const Site& site) {
    for (const std::string& file : deployedFiles(site)) {
        const std::string place = tree.resolved(file);
        const TreeNode* node = tree.find(place);
        if (node && !node->readOnly &&
            (node->kind == TreeNode::File || node->kind == TreeNode::FileLink))
            tree.remove(place);
    }
    for (const std::string& folder : deployedFolders(site)) {
        const std::string place = tree.resolved(folder);
        const TreeNode* node = tree.find(place);
        if (node && (node->kind == TreeNode::FolderLink ||
                     (node->kind == TreeNode::Folder && !tree.hasChildren(place))))
            tree.remove(place);
    }
}

struct Tally {
    int trees = 0;
    std::size_t stayed = 0;
    std::size_t removed = 0;

    void add(const LinkedTree& before, const LinkedTree& after) {
        ++trees;
        for (const auto& [key, node] : before.nodes()) ++(after.find(node.path) ? stayed : removed);
    }
    void print(const char* what) const {
        std::cout << what << ": " << trees << " trees from seed " << kFirstSeed << ", " << removed
                  << " nodes removed, " << stayed << " stayed\n";
    }
};

template <class Disk>
class OtherPeoplesFiles : public testing::Test {};

class DiskName {
public:
    template <class Disk>
    static std::string GetName(int) {
        return Disk::kLinks == TreeMaker::Links::Yes ? "HostDisk" : "MemoryDisk";
    }
};

using Disks = testing::Types<MemoryDisk, HostDisk>;
TYPED_TEST_SUITE(OtherPeoplesFiles, Disks, DiskName);

// The host's disk is slow, and there for its links.
template <class Disk>
constexpr int kTrees = Disk::kLinks == TreeMaker::Links::Yes ? 60 : 1000;

TYPED_TEST(OtherPeoplesFiles, AndNothingElseButWhatIsListedGoesWithADeletion) {
    Tally tally;
    for (std::uint32_t seed = kFirstSeed; tally.trees < kTrees<TypeParam> && !this->HasFailure();
         ++seed) {
        SCOPED_TRACE("tree of seed " + std::to_string(seed));
        TreeMaker maker(seed, TypeParam::kLinks);
        const Site site = maker.site();
        LinkedTree before = maker.around(site);
        putSettings(before, recordOf(site));
        TypeParam disk(before);
        ASSERT_EQ(differences(before, disk.tree()), "");

        PlainWizard wizard(disk.files());
        wizard.form.cmdNext.click();
        wizard.form.cmdDelete.click();
        wizard.form.cmdNext.click();
        wizard.form.close();

        LinkedTree expected = before;
        takeDeployment(expected, site);
        putSettings(expected, settingsBytes({}));
        const LinkedTree after = disk.tree();
        EXPECT_EQ(wizard.panel(), 11);
        EXPECT_EQ(differences(expected, after), "");
        tally.add(before, after);
    }
    tally.print("deletion");
}

// The real paths of what a modification may change, also where it has removed a link and made a
// folder in its place.
Paths changing(const LinkedTree& before, const Site& from, const Site& to) {
    Lines listed = joined({deployedFiles(from),
                           deployedFolders(from),
                           deployedFiles(to),
                           deployedFolders(to),
                           {to.home + "\\images", kSampleInstallationFile}});
    for (const auto& [source, copy] : copies(to)) listed.push_back(copy);
    LinkedTree between = before;
    takeDeployment(between, from);
    Paths paths;
    for (const LinkedTree* tree : {&before, &std::as_const(between)}) {
        for (const std::string& path : listed) {
            std::string place = tree->resolved(path);
            // A copy onto a link to a file changes the file.
            const TreeNode* node = tree->find(place);
            if (node && node->kind == TreeNode::FileLink) paths.insert(node->bytes);
            paths.insert(std::move(place));
        }
    }
    return paths;
}

bool canBeTyped(const LinkedTree& tree, const Site& site) {
    for (const std::string* folder : {&site.home, &site.scripts}) {
        const TreeNode* node = tree.find(*folder);
        if (!node || node->path != *folder) return false;
    }
    return true;
}

TYPED_TEST(OtherPeoplesFiles, AndNothingElseButWhatIsListedChangesWithAModification) {
    Tally tally;
    int inPlace = 0;
    for (std::uint32_t seed = kFirstSeed; tally.trees < kTrees<TypeParam> && !this->HasFailure();
         ++seed) {
        SCOPED_TRACE("tree of seed " + std::to_string(seed));
        TreeMaker maker(seed, TypeParam::kLinks);
        const Site from = maker.site();
        LinkedTree before = maker.around(from);
        putSettings(before, recordOf(from));
        Site to = from;
        if (!canBeTyped(before, from) || maker.oneIn(2)) {
            to.home = kNewHome;
            to.scripts = maker.oneIn(3) ? kNewHome : kNewScripts;
        } else {
            ++inPlace;
        }
        TypeParam disk(before);

        PlainWizard wizard(disk.files());
        wizard.form.cmdNext.click();
        // Shows the recorded folders.
        wizard.form.cmdModify.click();
        describeSite(wizard.form, to);
        wizard.form.cmdNext.click();
        wizard.form.close();

        const LinkedTree after = disk.tree();
        ASSERT_EQ(wizard.panel(), 11);
        EXPECT_EQ(differences(before, after, changing(before, from, to)), "");
        EXPECT_EQ(after.find(kSampleInstallationFile)->bytes, recordOf(to));
        tally.add(before, after);
    }
    tally.print("modification");
    EXPECT_GT(inPlace, 0);
}

}  // namespace
}  // namespace kv
