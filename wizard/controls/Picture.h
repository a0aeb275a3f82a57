// The pictures of the window, and their scaling to its resolution.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace kv {

// Colours are 0xAARRGGBB, alpha not multiplied in; rows stand from the top; sizes are in pixels.

using Palette = std::array<std::uint32_t, 256>;

// A picture as its file holds it: each pixel is the number of its colour.
struct IndexedPicture {
    int width = 0;
    int height = 0;
    Palette colours{};
    std::vector<std::uint8_t> pixels;
};

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

// The picture at another size; each new pixel is the average of the area it covers.
Picture scaled(const IndexedPicture& picture, int width, int height);

}  // namespace kv
