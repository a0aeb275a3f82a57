// The fifteen panels, by number, with their names and the states of the four buttons below them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

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
inline constexpr std::size_t kPanelCount = 15;

struct ButtonState {
    bool enabled;
    bool isDefault;
    bool visible;
};

struct PanelRow {
    std::string_view name;
    ButtonState next, back, cancel, finish;
};

namespace panel_table {

inline constexpr ButtonState kUsual{true, false, true};
inline constexpr ButtonState kUsualDefault{true, true, true};
inline constexpr ButtonState kShownDead{false, false, true};
inline constexpr ButtonState kGone{false, false, false};

constexpr PanelRow first(std::string_view name) {
    return {name, kUsualDefault, kShownDead, kUsual, kGone};
}
constexpr PanelRow input(std::string_view name) {
    return {name, kUsualDefault, kUsual, kUsual, kGone};
}
constexpr PanelRow action(std::string_view name) {
    return {name, kShownDead, kUsual, kUsual, kGone};
}
constexpr PanelRow last(std::string_view name) {
    return {name, kGone, kShownDead, kShownDead, kUsualDefault};
}

}  // namespace panel_table

inline constexpr std::array<PanelRow, kPanelCount> kPanels{
    panel_table::first("0 - Panel Welcome"),
    panel_table::input("1 - Panel ServerExist"),
    panel_table::input("2 - Panel ServerInstall"),
    panel_table::input("3 - Panel ServerInstallApache"),
    panel_table::input("4 - Panel InstallIIS"),
    panel_table::input("5 - Panel InstallOtherServer"),
    panel_table::input("6 - Panel AccessKorvane"),
    panel_table::input("7 - Panel ApacheFolders"),
    panel_table::input("8 - Panel IISFolders"),
    panel_table::input("9 - Panel OthersFolders"),
    panel_table::input("10 - Panel WritingConfirm"),
    panel_table::last("11 - Panel Finish"),
    panel_table::last("12 - Panel Error"),
    panel_table::action("13 - Panel Action"),
    panel_table::input("14 - IP address and Port"),
};

}  // namespace kv
