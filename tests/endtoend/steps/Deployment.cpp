#include "Deployment.h"

#include <algorithm>
#include <span>

#include "DeployedFiles.h"

namespace kv::endtoend {

namespace {

void addFolders(Tree& tree, const std::string& parent, std::span<const std::string_view> names) {
    for (const std::string_view name : names) {
        tree[parent + "\\" + std::string(name) + "\\"] = "";
    }
}

void copyFiles(Tree& tree, const std::string& from, const std::string& to,
               std::span<const std::string_view> names) {
    for (const std::string_view name : names) {
        const auto source = tree.find(from + "\\" + std::string(name));
        if (source != tree.end()) {
            tree[to + "\\" + std::string(name)] = source->second;
        }
    }
}

}  // namespace

void deploy(Tree& tree, const DeploymentPlan& plan) {
    if (plan.makesScriptsFolder) {
        tree[plan.scripts + "\\"] = "";
    }
    addFolders(tree, plan.home, kHomeFolders);
    addFolders(tree, plan.scripts, kScriptsFolders);
    copyFiles(tree, "product\\bin", plan.scripts + "\\kv", kPrograms);
    copyFiles(tree, "product\\bin", plan.scripts + "\\kv", kLibraries);
    copyFiles(tree, "product\\web-root\\kv", plan.home + "\\kv", kWebFiles);
    if (plan.siteRoot) {
        copyFiles(tree, "product\\web-root", plan.home, kWebFiles);
    }
    copyFiles(tree, "product\\web-root\\images\\kvimg", plan.home + "\\images\\kv\\kvimg", kImages);
}

void replaceHelpPage(Tree& tree) {
    tree["product\\hlp\\eng\\kvhexiteng.html"] = tree.at("product\\hlp\\eng\\kvhentryeng.html");
}

void overwrite(Tree& tree, const std::string& path, const std::string& bytes) {
    std::string& held = tree[path];
    held.replace(0, std::min(held.size(), bytes.size()), bytes);
}

}  // namespace kv::endtoend
