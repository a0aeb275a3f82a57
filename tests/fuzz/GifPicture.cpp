// A picture file: the bytes are the file.
#include <algorithm>
#include <array>
#include <span>

#include "tests/fuzz/Fuzzing.h"
#include "wizard/controls/Gif.h"

namespace kv {
namespace {

bool coloured(std::uint32_t pixel) { return pixel >> 24 == 0 || pixel >> 24 == 255; }

std::size_t pixelsOf(const auto& picture) {
    return static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
}

bool looksLike(std::uint32_t one, std::uint32_t other) {
    return one == other || (one >> 24 == 0 && other >> 24 == 0);
}

constexpr std::size_t kScaledPixels = 128 * 128;  // scaling more only takes time

// New sizes, in and out of proportion.
constexpr std::array<std::array<int, 2>, 4> kSizes{{{1, 1}, {3, 7}, {16, 16}, {40, 5}}};

}  // namespace

void tryInput(std::string_view input) {
    const auto picture = decodeGif(std::as_bytes(std::span(input)));
    if (!picture) return;

    claim(picture->width >= 1 && picture->height >= 1, "a picture has an area");
    claim(picture->width <= 4096 && picture->height <= 4096, "no file takes all memory");
    claim(picture->pixels.size() == pixelsOf(*picture), "every pixel is there");
    const auto colourOf = [&](std::uint8_t index) { return picture->colours[index]; };
    claim(std::ranges::all_of(picture->pixels, coloured, colourOf),
          "a pixel is opaque or transparent");
    if (pixelsOf(*picture) > kScaledPixels) return;
    for (const auto& [width, height] : kSizes) {
        const Picture other = scaled(*picture, width, height);
        claim(other.width == width && other.height == height &&
                  other.pixels.size() == pixelsOf(other),
              "a scaled picture has its size");
    }
    const Picture same = scaled(*picture, picture->width, picture->height);
    claim(std::ranges::equal(same.pixels, picture->pixels, looksLike, {}, colourOf),
          "a picture scaled to its own size looks the same");
}

}  // namespace kv
