// The buttons that reach into the shell: help pages, the download page and the folder browser.
#pragma once

namespace kv {

class ShellServices;
class frmWebConfig;

// Connects the buttons, and the user's wish for help with the visible panel's help button. The
// services must stay as long as the form.
void connectShellButtons(frmWebConfig& form, ShellServices& services);

}  // namespace kv
