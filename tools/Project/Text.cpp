#include "Project/Text.h"

#include <cstdio>

#include "Project/Verbs.h"

namespace VantrelTools {

int fail(const std::string& line) {
    std::fprintf(stderr, "vantrel-project: %s\n", line.data());
    return Failure;
}

}
