// What GCC's stack protector needs at run time. The compiler's own library for it opens the
// system's cryptography before main, and with it libraries that the wizard has no use for.
#include <cstdint>
#include <initializer_list>

#include <windows.h>

// Names and places are the compiler's.
// NOLINTBEGIN(*-reserved-identifier,cert-dcl*,*-non-const-global*)
extern "C" {

// Lies between a function's arrays and its return address; the compiler names it.
std::uintptr_t __stack_chk_guard = 0;

// A changed guard: the stack can be trusted no more, so nothing else is done.
[[noreturn]] void __stack_chk_fail() {
    asm volatile("int $0x29" : : "c"(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE));
    __builtin_unreachable();
}

}  // extern "C"
// NOLINTEND(*-reserved-identifier,cert-dcl*,*-non-const-global*)

namespace {

// Before anything else runs, since a function that is under way keeps the value that it found.
// NOLINTNEXTLINE(clang-diagnostic-unknown-attributes): GCC's, and this file is for GCC only
[[gnu::constructor(101), gnu::no_stack_protector]] void chooseGuard() {
    FILETIME time;
    GetSystemTimeAsFileTime(&time);
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);

    auto guard = reinterpret_cast<std::uintptr_t>(&counter);
    for (const std::uintptr_t part :
         {std::uintptr_t{time.dwLowDateTime}, static_cast<std::uintptr_t>(counter.QuadPart),
          std::uintptr_t{GetCurrentProcessId()}, std::uintptr_t{GetCurrentThreadId()}})
        guard = (guard ^ part) * 0x9E3779B97F4A7C15;
    // A zero byte ends the texts that run over their arrays.
    __stack_chk_guard = guard & ~std::uintptr_t{0xFF};
}

}  // namespace
