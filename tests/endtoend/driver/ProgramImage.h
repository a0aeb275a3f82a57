// What a program's file says of itself to the system that loads it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kv::endtoend {

struct ImageSection {
    std::string name;
    std::uint32_t flags;  // IMAGE_SCN_...
    std::uint32_t address;
    std::string bytes;
};

struct ProgramImage {
    std::uint16_t fileFlags;  // IMAGE_FILE_...
    std::uint16_t flags;      // IMAGE_DLLCHARACTERISTICS_...
    std::uint64_t base;
    std::uint32_t relocationBytes;
    std::vector<std::string> imports;  // in lower case
    std::vector<ImageSection> sections;
};

// Throws when the bytes are no 64-bit program.
ProgramImage readImage(std::string_view file);

}  // namespace kv::endtoend
