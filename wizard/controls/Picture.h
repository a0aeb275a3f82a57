// The pictures of the window: GIF images, decoded and scaled without help from the system, whose
// own decoders would cost more start-up time than all the rest of the window.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kv {

// Colours are 0xAARRGGBB, alpha not multiplied in; rows stand from the top; sizes are in pixels.

// A picture as its file holds it: each pixel is the number of its colour.
struct IndexedPicture {
    int width = 0;
    int height = 0;
    std::array<std::uint32_t, 256> colours{};
    std::vector<std::uint8_t> pixels;
};

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

// The first image of a GIF file, frame offsets ignored. Nothing when the bytes do not hold a whole
// one; what follows it is not read.
std::optional<IndexedPicture> decodeGif(std::span<const std::byte> bytes);

// The picture at another size; each new pixel is the average of the area it covers.
Picture scaled(const IndexedPicture& picture, int width, int height);

}  // namespace kv
