#include "wizard/controls/Picture.h"

#include <algorithm>
#include <array>

namespace kv {
namespace {

using Palette = std::array<std::uint32_t, 256>;

constexpr std::uint32_t kOpaque = 0xFF000000;
constexpr int kMaxSide = 4096;  // pixels; far above any picture of a window

// Reads the file from its front. Past the end it reads zeros and remembers that it did.
class Reader {
public:
    explicit Reader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    bool ranOut() const { return ranOut_; }

    unsigned byte() {
        if (bytes_.empty()) {
            ranOut_ = true;
            return 0;
        }
        const auto value = std::to_integer<unsigned>(bytes_.front());
        bytes_ = bytes_.subspan(1);
        return value;
    }

    int word() {
        const unsigned low = byte();
        return static_cast<int>(low | byte() << 8);
    }

    void skip(std::size_t count) {
        if (count > bytes_.size()) ranOut_ = true;
        bytes_ = bytes_.subspan(std::min(count, bytes_.size()));
    }

    // Data sub-blocks: each a length and as many bytes, ended by a length of 0.
    std::vector<std::uint8_t> subBlocks() {
        std::vector<std::uint8_t> data;
        for (unsigned length = byte(); length != 0 && !ranOut_; length = byte())
            for (unsigned i = 0; i < length; ++i) data.push_back(static_cast<std::uint8_t>(byte()));
        return data;
    }

    void palette(Palette& colours, unsigned flags) {
        for (unsigned i = 0; i < 2u << (flags & 7); ++i) {
            const unsigned red = byte();
            const unsigned green = byte();
            colours[i] = kOpaque | red << 16 | green << 8 | byte();
        }
    }

private:
    std::span<const std::byte> bytes_;
    bool ranOut_ = false;
};

constexpr int kMaxCodes = 4096;

// Takes codes of changing width off the data, lowest bits first.
class CodeReader {
public:
    explicit CodeReader(std::span<const std::uint8_t> data) : data_(data) {}

