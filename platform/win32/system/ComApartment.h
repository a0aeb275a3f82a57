// COM on the window's thread, for the few services that need it. It is entered by the first of
// them, for all, and left with this object.
#pragma once

#include <objbase.h>

#include "platform/win32/system/SystemLibrary.h"

namespace kv {

class ComApartment {
public:
    ComApartment() = default;
    ~ComApartment();
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

    // A second call does nothing.
    void enter() noexcept;

    // A new object of the class, or null when there is none.
    void* create(const CLSID& classId, const IID& interfaceId) noexcept;

    // Returns memory that the system has handed out.
    void free(void* memory) noexcept;

private:
    SystemLibrary ole32_{L"ole32.dll"};
    bool entered_ = false;
};

}  // namespace kv
