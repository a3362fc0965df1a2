#include "Corrade/Containers/Checks.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace Corrade::Containers::Implementation {

namespace {

template<class T> void printDimensions(char (&out)[128], const char* format, const T* values, unsigned count) {
    int length = 0;
    for(unsigned i = 0; i != count; ++i) {
        length += std::snprintf(out + length, sizeof(out) - length, "%s", i ? ", " : "{");
        length += std::snprintf(out + length, sizeof(out) - length, format, values[i]);
    }
    std::snprintf(out + length, sizeof(out) - length, "}");
}

}

void fail(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
    std::fputc('\n', stderr);
    std::abort();
}

DimensionsText::DimensionsText(const std::size_t* values, unsigned count) {
    printDimensions(data, "%zu", values, count);
}

DimensionsText::DimensionsText(const std::ptrdiff_t* values, unsigned count) {
    printDimensions(data, "%td", values, count);
}

}
