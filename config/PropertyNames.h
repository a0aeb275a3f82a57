// The names of the properties, by type of configuration file. The spellings are part of the format.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace kv {

enum class FileType : std::int32_t {
    Main = 1001,
    DefaultAdmin = 1002,
    User = 1004,
    Anonymous = 1005,
    Root = 1006,
    Permission = 1007,
    Install = 1008,
};

// The names of one type's properties by index; empty for a code that names no type.
std::span<const std::string_view> propertyNames(std::int32_t typeCode) noexcept;
std::span<const std::string_view> propertyNames(FileType type) noexcept;

// As many properties as the largest set has.
inline constexpr std::size_t kMaxProperties = 26;

}  // namespace kv
