// A started wizard on any file system, with nothing that watches it: for tests that need thousands.
#pragma once

#include <cstddef>

#include "tests/support/Wizard.h"

namespace kv {

class PlainWizard {
public:
    explicit PlainWizard(FileSystem& files)
        : program(form, {kSamplePlace, "kvwcfg"}, files, clock, shell, messages) {
        program.load();
    }

    // The panel that is shown.
    int panel() const {
        const WizardState& state = program.state();
        return state.PanelHistory.at(static_cast<std::size_t>(state.PanelHistoryIndex));
    }

    FakeClock clock;
    FakeShell shell;
    FakeMessageBoxes messages;
    frmWebConfig form;
    Program program;
};

}  // namespace kv
