#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/GrowableArray.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Format.h>

#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Corrade;

namespace {

// The paths of a change log: what the program searches and splits.
std::string manyPaths() {
    std::string text;
    for(int i = 0; text.size() < 65536; ++i)
        text += "/objects/" + std::to_string(100000 + i * 7919) + "/components/" + std::to_string(i % 5) + "/mesh;";
    return text;
}

Result findCharacter(const std::string& text) {
    const Containers::StringView view{text.data(), text.size()};
    return measurePairs(
        "containers", "string_view_find_character_64k", [&] { keep(view.find('#')); },
        [&] { keep(std::memchr(text.data(), '#', text.size())); });
}

Result findText(const std::string& text) {
    const Containers::StringView view{text.data(), text.size()};
    const std::string_view plain{text};
    return measurePairs(
        "containers", "string_view_find_text_64k", [&] { keep(view.find("/translation")); },
        [&] { keep(plain.find("/translation")); });
}

Result splitText(const std::string& text) {
    const Containers::StringView view{text.data(), text.size()};
    return measurePairs(
        "containers", "string_view_split_64k", [&] { keep(view.split('/')); },
        [&] {
            std::vector<std::string_view> parts;
            const char* begin = text.data();
            const char* const end = begin + text.size();
            for(;;) {
                const void* const found = std::memchr(begin, '/', std::size_t(end - begin));
                const char* const partEnd = found ? static_cast<const char*>(found) : end;
                parts.emplace_back(begin, std::size_t(partEnd - begin));
                if(!found) break;
                begin = partEnd + 1;
            }
            keep(parts);
        });
}

// A path with an object id and an index, and a number with ten digits: both are formatted while an object is dragged.
Result formatPath() {
    int i = 0;
    return measurePairs(
        "containers", "format_path",
        [&] { keep(Utility::format("/objects/{}/components/{}/mesh/material", "5f0c1a2b-77aa", ++i & 15)); },
        [&] {
            char buffer[128];
            const int size = std::snprintf(
                buffer, sizeof(buffer), "/objects/%s/components/%i/mesh/material", "5f0c1a2b-77aa", ++i & 15);
            keep(std::string(buffer, std::size_t(size)));
        });
}

Result formatNumbers() {
    double value = 0.1;
    return measurePairs(
        "containers", "format_numbers", [&] { keep(Utility::format("{:.10}, {}, {}", value += 0.37, 65534u, 0.25f)); },
        [&] {
            char buffer[128];
            const int size =
                std::snprintf(buffer, sizeof(buffer), "%.10g, %u, %g", value += 0.37, 65534u, double(0.25f));
            keep(std::string(buffer, std::size_t(size)));
        });
}

Result growInts() {
    constexpr int Count = 100000;
    return measurePairs(
        "containers", "array_append_100000_ints",
        [] {
            Containers::Array<int> array;
            for(int i = 0; i != Count; ++i) arrayAppend(array, i);
            keep(array[0]);
        },
        [] {
            std::vector<int> array;
            for(int i = 0; i != Count; ++i) array.push_back(i);
            keep(array[0]);
        });
}

Result growStrings() {
    constexpr int Count = 10000;
    return measurePairs(
        "containers", "array_append_10000_strings",
        [] {
            Containers::Array<Containers::String> array;
            for(int i = 0; i != Count; ++i) arrayAppend(array, InPlaceInit, "a text of thirty-two characters!");
            keep(array[0]);
        },
        [] {
            std::vector<std::string> array;
            for(int i = 0; i != Count; ++i) array.emplace_back("a text of thirty-two characters!");
            keep(array[0]);
        });
}

}

void containers() {
    const std::string text = manyPaths();
    print(findCharacter(text));
    print(findText(text));
    print(splitText(text));
    print(formatPath());
    print(formatNumbers());
    print(growInts());
    print(growStrings());
}

}
