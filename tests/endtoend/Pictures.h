// What is to be seen on the screen: the icon of a message box, and a window's picture as a file.
#pragma once

#include <string>

#include <windows.h>

#include "WizardDriver.h"

namespace kv::endtoend {

// The standard icon that is drawn at the control's place, or none as long as it looks like none.
// A handle of another process's icon says nothing here, so the pixels are compared.
BoxIcon iconOnScreen(HWND control);

// Writes the window with its frame to a PNG file, as it is on the screen once it is painted.
void saveWindowPicture(HWND window, const std::string& path);

}  // namespace kv::endtoend
