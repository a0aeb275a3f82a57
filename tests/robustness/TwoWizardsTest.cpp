// Two wizards at work on one product at the same time.
//
// KV_ROUNDS says how often (5 unless told).
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Ground.h"
#include "LogLines.h"
#include "PanelTexts.h"
#include "QuickUser.h"

namespace kv::endtoend {

TEST(TwoWizards, NeverTearALineOfTheLog) {
    const int rounds = countFromEnvironment("KV_ROUNDS", 5);
    const Ground ground("TwoWizards");
    // Nothing is there to be deleted and few files to be copied: each has some sixty failures, more
    // than it keeps in memory.
    Tree before = ground.before(Operation::kModify);
    for (const char* folder : {"server\\htdocs\\", "server\\cgi-bin\\", "product\\web-root\\"}) {
        std::erase_if(before, [&](const auto& item) {
            return item.first.starts_with(folder) && item.first != folder;
        });
    }
    int lines = 0;

    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        ground.restore(before);
        std::vector<std::unique_ptr<WizardDriver>> wizards;
        for (const std::string& server : {kFirstServer, kSecondServer}) {
            wizards.push_back(ground.start());
            ground.goToConfirmation(*wizards.back(), Operation::kModify, server);
        }
        for (const auto& wizard : wizards) {
            pressAndLeave(*wizard, kNext);
        }
        for (const auto& wizard : wizards) {
            wizard->waitForOperationEnd();
        }
        for (const auto& wizard : wizards) {
            pressAndLeave(*wizard, kFinish);
        }
        for (const auto& wizard : wizards) {
            EXPECT_EQ(wizard->waitForExit(), 0U);
        }

        const LogLines log = readLog(ground.log());
        EXPECT_EQ(log.torn, std::vector<std::string>{});
        EXPECT_GE(log.whole, 120);
        lines += log.whole;
    }
    std::printf("two wizards: %d rounds, %d lines, none torn\n", rounds, lines);
}

}  // namespace kv::endtoend
