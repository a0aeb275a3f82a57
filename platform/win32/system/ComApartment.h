// COM on the window's thread, for the few services that need it; its library is loaded with it.
#pragma once

#include <objbase.h>

#include "platform/win32/system/SystemLibrary.h"

namespace kv {

class ComApartment {
public:
    ComApartment();
    ~ComApartment();
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

    // A new object of the class, or null when there is none.
    void* create(const CLSID& classId, const IID& interfaceId) const noexcept;

    // Returns memory that the system has handed out.
    void free(void* memory) const noexcept;

private:
    SystemLibrary ole32_{L"ole32.dll"};
    bool entered_ = false;
};

}  // namespace kv
