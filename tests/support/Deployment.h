// What the operations on an installation do to a disk, written out by hand: the files and folders
// that lie there, the calls that bring them there and take them away, and the settings files.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/support/Wizard.h"

namespace kv {

using Lines = std::vector<std::string>;

// Of each file on drive C its path and bytes, the log's file left out; a folder's path ends in "\".
using DiskImage = std::map<std::string, std::string>;
DiskImage imageOf(const SampleDisk& disk);

// A line for each path in which the images differ; nothing when they are equal.
std::string differences(const DiskImage& expected, const DiskImage& actual);

// A web server, how the product is reached through it, and its address.
struct Site {
    Server server;
    UrlStyle style;
    std::string home;
    std::string scripts;
    std::string ip;
    std::string port;
};
Site sampleSite(Server server, UrlStyle style = UrlStyle::Kv);
const char* nameOf(Server server);

// The texts, of which those that begin with H\, S\ or P\ begin with the site's home folder, its
// scripts folder or the product's folder instead.
Lines placed(const Site& site, const Lines& paths);

// The paths of the deployed files in the order of their deletion, of the folders in the order of
// their removal, and the two ends of each copy.
Lines deployedFiles(const Site& site);
Lines deployedFolders(const Site& site);
struct Copy {
    std::string from;
    std::string to;
};
std::vector<Copy> programCopies(const Site& site);
std::vector<Copy> copies(const Site& site);  // those and the web files

// The same as journal lines.
Lines deleteCalls(const Site& site);
Lines removeCalls(const Site& site);
Lines copyCalls(const std::vector<Copy>& copies);

// An installation's seven rows, and the whole bytes of a settings file with such rows.
Lines settingsRows(const Site& site);
std::string settingsBytes(const Lines& rows);
std::string scriptsSettingsBytes(const Site& site);

// The calls that write a settings file of these bytes, one write for each section.
Lines settingsCalls(const std::string& path, const std::string& bytes);

// The same of a file that is emptied first.
Lines rewritingCalls(const std::string& path, const std::string& bytes);

// Puts a deployment of the product that lies on the image into it, with its settings files; takes
// away what a deletion does.
void putDeployment(DiskImage& image, const Site& site);
void removeDeployment(DiskImage& image, const Site& site);

// Gives every file of the product's folder that is deployed a new content.
void unpackNewerFiles(DiskImage& image);

// Brings the image's files and folders to the disk, a deployment, and newer files of the product.
void bring(const DiskImage& image, SampleDisk& disk);
void installBeforehand(SampleDisk& disk, const Site& site);
void unpackNewerFiles(SampleDisk& disk);

// Walks from panel 1 to the confirmation, with all choices and texts made anew.
void describeSite(frmWebConfig& form, const Site& site);

// The lines joined.
Lines joined(std::vector<Lines> parts);

// The first line in which long lists differ; nothing when they are equal.
std::string firstDifference(const Lines& actual, const Lines& expected);

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
