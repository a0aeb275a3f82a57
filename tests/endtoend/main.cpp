#include <gtest/gtest.h>

#include "Desktop.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const kv::endtoend::UnmanagedWindows unmanagedWindows;
    return RUN_ALL_TESTS();
}
