#include "tests/endtoend/driver/Evidence.h"

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/endtoend/driver/Workplace.h"

namespace kv::endtoend {
namespace {

TEST(Evidence, IsAPictureOfTheScreenAndTheProductsLog) {
    const Workplace place("Evidence.OfThisTest");
    std::ofstream(place.path("product\\log\\kvwcfg00.log")) << "what happened";

    const std::string line = keepEvidence();

    const std::string kept = pathFromEnvironment("KV_SCRATCH") + "\\failed\\Evidence.OfThisTest";
    EXPECT_NE(line.find("Evidence.OfThisTest.png"), std::string::npos) << line;
    std::ifstream log(kept + ".log");
    std::string text;
    std::getline(log, text);
    EXPECT_EQ(text, "what happened");
    EXPECT_GT(std::filesystem::file_size(kept + ".png"), 1000U);
    log.close();
    std::filesystem::remove(kept + ".log");
    std::filesystem::remove(kept + ".png");
}

}  // namespace
}  // namespace kv::endtoend
