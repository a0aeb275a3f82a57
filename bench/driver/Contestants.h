// The programs that do an installation's work, each started and worked as its user would.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "bench/driver/Place.h"

namespace kv::bench {

// What one run has shown: by name, in milliseconds or in bytes.
struct Measurement {
    std::string name;
    double value = 0;
};

inline constexpr const char* kStart = "start";    // process start until the first window answers
inline constexpr const char* kJob = "job";        // the click until the end can be confirmed
inline constexpr const char* kMemory = "memory";  // the peak working set at the end

class Contestant {
public:
    Contestant() = default;
    Contestant(const Contestant&) = delete;
    Contestant& operator=(const Contestant&) = delete;
    virtual ~Contestant() = default;

    virtual std::string name() const = 0;
    // Does the work once in a clean place.
    virtual std::vector<Measurement> run(const Place& place) const = 0;
    // Does it once more for its memory, where that can only be watched at the cost of the time.
    virtual std::vector<Measurement> weigh(const Place&) const { return {}; }
    // Takes back what it has left outside of the place.
    virtual void cleanUp() const {}
};

// With the floor's program and the folder of the rivals.
std::vector<std::unique_ptr<Contestant>> makeContestants(const std::string& floor,
                                                         const std::string& rivals);

}  // namespace kv::bench
