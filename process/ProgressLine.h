// The progress line of the finish panel: a label whose width is the amount done.
#pragma once

#include <string>

#include "wizard/form/frmWebConfig.h"

namespace kv {

// The width of a finished line: it reaches just past its frame.
inline constexpr Twips kProgressFullWidth = 5655;

class ProgressLine {
public:
    explicit ProgressLine(frmWebConfig& form) : label_(form.lblProgress) {}

    void widen(Twips amount) { setWidth(label_.box().width + amount); }
    void complete() { setWidth(kProgressFullWidth); }

private:
    void setWidth(Twips width) {
        label_.setWidth(width);
        label_.setAccessibleValue(std::to_string(width * 100 / kProgressFullWidth) + "%");
    }

    Label& label_;
};

}  // namespace kv
