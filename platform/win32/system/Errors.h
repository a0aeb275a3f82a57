// Windows' error codes as run-time errors. Every Windows failure of the program is turned into a
// number here and nowhere else.
#pragma once

#include <windows.h>

#include "common/RunTimeError.h"

namespace kv {

// A code that the table does not hold counts as a device error. What fails because somebody else is
// using the file may pass.
RunTimeError translate(DWORD error) noexcept;

// Throws the calling thread's last error, translated. To be called right after the call that
// failed: anything in between, destructors included, may change it.
[[noreturn]] void throwLastError();

}  // namespace kv
