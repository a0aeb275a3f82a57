#include "platform/win32/system/ComApartment.h"

namespace kv {

ComApartment::ComApartment() {
    if (const auto enter = ole32_.function<decltype(CoInitializeEx)>("CoInitializeEx"))
        entered_ = SUCCEEDED(enter(nullptr, COINIT_APARTMENTTHREADED));
}

ComApartment::~ComApartment() {
    const auto leave = ole32_.function<decltype(CoUninitialize)>("CoUninitialize");
    if (entered_ && leave != nullptr) leave();
}

void* ComApartment::create(const CLSID& classId, const IID& interfaceId) const noexcept {
    void* object = nullptr;
    if (const auto make = ole32_.function<decltype(CoCreateInstance)>("CoCreateInstance"))
        make(classId, nullptr, CLSCTX_INPROC_SERVER, interfaceId, &object);
    return object;
}

void ComApartment::free(void* memory) const noexcept {
    if (const auto release = ole32_.function<decltype(CoTaskMemFree)>("CoTaskMemFree"))
        release(memory);
}

}  // namespace kv