    // Nothing at the end of the data.
    std::optional<int> next(int width) {
        while (bitCount_ < width) {
            if (position_ == data_.size()) return std::nullopt;
            bits_ |= static_cast<std::uint32_t>(data_[position_++]) << bitCount_;
            bitCount_ += 8;
        }
        const int code = static_cast<int>(bits_ & ((1u << width) - 1));
        bits_ >>= width;
        bitCount_ -= width;
        return code;
    }

private:
    std::span<const std::uint8_t> data_;
    std::size_t position_ = 0;
    std::uint32_t bits_ = 0;
    int bitCount_ = 0;
};

// The colour indexes that the compressed data stands for, at most `count` of them.
std::vector<std::uint8_t> decompress(std::span<const std::uint8_t> data, int minCodeSize,
                                     std::size_t count) {
    const int clear = 1 << minCodeSize;
    const int end = clear + 1;
    std::array<std::int16_t, kMaxCodes> prefix{};  // the code before the last index of a code
    std::array<std::uint8_t, kMaxCodes> last{};    // that index
    int codeSize = minCodeSize + 1;
    int codes = end + 1;
    int previous = -1;

    const auto firstOf = [&](int code) {
        while (code > end) code = prefix[static_cast<std::size_t>(code)];
        return static_cast<std::uint8_t>(code);
    };
    std::vector<std::uint8_t> indexes;
    indexes.reserve(count);
    const auto append = [&](int code) {
        const std::size_t start = indexes.size();
        for (; code > end; code = prefix[static_cast<std::size_t>(code)])
            indexes.push_back(last[static_cast<std::size_t>(code)]);
        indexes.push_back(static_cast<std::uint8_t>(code));
        std::reverse(indexes.begin() + static_cast<std::ptrdiff_t>(start), indexes.end());
    };

    CodeReader reader(data);
    while (indexes.size() < count) {
        const auto code = reader.next(codeSize);
        if (!code || *code == end) break;
        if (*code == clear) {
            codeSize = minCodeSize + 1;
            codes = end + 1;
            previous = -1;
            continue;
        }
        if (*code > codes || (*code == codes && previous < 0)) break;
        if (previous >= 0 && codes < kMaxCodes) {
            // A code not yet known is the previous one followed by its own first index.
            prefix[static_cast<std::size_t>(codes)] = static_cast<std::int16_t>(previous);
            last[static_cast<std::size_t>(codes)] = firstOf(*code == codes ? previous : *code);
            ++codes;
            if (codes == 1 << codeSize && codeSize < 12) ++codeSize;
        }
        append(*code);
        previous = *code;
    }
    indexes.resize(std::min(indexes.size(), count));
    return indexes;
}

// The row on which the n-th row of an interlaced image stands.
int interlacedRow(int n, int height) {
    constexpr std::array<std::array<int, 2>, 4> kPasses{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
    for (const auto& [first, step] : kPasses) {
        const int rows = (height - first + step - 1) / step;
        if (n < rows) return first + n * step;
        n -= std::max(rows, 0);
    }
    return height - 1;
}

std::optional<Picture> decodeImage(Reader& reader, Palette colours, int transparent) {
    reader.skip(4);  // the frame's offset
    Picture picture{reader.word(), reader.word(), {}};
    const unsigned flags = reader.byte();
    if ((flags & 0x80) != 0) reader.palette(colours, flags);
    const unsigned minCodeSize = reader.byte();
    const auto data = reader.subBlocks();
    if (reader.ranOut() || minCodeSize < 2 || minCodeSize > 8) return std::nullopt;
    if (picture.width < 1 || picture.height < 1) return std::nullopt;
    if (picture.width > kMaxSide || picture.height > kMaxSide) return std::nullopt;

    const auto width = static_cast<std::size_t>(picture.width);
    const std::size_t count = width * static_cast<std::size_t>(picture.height);
    const auto indexes = decompress(data, static_cast<int>(minCodeSize), count);
    if (indexes.size() < count) return std::nullopt;

    if (transparent >= 0) colours[static_cast<std::size_t>(transparent)] &= ~kOpaque;
    picture.pixels.resize(count);
    const bool interlaced = (flags & 0x40) != 0;
    for (int n = 0; n < picture.height; ++n) {
        const int row = interlaced ? interlacedRow(n, picture.height) : n;
        for (std::size_t x = 0; x < width; ++x)
            picture.pixels[static_cast<std::size_t>(row) * width + x] =
                colours[indexes[static_cast<std::size_t>(n) * width + x]];
    }
    return picture;
}

// How much of each source pixel, in the range from..to (exclusive), a new pixel covers.
struct Coverage {
    int from;
    int to;
    double start;
    double end;

    double of(int pixel) const {
        return std::min(end, pixel + 1.0) - std::max(start, static_cast<double>(pixel));
    }
};

Coverage coverage(int pixel, int oldSize, int newSize) {
    const double ratio = static_cast<double>(oldSize) / newSize;
    const double start = pixel * ratio;
    const double end = std::min((pixel + 1) * ratio, static_cast<double>(oldSize));
    const int to = static_cast<int>(end);
    return {static_cast<int>(start), std::min(end > to ? to + 1 : to, oldSize), start, end};
}

std::uint32_t averageOf(const Picture& picture, const Coverage& across, const Coverage& down) {
    double weight = 0, alpha = 0, red = 0, green = 0, blue = 0;
    for (int y = down.from; y < down.to; ++y) {
        const std::uint32_t* row =
            picture.pixels.data() + static_cast<std::ptrdiff_t>(y) * picture.width;
        for (int x = across.from; x < across.to; ++x) {
            const double share = across.of(x) * down.of(y);
            const std::uint32_t colour = row[x];
            const double opaque = share * (colour >> 24);
            weight += share;
            alpha += opaque;
            red += opaque * (colour >> 16 & 0xFF);
            green += opaque * (colour >> 8 & 0xFF);
            blue += opaque * (colour & 0xFF);
        }
    }
    if (alpha == 0) return 0;
    // No value is negative. NOLINTNEXTLINE(bugprone-incorrect-roundings)
    const auto channel = [](double value) { return static_cast<std::uint32_t>(value + 0.5); };
    return channel(alpha / weight) << 24 | channel(red / alpha) << 16 |
           channel(green / alpha) << 8 | channel(blue / alpha);
}

}  // namespace

std::optional<Picture> decodeGif(std::span<const std::byte> bytes) {
    Reader reader(bytes);
    if (reader.byte() != 'G' || reader.byte() != 'I' || reader.byte() != 'F') return std::nullopt;
    reader.skip(3 + 4);  // the version, the screen's size
    const unsigned flags = reader.byte();
    reader.skip(2);  // background and aspect ratio
    Palette colours{};
    if ((flags & 0x80) != 0) reader.palette(colours, flags);

    int transparent = -1;
    while (!reader.ranOut()) {
        switch (reader.byte()) {
            case 0x21: {  // an extension; that of kind 0xF9 tells the transparent colour
                const bool control = reader.byte() == 0xF9;
                const auto data = reader.subBlocks();
                if (control && data.size() == 4 && (data[0] & 1) != 0) transparent = data[3];
                break;
            }
            case 0x2C: return decodeImage(reader, colours, transparent);
            default: return std::nullopt;
        }
    }
    return std::nullopt;
}

Picture scaled(const Picture& picture, int width, int height) {
    Picture result{width, height, {}};
    result.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        const Coverage down = coverage(y, picture.height, height);
        for (int x = 0; x < width; ++x)
            result.pixels.push_back(averageOf(picture, coverage(x, picture.width, width), down));
    }
    return result;
}

}  // namespace kv
