// The sample disk beside the model of what operations make of it, and a wizard whose calls and
// failures are witnessed.
#pragma once

#include <string>
#include <vector>

#include "tests/model/Operations.h"
#include "tests/support/Wizard.h"

namespace kv {

// All that lies on drive C, the log's file left out.
Tree imageOf(const SampleDisk& disk);

Site sampleSite(Server server, UrlStyle style = UrlStyle::Kv);

// Gives every file of the product's folder that is deployed a new content.
void unpackNewerFiles(Tree& image);

// Brings the image's files and folders to the disk, a deployment, and newer files of the product.
void bring(const Tree& image, SampleDisk& disk);
void installBeforehand(SampleDisk& disk, const Site& site);
void unpackNewerFiles(SampleDisk& disk);

// Walks from panel 1 to the confirmation, with all choices and texts made anew.
void describeSite(frmWebConfig& form, const Site& site);

// The progress line's next widths, in twips.
Lines widths(int from, int step, int count);
std::string width(int twips);

// What the finish panel's user has seen change, in order: captions, the progress line and whether
// the window can be finished.
Lines finishPanelChanges(const RecordingObserver& observer);

// A file system around the one that keeps a journal; this one keeps what failed.
class Witness final : public FileSystem {
public:
    struct Failure {
        std::size_t line;  // of the journal
        int number;
    };

    explicit Witness(FaultyFileSystem& inner) noexcept : inner_(inner) {}

    void copyFile(const std::string& source, const std::string& destination) override;
    void deleteFiles(const std::string& pattern) override;
    void makeDirectory(const std::string& path) override;
    void removeDirectory(const std::string& path) override;
    std::optional<std::string> findName(const std::string& path, Lookup lookup) override;
    std::int64_t fileLength(const std::string& path) override;
    std::unique_ptr<OpenFile> openForWrite(const std::string& path) override;
    std::unique_ptr<OpenFile> openForRead(const std::string& path) override;
    void append(const std::string& path, std::string_view bytes) override;

    std::vector<Failure> failures;

private:
    class File;

    template <class Call>
    auto witnessed(Call&& call) {
        try {
            return call();
        } catch (const RunTimeError& failure) {
            failures.push_back({inner_.journal().size() - 1, failure.number()});
            throw;
        }
    }

    FaultyFileSystem& inner_;
};

// A started wizard whose calls' failures are witnessed.
class WitnessedWizard {
public:
    explicit WitnessedWizard(FaultyFileSystem& files);

    // Forgets what has been seen so far; then presses Next, which runs the operation.
    void run();

    Witness witness;
    FakeClock clock;
    FakeShell shell;
    FakeMessageBoxes messages;
    frmWebConfig form;
    RecordingObserver observer;
    Program program{form, {kSamplePlace, "kvwcfg"}, witness, clock, shell, messages};

private:
    FaultyFileSystem& files_;
};

}  // namespace kv
