#include "platform/win32/window/Progress.h"

namespace kv {
namespace {

constexpr ULONGLONG kPaintMilliseconds = 50;

}  // namespace

void Progress::paint(HWND window, Property changed) {
    if (changed != Property::Caption && changed != Property::Box) return;
    const ULONGLONG now = GetTickCount64();
    if (changed == Property::Box && now - painted_ < kPaintMilliseconds) return;
    painted_ = now;
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

}  // namespace kv
