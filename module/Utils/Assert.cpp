#include "Utils/Assert.h"

#include <cstdlib>

#include <Corrade/Utility/Debug.h>

namespace VantrelEngine {

using Corrade::Utility::Debug;
using Corrade::Utility::Error;

void assertionFailed(const char* expression, const char* unit, int line) {
    Error{Error::defaultOutput()} << "Assertion" << expression << "failed at" << unit << Debug::nospace << ":"
                                  << Debug::nospace << line;
    std::abort();
}

void reachedUnreachable(const char* unit, int line) {
    Error{Error::defaultOutput()} << "Reached unreachable code at" << unit << Debug::nospace << ":" << Debug::nospace
                                  << line;
    std::abort();
}

}
