#include "tests/support/disks/FaultyFileSystem.h"

#include <utility>

namespace kv {
namespace {

std::string withSize(std::string line, std::size_t bytes) {
    return std::move(line) + ", " + std::to_string(bytes) + " bytes";
}

}  // namespace

template <class Call>
auto FaultyFileSystem::make(std::string line, Call&& call) {
    const std::size_t number = journal_.size();
    try {
        enter(std::move(line));
        return call();
    } catch (const RunTimeError& failure) {
        failures_.push_back({number, failure.number()});
        throw;
    }
}

class FaultyFileSystem::File final : public OpenFile {
public:
    File(FaultyFileSystem& owner, std::string path, std::unique_ptr<OpenFile> inner)
        : owner_(owner), path_(std::move(path)), inner_(std::move(inner)) {}

    void write(std::string_view bytes) override {
        owner_.make(withSize("write " + path_, bytes.size()), [&] { return inner_->write(bytes); });
    }

    std::size_t read(std::span<char> buffer) override {
        return owner_.make(withSize("read " + path_, buffer.size()),
                           [&] { return inner_->read(buffer); });
    }

    void truncate() override {
        owner_.make("truncate " + path_, [&] { return inner_->truncate(); });
    }

    void close() override {
        owner_.make("close " + path_, [&] { return inner_->close(); });
    }

private:
    FaultyFileSystem& owner_;
    std::string path_;
    std::unique_ptr<OpenFile> inner_;
};

void FaultyFileSystem::add(Fault fault) { faults_.push_back({std::move(fault)}); }

void FaultyFileSystem::copyFile(const std::string& source, const std::string& destination) {
    make("copyFile " + source + " -> " + destination,
         [&] { return inner_.copyFile(source, destination); });
}

void FaultyFileSystem::deleteFiles(const std::string& pattern) {
    make("deleteFiles " + pattern, [&] { return inner_.deleteFiles(pattern); });
}

void FaultyFileSystem::makeDirectory(const std::string& path) {
    make("makeDirectory " + path, [&] { return inner_.makeDirectory(path); });
}

void FaultyFileSystem::removeDirectory(const std::string& path) {
    make("removeDirectory " + path, [&] { return inner_.removeDirectory(path); });
}

std::optional<std::string> FaultyFileSystem::findName(const std::string& path, Lookup lookup) {
    journal_.push_back("findName " + path +
                       (lookup == Lookup::Files ? ", files" : ", files and folders"));
    if (faultOf(journal_.back(), false)) return std::nullopt;
    return inner_.findName(path, lookup);
}

std::int64_t FaultyFileSystem::fileLength(const std::string& path) {
    return make("fileLength " + path, [&] { return inner_.fileLength(path); });
}

std::unique_ptr<OpenFile> FaultyFileSystem::openForWrite(const std::string& path) {
    return make("openForWrite " + path,
                [&] { return std::make_unique<File>(*this, path, inner_.openForWrite(path)); });
}

std::unique_ptr<OpenFile> FaultyFileSystem::openForRead(const std::string& path) {
    return make("openForRead " + path,
                [&] { return std::make_unique<File>(*this, path, inner_.openForRead(path)); });
}

void FaultyFileSystem::append(const std::string& path, std::string_view bytes) {
    make(withSize("append " + path, bytes.size()), [&] { return inner_.append(path, bytes); });
}

// The beginning of a call that can throw.
void FaultyFileSystem::enter(std::string line) {
    ++throwingCalls_;
    journal_.push_back(std::move(line));
    if (listener_) listener_(journal_.back());
    if (const auto failure = faultOf(journal_.back(), true)) throw *failure;
}

// Every fault sees the call; the first of those that strike decides.
std::optional<RunTimeError> FaultyFileSystem::faultOf(const std::string& line, bool canThrow) {
    std::optional<RunTimeError> failure;
    for (auto& [fault, seen] : faults_) {
        const bool meant = fault.text.empty() ? canThrow : line.find(fault.text) != line.npos;
        if (!meant) continue;
        ++seen;
        const int first = fault.call.value_or(1);
        const bool strikes = fault.once ? seen == first : seen >= first;
        if (strikes && !failure)
            failure =
                fault.inUse ? RunTimeError::whileInUse(fault.number) : RunTimeError(fault.number);
    }
    if (failure) ++failedCalls_;
    return failure;
}

}  // namespace kv
