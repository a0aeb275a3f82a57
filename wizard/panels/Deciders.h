// The decisions that the panels' options take: which panel comes next.
#pragma once

#include <cstdint>

namespace kv {

class ActionPanel;
class FileSystem;
class MessageBoxes;
class ShellServices;
class frmWebConfig;
struct FolderField;
struct WizardState;

// Stay on the panel; the user has been told why.
inline constexpr std::int16_t kStay = -1;

class Deciders {
public:
    Deciders(frmWebConfig& form, WizardState& state, ActionPanel& actionPanel,
             ShellServices& shellServices, FileSystem& fileSystem, MessageBoxes& messageBoxes);
    Deciders(const Deciders&) = delete;
    Deciders& operator=(const Deciders&) = delete;

    // Each returns the number of the next panel, or kStay.
    std::int16_t decideWelcome();
    std::int16_t decideServerInstalled();
    std::int16_t decideServerToInstall();
    std::int16_t decideUrlStyle();

private:
    std::int16_t stayWith(const char* message);
    void prepare(const FolderField& field);

    frmWebConfig& form_;
    WizardState& state_;
    ActionPanel& actionPanel_;
    ShellServices& shellServices_;
    FileSystem& fileSystem_;
    MessageBoxes& messageBoxes_;
};

}  // namespace kv
