// Every panel as it looks when a user first comes to it. The tour is made once for all tests that
// only look.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tests/endtoend/driver/WizardDriver.h"

namespace kv::endtoend {

// A panel with the frame around it at one moment.
struct Snapshot {
    int panel = 0;
    Rectangle window;                   // with its frame, on the screen
    Rectangle client;                   // its inner area
    std::vector<ControlView> controls;  // all of them, visible or not
    HWND panelWindow = nullptr;
    HWND topWindow = nullptr;
    std::vector<int> visiblePanels;

    std::vector<ControlView> onPanel() const;  // the visible ones
    std::vector<ControlView> onFrame() const;  // visible or not
    const ControlView& frameButton(std::string_view caption) const;
};

// By name: "0" to "14", and the variants "0 configured", "7 filled" and so on. Each is visited
// once.
using PanelVisitor = std::function<void(const WizardDriver& wizard, const std::string& name)>;
void visitPanels(const PanelVisitor& visitor);

// The panels that such a visit sees, by their names.
// Where the environment names a folder in KV_PICTURES, the tour leaves a picture of each there.
const std::map<std::string, Snapshot>& panelTour();

}  // namespace kv::endtoend
