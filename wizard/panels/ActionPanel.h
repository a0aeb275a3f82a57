// The action panel, on which the user picks an operation, and the texts that depend on the pick.
#pragma once

namespace kv {

class ExistingInstallation;
class frmWebConfig;
struct InstallEntry;
struct WizardState;

class ActionPanel {
public:
    ActionPanel(frmWebConfig& form, WizardState& state, ExistingInstallation& installation);
    ActionPanel(const ActionPanel&) = delete;
    ActionPanel& operator=(const ActionPanel&) = delete;

    // Puts the five buttons and labels in their places, out of sight.
    void layOut();

    // Shows the buttons and texts of the variant that ActionPanelKind names; another value
    // changes nothing.
    void setUp();

    // Set the text of the confirmation panel and of the error panel from ActionKind.
    void setConfirmationText();
    void setErrorText();

    // Fills the panels' options and fields from the first installation entry. Throws
    // SubscriptOutOfRange when there is none, InvalidProcedureCall for a folder without a "\".
    void fillPanels();

    // Reads the configuration that a backup has put aside; what it holds replaces the entries.
    // False when it cannot be read.
    bool readEarlierConfiguration();

private:
    frmWebConfig& form_;
    WizardState& state_;
    ExistingInstallation& installation_;
};

}  // namespace kv
