// Reads GIF images without help from the system, whose own decoders would cost more start-up time
// than all the rest of the window.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "wizard/controls/Picture.h"

namespace kv {

// The first image of a GIF file, frame offsets ignored. Nothing when the bytes do not hold a whole
// one; what follows it is not read.
std::optional<IndexedPicture> decodeGif(std::span<const std::byte> bytes);

}  // namespace kv
