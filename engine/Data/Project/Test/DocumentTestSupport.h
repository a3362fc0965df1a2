#pragma once

#include <string>
#include <vector>

#include <VantrelHost/DocumentProblem.h>
#include <gtest/gtest.h>

#include <VantrelHost/DocumentReader.h>

#include "Support/JsonText.h"

namespace VantrelEngine {

using VantrelTest::jsonText;

inline JsonDocument parsed(const std::string& text) {
    JsonDocument document;
    EXPECT_EQ(parseDocument(text, document), "") << text.substr(0, 200);
    return document;
}

// A value that need not be an object.
inline JsonDocument parsedValue(const std::string& text) {
    JsonDocument document;
    document.Parse(text.c_str());
    EXPECT_FALSE(document.HasParseError()) << text.substr(0, 200);
    return document;
}

// "W objects/tree/name: ...", "R ..." for repairs, "X ..." for refusals.
inline std::vector<std::string> linesOf(const std::vector<DocumentProblem>& problems) {
    std::vector<std::string> lines;
    for(const DocumentProblem& problem: problems)
        lines.push_back(std::string{"WRXW"[int(problem.kind)]} + " " + lineOf(problem));
    return lines;
}

inline std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    for(std::size_t i = 0; i != count; ++i) result += text;
    return result;
}

} // namespace VantrelEngine
