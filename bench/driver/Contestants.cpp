#include "Contestants.h"

#include <array>
#include <string_view>

#include "PanelTexts.h"
#include "Processes.h"
#include "Roads.h"
#include "WizardDriver.h"

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
    Floor(std::string name, std::string file) : name_(std::move(name)), file_(std::move(file)) {}

    std::string name() const override { return name_; }

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
    std::string name_;
    std::string file_;
};

// Its one button says in turn "Install" and, at first dead, "Close".
class NsisInteractive : public Contestant {
public:
    explicit NsisInteractive(std::string file) : file_(std::move(file)) {}

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

class NsisSilent : public Windowless {
public:
    explicit NsisSilent(std::string file) : file_(std::move(file)) {}

    std::string name() const override { return "nsis-silent"; }

protected:
    std::string command(const Place&) const override { return quoted(file_) + " /S"; }

private:
    std::string file_;
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

// A handle that a child inherits.
class Pipe {
public:
    Pipe() {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        CreatePipe(&reading, &writing, &inherited, 0);
    }
    ~Pipe() {
        CloseHandle(reading);
        CloseHandle(writing);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
};

// The script is called at a command prompt that is open already, so that its time holds no start.
class Script : public Contestant {
public:
    explicit Script(std::string file) : file_(std::move(file)) {}

    std::string name() const override { return "cmd"; }

    std::vector<Measurement> run(const Place& place) const override {
        const Pipe input;
        const Pipe output;
        STARTUPINFOA startup{};
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = input.reading;
        startup.hStdOutput = output.writing;
        startup.hStdError = output.writing;
        const Process process("cmd.exe /d /q", DETACHED_PROCESS, startup);
        type(input, "echo rea^dy");
        waitFor(output, "ready");

        const StopWatch working;
        type(input, "call " + file_ + arguments(place));
        waitFor(output, "installed");
        const Measurement job{kJob, working.milliseconds()};
        const Measurement memory = memoryOf(process.handle());

        type(input, "exit");
        process.waitForExit();
        return {job, memory};
    }

private:
    static void type(const Pipe& pipe, const std::string& line) {
        const std::string bytes = line + "\r\n";
        DWORD written = 0;
        WriteFile(pipe.writing, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    }

    static void waitFor(const Pipe& pipe, std::string_view text) {
        std::string read;
        std::array<char, 4096> bytes{};
        while (read.find(text) == read.npos) {
            DWORD count = 0;
            if (!ReadFile(pipe.reading, bytes.data(), static_cast<DWORD>(bytes.size()), &count,
                          nullptr)) {
                throw BenchFailure("the command prompt says no more after: " + read);
            }
            read.append(bytes.data(), count);
        }
    }

    std::string file_;
};

// The same script as an icon is double-clicked: with a command interpreter of its own.
class ScriptFromStart : public Windowless {
public:
    explicit ScriptFromStart(std::string file) : file_(std::move(file)) {}

    std::string name() const override { return "cmd-start"; }

protected:
    std::string command(const Place& place) const override {
        return "cmd.exe /d /c call " + file_ + arguments(place);
    }

private:
    std::string file_;
};

}  // namespace

std::vector<std::unique_ptr<Contestant>> makeContestants(const std::string& floors,
                                                         const std::string& rivals) {
    std::vector<std::unique_ptr<Contestant>> all;
    all.push_back(std::make_unique<Wizard>());
    all.push_back(std::make_unique<Floor>("floor", floors + "\\kv_bench_floor.exe"));
    all.push_back(std::make_unique<Floor>("floor-plain", floors + "\\kv_bench_plain_floor.exe"));
    all.push_back(std::make_unique<NsisInteractive>(rivals + "\\setup.exe"));
    all.push_back(std::make_unique<NsisSilent>(rivals + "\\setup.exe"));
    all.push_back(std::make_unique<Script>(rivals + "\\setup.cmd"));
    all.push_back(std::make_unique<ScriptFromStart>(rivals + "\\setup.cmd"));
    all.push_back(std::make_unique<Package>(rivals + "\\setup.msi"));
    return all;
}

}  // namespace kv::bench
