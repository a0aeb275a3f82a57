// The pictures of the window: GIF images, decoded and scaled without help from the system, whose
// own decoders would cost more start-up time than all the rest of the window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kv {

struct Picture {
    int width = 0;                      // pixels
    int height = 0;                     // pixels
    std::vector<std::uint32_t> pixels;  // rows from the top, 0xAARRGGBB, alpha not multiplied in
};

// The first image of a GIF file, frame offsets ignored. Nothing when the bytes do not hold a whole
// one; what follows it is not read.
std::optional<Picture> decodeGif(std::span<const std::byte> bytes);

// The picture at another size, in pixels; each new pixel is the average of the area it covers.
Picture scaled(const Picture& picture, int width, int height);

}  // namespace kv
