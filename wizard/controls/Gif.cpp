#include "wizard/controls/Gif.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kv {
namespace {

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
    std::vector<std::byte> subBlocks() {
        std::vector<std::byte> data;
        for (std::size_t length = byte(); length != 0 && !ranOut_; length = byte()) {
            const auto block = bytes_.first(std::min(length, bytes_.size()));
            data.insert(data.end(), block.begin(), block.end());
            skip(length);
        }
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

constexpr std::size_t kMaxCodes = 4096;
constexpr std::size_t kNoCode = kMaxCodes;

// Takes codes of changing width off the data, lowest bits first.
class CodeReader {
public:
    explicit CodeReader(std::span<const std::byte> data) : data_(data) {}

    // Nothing at the end of the data.
    std::optional<std::size_t> next(int width) {
        while (bitCount_ < width) {
            if (position_ == data_.size()) return std::nullopt;
            bits_ |= std::to_integer<std::uint32_t>(data_[position_++]) << bitCount_;
            bitCount_ += 8;
        }
        const std::size_t code = bits_ & ((1u << width) - 1);
        bits_ >>= width;
        bitCount_ -= width;
        return code;
    }

private:
    std::span<const std::byte> data_;
    std::size_t position_ = 0;
    std::uint32_t bits_ = 0;
    int bitCount_ = 0;
};

// What each code stands for: one index, or what an earlier code does and one index more.
class CodeTable {
public:
    explicit CodeTable(int minCodeSize) : firstFree_((std::size_t{1} << minCodeSize) + 2) {
        for (std::size_t code = 0; code < firstFree_; ++code) {
            const auto index = static_cast<std::uint8_t>(code);
            entries_[code] = {0, 1, index, index};
        }
        clear();
    }

    std::size_t size() const { return size_; }
    bool full() const { return size_ == kMaxCodes; }
    void clear() { size_ = firstFree_; }

    // A new code: that before, and the first index of the next one, which may be the new code.
    void add(std::size_t before, std::size_t next) {
        const Entry& prefix = entries_[before];
        entries_[size_] = {static_cast<std::uint16_t>(before),
                           static_cast<std::uint16_t>(prefix.length + 1), prefix.first,
                           next == size_ ? prefix.first : entries_[next].first};
        ++size_;
    }

    // Puts what the code stands for to a place in the indexes, as far as there is room; returns the
    // place behind it.
    std::size_t put(std::size_t code, std::span<std::uint8_t> indexes, std::size_t place) const {
        const std::size_t behind = place + entries_[code].length;
        for (std::size_t at = behind; at-- > place; code = entries_[code].prefix)
            if (at < indexes.size()) indexes[at] = entries_[code].last;
        return behind;
    }

private:
    struct Entry {
        std::uint16_t prefix;
        std::uint16_t length;  // how many indexes
        std::uint8_t first;
        std::uint8_t last;
    };

    std::array<Entry, kMaxCodes> entries_{};
    std::size_t firstFree_;
    std::size_t size_ = 0;
};

// The colour indexes that the compressed data stands for, as many as there is room for. Returns
// whether the data holds them all.
bool decompress(std::span<const std::byte> data, int minCodeSize, std::span<std::uint8_t> indexes) {
    const std::size_t clear = std::size_t{1} << minCodeSize;
    const std::size_t end = clear + 1;
    CodeTable codes(minCodeSize);
    int codeSize = minCodeSize + 1;
    std::size_t previous = kNoCode;

    CodeReader reader(data);
    std::size_t done = 0;
    while (done < indexes.size()) {
        const auto code = reader.next(codeSize);
        if (!code || *code == end) return false;
        if (*code == clear) {
            codes.clear();
            codeSize = minCodeSize + 1;
            previous = kNoCode;
            continue;
        }
        if (*code > codes.size() || (*code == codes.size() && previous == kNoCode)) return false;
        if (previous != kNoCode && !codes.full()) {
            codes.add(previous, *code);
            if (codes.size() == std::size_t{1} << codeSize && codeSize < 12) ++codeSize;
        }
        done = codes.put(*code, indexes, done);
        previous = *code;
    }
    return true;
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

// The rows in the order in which they stand in the picture.
std::vector<std::uint8_t> inOrder(const std::vector<std::uint8_t>& interlaced, int width,
                                  int height) {
    std::vector<std::uint8_t> pixels(interlaced.size());
    for (std::ptrdiff_t n = 0; n < height; ++n)
        std::copy_n(
            interlaced.begin() + n * width, width,
            pixels.begin() + std::ptrdiff_t{interlacedRow(static_cast<int>(n), height)} * width);
    return pixels;
}

std::optional<IndexedPicture> decodeImage(Reader& reader, Palette colours, int transparent) {
    reader.skip(4);  // the frame's offset
    IndexedPicture picture{reader.word(), reader.word(), {}, {}};
    const unsigned flags = reader.byte();
    if ((flags & 0x80) != 0) reader.palette(colours, flags);
    const unsigned minCodeSize = reader.byte();
    const auto data = reader.subBlocks();
    if (reader.ranOut() || minCodeSize < 2 || minCodeSize > 8) return std::nullopt;
    if (picture.width < 1 || picture.height < 1) return std::nullopt;
    if (picture.width > kMaxSide || picture.height > kMaxSide) return std::nullopt;

    if (transparent >= 0) colours[static_cast<std::size_t>(transparent)] &= ~kOpaque;
    picture.colours = colours;
    picture.pixels.resize(static_cast<std::size_t>(picture.width) *
                          static_cast<std::size_t>(picture.height));
    if (!decompress(data, static_cast<int>(minCodeSize), picture.pixels)) return std::nullopt;
    if ((flags & 0x40) != 0)
        picture.pixels = inOrder(picture.pixels, picture.width, picture.height);
    return picture;
}

}  // namespace

std::optional<IndexedPicture> decodeGif(std::span<const std::byte> bytes) {
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
                if (control && data.size() == 4 && (data[0] & std::byte{1}) != std::byte{0})
                    transparent = std::to_integer<int>(data[3]);
                break;
            }
            case 0x2C: return decodeImage(reader, colours, transparent);
            default: return std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace kv
