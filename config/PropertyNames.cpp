#include "config/PropertyNames.h"

#include <algorithm>
#include <array>

namespace kv {
namespace {

using Name = std::string_view;

constexpr std::array<Name, 13> kMain{"*Default Administrator",
                                     "*Administrator",
                                     "*User",
                                     "*Anonymous",
                                     "*Default Language",
                                     "*Optional Language 1",
                                     "*Optional Language 2",
                                     "*Optional Language 3",
                                     "*Optional Language 4",
                                     "*Using Unicode",
                                     "*Session expire time",
                                     "*Upload Temp Folder",
                                     "*User Home Folder"};

constexpr std::array<Name, 4> kDefaultAdmin{"*Account Type", "*Password", "*Password Set Date",
                                            "*Language"};

constexpr std::array<Name, 9> kUser{"*User ID",           "*Account Type", "*Password",
                                    "*Password Set Date", "*First Name",   "*Last Name",
                                    "*Language",          "*Home Folder",  "*Department"};

constexpr std::array<Name, 26> kAnonymous{
    "*UserID",  "*Account Type",                                         //
    "*Root 1",  "*Folder 1",     "*Download 1", "*Upload 1", "*Read 1",  //
    "*Write 1", "*Execute 1",    "*Move 1",                              //
    "*Root 2",  "*Folder 2",     "*Download 2", "*Upload 2", "*Read 2",  //
    "*Write 2", "*Execute 2",    "*Move 2",                              //
    "*Root 3",  "*Folder 3",     "*Download 3", "*Upload 3", "*Read 3",  //
    "*Write 3", "*Execute 3",    "*Move 3"};

constexpr std::array<Name, 3> kRoot{"*Alias", "*Path-name", "*Usage"};

constexpr std::array<Name, 9> kPermission{"*Alias",    "*Root Alias", "*Path-name",
                                          "*Download", "*Upload",     "*Read",
                                          "*Write",    "*Execute",    "*Move"};

constexpr std::array<Name, 1> kInstall{"*kvi"};

struct NameSet {
    FileType type;
    std::span<const Name> names;
};

constexpr NameSet kSets[] = {
    {FileType::Main, kMain},       {FileType::DefaultAdmin, kDefaultAdmin},
    {FileType::User, kUser},       {FileType::Anonymous, kAnonymous},
    {FileType::Root, kRoot},       {FileType::Permission, kPermission},
    {FileType::Install, kInstall},
};

static_assert(std::ranges::all_of(kSets, [](const NameSet& set) {
    return set.names.size() <= kMaxProperties;
}));

}  // namespace

std::span<const std::string_view> propertyNames(std::int32_t typeCode) noexcept {
    for (const NameSet& set : kSets)
        if (static_cast<std::int32_t>(set.type) == typeCode) return set.names;
    return {};
}

std::span<const std::string_view> propertyNames(FileType type) noexcept {
    return propertyNames(static_cast<std::int32_t>(type));
}

}  // namespace kv
