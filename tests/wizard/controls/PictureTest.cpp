#include "wizard/controls/Picture.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "wizard/controls/Gif.h"

namespace kv {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Pixels = std::vector<std::uint32_t>;

constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kGreen = 0xFF00FF00;
constexpr std::uint32_t kBlue = 0xFF0000FF;

// The codes of a picture of four colours, at their first width.
constexpr int kClear = 4;
constexpr int kEnd = 5;

// Codes of the given widths, the first one in the lowest bits of the first byte.
struct Code {
    int code;
    int bits = 3;
};

Bytes packed(const std::vector<Code>& codes) {
    Bytes bytes;
    int used = 8;
    for (const auto& [code, bits] : codes)
        for (int bit = 0; bit < bits; ++bit) {
            if (used == 8) {
                bytes.push_back(0);
                used = 0;
            }
            bytes.back() = static_cast<std::uint8_t>(bytes.back() | ((code >> bit & 1) << used++));
        }
    return bytes;
}

// The codes of any pixels: cleared so often that their width never grows.
std::vector<Code> plainCodes(const Bytes& indexes) {
    std::vector<Code> codes;
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        if (i % 2 == 0) codes.push_back({kClear});
        codes.push_back({indexes[i]});
    }
    codes.push_back({kEnd});
    return codes;
}

Bytes operator+(Bytes bytes, const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return bytes;
}

Bytes word(int value) {
    return {static_cast<std::uint8_t>(value & 0xFF), static_cast<std::uint8_t>(value >> 8)};
}

const Bytes kSignature{'G', 'I', 'F', '8', '9', 'a'};
const Bytes kColours{0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255};  // black, red, green, blue
const Bytes kTrailer{0x3B};

Bytes screen(int width, int height) {
    constexpr std::uint8_t kFourColours = 0x81;
    return kSignature + word(width) + word(height) + Bytes{kFourColours, 0, 0} + kColours;
}

struct Image {
    int width;
    int height;
    std::vector<Code> codes;
    std::uint8_t flags = 0;
    Bytes colours = {};
    int left = 0;
    int top = 0;
    std::size_t blockSize = 255;
};

constexpr std::uint8_t kInterlaced = 0x40;
constexpr std::uint8_t kOwnFourColours = 0x81;

Bytes imageBlock(const Image& image) {
    Bytes bytes = Bytes{0x2C} + word(image.left) + word(image.top) + word(image.width) +
                  word(image.height) + Bytes{image.flags} + image.colours + Bytes{2};
    const Bytes data = packed(image.codes);
    for (std::size_t at = 0; at < data.size(); at += image.blockSize) {
        const auto block = std::span(data).subspan(at, std::min(image.blockSize, data.size() - at));
        bytes = bytes + Bytes{static_cast<std::uint8_t>(block.size())} +
                Bytes(block.begin(), block.end());
    }
    return bytes + Bytes{0};
}

Bytes gif(const Image& image) {
    return screen(image.width, image.height) + imageBlock(image) + kTrailer;
}

Bytes transparency(std::uint8_t index) { return {0x21, 0xF9, 4, 1, 0, 0, index, 0}; }

// With the pixels' colours in place of their numbers.
std::optional<Picture> decoded(const Bytes& bytes) {
    const auto indexed = decodeGif(std::as_bytes(std::span(bytes)));
    if (!indexed) return std::nullopt;
    Picture picture{indexed->width, indexed->height, {}};
    for (const std::uint8_t index : indexed->pixels)
        picture.pixels.push_back(indexed->colours[index]);
    return picture;
}

Pixels pixelsOf(const Bytes& bytes) {
    const auto picture = decoded(bytes);
    return picture ? picture->pixels : Pixels{};
}

const Image kTwoByTwo{2, 2, plainCodes({0, 1, 2, 3})};

// Decoding

TEST(DecodeGif, GivesThePixelsFromTheTop) {
    const auto picture = decoded(gif(kTwoByTwo));

    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 2);
    EXPECT_EQ(picture->height, 2);
    EXPECT_EQ(picture->pixels, (Pixels{kBlack, kRed, kGreen, kBlue}));
}

TEST(DecodeGif, TakesThesePlainBytes) {
    const Bytes bytes{'G', 'I', 'F', '8', '9', 'a', 3, 0, 1, 0, 0x80, 0, 0,  //
                      0x12, 0x34, 0x56, 0xAB, 0xCD, 0xEF,                    //
                      0x2C, 0, 0, 0, 0, 3, 0, 1, 0, 0,                       //
                      // The codes 4, 1, 1, 0, and 5 in four bits.
                      2, 2, 0x4C, 0x50, 0, 0x3B};

    const auto picture = decoded(bytes);

    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 3);
    EXPECT_EQ(picture->height, 1);
    EXPECT_EQ(picture->pixels, (Pixels{0xFFABCDEF, 0xFFABCDEF, 0xFF123456}));
}

