// A disk in memory whose calls fail as wanted, and the account of a run on it: what was called,
// what failed, and what the log and the disk must therefore hold.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Deployment.h"
#include "tests/support/disks/FaultyFileSystem.h"
#include "tests/support/disks/MemoryFileSystem.h"

namespace kv {

// A configuration file and the bytes that a run writes into it.
struct Settings {
    std::string path;
    std::string bytes;
};

class Account {
public:
    Account(const Lines& journal, const std::vector<FaultyFileSystem::Failure>& failures);

    bool lastCallFailed() const { return !calls_.empty() && calls_.back().error != 0; }

    // Whether a configuration file counts as written: it could be opened and closed.
    bool recorded(const std::string& path) const;

    // Whether none of the calls that read the file has failed.
    bool readable(const std::string& path) const;

    // The journal's lines of the calls of that name, in order.
    Lines callsOf(std::string_view name) const;

    // The log's entries.
    Lines logEntries() const;

    // The disk as it was before, with what each call has brought about that did not fail.
    Tree diskAfter(Tree before, const std::vector<Settings>& settings) const;

private:
    struct Call {
        std::string line;
        std::string name;
        std::string path;    // of a copy the destination
        std::string source;  // of a copy
        int error = 0;
        bool writing = false;     // on a file that was opened for writing
        std::size_t section = 0;  // of a write: how many writes to the file go before it
    };

    static Call callOf(const std::string& line);
    static std::string logEntryOf(const Call& call);

    std::vector<Call> calls_;
};

class FailingDisk {
public:
    explicit FailingDisk(const MemoryFileSystem& content) : disk(content) {}

    Account account() const { return {files.journal(), files.failures()}; }

    // Begins the account anew.
    void forget();

    MemoryFileSystem disk;
    FaultyFileSystem files{disk};
};

}  // namespace kv
