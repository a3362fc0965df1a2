#include <VantrelHost/DocumentReader.h>

#include <filesystem>
#include <fstream>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Data/Project/Test/DocumentTestSupport.h"
#include "Data/Project/Utf8.h"

#include "Support/TestFolder.h"

namespace {

using namespace VantrelEngine;
using testing::HasSubstr;
using testing::StartsWith;
namespace fs = std::filesystem;

std::string errorOf(const std::string& text) {
    JsonDocument document;
    return parseDocument(text, document);
}

TEST(DocumentReaderTest, readsWhatIsThere) {
    for(const char* text: {"{}", R"({"a":[1,-2,true,false,null,"x",{"b":[]}],"":{},"a/b~c{}%":""})",
            R"({"large":18446744073709551615,"small":-9223372036854775808,"half":0.5})"})
        EXPECT_EQ(jsonText(parsed(text)), text);
    EXPECT_EQ(jsonText(parsed(" \n{ \"a\" :\t1 }\r\n")), R"({"a":1})");
}

TEST(DocumentReaderTest, takesAByteOrderMark) { EXPECT_EQ(jsonText(parsed("\xef\xbb\xbf{\"a\":1}")), R"({"a":1})"); }

TEST(DocumentReaderTest, keepsDuplicateKeysAndTheirOrder) {
    EXPECT_EQ(jsonText(parsed(R"({"b":1,"a":2,"b":3})")), R"({"b":1,"a":2,"b":3})");
}

TEST(DocumentReaderTest, saysWhereAndWhy) {
    const struct {
        std::string text, error;
    } data[]{{"", "line 1, column 1: the document is empty"},
        {"\xef\xbb\xbf", "line 1, column 1: the document is empty"},
        {"{", "line 1, column 2: missing a name for object member"},
        {"{\n  \"a\": 1,\n  \"b\" 2\n}", "line 3, column 7: missing a colon after a name of object member"},
        {"{} x", "line 1, column 4: the document root must not be followed by other values"},
        {"{}\n{}", "line 2, column 1: the document root must not be followed by other values"},
        {std::string{"{}\0", 3}, "line 1, column 3: a zero byte"},
        {std::string{"{}\0{}", 5}, "line 1, column 3: a zero byte"},
        {"[1]", "line 1, column 1: a project is an object"}, {"1", "line 1, column 1: a project is an object"},
        {"null", "line 1, column 1: a project is an object"}, {"{\"a\": nan}", "line 1, column 8: invalid value"},
        {"{\"a\": 01}", "line 1, column 8: missing a comma or '}'"},
        {"{\"a\": 1,}", "line 1, column 9: missing a name for object member"}};
    for(const auto& row: data) EXPECT_THAT(errorOf(row.text), StartsWith(row.error)) << row.text;
}

TEST(DocumentReaderTest, leavesTheDocumentAsItWas) {
    JsonDocument document = parsed(R"({"kept":[1,"a long text that is not stored in place"]})");
    for(const char* text: {"", "[]", "{\"a\": {\"b\": [1, \"a long text that is not stored in place\", }",
            "{\"a\": 1e999}", "{\"a\": \"\xff\"}"})
        EXPECT_NE(parseDocument(text, document), "");
    EXPECT_EQ(jsonText(document), R"({"kept":[1,"a long text that is not stored in place"]})");
}

TEST(DocumentReaderTest, limitsNesting) {
    const auto arrays = [](std::size_t count) { return "{\"a\":" + repeated("[", count) + repeated("]", count) + "}"; };
    const auto objects = [](std::size_t count) { return repeated("{\"a\":", count) + "1" + repeated("}", count); };
    EXPECT_EQ(errorOf(arrays(511)), "");
    EXPECT_EQ(errorOf(objects(512)), "");
    EXPECT_EQ(errorOf(arrays(512)), "line 1, column 518: more than 512 objects and arrays inside of each other");
    EXPECT_THAT(errorOf(objects(513)), HasSubstr("more than 512 objects"));
    EXPECT_THAT(errorOf(repeated("[", 100000)), HasSubstr("more than 512 objects"));
    EXPECT_THAT(errorOf(repeated("{\"a\":", 100000)), HasSubstr("more than 512 objects"));
    // One beside the other is no nesting.
    EXPECT_EQ(errorOf("{\"a\":[" + repeated("[[]],{},", 1000) + "1]}"), "");
}

TEST(DocumentReaderTest, numbers) {
    const struct {
        const char* text;
        double value;
    } data[]{{"0", 0}, {"-1", -1}, {"0.1", 0.1}, {"1e39", 1e39}, {"1E+2", 100},
        {"1.7976931348623157e308", 1.7976931348623157e308}, {"5e-324", 5e-324},
        {"2.2250738585072011e-308", 2.2250738585072011e-308}, {"9007199254740993.0", 9007199254740992.0},
        {"18446744073709551616", 18446744073709551616.0}, {"-9223372036854775809", -9223372036854775809.0},
        {"0.1000000000000000055511151231257827021181583404541015625", 0.1}, {"1e-400", 0}, {"-1e-400", 0},
        {"0.0000001e-320", 0}, {"1e-99999999999999999999", 0}, {"1234.5e-9999", 0}};
    for(const auto& row: data) {
        const JsonDocument document = parsed(std::string{"{\"a\":"} + row.text + "}");
        ASSERT_TRUE(document.HasMember("a")) << row.text;
        EXPECT_EQ(document["a"].GetDouble(), row.value) << row.text;
    }
    EXPECT_TRUE(parsed("{\"a\":4294967296}")["a"].IsInt64());
    EXPECT_TRUE(parsed("{\"a\":5}")["a"].IsInt());
    EXPECT_TRUE(parsed("{\"a\":5.0}")["a"].IsDouble());
    for(const char* text: {"-0", "-0.0", "-1e-400"})
        EXPECT_TRUE(std::signbit(parsed(std::string{"{\"a\":"} + text + "}")["a"].GetDouble())) << text;
    EXPECT_FALSE(std::signbit(parsed("{\"a\":1e-400}")["a"].GetDouble()));
}

TEST(DocumentReaderTest, aLongFractionCloseToZero) {
    EXPECT_EQ(parsed("{\"a\":0." + std::string(400, '0') + "12345678901234567890}")["a"].GetDouble(), 0.0);
    EXPECT_EQ(parsed("{\"a\":0." + std::string(320, '0') + "12345678901234567890}")["a"].GetDouble(), 1.235e-321);
    EXPECT_EQ(parsed("{\"a\":0." + std::string(400, '0') + "5e401}")["a"].GetDouble(), 5.0);
    EXPECT_EQ(parsed("{\"a\":0." + std::string(500, '0') + "5e10}")["a"].GetDouble(), 0.0);
    EXPECT_EQ(parsed("{\"a\":" + std::string(300, '9') + "e-700}")["a"].GetDouble(), 0.0);
}

TEST(DocumentReaderTest, numbersTooLargeForADouble) {
    for(const std::string& number: {std::string{"1e309"}, std::string{"1.8e308"},
            std::string{"-1.7976931348623159e308"}, std::string(400, '9'), std::string(309, '9') + ".5",
            std::string(300, '9') + "e50", "0." + std::string(400, '0') + "5e+720", std::string{"123456e305"}}) {
        const std::string error = errorOf("{\"a\": 1,\n \"b\": " + number + "}");
        EXPECT_THAT(error, StartsWith("line 2, column ")) << number;
        EXPECT_THAT(error, testing::AnyOf(HasSubstr("too large"), HasSubstr("too big"))) << number;
    }
}

TEST(DocumentReaderTest, textIsUtf8) {
    for(const char* text: {"\xc3\xa4", "\xe2\x82\xac", "\xf0\x9f\x8c\xb2", "\\ud83c\\udf32", "\\u0000", "\xed\x9f\xbf",
            "\xf4\x8f\xbf\xbf"})
        EXPECT_EQ(errorOf(std::string{"{\"a\": \""} + text + "\"}"), "") << text;
    for(const char* text: {"\xff", "\xc3", "\xc0\x80", "\xe0\x80\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\x80",
            "\xe2\x82", "\xe2\x82z", "\xf0\x80\x80\x80", "\\udc00", "\\ud800", "\\ud83cx"}) {
        EXPECT_NE(errorOf(std::string{"{\"a\": \""} + text + "\"}"), "") << text;
        EXPECT_NE(errorOf(std::string{"{\""} + text + "\": 1}"), "") << text;
    }
    EXPECT_EQ(errorOf("{\n\"a\": \"\xff\"}"), "line 2, column 9: the text is not UTF-8");
}

TEST(DocumentReaderTest, isUtf8) {
    EXPECT_TRUE(isUtf8(""));
    EXPECT_TRUE(isUtf8({"\0a", 2}));
    EXPECT_FALSE(isUtf8("a\xc3"));
    // Each character there is, and what lies between.
    for(unsigned c = 0; c < 0x110000; c += c < 0x1000 ? 1 : 61) {
        std::string text;
        if(c < 0x80) {
            text = {char(c)};
        } else if(c < 0x800) {
            text = {char(0xc0 | c >> 6), char(0x80 | (c & 63))};
        } else if(c < 0x10000) {
            text = {char(0xe0 | c >> 12), char(0x80 | (c >> 6 & 63)), char(0x80 | (c & 63))};
        } else {
            text = {
                char(0xf0 | c >> 18), char(0x80 | (c >> 12 & 63)), char(0x80 | (c >> 6 & 63)), char(0x80 | (c & 63))};
        }
        ASSERT_EQ(isUtf8(text), c < 0xd800 || c > 0xdfff) << c;
    }
}

struct ReadDocumentTest: testing::Test {
    std::string errorOf(const fs::path& path) {
        JsonDocument document;
        return readDocument(path, document);
    }