TEST(DecodeGif, CodesOfRepeatedPixelsMayComeBeforeTheirEntry) {
    // 6 is two pixels that the decoder knows only by then; 7 is three. Eight entries: four bits.
    const Image image{6, 1, {{kClear}, {1}, {6}, {7}, {kEnd, 4}}};

    EXPECT_EQ(pixelsOf(gif(image)), Pixels(6, kRed));
}

TEST(DecodeGif, TheWidthOfTheCodesGrows) {
    // 8 entries after the third pixel, so four bits from there; 6 is the first two pixels.
    const Image image{6, 1, {{kClear}, {0}, {1}, {2}, {6, 4}, {3, 4}, {kEnd, 4}}};

    EXPECT_EQ(pixelsOf(gif(image)), (Pixels{kBlack, kRed, kGreen, kBlack, kRed, kBlue}));
}

TEST(DecodeGif, ALargePictureFillsTheTableAndGoesOn) {
    constexpr int kSide = 200;
    std::vector<Code> codes{{kClear}};
    // Single pixels add an entry each; from 4096 entries on the width stays at twelve bits.
    int entries = 6;
    for (int i = 0; i < kSide * kSide; ++i) {
        int bits = 3;
        while (bits < 12 && entries >= 1 << bits) ++bits;
        codes.push_back({i % 4, bits});
        if (i > 0 && entries < 4096) ++entries;
    }
    codes.push_back({kEnd, 12});

    const Pixels pixels = pixelsOf(gif({kSide, kSide, codes}));

    ASSERT_EQ(pixels.size(), 40'000U);
    const Pixels colours{kBlack, kRed, kGreen, kBlue};
    for (std::size_t i = 0; i < pixels.size(); ++i) ASSERT_EQ(pixels[i], colours[i % 4]) << i;
}

TEST(DecodeGif, TheRowsOfAnInterlacedPictureGoWhereTheyBelong) {
    // In the file: rows 0 and 8, row 4, rows 2 and 6, then the odd ones.
    const Image image{1, 9, plainCodes({0, 3, 2, 1, 3, 0, 1, 2, 3}), kInterlaced};

    EXPECT_EQ(pixelsOf(gif(image)),
              (Pixels{kBlack, kBlack, kRed, kRed, kGreen, kGreen, kBlue, kBlue, kBlue}));
}

TEST(DecodeGif, AnInterlacedPictureMayBeOneRow) {
    EXPECT_EQ(pixelsOf(gif({2, 1, plainCodes({1, 2}), kInterlaced})), (Pixels{kRed, kGreen}));
}

TEST(DecodeGif, TheTransparentColourHasNoAlpha) {
    const Pixels pixels =
        pixelsOf(screen(2, 2) + transparency(2) + imageBlock(kTwoByTwo) + kTrailer);

    ASSERT_EQ(pixels.size(), 4U);
    EXPECT_EQ(pixels[2] >> 24, 0U);
    EXPECT_EQ(pixels[0], kBlack);
    EXPECT_EQ(pixels[1], kRed);
    EXPECT_EQ(pixels[3], kBlue);
}

TEST(DecodeGif, WithoutItsFlagNoColourIsTransparent) {
    const Bytes control{0x21, 0xF9, 4, 0, 0, 0, 2, 0};

    EXPECT_EQ(pixelsOf(screen(2, 2) + control + imageBlock(kTwoByTwo) + kTrailer),
              (Pixels{kBlack, kRed, kGreen, kBlue}));
}

TEST(DecodeGif, ColoursOfTheImageGoBeforeThoseOfTheFile) {
    Image image = kTwoByTwo;
    image.flags = kOwnFourColours;
    image.colours = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};

    EXPECT_EQ(pixelsOf(gif(image)), (Pixels{0xFF010203, 0xFF040506, 0xFF070809, 0xFF0A0B0C}));
}

TEST(DecodeGif, OtherExtensionsAreSkipped) {
    const Bytes comment{0x21, 0xFE, 3, 'a', 'b', 'c', 1, 0x2C, 0};
    const Bytes application{0x21, 0xFF, 11,  'N', 'E', 'T', 'S', 'C', 'A', 'P',
                            'E',  '2',  '.', '0', 3,   1,   0,   0,   0};

    EXPECT_EQ(
        pixelsOf(screen(2, 2) + comment + application + imageBlock(kTwoByTwo) + comment + kTrailer),
        (Pixels{kBlack, kRed, kGreen, kBlue}));
}

