// Random disks around a deployment of the product: files of other people inside the deployed
// folders and beside them, damage of every kind, links. A tree is a description, which a test
// brings to a file system and compares with what it finds there later.
#pragma once

#include <cstdint>
#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>

#include "tests/support/Deployment.h"

namespace kv {

struct TreeNode {
    enum Kind { File, Folder, FileLink, FolderLink };

    std::string path;  // as it is spelt
    Kind kind = File;
    std::string bytes = {};  // of a file; of a link the path it leads to
    bool readOnly = false;

    bool operator==(const TreeNode&) const = default;
};

// Any letter case is the same.
struct LessInAnyCase {
    using is_transparent = void;
    bool operator()(std::string_view one, std::string_view other) const noexcept;
};

// The nodes of a disk.
class LinkedTree {
public:
    using Nodes = std::map<std::string, TreeNode, LessInAnyCase>;

    const TreeNode* find(std::string_view path) const;

    // Puts the node and the folders above it, unless something of its name is there or a folder
    // above it is not a plain folder; says whether it did.
    bool put(const TreeNode& node);

    // Adds the node as it is.
    void add(TreeNode node);

    void remove(std::string_view path);
    bool hasChildren(const std::string& folder) const;

    // The path of the node itself where folders on the way to it are links.
    std::string resolved(const std::string& path) const;

    const Nodes& nodes() const { return nodes_; }

private:
    Nodes nodes_;
};

// Paths on a disk.
using Paths = std::set<std::string, LessInAnyCase>;

// A line for each node in which the trees differ, but for the nodes of the excepted paths and what
// lies in the product's log folder.
std::string differences(const LinkedTree& expected, const LinkedTree& actual,
                        const Paths& excepted = {});

class TreeMaker {
public:
    enum class Links { Yes, No };
    TreeMaker(std::uint32_t seed, Links links) : random_(seed), links_(links == Links::Yes) {}

    // The web server's folders: usual, one and the same, one inside the other, a drive, inside the
    // product, with long names, spelt in another letter case, or nonsense.
    Site site();

    // The product, the deployment of the site with its damage, and other people's files.
    LinkedTree around(const Site& site);

    bool oneIn(int chances) { return below(chances) == 0; }

private:
    int below(int count) { return static_cast<int>(random_() % static_cast<std::uint32_t>(count)); }
    template <class List>
    const auto& oneOf(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
    }

    void putProduct(LinkedTree& tree);
    void putFolders(LinkedTree& tree, const Site& site);
    void putFiles(LinkedTree& tree, const Site& site);
    void putForeign(LinkedTree& tree, const Site& site);
    void putDamaged(LinkedTree& tree, const std::string& path);
    std::string foreignName();
    std::string otherCase(std::string text);
    std::string content();

    std::mt19937 random_;
    bool links_;
};

}  // namespace kv
