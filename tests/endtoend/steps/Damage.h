// What can be wrong with a product or a server, and what is expected for it.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Scenario.h"
#include "Workplace.h"

namespace kv::endtoend {

using Entries = std::vector<std::string>;
using Locks = std::vector<std::unique_ptr<FileLock>>;

inline constexpr std::string_view kMissingSource = "SERV  53, File not found, ioCopyFile";
inline constexpr std::string_view kMissingPath = "WARN  76, Path not found, ioCopyFile";
inline constexpr std::string_view kRefusedCopy = "WARN  75, Path/File access error, ioCopyFile";
inline constexpr std::string_view kLockedCopy = "SERV  55, File already open, ioCopyFile";

inline Entries times(std::size_t count, std::string_view entry) {
    return Entries(count, std::string(entry));
}

inline Entries operator+(Entries one, const Entries& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

// What is wrong, what is logged for it, and what of a sound outcome is otherwise.
struct Damage {
    std::string_view name;
    std::function<void(const Workplace&)> before;      // the wizard starts
    std::function<Locks(const Workplace&)> meanwhile;  // while the wizard waits on panel 10
    Entries log;
    std::function<void(Tree& expected, const Tree& before)> outcome;
    int progress = kProgressDone;
    bool needsReadOnly = false;
};

inline void PrintTo(const Damage& which, std::ostream* out) { *out << which.name; }

inline auto removing(std::string path) {
    return [path = std::move(path)](const Workplace& place) { place.remove(path); };
}

inline auto removingMeanwhile(std::string path) {
    return [path = std::move(path)](const Workplace& place) {
        place.remove(path);
        return Locks{};
    };
}

inline auto makingReadOnly(std::string path) {
    return [path = std::move(path)](const Workplace& place) { place.makeReadOnly(path); };
}

inline auto locking(std::string path, DWORD sharing = 0) {
    return [path = std::move(path), sharing](const Workplace& place) {
        Locks locks;
        locks.push_back(place.lock(path, sharing));
        return locks;
    };
}

// Several at once: preparations or outcomes.
template <class... Steps>
auto all(Steps... steps) {
    return [steps...](auto&&... arguments) { (steps(arguments...), ...); };
}

inline auto lockingAll(std::vector<std::string> paths, DWORD sharing = 0) {
    return [paths = std::move(paths), sharing](const Workplace& place) {
        Locks locks;
        for (const std::string& path : paths) {
            locks.push_back(place.lock(path, sharing));
        }
        return locks;
    };
}

inline Locks nothing(const Workplace&) { return {}; }

inline auto without(std::string path) {
    return [path = std::move(path)](Tree& expected, const Tree&) { expected.erase(path); };
}

// The path is as it was before the operation.
inline auto unchanged(std::string path) {
    return [path = std::move(path)](Tree& expected, const Tree& before) {
        expected[path] = before.at(path);
    };
}

inline void asUsual(Tree&, const Tree&) {}

}  // namespace kv::endtoend