TEST(DecodeGif, OnlyTheFirstImageIsTaken) {
    EXPECT_EQ(pixelsOf(screen(2, 2) + imageBlock(kTwoByTwo) + imageBlock({1, 1, plainCodes({3})}) +
                       kTrailer),
              (Pixels{kBlack, kRed, kGreen, kBlue}));
}

TEST(DecodeGif, TheImagesOffsetIsIgnored) {
    Image image = kTwoByTwo;
    image.left = 1;
    image.top = 2;

    const auto picture = decoded(screen(3, 4) + imageBlock(image) + kTrailer);

    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 2);
    EXPECT_EQ(picture->height, 2);
    EXPECT_EQ(picture->pixels, (Pixels{kBlack, kRed, kGreen, kBlue}));
}

TEST(DecodeGif, CodesMayRunOverTheEndsOfTheirBlocks) {
    Image image = kTwoByTwo;
    image.blockSize = 1;

    EXPECT_EQ(pixelsOf(gif(image)), (Pixels{kBlack, kRed, kGreen, kBlue}));
}

// Bytes that are no picture

struct Sample {
    const char* fact;
    Bytes bytes;
};
void PrintTo(const Sample& sample, std::ostream* out) { *out << sample.fact; }

class SampleGif : public testing::TestWithParam<Sample> {};

TEST_P(SampleGif, IsDecodedWhole) { EXPECT_TRUE(decoded(GetParam().bytes)); }

TEST_P(SampleGif, IsNothingWhenItIsCutAnywhereBeforeItsTrailer) {
    for (std::size_t length = 0; length < GetParam().bytes.size() - 1; ++length) {
        const Bytes cut(GetParam().bytes.begin(),
                        GetParam().bytes.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(decoded(cut)) << length;
    }
}

TEST_P(SampleGif, WithOneWrongByteIsAWholePictureOrNothing) {
    Bytes bytes = GetParam().bytes;
    for (std::uint8_t& byte : bytes) {
        const std::uint8_t right = byte;
        for (int value = 0; value < 256; ++value) {
            byte = static_cast<std::uint8_t>(value);
            if (const auto picture = decoded(bytes)) {
                EXPECT_EQ(picture->pixels.size(), static_cast<std::size_t>(picture->width) *
                                                      static_cast<std::size_t>(picture->height));
            }
        }
        byte = right;
    }
}

Image ownColours() {
    Image image = kTwoByTwo;
    image.flags = kOwnFourColours;
    image.colours = kColours;
    return image;
}

INSTANTIATE_TEST_SUITE_P(
    DecodeGif, SampleGif,
    testing::Values(
        Sample{"Plain", gif(kTwoByTwo)},
        Sample{"Interlaced", gif({1, 9, plainCodes({0, 3, 2, 1, 3, 0, 1, 2, 3}), kInterlaced})},
        Sample{"Transparent", screen(2, 2) + transparency(2) + imageBlock(kTwoByTwo) + kTrailer},
        Sample{"OwnColours", gif(ownColours())},
        Sample{"GrowingCodes", gif({6, 1, {{kClear}, {0}, {1}, {2}, {6, 4}, {3, 4}, {kEnd, 4}}})}),
    [](const auto& sample) { return std::string(sample.param.fact); });

class BytesOfNoGif : public testing::TestWithParam<Sample> {};

TEST_P(BytesOfNoGif, AreNothing) { EXPECT_FALSE(decoded(GetParam().bytes)); }

TEST(DecodeGif, TheLargestSideIsDecoded) {
    EXPECT_TRUE(decoded(gif({4096, 1, plainCodes(Bytes(4096, 0))})));
}

INSTANTIATE_TEST_SUITE_P(
    DecodeGif, BytesOfNoGif,
    testing::Values(Sample{"None", {}}, Sample{"AnotherFormat", Bytes(100, 'B')},
                    Sample{"WithAByteBefore", Bytes{'X'} + gif(kTwoByTwo)},
                    Sample{"WithoutImage", screen(2, 2) + kTrailer},
                    Sample{"TooFewPixels", gif({2, 2, plainCodes({0, 1, 2})})},
                    Sample{"CodeWithoutEntry", gif({2, 1, {{kClear}, {0}, {7}, {kEnd}}})},
                    Sample{"EntryBeforeAnyPixel", gif({2, 1, {{kClear}, {6}, {0}, {kEnd}}})},
                    Sample{"TooWide", gif({4097, 1, plainCodes(Bytes(4097, 0))})},
                    Sample{"TooHigh", gif({1, 4097, plainCodes(Bytes(4097, 0))})},
                    Sample{"LargeWithoutPixels", gif({4000, 4000, {{kClear}, {kEnd}}})}),
    [](const auto& sample) { return std::string(sample.param.fact); });

// Scaling

struct Scaling {
    const char* fact;
    Picture from;
    Picture to;
};
void PrintTo(const Scaling& scaling, std::ostream* out) { *out << scaling.fact; }

constexpr std::uint32_t grey(std::uint32_t level) {
    return 0xFF000000 | level << 16 | level << 8 | level;
}

// Of as many colours as pixels.
IndexedPicture indexed(const Picture& picture) {
    IndexedPicture result{picture.width, picture.height, {}, {}};
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        result.colours[i] = picture.pixels[i];
        result.pixels.push_back(static_cast<std::uint8_t>(i));
    }
    return result;
}

