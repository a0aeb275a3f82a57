// The window's fonts and pictures as Windows' objects, made for one resolution.
#pragma once

#include <memory>
#include <type_traits>

#include <windows.h>

#include "wizard/controls/Control.h"

namespace kv {

struct GdiObjectCloser {
    using pointer = HGDIOBJ;
    void operator()(pointer object) const noexcept { DeleteObject(object); }
};
using GdiObject = std::unique_ptr<void, GdiObjectCloser>;

struct IconCloser {
    using pointer = HICON;
    void operator()(pointer icon) const noexcept { DestroyIcon(icon); }
};
using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, IconCloser>;

// One of the window's typefaces; the resolution is in dots per inch.
GdiObject makeFont(Font font, int dpi);

// A picture of the program's resources (a GIF image as raw data under the name), at a size in
// pixels. Empty when the program holds no such picture.
GdiObject makeBitmap(std::string_view name, int width, int height);
Icon makeIcon(std::string_view name, int width, int height);

// A colour of the system's scheme. The brush belongs to the system.
int systemColour(Colour colour);

}  // namespace kv
