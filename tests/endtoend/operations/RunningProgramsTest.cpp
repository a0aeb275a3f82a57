// Programs of the product that the web server runs: "already open" for whoever would replace or
// delete them, as Windows says of neither in the same way.
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <windows.h>

#include "Damage.h"
#include "Operations.h"
#include "Starting.h"

namespace kv::endtoend {

namespace {

const std::string kProgram = "server\\cgi-bin\\kv\\kvjs.exe";
constexpr std::string_view kRunningDeletion = "SERV  55, File already open, ioDeleteFile";
constexpr std::string_view kRefusedDeletion = "WARN  75, Path/File access error, ioDeleteFile";
constexpr std::string_view kFolderNotEmpty = "SERV  75, Path/File access error, ioDeleteDirectory";

// Runs as long as the object lives, without doing anything.
class RunningProgram {
public:
    explicit RunningProgram(const std::string& path) {
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        if (!starts([&] {
                return CreateProcessA(path.c_str(), nullptr, nullptr, nullptr, FALSE,
                                      CREATE_SUSPENDED, nullptr, nullptr, &startup, &process_);
            })) {
            throw DriverFailure("cannot start " + path);
        }
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
    haveInstallation(kOld);
    Tree expected = place().tree();
    const std::string program = expected.at(kProgram);
    takeAway(expected, kOld);
    expected[settingsPath()] = emptyRecord();
    expected["server\\cgi-bin\\kv\\"] = "";
    expected[kProgram] = program;
    pick(kDeleteLabel, 10);

    confirmWhileItRuns();

    expectTreeBesideLog(expected);
    expectLog({std::string(kRunningDeletion), std::string(kFolderNotEmpty)});
}

TEST_F(RunningPrograms, AreAlreadyOpenToACopy) {
    haveUpgradeAtHand();
    place().write("product\\bin\\kvjs.exe", "a newer program");
    const Tree expected = upgraded(place().tree());
    pick(kUpgradeLabel, 10);

    confirmWhileItRuns();

    expectTreeBesideLog(expected);
    expectLog({std::string(kLockedCopy)});
}

TEST_F(RunningPrograms, AreAlreadyOpenToAModificationInPlace) {
    haveInstallation(kOld);
    const Tree expected = place().tree();
    goToModification(kOld);

    confirmWhileItRuns();

    expectTreeBesideLog(expected);
    expectLog(
        {std::string(kRunningDeletion), std::string(kFolderNotEmpty), std::string(kLockedCopy)});
}

// Once it has ended, the operation that the guide says to repeat does the rest.
TEST_F(RunningPrograms, AreDeletedWhenTheyHaveEnded) {
    haveInstallation(kOld);
    pick(kDeleteLabel, 10);
    confirmWhileItRuns();
    place().write(settingsPath(), record(kOld));

    removeInstallation();

    EXPECT_FALSE(place().exists("server\\cgi-bin\\kv"));
}

TEST_F(RunningPrograms, AreNotWhatAReadOnlyMarkIsTakenFor) {
    haveInstallation(kOld);
    place().makeReadOnly(kProgram);
    pick(kDeleteLabel, 10);

    confirm();

    expectLog({std::string(kRefusedDeletion), std::string(kFolderNotEmpty)});
}

}  // namespace kv::endtoend
