// The kinds of web server, with the options that choose them and the boxes that hold their folders.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace kv {

class OptionButton;
class TextBox;
class Label;
class frmWebConfig;
enum Panel : std::int16_t;

// A folder field of a kind: its box, the label above it, and what fills them.
struct FolderField {
    TextBox frmWebConfig::*box;
    Label frmWebConfig::*label;
    std::string_view defaultPath;  // empty for none
    std::string_view textWhenFilled;
    std::string_view textWhenEmpty;
};

struct ServerKind {
    std::string_view code;                                 // in the installation information file
    std::array<OptionButton frmWebConfig::*, 3> chosenBy;  // null: no further option
    OptionButton frmWebConfig::*restoredAs;                // turned on when a file names the code
    FolderField home;
    FolderField scripts;
    Panel panel;
    bool makesScriptsFolder;  // the wizard makes the scripts folder itself
};

// In the order of precedence: an earlier kind wins when options of several are on.
std::span<const ServerKind> serverKinds() noexcept;

// The first kind with an option on; null when none has.
const ServerKind* chosenServerKind(const frmWebConfig& form) noexcept;

}  // namespace kv
