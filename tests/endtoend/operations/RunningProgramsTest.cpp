// Programs of the product that the web server runs: "already open" for whoever would replace or
// delete them, as Windows says of neither in the same way.
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/endtoend/driver/Starting.h"
#include "tests/endtoend/steps/Operations.h"

namespace kv::endtoend {

namespace {

const std::string kProgram = "server\\cgi-bin\\kv\\kvjs.exe";
// Runs as long as the object lives, without doing anything.
class RunningProgram {
public:
    explicit RunningProgram(const std::string& path) {
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        if (!starts([&] {
                return CreateProcessA(path.c_str(), nullptr, nullptr, nullptr, FALSE,
                                      CREATE_SUSPENDED, nullptr, nullptr, &startup, &process_);
            }))
            throw DriverFailure("cannot start " + path);
    }
    ~RunningProgram() {
        TerminateProcess(process_.hProcess, 0);
        WaitForSingleObject(process_.hProcess, INFINITE);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

private:
    PROCESS_INFORMATION process_{};
};

}  // namespace

class RunningPrograms : public Operations {
protected:
    void confirmWhileItRuns() {
        const RunningProgram running(path(kProgram));
        confirm();
    }
};

TEST_F(RunningPrograms, AreAlreadyOpenToADeletion) {
    haveInstallation(old_);
    const Tree before = place().tree();
    Tree expected = afterDeletion(before, old_);
    expected["server\\cgi-bin\\kv\\"] = "";
    expected[kProgram] = before.at(kProgram);
    pick(kDeleteLabel, 10);

    confirmWhileItRuns();

    expectTreeBesideLog(expected);
    expectLog({std::string(kLockedDeletion), std::string(kFolderNotEmpty)});
}

TEST_F(RunningPrograms, AreAlreadyOpenToACopy) {
    haveUpgradeAtHand(old_);
    place().write("product\\bin\\kvjs.exe", "a newer program");
    const Tree before = place().tree();
    Tree expected = afterUpgrade(before, old_);
    expected[kProgram] = before.at(kProgram);
    pick(kUpgradeLabel, 10);

    confirmWhileItRuns();

    expectTreeBesideLog(expected);
    expectLog({std::string(kLockedCopy)});
}

TEST_F(RunningPrograms, AreAlreadyOpenToAModificationInPlace) {
    haveInstallation(old_);
    const Tree expected = place().tree();
    goToModification(old_);

    confirmWhileItRuns();

    expectTreeBesideLog(expected);
    expectLog(
        {std::string(kLockedDeletion), std::string(kFolderNotEmpty), std::string(kLockedCopy)});
}

// Once it has ended, the operation that the guide says to repeat does the rest.
TEST_F(RunningPrograms, AreDeletedWhenTheyHaveEnded) {
    haveInstallation(old_);
    pick(kDeleteLabel, 10);
    confirmWhileItRuns();
    place().write(settingsPath(), recordOf(old_));

    removeInstallation();

    EXPECT_FALSE(place().exists("server\\cgi-bin\\kv"));
}

TEST_F(RunningPrograms, AreNotWhatAReadOnlyMarkIsTakenFor) {
    haveInstallation(old_);
    place().makeReadOnly(kProgram);
    pick(kDeleteLabel, 10);

    confirm();

    expectLog({std::string(kRefusedDeletion), std::string(kFolderNotEmpty)});
}

}  // namespace kv::endtoend
