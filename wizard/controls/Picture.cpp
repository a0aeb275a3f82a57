#include "wizard/controls/Picture.h"

#include <algorithm>

namespace kv {
namespace {

// How much a new pixel covers of each old one, from the first that it touches.
struct Coverage {
    int first;
    std::vector<double> shares;
};

Coverage coverage(int pixel, int oldSize, int newSize) {
    const double ratio = static_cast<double>(oldSize) / newSize;
    const double start = pixel * ratio;
    const double end = std::min((pixel + 1) * ratio, static_cast<double>(oldSize));
    Coverage covered{static_cast<int>(start), {}};
    for (int old = covered.first; old < end && old < oldSize; ++old)
        covered.shares.push_back(std::min(end, old + 1.0) -
                                 std::max(start, static_cast<double>(old)));
    return covered;
}

// A colour's channels, 0 to 255.
struct Channels {
    double alpha;
    double red;
    double green;
    double blue;
};

using ChannelTable = std::array<Channels, 256>;

ChannelTable channelsOf(const Palette& colours) {
    ChannelTable table;
    std::ranges::transform(colours, table.begin(), [](std::uint32_t colour) {
        return Channels{static_cast<double>(colour >> 24), static_cast<double>(colour >> 16 & 0xFF),
                        static_cast<double>(colour >> 8 & 0xFF),
                        static_cast<double>(colour & 0xFF)};
    });
    return table;
}

std::uint32_t averageOf(const IndexedPicture& picture, const ChannelTable& channels,
                        const Coverage& across, const Coverage& down) {
    double weight = 0, alpha = 0, red = 0, green = 0, blue = 0;
    std::size_t row =
        static_cast<std::size_t>(down.first) * static_cast<std::size_t>(picture.width) +
        static_cast<std::size_t>(across.first);
    for (const double height : down.shares) {
        std::size_t pixel = row;
        for (const double width : across.shares) {
            const double share = width * height;
            const Channels& colour = channels[picture.pixels[pixel++]];
            const double opaque = share * colour.alpha;
            weight += share;
            alpha += opaque;
            red += opaque * colour.red;
            green += opaque * colour.green;
            blue += opaque * colour.blue;
        }
        row += static_cast<std::size_t>(picture.width);
    }
    if (alpha == 0) return 0;
    // No value is negative. NOLINTNEXTLINE(bugprone-incorrect-roundings)
    const auto channel = [](double value) { return static_cast<std::uint32_t>(value + 0.5); };
    return channel(alpha / weight) << 24 | channel(red / alpha) << 16 |
           channel(green / alpha) << 8 | channel(blue / alpha);
}

}  // namespace

Picture scaled(const IndexedPicture& picture, int width, int height) {
    const ChannelTable channels = channelsOf(picture.colours);
    std::vector<Coverage> across;
    across.reserve(static_cast<std::size_t>(width));
    for (int x = 0; x < width; ++x) across.push_back(coverage(x, picture.width, width));
    Picture result{width, height, {}};
    result.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        const Coverage down = coverage(y, picture.height, height);
        for (const Coverage& column : across)
            result.pixels.push_back(averageOf(picture, channels, column, down));
    }
    return result;
}

}  // namespace kv
