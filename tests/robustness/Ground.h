// A product and two web servers, and the five operations on them as one road each, from the start
// of the wizard to the confirmation.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "tests/endtoend/driver/WizardDriver.h"
#include "tests/endtoend/driver/Workplace.h"
#include "tests/model/Operations.h"

namespace kv::endtoend {

// How often something is done: the number in the environment's variable, or else the short one.
int countFromEnvironment(const char* variable, int shortCount);

class Ground {
public:
    explicit Ground(const std::string& scenario);

    const Workplace& place() const { return place_; }
    // The two web servers, each at its site's root, and their folders as a user enters them.
    Site first() const { return place_.site("server\\htdocs", "server\\cgi-bin"); }
    Site second() const { return place_.site("other\\htdocs", "other\\cgi-bin"); }
    std::string home(const Site& site) const { return place_.path(site.home); }
    std::string scripts(const Site& site) const { return place_.path(site.scripts); }

    // The disk as it is when the operation is due, made without the wizard.
    Tree before(Operation operation) const;

    // What the operation makes of that. A modification leads from the first server to the second.
    Tree after(Operation operation, const Tree& before) const;

    // Makes the disk hold just this.
    void restore(const Tree& wanted) const;

    std::unique_ptr<WizardDriver> start() const;

    // From the first panel to the confirmation, a new installation to the first server and a
    // modification to the second, unless another is named.
    void goToConfirmation(const WizardDriver& wizard, Operation operation) const;
    void goToConfirmation(const WizardDriver& wizard, Operation operation, const Site& site) const;

    // All of it, from the start to the end of the program.
    void run(Operation operation) const;
    void run(Operation operation, const Site& site) const;

    // The whole disk but the log.
    Tree treeBesideLog() const;
    std::string log() const;  // empty when there is none

private:
    Site usualSite(Operation operation) const;

    Workplace place_;
};

inline const std::string kSettings = "product\\bin\\kvi\\kvi.cfg";
inline const std::string kLogFile = "product\\log\\kvwcfg00.log";

}  // namespace kv::endtoend
