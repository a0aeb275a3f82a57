#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/endtoend/driver/Pictures.h"
#include "tests/endtoend/steps/Scenario.h"
#include "tests/model/Form.h"

namespace kv::endtoend {

class Pictures : public Scenario {
protected:
    // A control without its picture has the colours of its edge and its face.
    static void expectPicture(const ControlView& control) {
        constexpr std::size_t kOfAPicture = 16;
        const Picture picture = takePicture(control.handle);
        const std::set<std::uint32_t> colours(picture.pixels.begin(), picture.pixels.end());
        EXPECT_GE(colours.size(), kOfAPicture)
            << "at " << control.box.left << ", " << control.box.top;
    }

    // Those without a text that are as large as the control of the design.
    std::vector<ControlView> sameAs(const char* name) const {
        const design::Box& box = design::controlOf(name).box;
        std::vector<ControlView> found = wizard().visibleControls();
        std::erase_if(found, [&](const ControlView& view) {
            return !view.text.empty() || view.box.width != box.width / 15 ||
                   view.box.height != box.height / 15;
        });
        return found;
    }
};

TEST_F(Pictures, TheSidePictureAndThoseOfTheActionsAreDrawn) {
    recordInstallation();
    start();
    next(wizard(), 13);

    const std::vector<ControlView> side = sameAs("PicConfig");
    const std::vector<ControlView> actions = sameAs("cmdModify");

    ASSERT_EQ(side.size(), 1U);
    EXPECT_EQ(actions.size(), 3U);
    expectPicture(side[0]);
    for (const ControlView& action : actions) expectPicture(action);
}

}  // namespace kv::endtoend
