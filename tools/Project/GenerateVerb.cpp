#include <cerrno>
#include <cstdio>
#include <cstring>

#include <VantrelHost/DocumentWriter.h>

#include "Project/Text.h"
#include "Project/Verbs.h"

namespace VantrelTools {

using namespace VantrelEngine;

namespace {

bool writeAll(std::FILE* file, const std::string& text) {
    return std::fwrite(text.data(), 1, text.size(), file) == text.size() && std::fflush(file) == 0;
}

int writeFile(const std::string& path, const std::string& text) {
    std::FILE* const file = std::fopen(path.data(), "wb");
    if(!file) return fail(path + ": " + std::strerror(errno));
    const bool isWritten = writeAll(file, text);
    const int error = errno;
    const bool isClosed = std::fclose(file) == 0;
    if(isWritten && isClosed) return Success;
    return fail(path + ": " + std::strerror(isWritten ? errno : error));
}

}

int generate(const GeneratorOptions& options, const std::string& file) {
    std::string text;
    const std::string error = writeDocument(generateProject(options), text);
    if(!error.empty()) return fail(error);
    if(!file.empty()) return writeFile(file, text);
    return writeAll(stdout, text) ? int(Success) : fail(std::string{"the standard output: "} + std::strerror(errno));
}

}
