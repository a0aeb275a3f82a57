#include "platform/win32/window/Graphics.h"

#include <cstring>

#include "platform/win32/system/Text.h"
#include "wizard/controls/Gif.h"

namespace kv {
namespace {

struct Typeface {
    int quarterPoints;  // the size in quarters of a point
    int weight;
};

// By Font.
constexpr Typeface kTypefaces[] = {
    {33, FW_NORMAL},  // 8.25 points
    {36, FW_NORMAL},  // 9
    {45, FW_BOLD},    // 11.25
    {57, FW_NORMAL},  // 14.25
};
constexpr int kQuarterPointsPerInch = 72 * 4;

std::optional<Picture> loadPicture(std::string_view name, int width, int height) {
    const HRSRC resource = FindResourceW(nullptr, toWide(name).c_str(), RT_RCDATA);
    if (resource == nullptr || width <= 0 || height <= 0) return std::nullopt;
    const HGLOBAL loaded = LoadResource(nullptr, resource);
    const auto* bytes = static_cast<const std::byte*>(LockResource(loaded));
    const auto picture = decodeGif({bytes, SizeofResource(nullptr, resource)});
    if (!picture) return std::nullopt;
    return scaled(*picture, width, height);
}

GdiObject toBitmap(const Picture& picture) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = picture.width;
    info.bmiHeader.biHeight = -picture.height;  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    GdiObject bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (bitmap)
        std::memcpy(bits, picture.pixels.data(), picture.pixels.size() * sizeof(std::uint32_t));
    return bitmap;
}

}  // namespace

GdiObject makeFont(Font font, int dpi) {
    const Typeface& typeface = kTypefaces[static_cast<std::size_t>(font)];
    LOGFONTW description{};
    description.lfHeight = -MulDiv(typeface.quarterPoints, dpi, kQuarterPointsPerInch);
    description.lfWeight = typeface.weight;
    description.lfCharSet = DEFAULT_CHARSET;
    std::wcscpy(description.lfFaceName, L"Tahoma");
    return GdiObject(CreateFontIndirectW(&description));
}

GdiObject makeBitmap(std::string_view name, int width, int height) {
    const auto picture = loadPicture(name, width, height);
    return picture ? toBitmap(*picture) : nullptr;
}

Icon makeIcon(std::string_view name, int width, int height) {
    const auto picture = loadPicture(name, width, height);
    if (!picture) return nullptr;
    const GdiObject colours = toBitmap(*picture);
    const GdiObject mask(CreateBitmap(width, height, 1, 1, nullptr));
    ICONINFO info{};
    info.fIcon = TRUE;
    info.hbmColor = static_cast<HBITMAP>(colours.get());
    info.hbmMask = static_cast<HBITMAP>(mask.get());
    return Icon(CreateIconIndirect(&info));
}

int systemColour(Colour colour) {
    switch (colour) {
        case Colour::Face: return COLOR_BTNFACE;
        case Colour::Text: return COLOR_BTNTEXT;
        case Colour::Shadow: return COLOR_BTNSHADOW;
        case Colour::Light: return COLOR_BTNHIGHLIGHT;
        case Colour::Highlight: return COLOR_HIGHLIGHT;
    }
    return COLOR_BTNFACE;
}

}  // namespace kv
