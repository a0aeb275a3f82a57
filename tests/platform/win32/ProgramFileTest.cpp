#include "platform/win32/system/ProgramFile.h"

#include <gtest/gtest.h>

namespace kv {
namespace {

// That the system fails to tell cannot be brought about.
TEST(ProgramFile, IsTheRunningOneWithoutItsEnding) {
    const ProgramFile file = runningProgram();

    EXPECT_EQ(file.baseName, "kv_unit_tests");
    EXPECT_EQ(file.folder.substr(1, 2), ":\\");
    EXPECT_TRUE(file.folder.ends_with("\\tests")) << file.folder;
}

}  // namespace
}  // namespace kv
