// What the whole workplace looks like after an installation, worked out from what it was before.
#pragma once

#include <string>
#include <string_view>

#include "Workplace.h"

namespace kv::endtoend {

struct DeploymentPlan {
    std::string home;  // relative to the workplace's root
    std::string scripts;
    bool siteRoot = true;
    bool makesScriptsFolder = false;
};

// Adds to the tree every folder made and every file copied, with the bytes of the product's own.
// A source that the product does not have is left out.
void deploy(Tree& tree, const DeploymentPlan& plan);

// The product's help entry page takes the place of its exit page.
void replaceHelpPage(Tree& tree);

// Writes as the settings writer does: from the first byte on, over what the file held before.
void overwrite(Tree& tree, const std::string& path, const std::string& bytes);

}  // namespace kv::endtoend
