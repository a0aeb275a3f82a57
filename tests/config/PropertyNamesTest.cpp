#include "config/PropertyNames.h"

#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "config/modKvIOCfg.h"

namespace kv {
namespace {

struct Set {
    const char* name;
    FileType type;
    std::int32_t code;
    std::string_view (*nameOf)(std::int16_t index);
    std::vector<std::string_view> names;
};

// Printed by name in a failed test's message.
void PrintTo(const Set& set, std::ostream* out) { *out << set.name; }

class PropertyNames : public testing::TestWithParam<Set> {
protected:
    // The names by the routine, for as many indexes as the set has names.
    template <class Routine>
    static std::vector<std::string_view> listed(const Routine& routine) {
        std::vector<std::string_view> names;
        for (std::size_t i = 0; i < GetParam().names.size(); ++i)
            names.push_back(routine(static_cast<std::int16_t>(i)));
        return names;
    }
};

TEST_P(PropertyNames, AreThoseOfTheType) {
    const auto byType = propertyNames(GetParam().type);
    const auto byCode = propertyNames(GetParam().code);

    EXPECT_EQ(std::vector(byType.begin(), byType.end()), GetParam().names);
    EXPECT_EQ(std::vector(byCode.begin(), byCode.end()), GetParam().names);
}

TEST_P(PropertyNames, AreFoundByIndex) {
    EXPECT_EQ(listed(GetParam().nameOf), GetParam().names);
    EXPECT_EQ(listed([](std::int16_t index) {
                  return modKvIOCfg::iocCfgWriteFilePropertyName(GetParam().code, index);
              }),
              GetParam().names);
}

TEST_P(PropertyNames, AreEmptyForAnIndexThatTheSetDoesNotHave) {
    for (const int index : {static_cast<int>(GetParam().names.size()), -1, 26, 32767, -32768}) {
        const auto index16 = static_cast<std::int16_t>(index);
        EXPECT_EQ(GetParam().nameOf(index16), "") << index;
        EXPECT_EQ(modKvIOCfg::iocCfgWriteFilePropertyName(GetParam().code, index16), "") << index;
    }
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryType, PropertyNames,
    testing::Values(Set{"Main",
                        FileType::Main,
                        1001,
                        modKvIOCfg::iocCfgWriteFilePropertyName4Main,
                        {"*Default Administrator", "*Administrator", "*User", "*Anonymous",
                         "*Default Language", "*Optional Language 1", "*Optional Language 2",
                         "*Optional Language 3", "*Optional Language 4", "*Using Unicode",
                         "*Session expire time", "*Upload Temp Folder", "*User Home Folder"}},
                    Set{"DefaultAdmin",
                        FileType::DefaultAdmin,
                        1002,
                        modKvIOCfg::iocCfgWriteFilePropertyName4DefaultAdmin,
                        {"*Account Type", "*Password", "*Password Set Date", "*Language"}},
                    Set{"User",
                        FileType::User,
                        1004,
                        modKvIOCfg::iocCfgWriteFilePropertyName4User,
                        {"*User ID", "*Account Type", "*Password", "*Password Set Date",
                         "*First Name", "*Last Name", "*Language", "*Home Folder", "*Department"}},
                    Set{"Anonymous",
                        FileType::Anonymous,
                        1005,
                        modKvIOCfg::iocCfgWriteFilePropertyName4Anonymous,
                        {"*UserID",     "*Account Type", "*Root 1",     "*Folder 1",  "*Download 1",
                         "*Upload 1",   "*Read 1",       "*Write 1",    "*Execute 1", "*Move 1",
                         "*Root 2",     "*Folder 2",     "*Download 2", "*Upload 2",  "*Read 2",
                         "*Write 2",    "*Execute 2",    "*Move 2",     "*Root 3",    "*Folder 3",
                         "*Download 3", "*Upload 3",     "*Read 3",     "*Write 3",   "*Execute 3",
                         "*Move 3"}},
                    Set{"Root",
                        FileType::Root,
                        1006,
                        modKvIOCfg::iocCfgWriteFilePropertyName4Root,
                        {"*Alias", "*Path-name", "*Usage"}},
                    Set{"Permission",
                        FileType::Permission,
                        1007,
                        modKvIOCfg::iocCfgWriteFilePropertyName4Permission,
                        {"*Alias", "*Root Alias", "*Path-name", "*Download", "*Upload", "*Read",
                         "*Write", "*Execute", "*Move"}},
                    Set{"Install",
                        FileType::Install,
                        1008,
                        modKvIOCfg::iocCfgWriteFilePropertyName4Install,
                        {"*kvi"}}),
    [](const auto& set) { return std::string(set.param.name); });

class CodeWithoutASet : public testing::TestWithParam<std::int32_t> {};

TEST_P(CodeWithoutASet, HasNoNames) {
    EXPECT_TRUE(propertyNames(GetParam()).empty());
    for (std::int16_t index = 0; index < 30; ++index)
        EXPECT_EQ(modKvIOCfg::iocCfgWriteFilePropertyName(GetParam(), index), "") << index;
}

INSTANTIATE_TEST_SUITE_P(PropertyNames, CodeWithoutASet,
                         testing::Values(1003, 0, 1, 1000, 1009, -1001,
                                         std::numeric_limits<std::int32_t>::max(),
                                         std::numeric_limits<std::int32_t>::min()));

TEST(PropertyNames, TheLargestSetHas26) {
    EXPECT_EQ(kMaxProperties, 26U);
    EXPECT_EQ(propertyNames(FileType::Anonymous).size(), kMaxProperties);
}

}  // namespace
}  // namespace kv