    VantrelTest::TestFolder testFolder;
    const fs::path folder = testFolder.path();
};

TEST_F(ReadDocumentTest, readsAFile) {
    const std::string text = "{\"a\":\"" + std::string(100000, 'x') + "\"}";
    std::ofstream{folder / "a.json"} << text;
    JsonDocument document;
    EXPECT_EQ(readDocument(folder / "a.json", document), "");
    EXPECT_EQ(jsonText(document), text);
}

TEST_F(ReadDocumentTest, namesTheFileAndTheReason) {
    const std::string path = folder / "a.json";
    EXPECT_EQ(errorOf(path), path + ": No such file or directory");
    EXPECT_EQ(errorOf(folder), folder.string() + ": this is a folder");
    std::ofstream{path} << "{\n]";
    EXPECT_EQ(errorOf(path), path + ": line 2, column 1: missing a name for object member");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf(folder / "pipe"), (folder / "pipe").string() + ": this is not a regular file");
    fs::create_symlink("nowhere", folder / "link");
    EXPECT_EQ(errorOf(folder / "link"), (folder / "link").string() + ": No such file or directory");
}

TEST_F(ReadDocumentTest, refusesAFileThatIsTooLarge) {
    const std::string path = folder / "large.json";
    std::ofstream{path} << "{}";
    // Without blocks on the disk.
    ASSERT_EQ(truncate(path.c_str(), off_t(MaxDocumentSize) + 1), 0);
    EXPECT_EQ(errorOf(path), path + ": the file has 1073741825 bytes, more than 1073741824");
}

} // namespace
