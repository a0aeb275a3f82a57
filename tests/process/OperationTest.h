// An operation on the sample disk, from the start of a wizard to its end.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string_view>

#include "tests/support/Deployment.h"

namespace kv {

// What the user sees change on the finish panel when an operation begins and when it has ended.
inline Lines opening(const std::string& title, const std::string& firstStage) {
    return {"cmdFinish Enabled yes", "picPanel(11) Visible yes", "cmdFinish Enabled no",
            "lblFinishDescription Caption " + title, "lblFinishInstruction Caption " + firstStage};
}
inline Lines stage(const std::string& caption) {
    return {"lblFinishInstruction Caption " + caption};
}
inline Lines closing(
    const std::string& title = "Configuration completed",
    const std::string& instruction = "The configuration completed, click on Finish to exit.") {
    return {"lblFinishDescription Caption " + title, "lblFinishInstruction Caption " + instruction,
            "cmdFinish Enabled yes"};
}

class OperationTest : public testing::Test {
protected:
    // The wizard starts with the first use.
    Wizard& wizard() {
        if (!wizard_) wizard_ = startedWizard(disk_);
        return *wizard_;
    }
    frmWebConfig& form() { return wizard().form; }

    // From the Welcome panel by that button of the action panel, in a new wizard when one has
    // ended.
    void choose(CommandButton frmWebConfig::*action) {
        if (wizard().observer.closings > 0) wizard_.reset();
        form().cmdNext.click();
        (form().*action).click();
    }

    // Runs the operation and closes the wizard; returns what the log holds in the end.
    Lines confirm() {
        runOperation(wizard());
        journal_ = disk_.files.journal();
        Wizard& ended = wizard();
        changes_ = finishPanelChanges(ended.observer);
        title_ = ended.form.lblFinishDescription.caption();
        instruction_ = ended.form.lblFinishInstruction.caption();
        progress_ = ended.form.lblProgress.box().width;
        canFinish_ = ended.form.cmdFinish.enabled();
        ended.form.close();
        return disk_.log();
    }

    // What the confirmed operation has shown in the end.
    void expectCompletion(int progress = 5655, std::string_view title = "Configuration completed",
                          std::string_view instruction =
                              "The configuration completed, click on Finish to exit.") const {
        EXPECT_EQ(title_, title);
        EXPECT_EQ(instruction_, instruction);
        EXPECT_TRUE(canFinish_);
        EXPECT_EQ(progress_, progress);
    }

    SampleDisk disk_;

    // Of the confirmed operation.
    Lines journal_;
    Lines changes_;

private:
    std::unique_ptr<Wizard> wizard_;
    std::string title_;
    std::string instruction_;
    int progress_ = 0;
    bool canFinish_ = false;
};

class OperationOfEachServer : public OperationTest, public testing::WithParamInterface<Server> {};

}  // namespace kv
