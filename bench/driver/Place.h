// Where the contestants work: a product with files of real size and an empty web server. The wizard
// lies in a folder of its own, so that all programs to be copied can have the same size.
#pragma once

#include <string>

#include "tests/endtoend/driver/Workplace.h"

namespace kv::bench {

class Place {
public:
    Place();

    std::string program() const { return work_.path("product\\setup"); }
    std::string wizard() const { return work_.path("product\\setup\\kvwcfg.exe"); }
    std::string product() const { return work_.product(); }
    std::string home() const { return work_.home(); }
    std::string scripts() const { return work_.scripts(); }

    // As before an installation.
    void clean() const;

    // Throws when the files and folders are not, byte for byte, those of an installation.
    void check() const;

    // Leaves in the folder what a package has to bring along: the product, and the files that an
    // installation writes itself.
    void layOutForPackage(const std::string& folder) const;

private:
    Site site() const { return work_.site("server\\htdocs", "server\\cgi-bin"); }
    std::string programSettings() const;
    std::string scriptsSettings() const;
    Tree expected() const;

    endtoend::Workplace work_;
    Tree fresh_;
};

}  // namespace kv::bench
