#include "process/ExistingInstallation.h"

#include "common/FailureHandler.h"
#include "common/Numbers.h"
#include "common/Text.h"
#include "config/modKvIOCfg.h"
#include "wizard/form/modWebCfgVariables.h"

namespace kv {

ExistingInstallation::ExistingInstallation(WizardState& state, modKvIOCfg& configuration,
                                           modCmnLog& log)
    : state_(state), configuration_(configuration), log_(log) {}

int ExistingInstallation::wcpConfigInstallRead(const std::string& folder,
                                               const std::string& extension) noexcept {
    int result = 0;
    FailureHandler(log_, "wcpConfigInstallRead")([&] {
        std::string text;
        result = configuration_.iocCfgReadFile(folder, "kvi", extension, text, true);
        if (result != 0) return;

        std::vector<std::string> data;
        result = configuration_.iocCfgReadFileParseData(text, state_.CfgHeaderValues,
                                                        state_.CfgPropertyValues, data);
        std::string& productFolder = state_.CfgPropertyValues[0];
        if (result == 0 && trim(productFolder).empty()) productFolder = state_.ProductFolder + "\\";
        takeEntries(data);
    });
    return result;
}

void ExistingInstallation::takeEntries(const std::vector<std::string>& data) {
    // A file that has not even told the number of its rows has no list to count.
    if (data.empty()) throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    const std::size_t upperIndex = data.size() - 1;

    std::int16_t count = 0;
    for (std::size_t row = 0; row + kInstallColumns <= upperIndex; row += kInstallColumns) {
        state_.InstallEntries.resize(static_cast<std::size_t>(count) + 2);
        elementAt(state_.InstallEntries, count) = entryAt(data, row);
        count = checkedInt16(count + 1);
    }
    state_.InstallEntryCount = count;
}

}  // namespace kv
