// Walks through the real window, back and forth, in one process.
//
// KV_WALKS says how many (40 unless told).
#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/robustness/Ground.h"
#include "tests/robustness/QuickUser.h"
#include "tests/robustness/Resources.h"

namespace kv::endtoend {

namespace {

constexpr int kWarmUp = 20;  // what is made once and kept is made by then
constexpr std::size_t kMemoryNoise = 256 * 1024;

// The system takes something for the first drawing of each control and keeps it. A panel left again
// before it was drawn would take that on some later walk.
void pressAndDraw(const WizardDriver& wizard, std::string_view caption) {
    press(wizard, caption);
    RedrawWindow(wizard.window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void walk(const WizardDriver& wizard, const Ground& ground) {
    pressAndDraw(wizard, kNext);
    pressAndDraw(wizard, kInstalledNothing);
    pressAndDraw(wizard, kNext);
    pressAndDraw(wizard, kInstallingApache);
    pressAndDraw(wizard, kNext);
    pressAndDraw(wizard, kNext);
    pressAndDraw(wizard, kUrlKv);
    pressAndDraw(wizard, kNext);
    put(wizard, 0, ground.home(ground.first()) + "\\");
    put(wizard, 1, ground.scripts(ground.first()));
    pressAndDraw(wizard, kNext);
    put(wizard, 0, "10.0.0.1");
    put(wizard, 1, "8080");
    pressAndDraw(wizard, kNext);
    ASSERT_EQ(wizard.currentPanel(), 10);
    for (int panel = 0; panel < 7; ++panel) pressAndDraw(wizard, kBack);
    ASSERT_EQ(wizard.currentPanel(), 0);
}

}  // namespace

TEST(Walks, GiveBackAllThatTheyTake) {
    const int walks = countFromEnvironment("KV_WALKS", 40);
    const Ground ground("Walks");
    const Tree before = ground.place().tree();
    const auto wizard = ground.start();
    for (int i = 0; i < kWarmUp; ++i) ASSERT_NO_FATAL_FAILURE(walk(*wizard, ground));
    const Resources first = settledResourcesOf(wizard->process());
    ASSERT_GT(first.windows, 100U);
    ASSERT_GT(first.gdiObjects, 5U);
    ASSERT_GT(first.handles, 5U);
    ASSERT_GT(first.privateBytes, 0U);

    for (int i = 0; i < walks; ++i) ASSERT_NO_FATAL_FAILURE(walk(*wizard, ground));

    const Resources last = settledResourcesOf(wizard->process());
    std::printf("after %d walks: %s\nafter %d walks: %s\n", kWarmUp, describe(first).c_str(),
                kWarmUp + walks, describe(last).c_str());
    EXPECT_EQ(last.handles, first.handles);
    EXPECT_EQ(last.gdiObjects, first.gdiObjects);
    EXPECT_EQ(last.userObjects, first.userObjects);
    EXPECT_EQ(last.windows, first.windows);
    EXPECT_LE(last.privateBytes, first.privateBytes + kMemoryNoise);
    EXPECT_EQ(differences(before, ground.place().tree()), "");
}

}  // namespace kv::endtoend
