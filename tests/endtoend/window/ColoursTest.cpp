// What is to be read under other system colours than the usual ones: those of a contrast theme, and
// a set in which every text colour fits its own ground only.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <map>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/endtoend/driver/Desktop.h"
#include "tests/endtoend/driver/Pictures.h"
#include "tests/endtoend/steps/PanelTour.h"

namespace kv::endtoend {

namespace {

using Colours = std::map<int, COLORREF>;

// What the accessibility guidelines ask for: of texts, and of graphics.
constexpr double kReadable = 4.5;
constexpr double kRecognisable = 3.0;

struct Scheme {
    std::string_view name;
    Colours colours;
    std::uint32_t face;
    std::uint32_t window;
    std::uint32_t highlight;
};

void PrintTo(const Scheme& scheme, std::ostream* out) { *out << scheme.name; }

const Scheme kSchemes[] = {
    {"ContrastBlack",
     {{COLOR_BTNFACE, RGB(0, 0, 0)},
      {COLOR_BTNTEXT, RGB(255, 255, 255)},
      {COLOR_BTNSHADOW, RGB(128, 128, 128)},
      {COLOR_BTNHIGHLIGHT, RGB(192, 192, 192)},
      {COLOR_3DLIGHT, RGB(255, 255, 255)},
      {COLOR_3DDKSHADOW, RGB(255, 255, 255)},
      {COLOR_GRAYTEXT, RGB(0, 255, 0)},
      {COLOR_WINDOW, RGB(0, 0, 0)},
      {COLOR_WINDOWTEXT, RGB(255, 255, 255)},
      {COLOR_WINDOWFRAME, RGB(255, 255, 255)},
      {COLOR_HIGHLIGHT, RGB(128, 0, 128)},
      {COLOR_HIGHLIGHTTEXT, RGB(255, 255, 255)}},
     0x000000,
     0x000000,
     0x800080},
    // Yellow on blue, black on white, white on maroon: no text fits another's ground.
    {"EachPairItsOwn",
     {{COLOR_BTNFACE, RGB(0, 0, 96)},
      {COLOR_BTNTEXT, RGB(255, 255, 0)},
      {COLOR_BTNSHADOW, RGB(128, 128, 160)},
      {COLOR_BTNHIGHLIGHT, RGB(192, 192, 224)},
      {COLOR_3DLIGHT, RGB(160, 160, 192)},
      {COLOR_3DDKSHADOW, RGB(255, 255, 255)},
      {COLOR_GRAYTEXT, RGB(192, 192, 255)},
      {COLOR_WINDOW, RGB(255, 255, 255)},
      {COLOR_WINDOWTEXT, RGB(0, 0, 0)},
      {COLOR_WINDOWFRAME, RGB(255, 255, 255)},
      {COLOR_HIGHLIGHT, RGB(128, 0, 0)},
      {COLOR_HIGHLIGHTTEXT, RGB(255, 255, 255)}},
     0x000060,
     0xFFFFFF,
     0x800000},
};

double channel(std::uint32_t colour, int shift) {
    const double value = static_cast<double>((colour >> shift) & 0xFFU) / 255;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(std::uint32_t colour) {
    return 0.2126 * channel(colour, 16) + 0.7152 * channel(colour, 8) + 0.0722 * channel(colour, 0);
}

double contrast(std::uint32_t one, std::uint32_t other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

// What a part of a picture consists of.
struct Ink {
    std::uint32_t ground = 0;  // the most frequent colour
    double contrast = 1;       // of the colour that stands out most
};

Ink inkIn(const Picture& picture, const Rectangle& box) {
    std::map<std::uint32_t, int> counts;
    auto last = counts.end();
    for (int y = box.top; y < box.bottom(); ++y) {
        for (int x = box.left; x < box.right(); ++x) {
            const std::uint32_t colour = picture.at(x, y);
            // Most pixels have the colour of the one before.
            if (last == counts.end() || last->first != colour)
                last = counts.try_emplace(colour, 0).first;
            ++last->second;
        }
    }
    Ink ink;
    ink.ground =
        std::ranges::max_element(counts, {}, [](const auto& item) { return item.second; })->first;
    for (const auto& [colour, count] : counts)
        ink.contrast = std::max(ink.contrast, contrast(ink.ground, colour));
    return ink;
}

// Where the control stands in the window's picture.
Rectangle placeOf(const WizardDriver& wizard, const ControlView& view) {
    RECT window{};
    RECT box{};
    GetWindowRect(wizard.window(), &window);
    GetWindowRect(view.handle, &box);
    return {box.left - window.left, box.top - window.top, box.right - box.left,
            box.bottom - box.top};
}

Rectangle inner(const Rectangle& box, int margin) {
    return {box.left + margin, box.top + margin, box.width - 2 * margin, box.height - 2 * margin};
}

// Beside the mark of an option.
Rectangle captionOf(Rectangle box) {
    constexpr int kMark = 18;
    box.left += kMark;
    box.width -= kMark;
    return box;
}

bool isLine(const ControlView& view) { return view.box.width <= 3 || view.box.height <= 3; }

std::string hex(std::uint32_t colour) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%06X", static_cast<unsigned>(colour));
    return text.data();
}

class Inspection {
public:
    Inspection(const WizardDriver& wizard, const std::string& panel, const Scheme& scheme)
        : wizard_(wizard), panel_(panel), scheme_(scheme) {
        wizard.comeToFront();
        picture_ = takePicture(wizard.window());
        EXPECT_EQ(hex(inkIn(picture_, {0, 0, picture_.width, picture_.height}).ground),
                  hex(scheme.face))
            << "panel " << panel;
        for (const ControlView& view : wizard.visibleControls()) inspect(view);
    }

private:
    void inspect(const ControlView& view) const {
        constexpr int kButtonEdge = 5;
        constexpr int kBoxEdge = 3;
        const Rectangle place = placeOf(wizard_, view);
        switch (view.kind) {
            case ControlKind::Label:
                if (!view.text.empty())
                    expect(view, place, scheme_.face, kReadable);
                else if (!isLine(view) && view.parent != wizard_.window())
                    expectFilled(view, place);
                break;
            case ControlKind::OptionButton:
                expect(view, captionOf(place), scheme_.face, kReadable);
                break;
            case ControlKind::CommandButton:
                expect(view, inner(place, kButtonEdge), scheme_.face,
                       view.text.empty() ? kRecognisable : kReadable);
                break;
            case ControlKind::TextBox:
                expect(view, beginOf(inner(place, kBoxEdge)), groundOf(view),
                       view.text.empty() ? 1 : kReadable);
                break;
            case ControlKind::Other: break;
        }
    }

    // Where any text of some characters stands, however short it is in its box.
    static Rectangle beginOf(const Rectangle& textBox) {
        constexpr int kWidth = 60;
        return {textBox.left, textBox.top, std::min(textBox.width, kWidth), textBox.height};
    }

    // The text that the keyboard stands in is selected.
    std::uint32_t groundOf(const ControlView& textBox) const {
        const bool selected = !textBox.text.empty() && textBox.handle == wizard_.focus();
        return selected ? scheme_.highlight : scheme_.window;
    }

    void expect(const ControlView& view, const Rectangle& box, std::uint32_t ground,
                double least) const {
        const Ink ink = inkIn(picture_, box);
        EXPECT_EQ(hex(ink.ground), hex(ground)) << "panel " << panel_ << ": " << view.text;
        EXPECT_GE(ink.contrast, least) << "panel " << panel_ << ": " << view.text;
    }

    // The progress line, beside the frame that lies over its edges.
    void expectFilled(const ControlView& view, const Rectangle& box) const {
        EXPECT_EQ(hex(picture_.at(box.left + box.width / 2, box.top + box.height / 2)),
                  hex(scheme_.highlight))
            << "panel " << panel_ << ": " << view.className;
    }

    const WizardDriver& wizard_;
    const std::string& panel_;
    const Scheme& scheme_;
    Picture picture_;
};

}  // namespace

class EveryScheme : public testing::TestWithParam<Scheme> {};

TEST_P(EveryScheme, LeavesEveryPanelReadable) {
    const OtherColours colours(GetParam().colours);
    int panels = 0;

    visitPanels([&panels](const WizardDriver& wizard, const std::string& name) {
        const Inspection inspection(wizard, name, GetParam());
        ++panels;
    });

    EXPECT_EQ(panels, 19);
}

INSTANTIATE_TEST_SUITE_P(All, EveryScheme, testing::ValuesIn(kSchemes),
                         [](const testing::TestParamInfo<Scheme>& which) {
                             return std::string(which.param.name);
                         });

}  // namespace kv::endtoend
