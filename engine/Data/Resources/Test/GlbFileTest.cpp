#include "Data/Resources/GlbFile.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "GlbBuilder.h"

namespace {

using namespace VantrelEngine;
using namespace VantrelEngine::Test;
using testing::HasSubstr;

const std::string Json = R"({"asset":{"version":"2.0"},"buffers":[{"byteLength":16}],"bufferViews":[)"
                         R"({"buffer":0,"byteOffset":4,"byteLength":12,"byteStride":6}],"accessors":[)"
                         R"({"bufferView":0,"byteOffset":2,"componentType":5123,"count":2,"type":"VEC2"}]})";
const std::string Data{"\x11\x11\x11\x11\x11\x11\1\0\2\0\x11\x11\3\0\4\0", 16};

std::string reasonOf(const std::string& bytes) {
    std::string reason;
    EXPECT_FALSE(GlbFile::open(view(bytes), reason)) << bytes;
    return reason;
}

TEST(GlbFileTest, accessor) {
    const std::string bytes = glb(Json, Data);
    std::string reason;
    const auto file = GlbFile::open(view(bytes), reason);
    ASSERT_TRUE(file) << reason;
    const auto accessor = file->accessor(0, reason);
    ASSERT_TRUE(accessor) << reason;
    EXPECT_EQ(accessor->count, 2u);
    EXPECT_EQ(accessor->components, 2u);
    EXPECT_EQ(accessor->stride, 6u);
    EXPECT_TRUE(accessor->isUnsignedSmall());
    EXPECT_FALSE(accessor->isNormalized);
    EXPECT_EQ(accessor->unsignedAt(0), 1u);
    EXPECT_EQ(accessor->unsignedAt(1), 3u);
    float floats[6]{0, 0, -1, 0, 0, -1};
    accessor->readFloats(floats, 12, 2);
    EXPECT_THAT(floats, testing::ElementsAre(1, 2, -1, 3, 4, -1));
    std::uint16_t shorts[2];
    accessor->readUnsignedShorts(shorts, 2, 1);
    EXPECT_THAT(shorts, testing::ElementsAre(1, 3));
}

TEST(GlbFileTest, numbers) {
    GlbBuilder builder;
    builder.add(Byte, "SCALAR", 1, std::vector<std::int8_t>{-128, -127, 0, 127});
    builder.add(Byte, "SCALAR", 1, std::vector<std::int8_t>{-128, -127, 0, 127}, true);
    builder.add(UnsignedByte, "SCALAR", 1, std::vector<std::uint8_t>{0, 51, 128, 255}, true);
    builder.add(Short, "SCALAR", 1, std::vector<std::int16_t>{-32768, -32767, 0, 32767}, true);
    builder.add(UnsignedShort, "SCALAR", 1, std::vector<std::uint16_t>{0, 13107, 1, 65535}, true, 4);
    builder.add(UnsignedInt, "SCALAR", 1, std::vector<std::uint32_t>{0, 1, 65536, 1u << 31});
    builder.add(Float, "SCALAR", 1, std::vector<float>{-1.5f, 0, 1e-30f, 7});
    const float expected[][4]{{-128, -127, 0, 127}, {-1, -1, 0, 1}, {0, 0.2f, 128 / 255.0f, 1}, {-1, -1, 0, 1},
        {0, 0.2f, 1 / 65535.0f, 1}, {0, 1, 65536, 2147483648.0f}, {-1.5f, 0, 1e-30f, 7}};
    const std::string bytes = builder.file("\"x\":0");
    std::string reason;
    const auto file = GlbFile::open(view(bytes), reason);
    ASSERT_TRUE(file) << reason;
    for(std::size_t i = 0; i != std::size(expected); ++i) {
        const auto accessor = file->accessor(i, reason);
        ASSERT_TRUE(accessor) << reason;
        float values[4];
        accessor->readFloats(values, sizeof(float), 1);
        for(int j = 0; j != 4; ++j) EXPECT_FLOAT_EQ(values[j], expected[i][j]) << i << ' ' << j;
    }
}

TEST(GlbFileTest, containersThatAreNone) {
    const std::string good = glb(Json, Data);
    EXPECT_EQ(reasonOf(""), "this is not a GLB file");
    EXPECT_EQ(reasonOf("glTX" + good.substr(4)), "this is not a GLB file");
    EXPECT_EQ(reasonOf(good.substr(0, 4) + '\1' + good.substr(5)), "this is version 1 of the container, not 2");
    EXPECT_EQ(reasonOf(good + '\0'), "the file is longer than its header says");
    EXPECT_EQ(reasonOf(glb("", "")), "its JSON is damaged at byte 0");
    std::string noChunks = good.substr(0, 12);
    noChunks[8] = 12;
    noChunks[9] = 0;
    EXPECT_EQ(reasonOf(noChunks), "the file has no JSON chunk");
    std::string wrongFirst = good;
    wrongFirst[16] = 'B';
    EXPECT_EQ(reasonOf(wrongFirst), "the first chunk is not JSON");
    std::string longChunk = good;
    longChunk[15] = '\x7f';
    EXPECT_EQ(reasonOf(longChunk), "a chunk reaches beyond the end of the file");
    std::string two = good;
    two.replace(two.size() - 20, 4, "JSON");
    EXPECT_EQ(reasonOf(two), "there are two JSON chunks");
}

TEST(GlbFileTest, truncatedAnywhere) {
    const std::string good = glb(Json, Data);
    for(std::size_t size = 0; size != good.size(); ++size)
        EXPECT_EQ(reasonOf(good.substr(0, size)), size < 4 ? "this is not a GLB file" : "the file is truncated");
}

TEST(GlbFileTest, jsonThatIsNone) {
    const struct {
        std::string json;
        const char* reason;
    } data[]{{"{", "damaged at byte"}, {"[]", "damaged"}, {"{} {}", "damaged at byte 3"},
        {"{\"a\":\"\xff\"}", "damaged"},
        {"{\"a\":" + std::string(64, '[') + std::string(64, ']') + "}", "nested deeper than 64"},
        {"{\"a\":" + std::string(100000, '['), "nested deeper than 64"},
        {R"({"x":[{"count":1,"count":2}]})", "has \"count\" twice"}, {"{}", "not version 2 of glTF"},
        {R"({"asset":{"version":"1.0"}})", "not version 2 of glTF"}, {R"({"asset":{"version":2}})", "not version 2"},
        {R"({"asset":{"version":"2.0"},"extensionsRequired":["KHR_lights_punctual","X_packed"]})",
            "the extension X_packed is not supported"},
        {R"({"asset":{"version":"2.0"},"extensionsRequired":{}})", "is not a list"}};
    for(const auto& row: data) EXPECT_THAT(reasonOf(glb(row.json, "")), HasSubstr(row.reason)) << row.json;
}

TEST(GlbFileTest, jsonThatIsFine) {
    const std::string brackets(65, '[');
    for(const std::string& json: {std::string{R"({"asset":{"version":"2.0"}})"},
            std::string{R"({"asset":{"version":"2.1"},"extensionsRequired":["KHR_materials_unlit"]})"},
            R"({"asset":{"version":"2.0"},"x":")" + brackets + R"("})",
            R"({"asset":{"version":"2.0"},"x":"\")" + brackets + R"("})"}) {
        std::string reason;
        const std::string bytes = glb(json, "");
        EXPECT_TRUE(GlbFile::open(view(bytes), reason)) << json << reason;
    }
}

