#include "support/ScopedIgdHome.h"

#include <cstdlib>

namespace igd::test {

ScopedIgdHome::ScopedIgdHome() {
    if (const char* previous = std::getenv("IGD_HOME")) {
        previous_ = previous;
        hadPrevious_ = true;
    }
    tree_.MakeFolder("home");
    ::setenv("IGD_HOME", Path().c_str(), 1);
}

ScopedIgdHome::~ScopedIgdHome() {
    if (hadPrevious_)
        ::setenv("IGD_HOME", previous_.c_str(), 1);
    else
        ::unsetenv("IGD_HOME");
}

} // namespace igd::test
