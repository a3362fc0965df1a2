#pragma once

#include <string>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Vantrel/EngineData/Json.h>
#include <gtest/gtest.h>

#include "Support/TestFolder.h"

namespace VantrelImport::Test {

using VantrelEngine::JsonDocument;
using VantrelEngine::JsonValue;

struct ImportResult {
    // As waitpid() has it.
    int status = -1;
    std::vector<std::string> lines;
    // "import.json"; null where there is none.
    JsonDocument json;
    std::string folder;

    bool isDone() const { return status == 0 && !lines.empty() && lines.back() == "done"; }
    // What follows the first word, of lines with this first word.
    std::vector<std::string> texts(const std::string& word) const;
    bool hasWarning(const std::string& part) const;
    std::string error() const;
    // All lines, to be shown where something is wrong.
    std::string text() const;

    // The only one, or the one of this name.
    const JsonValue& only(const char* section) const;
    const JsonValue& named(const char* section, const std::string& name) const;
    std::string idOf(const char* section, const std::string& name) const;
    std::size_t count(const char* section) const { return json[section].MemberCount(); }
    // The bytes that an entry's "file" names.
    std::string file(const JsonValue& entry) const;
    // Of a component of an object: the member that is named after the type.
    const JsonValue& component(const std::string& object, const char* type) const;
};

// Runs the program on a file; the output goes into a new folder below the one given.
ImportResult runConverter(
    const std::string& source, const std::string& below, const std::vector<std::string>& arguments = {});

// A folder with models in it.
class ConverterTest: public testing::Test {
public:
    std::string write(const std::string& name, const std::string& contents) const {
        VantrelTest::writeFile(models.path(name), contents);
        return models.path(name);
    }
    ImportResult import(const std::string& name, const std::string& contents) const {
        return runConverter(write(name, contents), outputs.path().string());
    }

    VantrelTest::TestFolder models, outputs;
};

std::vector<float> numbers(const JsonValue& list);

// A red pixel.
constexpr const char* PngUri =
    "data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR4nGP4z8DwHwAFAAH/"
    "iZk9HQAAAABJRU5ErkJggg==";
std::string pngPixel();
// A pixel of a colour.
std::string tgaPixel(unsigned char red, unsigned char green, unsigned char blue);

} // namespace VantrelImport::Test
