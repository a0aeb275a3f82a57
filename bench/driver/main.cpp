// Measures the wizard beside the floor and the rivals:
//
//     kv_bench prepare <folder>
//     kv_bench measure <floor> <folder of the rivals> <rounds> <result file>
//
// The first lays out the files that a package brings along. The second lets every contestant do
// the work once in each round, another one first each time; every result is a line "round
// contestant measurement value". The environment names the product (KV_SAMPLE_PRODUCT) and a folder
// to work in (KV_SCRATCH).

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iomanip>
#include <string>
#include <vector>

#include "bench/driver/Contestants.h"
#include "bench/driver/Place.h"
#include "bench/driver/Processes.h"
#include "tests/endtoend/driver/Desktop.h"

namespace kv::bench {
namespace {

constexpr int kWarmUpRounds = 1;  // not counted: it brings the files into memory

class Recorder {
public:
    explicit Recorder(const std::string& file) : file_(file) {
        file_ << std::fixed << std::setprecision(3);
    }

    void record(int round, const Contestant& contestant,
                const std::vector<Measurement>& measurements) {
        for (const auto& [name, value] : measurements) {
            std::printf("%d %s %s %.3f\n", round, contestant.name().c_str(), name.c_str(), value);
            if (round > 0) {
                file_ << round << ' ' << contestant.name() << ' ' << name << ' ' << value << '\n';
            }
        }
        std::fflush(stdout);
    }

private:
    std::ofstream file_;
};

void runOnce(const Contestant& contestant, const Place& place, int round, Recorder& recorder) {
    place.clean();
    recorder.record(round, contestant, contestant.run(place));
    place.check();
    contestant.cleanUp();

    place.clean();
    recorder.record(round, contestant, contestant.weigh(place));
    contestant.cleanUp();
}

void measure(const std::vector<std::string>& arguments) {
    const endtoend::UnmanagedWindows unmanagedWindows;
    const Place place;
    const auto contestants = makeContestants(arguments[1], arguments[2]);
    const int rounds = std::atoi(arguments[3].c_str());
    Recorder recorder(arguments[4]);
    for (int round = 1 - kWarmUpRounds; round <= rounds; ++round) {
        for (std::size_t turn = 0; turn < contestants.size(); ++turn) {
            const auto which = (turn + static_cast<std::size_t>(round)) % contestants.size();
            runOnce(*contestants[which], place, round, recorder);
        }
    }
}

int run(const std::vector<std::string>& arguments) {
    try {
        if (arguments.size() == 2 && arguments[0] == "prepare") {
            Place().layOutForPackage(arguments[1]);
            return 0;
        }
        if (arguments.size() == 5 && arguments[0] == "measure") {
            measure(arguments);
            return 0;
        }
        std::fprintf(stderr, "kv_bench: see the head of its source for how to call it\n");
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "kv_bench: %s\n", failure.what());
    }
    return 1;
}

}  // namespace
}  // namespace kv::bench

int main(int argc, char** argv) {
    return kv::bench::run(std::vector<std::string>(argv + 1, argv + argc));
}
