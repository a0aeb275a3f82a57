// Writes beyond an array, as an attacker's input would make a program do.
#include <cstddef>
#include <cstdlib>

namespace {

[[gnu::noinline]] int overrun(std::size_t count) {
    volatile char bytes[16];
    volatile char* const beyond = bytes;
    for (std::size_t i = 0; i < count; ++i) beyond[i] = 1;
    return bytes[0];
}

}  // namespace

int main(int, char** arguments) {
    // The count comes from outside so that no compiler sees what is coming.
    return overrun(static_cast<std::size_t>(std::atoi(arguments[1]))) == 1 ? 0 : 1;
}
