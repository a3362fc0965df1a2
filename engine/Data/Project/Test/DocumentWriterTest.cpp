#include <VantrelHost/DocumentWriter.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Data/Project/Test/DocumentTestSupport.h"

namespace {

using namespace VantrelEngine;
using testing::HasSubstr;

std::string written(const JsonValue& document) {
    std::string text;
    EXPECT_EQ(writeDocument(document, text), "");
    return text;
}

std::string errorOf(const JsonValue& document) {
    std::string text = "kept";
    const std::string error = writeDocument(document, text);
    EXPECT_EQ(text, "kept");
    return error;
}

constexpr const char* Pretty = R"({
  "objects": {
    "tree": {
      "name": "Tree",
      "translation": [1, -2.5, 1e39],
      "components": [
        {
          "type": "light",
          "active": true,
          "light": {}
        },
        [
          [],
          [null, "x"]
        ]
      ]
    }
  },
  "empty": []
}
)";

TEST(DocumentWriterTest, format) { EXPECT_EQ(written(parsed(Pretty)), Pretty); }

TEST(DocumentWriterTest, numbersAreShortAndKeepTheirKind) {
    const struct {
        const char *text, *expected;
    } data[]{{"1", "1"}, {"1.0", "1.0"}, {"-0", "-0.0"}, {"1e39", "1e39"}, {"1E+39", "1e39"}, {"1e-7", "1e-7"},
        {"0.05", "0.05"}, {"0.1", "0.1"}, {"100000000000000000000000.0", "1e23"}, {"5e-324", "5e-324"},
        {"1.7976931348623157e308", "1.7976931348623157e308"}, {"18446744073709551615", "18446744073709551615"},
        {"-9223372036854775808", "-9223372036854775808"}, {"9007199254740993.0", "9007199254740992.0"},
        {"1e10", "10000000000.0"}, {"1.5e100", "1.5e100"}, {"-1e5", "-100000.0"}, {"1e16", "10000000000000000.0"},
        {"1e17", "1e17"}, {"0.000001", "0.000001"}};
    for(const auto& row: data)
        EXPECT_EQ(written(parsed(std::string{"{\"a\": "} + row.text + "}")),
            std::string{"{\n  \"a\": "} + row.expected + "\n}\n")
            << row.text;
}

TEST(DocumentWriterTest, anyDoubleComesBack) {
    std::mt19937_64 random{1};
    JsonDocument document{rapidjson::kObjectType};
    JsonValue numbers{rapidjson::kArrayType};
    while(numbers.Size() != 20000) {
        const std::uint64_t bits = random();
        double number;
        std::memcpy(&number, &bits, sizeof(number));
        if(std::isfinite(number)) numbers.PushBack(number, document.GetAllocator());
    }
    document.AddMember("numbers", numbers, document.GetAllocator());
    const JsonDocument back = parsed(written(document));
    ASSERT_EQ(back["numbers"].Size(), 20000u);
    for(rapidjson::SizeType i = 0; i != 20000; ++i)
        ASSERT_EQ(back["numbers"][i].GetDouble(), document["numbers"][i].GetDouble());
}

TEST(DocumentWriterTest, specialKeysAndTexts) {
    const std::string text = R"({"":1,"a/b~c":"{}% ","0":{"\u0000\n\"\\":"\u0000é🌲"}})";
    EXPECT_EQ(jsonText(parsed(written(parsed(text)))), jsonText(parsed(text)));
}

TEST(DocumentWriterTest, refusesNumbersThatAreNotFinite) {
    for(const double number: {std::nan(""), std::numeric_limits<double>::infinity()}) {
        JsonDocument document = parsed(R"({"objects": {"tree": {"translation": [0, 1, 2]}}})");
        document["objects"]["tree"]["translation"][1].SetDouble(number);
        EXPECT_EQ(errorOf(document), "objects/tree/translation/1: the number is not finite");
    }
}

TEST(DocumentWriterTest, refusesWhatIsNestedTooDeep) {
    JsonDocument document = parsed("{}");
    JsonValue value{rapidjson::kArrayType};
    for(int i = 1; i != 511; ++i) {
        JsonValue outer{rapidjson::kArrayType};
        outer.PushBack(value, document.GetAllocator());
        value.Swap(outer);
    }
    document.AddMember("a", value, document.GetAllocator());
    written(document);
    JsonValue outer{rapidjson::kArrayType};
    outer.PushBack(document["a"], document.GetAllocator());
    document["a"].Swap(outer);
    EXPECT_THAT(errorOf(document), HasSubstr("/0/0: more than 512 objects and arrays inside of each other"));
}

TEST(DocumentWriterTest, refusesTextThatIsNotUtf8) {
    JsonDocument document = parsed(R"({"a": "x"})");
    document["a"].SetString("\xff");
    EXPECT_THAT(errorOf(document), HasSubstr("cannot be read back: line 2"));
}

} // namespace
