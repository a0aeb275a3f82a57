#include "platform/win32/system/ComApartment.h"

namespace kv {

ComApartment::~ComApartment() {
    if (!entered_) return;
    if (const auto leave = ole32_.function<decltype(CoUninitialize)>("CoUninitialize")) leave();
}

void ComApartment::enter() noexcept {
    if (entered_) return;
    if (const auto initialize = ole32_.function<decltype(CoInitializeEx)>("CoInitializeEx"))
        entered_ =
            SUCCEEDED(initialize(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
}

void* ComApartment::create(const CLSID& classId, const IID& interfaceId) noexcept {
    enter();
    void* object = nullptr;
    if (const auto make = ole32_.function<decltype(CoCreateInstance)>("CoCreateInstance"))
        make(classId, nullptr, CLSCTX_INPROC_SERVER, interfaceId, &object);
    return object;
}

void ComApartment::free(void* memory) noexcept {
    if (const auto release = ole32_.function<decltype(CoTaskMemFree)>("CoTaskMemFree"))
        release(memory);
}

}  // namespace kv
