// A product and two web servers, and the five operations on them as one road each, from the start
// of the wizard to the confirmation.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "WizardDriver.h"
#include "Workplace.h"

namespace kv::endtoend {

enum class Operation { kNew, kModify, kDelete, kBackup, kUpgrade };

std::string_view nameOf(Operation operation);

// How often something is done: the number in the environment's variable, or else the short one.
int countFromEnvironment(const char* variable, int shortCount);

class Ground {
public:
    explicit Ground(const std::string& scenario);

    const Workplace& place() const { return place_; }
    std::string home(const std::string& server) const { return place_.path(server + "\\htdocs"); }
    std::string scripts(const std::string& server) const {
        return place_.path(server + "\\cgi-bin");
    }

    // The disk as it is when the operation is due, made without the wizard.
    Tree before(Operation operation) const;

    // What an installation in the server's folders adds, its records included.
    void install(Tree& tree, const std::string& server) const;

    // Makes the disk hold just this.
    void restore(const Tree& wanted) const;

    std::unique_ptr<WizardDriver> start() const;

    // From the first panel to the confirmation. A modification leads to the second server unless
    // another is named.
    void goToConfirmation(const WizardDriver& wizard, Operation operation,
                          const std::string& server = {}) const;

    // All of it, from the start to the end of the program.
    void run(Operation operation, const std::string& server = {}) const;

    // The whole disk but the log.
    Tree treeBesideLog() const;
    std::string log() const;  // empty when there is none
    std::string record(const std::string& server) const;

private:
    void backUp(Tree& tree) const;

    Workplace place_;
};

inline const std::string kSettings = "product\\bin\\kvi\\kvi.cfg";
inline const std::string kLogFile = "product\\log\\kvwcfg00.log";
inline const std::string kFirstServer = "server";
inline const std::string kSecondServer = "other";

}  // namespace kv::endtoend
