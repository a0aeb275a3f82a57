// What is to be seen on the screen: the icon of a message box, and a window's picture as a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <windows.h>

#include "tests/endtoend/driver/WizardDriver.h"

namespace kv::endtoend {

// Rows from the top; a pixel is 0xRRGGBB.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    std::uint32_t at(int x, int y) const {
        return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(x));
    }
};

// The standard icon that is drawn at the control's place, or none as long as it looks like none.
// A handle of another process's icon says nothing here, so the pixels are compared.
BoxIcon iconOnScreen(HWND control);

// The window with its frame, as it is on the screen once it is painted.
Picture takePicture(HWND window);

// Writes the window with its frame to a PNG file, as it is on the screen once it is painted.
void saveWindowPicture(HWND window, const std::string& path);

// Writes the whole screen as it is now to a PNG file.
void saveScreenPicture(const std::string& path);

}  // namespace kv::endtoend
