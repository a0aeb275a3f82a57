// The kinds of web server: each is a row with all that depends on it, and no other place names one.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace kv {

class CommandButton;
class Label;
class OptionButton;
class TextBox;
class frmWebConfig;
enum Panel : std::int16_t;

// A folder field of a kind: its box, the label above it, and what fills them.
struct FolderField {
    TextBox frmWebConfig::*box;
    Label frmWebConfig::*label;
    CommandButton frmWebConfig::*browse;
    std::string_view browseName;        // for a screen reader: the button shows an ellipsis
    std::string_view defaultPath = {};  // empty for none
    std::string_view textWhenFilled = {};
    std::string_view textWhenEmpty = {};
};

// A help button and its page of the product's web site.
struct HelpButton {
    CommandButton frmWebConfig::*button = nullptr;  // null for none
    std::string_view page = {};
};

struct ServerKind {
    std::string_view code;                                   // in the installation information file
    OptionButton frmWebConfig::*installed;                   // also turned on for the code
    std::array<OptionButton frmWebConfig::*, 2> installing;  // null: no further option
    Panel installPanel;
    Panel folderPanel;
    FolderField home;
    FolderField scripts;
    HelpButton help = {};
    bool makesScriptsFolder = false;  // by the wizard itself: only its parent must exist
};

// In the order of precedence: an earlier kind wins when options of several are on.
std::span<const ServerKind> serverKinds() noexcept;

// The first kind with an option on; null when none has.
const ServerKind* chosenServerKind(const frmWebConfig& form) noexcept;

// The first kind with an option on among those to install; null when none has.
const ServerKind* serverKindToInstall(const frmWebConfig& form) noexcept;

}  // namespace kv
