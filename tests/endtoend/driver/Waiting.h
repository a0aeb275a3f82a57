// Waiting for what another program does in its own time.
#pragma once

#include <windows.h>

#include <functional>

namespace kv::endtoend {

// Asks again and again; whether the condition has come true within the time.
bool comesTrue(const std::function<bool()>& condition, DWORD milliseconds);

}  // namespace kv::endtoend
