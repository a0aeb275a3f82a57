#include "ProgramImage.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <stdexcept>

#include <windows.h>

namespace kv::endtoend {

namespace {

template <class Record>
Record recordAt(std::string_view bytes, std::size_t offset) {
    if (offset > bytes.size() || bytes.size() - offset < sizeof(Record)) {
        throw std::runtime_error("a program's file ends too early");
    }
    Record record;
    std::memcpy(&record, bytes.data() + offset, sizeof record);
    return record;
}

// The file's bytes from a place in memory to the end of its section.
std::string_view bytesAt(const ProgramImage& image, std::uint32_t address) {
    for (const ImageSection& section : image.sections) {
        if (address >= section.address && address - section.address < section.bytes.size()) {
            return std::string_view(section.bytes).substr(address - section.address);
        }
    }
    throw std::runtime_error("a program's file points outside its sections");
}

std::string textAt(const ProgramImage& image, std::uint32_t address) {
    const std::string_view bytes = bytesAt(image, address);
    std::string text(bytes.substr(0, bytes.find('\0')));
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::vector<std::string> readImports(const ProgramImage& image, std::uint32_t address) {
    std::vector<std::string> names;
    const std::string_view table = bytesAt(image, address);
    for (std::size_t offset = 0;; offset += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
        const auto entry = recordAt<IMAGE_IMPORT_DESCRIPTOR>(table, offset);
        if (entry.Name == 0) {
            return names;
        }
        names.push_back(textAt(image, entry.Name));
    }
}

}  // namespace

ProgramImage readImage(std::string_view file) {
    const auto start = static_cast<std::size_t>(recordAt<IMAGE_DOS_HEADER>(file, 0).e_lfanew);
    const auto headers = recordAt<IMAGE_NT_HEADERS64>(file, start);
    if (headers.Signature != IMAGE_NT_SIGNATURE ||
        headers.OptionalHeader.Magic != IMAGE_NT_OPTIONAL_HDR64_MAGIC) {
        throw std::runtime_error("no 64-bit program");
    }
    const IMAGE_DATA_DIRECTORY* const directories = headers.OptionalHeader.DataDirectory;
    ProgramImage image{headers.FileHeader.Characteristics,
                       headers.OptionalHeader.DllCharacteristics,
                       headers.OptionalHeader.ImageBase,
                       directories[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size,
                       {},
                       {}};
    const std::size_t table = start + offsetof(IMAGE_NT_HEADERS64, OptionalHeader) +
                              headers.FileHeader.SizeOfOptionalHeader;
    for (std::size_t i = 0; i < headers.FileHeader.NumberOfSections; ++i) {
        const auto section =
            recordAt<IMAGE_SECTION_HEADER>(file, table + i * sizeof(IMAGE_SECTION_HEADER));
        const auto* name = reinterpret_cast<const char*>(section.Name);
        image.sections.push_back(
            {std::string(name, strnlen(name, sizeof section.Name)), section.Characteristics,
             section.VirtualAddress,
             std::string(file.substr(section.PointerToRawData, section.SizeOfRawData))});
    }
    image.imports = readImports(image, directories[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
    return image;
}

}  // namespace kv::endtoend
