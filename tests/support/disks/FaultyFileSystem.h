// A file system around another one that keeps a journal of all calls and makes chosen ones fail.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/FileSystem.h"
#include "common/RunTimeError.h"
#include "tests/model/Tree.h"

namespace kv {

// Which call fails, and how. Of the calls whose journal line holds the text, the n-th one fails
// (counted from 1 and from the moment the fault is added), or with no n the first one; only that
// one, or it and all later ones. An empty text stands for every call that can throw. A findName
// that fails answers nothing; to fail, and to be counted, it must be named by the text.
struct Fault {
    std::optional<int> call = {};
    std::string text = {};
    ErrorNumber number = ErrorNumber::DeviceIoError;
    bool once = true;
    bool inUse = false;  // it may pass
};

class FaultyFileSystem : public FileSystem {
public:
    // The inner file system must outlive this one, and this one the files opened through it.
    explicit FaultyFileSystem(FileSystem& inner) noexcept : inner_(inner) {}

    void add(Fault fault);
    void clearFaults() noexcept { faults_.clear(); }

    // Is told the journal line of each call that can throw, before the call is made.
    void setListener(std::function<void(const std::string& line)> listener) {
        listener_ = std::move(listener);
    }

    // One line per call, failed ones included, in order:
    //   copyFile C:\a -> C:\b        findName C:\a, files and folders     write C:\a, 12 bytes
    //   deleteFiles C:\*.a           findName C:\a, files                 read C:\a, 12 bytes
    //   makeDirectory C:\a           fileLength C:\a                      close C:\a
    //   removeDirectory C:\a         openForWrite C:\a                    append C:\a, 12 bytes
    //   truncate C:\a                openForRead C:\a
    const Lines& journal() const noexcept { return journal_; }
    void clearJournal() noexcept {
        journal_.clear();
        failures_.clear();
    }

    // The calls that threw, whether they were made to fail or the inner file system did, by their
    // lines in the journal.
    struct Failure {
        std::size_t line;
        int number;
    };
    const std::vector<Failure>& failures() const noexcept { return failures_; }

    // How many calls were made that can throw, and how many of all calls were made to fail.
    int throwingCalls() const noexcept { return throwingCalls_; }
    int failedCalls() const noexcept { return failedCalls_; }

    void copyFile(const std::string& source, const std::string& destination) override;
    void deleteFiles(const std::string& pattern) override;
    void makeDirectory(const std::string& path) override;
    void removeDirectory(const std::string& path) override;
    std::optional<std::string> findName(const std::string& path, Lookup lookup) override;
    std::int64_t fileLength(const std::string& path) override;
    std::unique_ptr<OpenFile> openForWrite(const std::string& path) override;
    std::unique_ptr<OpenFile> openForRead(const std::string& path) override;
    void append(const std::string& path, std::string_view bytes) override;

private:
    class File;

    struct PendingFault {
        Fault fault;
        int seen = 0;  // calls that match
    };

    // Makes a call that can throw, unless a fault strikes.
    template <class Call>
    auto make(std::string line, Call&& call);
    void enter(std::string line);
    std::optional<RunTimeError> faultOf(const std::string& line, bool canThrow);

    FileSystem& inner_;
    std::vector<PendingFault> faults_;
    std::function<void(const std::string& line)> listener_;
    Lines journal_;
    std::vector<Failure> failures_;
    int throwingCalls_ = 0;
    int failedCalls_ = 0;
};

}  // namespace kv
