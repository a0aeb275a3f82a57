// Starts programs in spite of what Wine does to one in some thousands of them.
#pragma once

#include <functional>

#include <windows.h>

namespace kv::endtoend {

// Whether the call of CreateProcess that is handed over starts its program; GetLastError tells why
// not. A process that Wine loses with an internal error, before any program runs in it, is made
// again, twice at most.
bool starts(const std::function<BOOL()>& createProcess);

}  // namespace kv::endtoend
