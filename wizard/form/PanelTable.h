// The panels: each is a row with its name, its title, the states of the four buttons below it, and
// what Next does from there.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <variant>

#include "wizard/form/Texts.h"

namespace kv {

enum Panel : std::int16_t {
    kPanelWelcome = 0,
    kPanelServerExist = 1,
    kPanelServerInstall = 2,
    kPanelServerInstallApache = 3,
    kPanelInstallIIS = 4,
    kPanelInstallOtherServer = 5,
    kPanelAccessKorvane = 6,
    kPanelApacheFolders = 7,
    kPanelIISFolders = 8,
    kPanelOthersFolders = 9,
    kPanelWritingConfirm = 10,
    kPanelFinish = 11,
    kPanelError = 12,
    kPanelAction = 13,
    kPanelWebsite = 14,
};

struct ButtonState {
    bool enabled;
    bool isDefault;
    bool visible;
};

struct PanelButtons {
    ButtonState next, back, cancel, finish;
};

// What the user has typed, which must pass before Next leads on.
enum class Check { None, Folders, Website };

// What leads on to one panel or another.
enum class Decision {
    Action,           // what there is to act on: the action panel or a new installation
    ServerInstalled,  // whether a server is installed or is to be
    ServerToInstall,  // the panel that tells how to install the chosen kind
    ServerFolders,    // the folders' panel of the chosen kind
};

struct PanelRow {
    std::string_view name;
    std::string_view title;  // a screen reader names the panel by it
    PanelButtons buttons;
    std::string_view choiceMissing = {};  // said while no option is on; empty: none needs to be
    Check check = Check::None;
    std::variant<Panel, Decision> next;
};

namespace panel_table {

inline constexpr ButtonState kUsual{true, false, true};
inline constexpr ButtonState kUsualDefault{true, true, true};
inline constexpr ButtonState kShownDead{false, false, true};
inline constexpr ButtonState kGone{false, false, false};

inline constexpr PanelButtons kFirst{kUsualDefault, kShownDead, kUsual, kGone};
inline constexpr PanelButtons kInput{kUsualDefault, kUsual, kUsual, kGone};
inline constexpr PanelButtons kPick{kShownDead, kUsual, kUsual, kGone};
inline constexpr PanelButtons kLast{kGone, kShownDead, kShownDead, kUsualDefault};

}  // namespace panel_table

// By number. Where Next is out of reach, it would lead to the Welcome panel.
inline constexpr auto kPanels = std::to_array<PanelRow>({
    {.name = "0 - Panel Welcome",
     .title = "Welcome to the Korvane Configuration Wizard",
     .buttons = panel_table::kFirst,
     .next = Decision::Action},
    {.name = "1 - Panel ServerExist",
     .title = "The web server installation information",
     .buttons = panel_table::kInput,
     .choiceMissing = "Please select one of four choices.",
     .next = Decision::ServerInstalled},
    {.name = "2 - Panel ServerInstall",
     .title = "The web server installing options",
     .buttons = panel_table::kInput,
     .choiceMissing = "Please select one of four options.",
     .next = Decision::ServerToInstall},
    {.name = "3 - Panel ServerInstallApache",
     .title = "Installing Apache web server",
     .buttons = panel_table::kInput,
     .next = kPanelAccessKorvane},
    {.name = "4 - Panel InstallIIS",
     .title = "Installing MS IIS (Internet Information Server)",
     .buttons = panel_table::kInput,
     .next = kPanelAccessKorvane},
    {.name = "5 - Panel InstallOtherServer",
     .title = "Installing other web server",
     .buttons = panel_table::kInput,
     .next = kPanelAccessKorvane},
    {.name = "6 - Panel AccessKorvane",
     .title = "The way to access Korvane through the Web",
     .buttons = panel_table::kInput,
     .choiceMissing = "Please select one of two options.",
     .next = Decision::ServerFolders},
    {.name = "7 - Panel ApacheFolders",
     .title = "The folders for document root and scripts",
     .buttons = panel_table::kInput,
     .check = Check::Folders,
     .next = kPanelWebsite},
    {.name = "8 - Panel IISFolders",
     .title = "The folders for Home and Scripts",
     .buttons = panel_table::kInput,
     .check = Check::Folders,
     .next = kPanelWebsite},
    {.name = "9 - Panel OthersFolders",
     .title = "The folders for Home and Scripts",
     .buttons = panel_table::kInput,
     .check = Check::Folders,
     .next = kPanelWebsite},
    {.name = "10 - Panel WritingConfirm",
     .title = "Writing data to disk",
     .buttons = panel_table::kInput,
     .next = kPanelFinish},
    {.name = "11 - Panel Finish",
     .title = texts::kCompleted,
     .buttons = panel_table::kLast,
     .next = kPanelWelcome},
    {.name = "12 - Panel Error",
     .title = "Error",
     .buttons = panel_table::kLast,
     .next = kPanelWelcome},
    {.name = "13 - Panel Action",
     .title = "Modification, Bachup, or Deletion",
     .buttons = panel_table::kPick,
     .next = kPanelWelcome},
    {.name = "14 - IP address and Port",
     .title = "IP Address and Port settings",
     .buttons = panel_table::kInput,
     .check = Check::Website,
     .next = kPanelWritingConfirm},
});
inline constexpr std::size_t kPanelCount = kPanels.size();

}  // namespace kv
