// What the wizard knows besides the user's choices, which stay in the window's controls. One
// instance, shared by the window's behaviour and the operations, for the program's life.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "common/Text.h"
#include "config/ConfigurationFormat.h"
#include "config/InstallationRecord.h"
#include "config/PropertyNames.h"

namespace kv {

// The operation that the user has chosen.
enum ActionKind : std::int16_t {
    kActionNew = 0,
    kActionModify = 1,
    kActionDelete = 2,
    kActionBackup = 3,
    kActionUpgrade = 4,
};

// Which buttons the action panel offers.
enum ActionPanelKind : std::int16_t {
    kActionPanelNone = 0,
    kActionPanelNewOrUpgrade = 1,
    kActionPanelModifyBackupOrDelete = 2,
};

inline constexpr std::int16_t kEmptyPanel = -1;

struct WizardState {
    // The panels visited; the current one is PanelHistory[PanelHistoryIndex].
    std::array<std::int16_t, 16> PanelHistory{};
    std::int16_t PanelHistoryIndex = 0;

    std::int16_t ActionKind = kActionNew;
    std::int16_t ActionPanelKind = kActionPanelNone;

    // What was read from the installation information file. The list is one element longer than
    // the count once it holds any.
    std::int16_t InstallEntryCount = 0;
    std::vector<InstallEntry> InstallEntries;

    LeadBytes leadBytes;        // of the paths' code page
    std::string AppPath;        // the program's own folder
    std::string ProductFolder;  // the parent of that folder

    // The lists that the installation information file is read into and written from. There is
    // room for the largest set of properties.
    CfgHeader CfgHeaderValues;
    std::array<std::string, kMaxProperties> CfgPropertyValues;
};

}  // namespace kv
