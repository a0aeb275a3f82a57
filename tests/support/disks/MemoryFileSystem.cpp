#include "tests/support/disks/MemoryFileSystem.h"

#include "common/RunTimeError.h"

namespace kv {
namespace {

std::string lower(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

std::string parentOf(const std::string& path) { return path.substr(0, path.rfind('\\')); }

}  // namespace

// Looks its file up for each call: it may have been deleted meanwhile.
class MemoryFileSystem::File final : public OpenFile {
public:
    File(MemoryFileSystem& owner, const std::string& path) : owner_(owner), path_(path) {}

    void write(std::string_view bytes) override {
        std::string& all = owner_.existingFile(path_).bytes;
        if (all.size() < position_ + bytes.size()) all.resize(position_ + bytes.size());
        all.replace(position_, bytes.size(), bytes);
        position_ += bytes.size();
    }

    std::size_t read(std::span<char> buffer) override {
        const std::string& all = owner_.existingFile(path_).bytes;
        if (position_ >= all.size()) return 0;
        const std::size_t count = all.copy(buffer.data(), buffer.size(), position_);
        position_ += count;
        return count;
    }

    void truncate() override { owner_.existingFile(path_).bytes.resize(position_); }

    void close() override {}

private:
    MemoryFileSystem& owner_;
    std::string path_;
    std::size_t position_ = 0;
};

MemoryFileSystem::MemoryFileSystem(const std::map<std::string, std::string>& image) {
    for (const auto& [path, bytes] : image) {
        const bool folder = path.ends_with('\\');
        add(folder ? path.substr(0, path.size() - 1) : path, folder, bytes);
    }
}

std::string MemoryFileSystem::read(const std::string& path) const {
    const auto found = entries_.find(lower(path));
    return found == entries_.end() ? "" : found->second.bytes;
}

bool MemoryFileSystem::exists(const std::string& path) const {
    return entries_.contains(lower(path));
}

std::map<std::string, std::string> MemoryFileSystem::image() const {
    std::map<std::string, std::string> image;
    for (const auto& [key, entry] : entries_)
        image.emplace_hint(image.end(), entry.folder ? entry.path + '\\' : entry.path, entry.bytes);
    return image;
}

void MemoryFileSystem::makeReadOnly(const std::string& path) { existingFile(path).readOnly = true; }

void MemoryFileSystem::copyFile(const std::string& source, const std::string& destination) {
    const std::string bytes = existingFile(source).bytes;
    fileToWrite(destination).bytes = bytes;
}

void MemoryFileSystem::deleteFiles(const std::string& pattern) {
    if (existingFile(pattern).readOnly) throw RunTimeError(ErrorNumber::PathFileAccessError);
    entries_.erase(lower(pattern));
}

void MemoryFileSystem::makeDirectory(const std::string& path) {
    requireParent(path);
    if (find(path)) throw RunTimeError(ErrorNumber::PathFileAccessError);
    add(path, true, "");
}

void MemoryFileSystem::removeDirectory(const std::string& path) {
    requireParent(path);
    const Entry* entry = find(path);
    if (!entry || !entry->folder) throw RunTimeError(ErrorNumber::FileNotFound);
    const std::string below = lower(path) + '\\';
    const auto next = entries_.lower_bound(below);
    if (next != entries_.end() && next->first.starts_with(below))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    entries_.erase(lower(path));
}

std::optional<std::string> MemoryFileSystem::findName(const std::string& path, Lookup lookup) {
    const Entry* entry = find(path);
    if (!entry || (entry->folder && lookup == Lookup::Files)) return std::nullopt;
    return entry->path.substr(entry->path.rfind('\\') + 1);
}

std::int64_t MemoryFileSystem::fileLength(const std::string& path) {
    return static_cast<std::int64_t>(existingFile(path).bytes.size());
}

std::unique_ptr<OpenFile> MemoryFileSystem::openForWrite(const std::string& path) {
    return std::make_unique<File>(*this, fileToWrite(path).path);
}

std::unique_ptr<OpenFile> MemoryFileSystem::openForRead(const std::string& path) {
    return std::make_unique<File>(*this, existingFile(path).path);
}

void MemoryFileSystem::append(const std::string& path, std::string_view bytes) {
    fileToWrite(path).bytes += bytes;
}

MemoryFileSystem::Entry* MemoryFileSystem::find(const std::string& path) {
    const auto found = entries_.find(lower(path));
    return found == entries_.end() ? nullptr : &found->second;
}

MemoryFileSystem::Entry& MemoryFileSystem::existingFile(const std::string& path) {
    requireParent(path);
    Entry* entry = find(path);
    if (!entry || entry->folder) throw RunTimeError(ErrorNumber::FileNotFound);
    return *entry;
}

MemoryFileSystem::Entry& MemoryFileSystem::fileToWrite(const std::string& path) {
    requireParent(path);
    if (!find(path)) add(path, false, "");
    Entry* entry = find(path);
    if (entry->folder || entry->readOnly) throw RunTimeError(ErrorNumber::PathFileAccessError);
    return *entry;
}

void MemoryFileSystem::requireParent(const std::string& path) {
    const std::string parent = parentOf(path);
    if (parent.size() == 2) return;  // a drive
    const Entry* entry = find(parent);
    if (!entry || !entry->folder) throw RunTimeError(ErrorNumber::PathNotFound);
}

void MemoryFileSystem::add(const std::string& path, bool folder, const std::string& bytes) {
    entries_[lower(path)] = {path, folder, bytes};
}

}  // namespace kv
