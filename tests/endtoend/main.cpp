#include <cstdio>

#include <gtest/gtest.h>

#include "tests/endtoend/driver/Desktop.h"
#include "tests/endtoend/driver/Evidence.h"

namespace {

// The first failure of a test shows its cause best, and the wizard is still there.
class EvidenceKeeper : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { kept_ = false; }

    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (!result.failed() || kept_) return;
        kept_ = true;
        std::printf("%s\n", kv::endtoend::keepEvidence().c_str());
    }

    bool kept_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new EvidenceKeeper);
    const kv::endtoend::UnmanagedWindows unmanagedWindows;
    return RUN_ALL_TESTS();
}
