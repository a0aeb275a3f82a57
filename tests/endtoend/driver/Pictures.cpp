#include "tests/endtoend/driver/Pictures.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include <windows.h>
// gdiplus.h needs the interfaces that windows.h leaves out when it is lean.
#include <objidl.h>

#include <gdiplus.h>

namespace kv::endtoend {

namespace {

// A top-down 32-bit picture in memory that can be drawn on.
class Canvas {
public:
    Canvas(int width, int height) : width_(width), height_(height) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        context_ = CreateCompatibleDC(nullptr);
        bitmap_ = CreateDIBSection(context_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        bits_ = static_cast<const std::uint32_t*>(bits);
        previous_ = SelectObject(context_, bitmap_);
    }
    ~Canvas() {
        SelectObject(context_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC context() const { return context_; }
    HBITMAP bitmap() const { return bitmap_; }

    void takeFromScreen(const RECT& box) {
        HDC screen = GetDC(nullptr);
        BitBlt(context_, 0, 0, width_, height_, screen, box.left, box.top, SRCCOPY);
        ReleaseDC(nullptr, screen);
        GdiFlush();
    }

    std::vector<std::uint32_t> pixels() const {
        GdiFlush();
        std::vector<std::uint32_t> copy(bits_, bits_ + width_ * height_);
        for (std::uint32_t& pixel : copy) pixel &= 0xFFFFFFU;
        return copy;
    }

private:
    int width_;
    int height_;
    HDC context_;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
    const std::uint32_t* bits_ = nullptr;
};

std::vector<std::uint32_t> iconPixels(const char* name, int width, int height) {
    Canvas canvas(width, height);
    const RECT all{0, 0, width, height};
    FillRect(canvas.context(), &all, GetSysColorBrush(COLOR_BTNFACE));
    DrawIconEx(canvas.context(), 0, 0, LoadIconA(nullptr, name), width, height, 0, nullptr,
               DI_NORMAL);
    return canvas.pixels();
}

CLSID pngEncoder() {
    UINT count = 0;
    UINT bytes = 0;
    Gdiplus::GetImageEncodersSize(&count, &bytes);
    std::vector<std::uint8_t> buffer(bytes);
    auto* encoders = reinterpret_cast<Gdiplus::ImageCodecInfo*>(buffer.data());
    Gdiplus::GetImageEncoders(count, bytes, encoders);
    for (UINT index = 0; index < count; ++index)
        if (std::wcscmp(encoders[index].MimeType, L"image/png") == 0) return encoders[index].Clsid;
    throw DriverFailure("no PNG encoder");
}

class GdiPlus {
public:
    GdiPlus() {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token_, &input, nullptr);
    }
    ~GdiPlus() { Gdiplus::GdiplusShutdown(token_); }
    GdiPlus(const GdiPlus&) = delete;
    GdiPlus& operator=(const GdiPlus&) = delete;

private:
    ULONG_PTR token_ = 0;
};

std::wstring wide(const std::string& text) {
    std::wstring result(text.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                           result.data(), static_cast<int>(result.size()));
    result.resize(static_cast<std::size_t>(length));
    return result;
}

// Painting comes after everything else that a window does, and nobody outside is told of its end:
// the picture is taken when it has more than one colour and has stayed the same for a while.
void takeWhenPainted(Canvas& canvas, const RECT& box) {
    constexpr DWORD kPollMilliseconds = 40;
    constexpr int kPollsUnchanged = 3;
    constexpr int kPollsAtMost = 100;
    std::vector<std::uint32_t> before;
    int unchanged = 0;
    for (int poll = 0; poll < kPollsAtMost && unchanged < kPollsUnchanged; ++poll) {
        canvas.takeFromScreen(box);
        std::vector<std::uint32_t> now = canvas.pixels();
        const bool blank = std::all_of(
            now.begin(), now.end(), [&now](std::uint32_t pixel) { return pixel == now.front(); });
        unchanged = !blank && now == before ? unchanged + 1 : 0;
        before = std::move(now);
        Sleep(kPollMilliseconds);
    }
}

void save(const Canvas& canvas, const std::string& path) {
    const GdiPlus library;
    const CLSID encoder = pngEncoder();
    Gdiplus::Bitmap picture(canvas.bitmap(), nullptr);
    if (picture.Save(wide(path).c_str(), &encoder, nullptr) != Gdiplus::Ok)
        throw DriverFailure("cannot write the picture " + path);
}

}  // namespace

BoxIcon iconOnScreen(HWND control) {
    RECT box{};
    GetWindowRect(control, &box);
    const int width = box.right - box.left;
    const int height = box.bottom - box.top;
    Canvas screen(width, height);
    screen.takeFromScreen(box);
    const std::vector<std::uint32_t> seen = screen.pixels();
    const std::array<std::pair<const char*, BoxIcon>, 4> candidates{{
        {IDI_INFORMATION, BoxIcon::Information},
        {IDI_QUESTION, BoxIcon::Question},
        {IDI_WARNING, BoxIcon::Warning},
        {IDI_ERROR, BoxIcon::Error},
    }};
    for (const auto& [name, icon] : candidates)
        if (iconPixels(name, width, height) == seen) return icon;
    return BoxIcon::None;
}

Picture takePicture(HWND window) {
    RECT box{};
    GetWindowRect(window, &box);
    Canvas canvas(box.right - box.left, box.bottom - box.top);
    takeWhenPainted(canvas, box);
    return {static_cast<int>(box.right - box.left), static_cast<int>(box.bottom - box.top),
            canvas.pixels()};
}

void saveWindowPicture(HWND window, const std::string& path) {
    RECT box{};
    GetWindowRect(window, &box);
    Canvas canvas(box.right - box.left, box.bottom - box.top);
    takeWhenPainted(canvas, box);
    save(canvas, path);
}

void saveScreenPicture(const std::string& path) {
    RECT box{};
    GetWindowRect(GetDesktopWindow(), &box);
    Canvas canvas(box.right - box.left, box.bottom - box.top);
    canvas.takeFromScreen(box);
    save(canvas, path);
}

}  // namespace kv::endtoend
