// Widths of the progress line in pixels, at 96 dots per inch.
#pragma once

#include "tests/model/Operations.h"

namespace kv::endtoend {

inline constexpr int kTwipsOfAPixel = 15;
inline constexpr int kProgressDone = kProgressEnd / kTwipsOfAPixel;

// When the copy of the record in the scripts folder could not be written.
constexpr int progressWithoutCopy(Operation operation) {
    return (progressBeforeRecord(operation) + kRecordStep) / kTwipsOfAPixel;
}

}  // namespace kv::endtoend