class ScaledPicture : public testing::TestWithParam<Scaling> {};

TEST_P(ScaledPicture, HasTheAverageOfEachArea) {
    const Picture& to = GetParam().to;

    const Picture result = scaled(indexed(GetParam().from), to.width, to.height);

    EXPECT_EQ(result.width, to.width);
    EXPECT_EQ(result.height, to.height);
    EXPECT_EQ(result.pixels, to.pixels);
}

INSTANTIATE_TEST_SUITE_P(
    Scaled, ScaledPicture,
    testing::Values(
        Scaling{"ToItsOwnSize",
                {2, 2, {0x00000000, kRed, 0xFF123456, kBlue}},
                {2, 2, {0x00000000, kRed, 0xFF123456, kBlue}}},
        Scaling{"ToHalf", {2, 2, {grey(0), grey(40), grey(80), grey(200)}}, {1, 1, {grey(80)}}},
        Scaling{"ChannelByChannel", {2, 1, {0xFF102030, 0xFF305070}}, {1, 1, {0xFF203850}}},
        Scaling{"ToHalfItsWidth",
                {4, 1, {grey(0), grey(10), grey(100), grey(200)}},
                {2, 1, {grey(5), grey(150)}}},
        Scaling{"ToHalfItsHeight",
                {1, 4, {grey(0), grey(10), grey(100), grey(200)}},
                {1, 2, {grey(5), grey(150)}}},
        // One and a half pixels each: (0 + 90 / 2) / 1.5 and (90 / 2 + 180) / 1.5.
        Scaling{"FromThreeToTwo",
                {3, 1, {grey(0), grey(90), grey(180)}},
                {2, 1, {grey(30), grey(150)}}},
        Scaling{"FromThreeRowsToTwo",
                {1, 3, {grey(0), grey(90), grey(180)}},
                {1, 2, {grey(30), grey(150)}}},
        // The middle one covers a third of a pixel on each side.
        Scaling{
            "FromTwoToThree", {2, 1, {grey(20), grey(80)}}, {3, 1, {grey(20), grey(50), grey(80)}}},
        Scaling{"ToDouble",
                {2, 1, {kRed, kBlue}},
                {4, 2, {kRed, kRed, kBlue, kBlue, kRed, kRed, kBlue, kBlue}}},
        Scaling{"FromOnePixel", {1, 1, {0xFF123456}}, {2, 2, Pixels(4, 0xFF123456)}},
        Scaling{"FromOnePixelToMany", {1, 1, {0xFF123456}}, {30, 30, Pixels(900, 0xFF123456)}},
        Scaling{"InBothDirections",
                {4, 1, {grey(0), grey(10), grey(100), grey(200)}},
                {2, 2, {grey(5), grey(150), grey(5), grey(150)}}},
        Scaling{"Transparent", {2, 2, Pixels(4, 0)}, {1, 1, {0}}}),
    [](const auto& scaling) { return std::string(scaling.param.fact); });

TEST(Scaled, AHalfTransparentAreaHasHalfTheAlphaAndTheFullColour) {
    const Picture result = scaled(indexed({2, 1, {0x00000000, kRed}}), 1, 1);

    ASSERT_EQ(result.pixels.size(), 1U);
    EXPECT_NEAR(result.pixels[0] >> 24, 127.5, 0.5);
    EXPECT_EQ(result.pixels[0] & 0x00FFFFFF, 0x00FF0000U);
}

TEST(Scaled, APlainPictureKeepsItsColourAtEverySize) {
    const IndexedPicture plain = indexed({5, 7, Pixels(35, 0xFF81C3E5)});

    for (int width = 1; width < 20; ++width)
        for (int height = 1; height < 20; ++height)
            EXPECT_EQ(scaled(plain, width, height).pixels,
                      Pixels(static_cast<std::size_t>(width * height), 0xFF81C3E5))
                << width << " x " << height;
}

}  // namespace
}  // namespace kv
