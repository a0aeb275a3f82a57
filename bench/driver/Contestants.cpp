#include "bench/driver/Contestants.h"

#include "bench/driver/Processes.h"
#include "tests/endtoend/driver/WizardDriver.h"
#include "tests/endtoend/steps/PanelTexts.h"
#include "tests/endtoend/steps/Roads.h"

namespace kv::bench {

namespace {

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

// The folders as the floor and the script take them.
std::string arguments(const Place& place) {
    return " " + quoted(place.program()) + " " + quoted(place.product()) + " " +
           quoted(place.home()) + " " + quoted(place.scripts());
}

bool canBePressed(HWND button) { return IsWindowVisible(button) && IsWindowEnabled(button); }

Measurement memoryOf(HANDLE process) {
    return {kMemory, static_cast<double>(peakWorkingSet(process))};
}

class Wizard : public Contestant {
public:
    std::string name() const override { return "wizard"; }

    std::vector<Measurement> run(const Place& place) const override {
        const StopWatch starting;
        Process process(place.wizard());
        waitForWindow(process.handle(), process.id(), std::string(endtoend::kWindowClass));
        const Measurement start{kStart, starting.milliseconds()};

        const endtoend::WizardDriver driver(process.release());
        walk(driver, place);
        const HWND next = driver.button(endtoend::kNext).handle;
        const HWND finish = driver.frameButton(endtoend::kFinish).handle;
        letTheWindowSettle();
        const StopWatch working;
        click(next);
        waitForAnswer(driver.window(), [finish] { return canBePressed(finish); });
        const Measurement job{kJob, working.milliseconds()};
        const Measurement memory = memoryOf(driver.process());

        if (!driver.shows(endtoend::kCompleted)) {
            throw BenchFailure("the wizard does not tell of its end");
        }
        click(finish);
        driver.waitForExit();
        return {start, job, memory};
    }

private:
    static void walk(const endtoend::WizardDriver& driver, const Place& place) {
        if (driver.currentPanel() != 0) {
            throw BenchFailure("the wizard does not open on its Welcome panel");
        }
        endtoend::next(driver, 1);
        endtoend::chooseServer(driver, endtoend::kApacheInstalled);
        endtoend::chooseUrl(driver, endtoend::kUrlDefault, 7);
        endtoend::enterFolders(driver, place.home(), place.scripts());
        endtoend::next(driver, 10);
    }
};

class Floor : public Contestant {
public:
    explicit Floor(std::string file) : file_(std::move(file)) {}

    std::string name() const override { return "floor"; }

    std::vector<Measurement> run(const Place& place) const override {
        const StopWatch starting;
        const Process process(quoted(file_) + arguments(place));
        const HWND window = waitForWindow(process.handle(), process.id(), "kvFloor");
        const Measurement start{kStart, starting.milliseconds()};

        const HWND next = GetDlgItem(window, 1);
        const HWND finish = GetDlgItem(window, 2);
        letTheWindowSettle();
        const StopWatch working;
        click(next);
        waitForAnswer(window, [finish] { return canBePressed(finish); });
        const Measurement job{kJob, working.milliseconds()};
        const Measurement memory = memoryOf(process.handle());

        click(finish);
        process.waitForExit();
        return {start, job, memory};
    }

private:
    std::string file_;
};

// Its one button says in turn "Install" and, at first dead, "Close".
class Nsis : public Contestant {
public:
    explicit Nsis(std::string file) : file_(std::move(file)) {}

    std::string name() const override { return "nsis"; }

    std::vector<Measurement> run(const Place&) const override {
        const StopWatch starting;
        const Process process(quoted(file_));
        const HWND window = waitForWelcome(process);
        const Measurement start{kStart, starting.milliseconds()};

        const HWND button = GetDlgItem(window, IDOK);
        letTheWindowSettle();
        const StopWatch working;
        click(button);
        waitForAnswer(window,
                      [button] { return captionOf(button) == "&Close" && canBePressed(button); });
        const Measurement job{kJob, working.milliseconds()};
        const Measurement memory = memoryOf(process.handle());

        click(button);
        process.waitForExit();
        return {start, job, memory};
    }

private:
    // A small window may tell that it unpacks itself before the one with the button comes.
    static HWND waitForWelcome(const Process& process) {
        for (;;) {
            const HWND window = waitForWindow(process.handle(), process.id(), "#32770");
            if (captionOf(GetDlgItem(window, IDOK)) == "&Install") {
                return window;
            }
            Sleep(1);
        }
    }

    std::string file_;
};

// A program without a window is at work from its start to its end.
class Windowless : public Contestant {
public:
    std::vector<Measurement> run(const Place& place) const override {
        const StopWatch working;
        const Process process(command(place), DETACHED_PROCESS);
        if (const DWORD code = process.waitForExit(); code != 0) {
            throw BenchFailure(name() + " ends with code " + std::to_string(code));
        }
        return {{kJob, working.milliseconds()}};
    }

    std::vector<Measurement> weigh(const Place& place) const override {
        const Process process(command(place), DETACHED_PROCESS);
        return {{kMemory, static_cast<double>(process.waitForExitAndWatchMemory())}};
    }

protected:
    virtual std::string command(const Place& place) const = 0;
};

class Package : public Windowless {
public:
    explicit Package(std::string file) : file_(std::move(file)) {}

    std::string name() const override { return "msi"; }

    void cleanUp() const override {
        const Process process("msiexec.exe /x " + quoted(file_) + " /qn");
        process.waitForExit();
    }

protected:
    std::string command(const Place& place) const override {
        return "msiexec.exe /i " + quoted(file_) + " /qn REINSTALLMODE=amus" +
               " HOMEFOLDER=" + quoted(place.home() + "\\") +
               " SCRIPTSFOLDER=" + quoted(place.scripts() + "\\") +
               " PROGRAMFOLDER=" + quoted(place.program() + "\\") +
               " HELPFOLDER=" + quoted(place.product() + "\\hlp\\eng\\");
    }

private:
    std::string file_;
};

// As an icon is double-clicked: with a command interpreter of its own.
class Script : public Windowless {
public:
    explicit Script(std::string file) : file_(std::move(file)) {}

    std::string name() const override { return "cmd"; }

protected:
    std::string command(const Place& place) const override {
        return "cmd.exe /d /c call " + file_ + arguments(place);
    }

private:
    std::string file_;
};

}  // namespace

std::vector<std::unique_ptr<Contestant>> makeContestants(const std::string& floor,
                                                         const std::string& rivals) {
    std::vector<std::unique_ptr<Contestant>> all;
    all.push_back(std::make_unique<Wizard>());
    all.push_back(std::make_unique<Floor>(floor));
    all.push_back(std::make_unique<Nsis>(rivals + "\\setup.exe"));
    all.push_back(std::make_unique<Script>(rivals + "\\setup.cmd"));
    all.push_back(std::make_unique<Package>(rivals + "\\setup.msi"));
    return all;
}

}  // namespace kv::bench