TEST(GlbFileTest, accessorsThatAreNone) {
    const struct {
        const char *from, *to, *reason;
    } data[]{{"\"count\":2", "\"count\":2,\"sparse\":{}", "sparse accessors are not supported"},
        {"\"count\":2", "\"count\":0", "no elements"}, {"\"count\":2", "\"count\":-1", "\"count\" is not a whole"},
        {"\"count\":2", "\"count\":2.0", "\"count\" is not a whole"},
        {"\"count\":2", "\"count\":\"2\"", "\"count\" is not a whole"},
        {"\"count\":2", "\"count\":3", "beyond its buffer view"},
        {"\"count\":2", "\"count\":4294967297", "beyond its buffer view"},
        {"\"count\":2", "\"count\":3074457345618258604", "beyond its buffer view"},
        {"\"count\":2", "\"count\":18446744073709551615", "beyond its buffer view"},
        {"\"byteOffset\":2", "\"byteOffset\":3", "beyond its buffer view"},
        {"\"byteOffset\":2", "\"byteOffset\":12", "beyond its buffer view"},
        {"\"byteOffset\":2", "\"byteOffset\":4294967295", "beyond its buffer view"},
        {"\"byteOffset\":2", "\"byteOffset\":9223372036854775807", "beyond its buffer view"},
        {"\"byteOffset\":2", "\"byteOffset\":18446744073709551615", "beyond its buffer view"},
        {"\"byteOffset\":4", "\"byteOffset\":5", "beyond the data"},
        {"\"byteOffset\":4", "\"byteOffset\":4294967296", "beyond the data"},
        {"\"byteOffset\":4", "\"byteOffset\":18446744073709551610", "beyond the data"},
        {"\"byteLength\":12", "\"byteLength\":13", "beyond the data"},
        {"\"byteLength\":12", "\"byteLength\":18446744073709551615", "beyond the data"},
        {"\"byteLength\":16", "\"byteLength\":15", "beyond the data"},
        {"\"byteLength\":16", "\"byteLength\":1e3", "\"byteLength\" is not a whole"},
        {"\"byteStride\":6", "\"byteStride\":3", "elements overlap"},
        {"\"byteStride\":6", "\"byteStride\":7", "beyond its buffer view"},
        {"\"byteStride\":6", "\"byteStride\":9223372036854775808", "beyond its buffer view"},
        {"\"componentType\":5123", "\"componentType\":5124", "type is not known"},
        {"\"type\":\"VEC2\"", "\"type\":\"MAT2\"", "type is not known"},
        {"\"type\":\"VEC2\"", "\"type\":2", "type is not known"}, {"\"type\":\"VEC2\"", "\"x\":2", "type is not known"},
        {"\"type\":\"VEC2\"", "\"type\":\"VEC2\",\"normalized\":1", "neither true nor false"},
        {"\"bufferView\":0", "\"bufferView\":1", "buffer view is not there"},
        {"\"bufferView\":0", "\"x\":0", "buffer view is not there"},
        {"\"bufferView\":0", "\"bufferView\":[]", "\"bufferView\" is not a whole"},
        {"\"buffer\":0", "\"buffer\":1", "buffer is not there"},
        {"{\"byteLength\":16}", "{\"byteLength\":16,\"uri\":\"x.bin\"}", "not in the file itself"},
        {"{\"byteLength\":16}", "16", "buffer is not there"},
        {"\"accessors\":[{", "\"accessors\":[5,{", "accessor 0: it is not there"}};
    for(const auto& row: data) {
        const std::string bytes = glb(replaced(Json, row.from, row.to), Data);
        std::string reason;
        const auto file = GlbFile::open(view(bytes), reason);
        ASSERT_TRUE(file) << row.to << reason;
        EXPECT_FALSE(file->accessor(0, reason)) << row.to;
        EXPECT_THAT(reason, HasSubstr(row.reason)) << row.to;
        EXPECT_THAT(reason, HasSubstr("accessor 0: "));
    }
}

TEST(GlbFileTest, withoutDataThereIsNothingToRefer) {
    const std::string bytes = glb(Json, "");
    std::string reason;
    const auto file = GlbFile::open(view(bytes), reason);
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->accessor(0, reason));
    EXPECT_THAT(reason, HasSubstr("beyond the data"));
    EXPECT_FALSE(file->accessor(1, reason));
    EXPECT_FALSE(file->accessor(~std::uint64_t{}, reason));
    EXPECT_THAT(reason, HasSubstr("it is not there"));
}

}
