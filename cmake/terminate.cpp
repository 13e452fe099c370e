// The compiler's handler of uncaught exceptions writes their name, and for that brings along a demangler, an
// eighth of the whole DLL. No exception leaves a library of this project: one that is thrown here ends it.
#include <cstdlib>
#include <exception>

namespace __gnu_cxx {

void __verbose_terminate_handler() { std::abort(); }  // NOLINT(bugprone-reserved-identifier)

}  // namespace __gnu_cxx
