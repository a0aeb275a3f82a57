// What the C++ run-time library calls when something fails inside it, in short. Its own versions
// format messages that nobody would see, since every failure becomes a number in the log, and bring
// along the demangler and all string classes: a quarter of the program's size.
#include <cstdlib>
#include <new>

#include "common/RunTimeError.h"

namespace __gnu_cxx {

// An exception that nobody caught.
void __verbose_terminate_handler() { std::abort(); }

}  // namespace __gnu_cxx

// The names and the places are the library's. NOLINTBEGIN(cert-dcl50-cpp,cert-dcl58-cpp)
namespace std {

using kv::ErrorNumber;
using kv::RunTimeError;

void __throw_bad_alloc() { throw std::bad_alloc(); }
void __throw_bad_array_new_length() { throw std::bad_alloc(); }
void __throw_length_error(const char*) { throw RunTimeError(ErrorNumber::OutOfMemory); }
void __throw_logic_error(const char*) { throw RunTimeError(ErrorNumber::InternalError); }
void __throw_out_of_range_fmt(const char*, ...) { throw RunTimeError(ErrorNumber::InternalError); }
void __throw_bad_function_call() { throw RunTimeError(ErrorNumber::InternalError); }

}  // namespace std
// NOLINTEND(cert-dcl50-cpp,cert-dcl58-cpp)
