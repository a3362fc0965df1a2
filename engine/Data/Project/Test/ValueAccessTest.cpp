#include "Vantrel/EngineData/ValueAccess.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/Math/Vector4.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Vantrel/EngineData/JsonObject.h"
#include "Vantrel/EngineData/ProjectFile.h"
#include "Vantrel/EngineData/RapidJsonUtils.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using testing::ElementsAre;
using testing::IsEmpty;
using WhenMissing = JsonObject::WhenMissing;

class ValueAccessTest: public testing::Test {
protected:
    void parse(const std::string& json) {
        file.projectFile().Parse(json.c_str());
        ASSERT_FALSE(file.projectFile().HasParseError()) << json;
        file.membersChanged();
        file.forgetWarnings();
    }
    // The value is the document's member "v".
    JsonObject value(const std::string& json) {
        parse("{\"v\":" + json + "}");
        return root()["v"].readValue();
    }
    ValueAccess root() { return ValueAccess{file}; }

    template<class Function> std::string warningsOf(Function&& function) {
        Containers::String out;
        {
            Utility::Warning redirected{&out};
            function();
        }
        return {out.data(), out.size()};
    }

    static std::vector<std::string> keysOf(const ValueAccess& place) {
        std::vector<std::string> keys;
        for(const Containers::StringView key: place.keys()) keys.emplace_back(key.data(), key.size());
        return keys;
    }

    ProjectFile file;
};

TEST_F(ValueAccessTest, stepsByKeyAndByPosition) {
    parse(R"({"objects":{"a/b":{"components":[{"type":"x"},{"type":"y"}],"":1}}})");
    const ValueAccess object = root()["objects"]["a/b"];
    EXPECT_TRUE(object["components"][1]["type"].exists());
    EXPECT_EQ(object["components"][1]["type"].readValue().asString(), "y");
    EXPECT_EQ(object["components"][1]["type"].path(), "/objects/a~1b/components/1/type");
    EXPECT_EQ(object["components"][1]["type"].description(), "objects/a/b/components/1/type");
    EXPECT_FALSE(object["components"][2].exists());
    EXPECT_FALSE(object["components"]["0"].exists());
    EXPECT_FALSE(object[0].exists());
    EXPECT_FALSE(object["nothing"]["below"][7].exists());
    EXPECT_EQ(object["nothing"]["below"][7].path(), "/objects/a~1b/nothing/below/7");
    EXPECT_TRUE(object[""].exists());
    EXPECT_TRUE(object[Containers::StringView{}].exists());
    EXPECT_EQ(root().path(), "");
}

TEST_F(ValueAccessTest, keysAreInTheirOrder) {
    parse(R"({"objects":{"b":1,"a":2,"c":3},"list":[1]})");
    EXPECT_THAT(keysOf(root()["objects"]), ElementsAre("b", "a", "c"));
    EXPECT_THAT(keysOf(root()["list"]), IsEmpty());
    EXPECT_THAT(keysOf(root()["nothing"]), IsEmpty());
    EXPECT_EQ(root()["objects"].readValue().size(), 3u);
    EXPECT_EQ(root()["list"].readValue().size(), 1u);
    EXPECT_EQ(root()["list"][0].readValue().size(), 0u);
    EXPECT_EQ(root()["nothing"].readValue().size(), 0u);
}

TEST_F(ValueAccessTest, largeObjectsAreFoundThroughTheIndexAsItChanges) {
    std::string json = "{\"objects\":{";
    for(int i = 0; i != 100; ++i) json += (i ? ",\"" : "\"") + std::to_string(i) + "\":" + std::to_string(i);
    parse(json + "}}");
    EXPECT_EQ(root()["objects"]["57"].readValue().asInt(), 57);
    ASSERT_TRUE(file.eraseByPointer("/objects/56"));
    EXPECT_EQ(root()["objects"]["57"].readValue().asInt(), 57);
    EXPECT_FALSE(root()["objects"]["56"].exists());
    file.createByPointer("/objects/new").SetInt(1000);
    EXPECT_EQ(root()["objects"]["new"].readValue().asInt(), 1000);
    EXPECT_EQ(file.member("objects", "99"), root()["objects"]["99"].value());
    EXPECT_EQ(file.member("objects", "100"), nullptr);
    EXPECT_EQ(file.member("nothing", "99"), nullptr);
}

TEST_F(ValueAccessTest, theDefaultsStandInForWhatTheDocumentLacks) {
    JsonDocument defaults;
    defaults.Parse(R"({"settings":{"a":{"x":1,"y":2},"b":[7,8]},"objects":{}})");
    file.setDefaults(std::move(defaults));
    parse(R"({"settings":{"a":{"x":10}},"objects":{"o":{}}})");
    EXPECT_EQ(root()["settings"]["a"]["x"].readValue().asInt(), 10);
    EXPECT_EQ(root()["settings"]["a"]["y"].readValue().asInt(), 2);
    EXPECT_EQ(root()["settings"]["b"][1].readValue().asInt(), 8);
    EXPECT_TRUE(root()["objects"]["o"].exists());
    parse("{}");
    EXPECT_EQ(root()["settings"]["a"]["x"].readValue().asInt(), 1);
    // A value of a wrong type does not hide the default.
    parse(R"({"settings":{"a":{"x":"ten"},"b":3}})");
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(root()["settings"]["a"]["x"].readValue().asInt(), 1); }),
        "settings/a/x: not usable, expected is a whole number\n");
    EXPECT_EQ(root()["settings"]["b"][1].readValue().asInt(), 8);
}

TEST_F(ValueAccessTest, aValueThatIsKnownNeedsNoSearch) {
    parse(R"({"objects":{"a":{"name":"A"},"b":{"name":"B"}}})");
    const ValueAccess b = root()["objects"].withValue("b", *file.valueByPointer("/objects/b"));
    EXPECT_EQ(b["name"].readValue().asString(), "B");
    EXPECT_EQ(b["name"].path(), "/objects/b/name");
}

TEST_F(ValueAccessTest, aWayThatIsTooLongAborts) {
    parse("{}");
    ValueAccess place = root();
    for(int i = 0; i != 10; ++i) place = place["x"];
    EXPECT_EXIT(place["x"], testing::KilledBySignal(SIGABRT), testing::HasSubstr("more than 10 steps from the root"));
}

TEST_F(ValueAccessTest, readsWhatFits) {
    EXPECT_EQ(value("\"text\"").asString(), "text");
    EXPECT_EQ(value("true").asBool(), true);
    EXPECT_EQ(value("1.5").asFloat(), 1.5f);
    EXPECT_EQ(value("3").asFloat(), 3.0f);
    EXPECT_EQ(value("-3").asInt(), -3);
    EXPECT_EQ(value("3.0").asInt(), 3);
    EXPECT_EQ(value("4294967295").asUnsignedInt(), 4294967295u);
    EXPECT_EQ(value("[1, 2.0]").asVector2i(), (Vector2i{1, 2}));
    EXPECT_EQ(value("[1, 2.5, 3]").asVector3(), (Vector3{1.0f, 2.5f, 3.0f}));
    EXPECT_EQ(value("[1, 2.5, 3, 4]").asVector4(), (Vector4{1.0f, 2.5f, 3.0f, 4.0f}));
    EXPECT_EQ(value("[1, 0, -0.0]").asScaling(), (Vector3{1.0f, SafeScaling, -SafeScaling}));
}

TEST_F(ValueAccessTest, rotationsAreNormalised) {
    const Quaternion half{{0.5f, 0.5f, 0.5f}, 0.5f};
    EXPECT_EQ(value("[0.5, 0.5, 0.5, 0.5]").asQuaternion(), half);
    EXPECT_EQ(value("[3, 3, 3, 3]").asQuaternion(), half);
    EXPECT_EQ(value("[1e-30, 1e-30, 1e-30, 1e-30]").asQuaternion(), half);
    EXPECT_EQ(value("[1e30, 1e30, 1e30, 1e30]").asQuaternion(), half);
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(value("[0, 0, 0, 0]").asQuaternion(), Quaternion{}); }),
        "v: not usable, expected is an array of 4 numbers, not all zero\n");
}

TEST_F(ValueAccessTest, whatDoesNotFitGivesTheFallbackAndOneWarning) {
    const struct {
        const char* json;
        void (*read)(const JsonObject&);
        const char* expected;
    } rows[]{
        {"3", [](const JsonObject& v) { EXPECT_EQ(v.asString("x"), "x"); }, "a text"},
        {"0", [](const JsonObject& v) { EXPECT_EQ(v.asBool(true), true); }, "true or false"},
        {"\"1\"", [](const JsonObject& v) { EXPECT_EQ(v.asFloat(5.0f), 5.0f); }, "a number"},
        {"1e39", [](const JsonObject& v) { EXPECT_EQ(v.asFloat(5.0f), 5.0f); }, "a number"},
        {"null", [](const JsonObject& v) { EXPECT_EQ(v.asFloatOrInfinity(5.0f), 5.0f); }, "a number"},
        {"1.5", [](const JsonObject& v) { EXPECT_EQ(v.asInt(5), 5); }, "a whole number"},
        {"2147483648", [](const JsonObject& v) { EXPECT_EQ(v.asInt(5), 5); }, "a whole number"},
        {"-1", [](const JsonObject& v) { EXPECT_EQ(v.asUnsignedInt(5), 5u); }, "a whole number that is not negative"},
        {"[1]", [](const JsonObject& v) { EXPECT_EQ(v.asVector2i(), Vector2i{}); }, "an array of 2 whole numbers"},
        {"[1, 2]", [](const JsonObject& v) { EXPECT_EQ(v.asVector3(), Vector3{}); }, "an array of 3 numbers"},
        {"[1, 2, true]", [](const JsonObject& v) { EXPECT_EQ(v.asVector3(Vector3{5.0f}), Vector3{5.0f}); },
            "an array of 3 numbers"},
        {"[1, 2, -1e39]", [](const JsonObject& v) { EXPECT_EQ(v.asScaling(), Vector3{1.0f}); },
            "an array of 3 numbers"},
        {"{}", [](const JsonObject& v) { EXPECT_EQ(v.asVector4(), Vector4{}); }, "an array of 4 numbers"},
    };
    for(const auto& row: rows) {
        const JsonObject read = value(row.json);
        const std::string line = std::string{"v: not usable, expected is "} + row.expected + "\n";
        EXPECT_EQ(warningsOf([&] {
            row.read(read);
            row.read(read);
        }),
            line)
            << row.json;
    }
}

TEST_F(ValueAccessTest, whatIsMissingIsSaidUnlessItMayBe) {
    parse(R"({"objects":{"tree":{}}})");
    const JsonObject missing = root()["objects"]["tree"]["height"].readValue();
    EXPECT_FALSE(missing.exists());
    EXPECT_EQ(warningsOf([&] {
        EXPECT_EQ(missing.asFloat(2.0f, WhenMissing::Accept), 2.0f);
        EXPECT_EQ(missing.asUnsignedInt(3, WhenMissing::Accept), 3u);
        EXPECT_EQ(missing.asString("x", WhenMissing::Accept), "x");
    }),
        "");
    EXPECT_EQ(warningsOf([&] {
        EXPECT_EQ(missing.asFloat(2.0f), 2.0f);
        EXPECT_EQ(missing.asFloat(2.0f), 2.0f);
    }),
        "objects/tree/height: missing, expected is a number\n");
    file.forgetWarnings();
    EXPECT_NE(warningsOf([&] { missing.asFloat(); }), "");
}

TEST_F(ValueAccessTest, numbersBeyondAFloatAreInfinityWhereThatIsWanted) {
    EXPECT_EQ(value("1e39").asFloatOrInfinity(), std::numeric_limits<float>::infinity());
    EXPECT_EQ(value("-1e300").asFloatOrInfinity(), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(value("3.4028234e38").asFloatOrInfinity(), 3.4028234e38f);
}

TEST_F(ValueAccessTest, aTransformationIsMadeOfThree) {
    const Matrix4 matrix = value(R"({"translation":[1,2,3],"rotation":[0,0,1,1],"scaling":[2,0,4]})").asTransform();
    EXPECT_EQ(matrix,
        Matrix4::translation({1.0f, 2.0f, 3.0f}) * Matrix4::rotationZ(Rad{1.57079633f}) *
            Matrix4::scaling({2.0f, SafeScaling, 4.0f}));
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(value("{}").asTransform(), Matrix4{}); }),
        "v/translation: missing, expected is an array of 3 numbers\n"
        "v/rotation: missing, expected is an array of 4 numbers, not all zero\n"
        "v/scaling: missing, expected is an array of 3 numbers\n");
}

TEST_F(ValueAccessTest, valuesByPointerCanBeWritten) {
    parse(R"({"a":[1,2]})");
    JsonObject::valueByPointer(file, "/a/1")->SetInt(5);
    EXPECT_EQ(root()["a"][1].readValue().asInt(), 5);
    EXPECT_EQ(JsonObject::valueByPointer(file, "/a/2"), nullptr);
}

TEST_F(ValueAccessTest, resourcesAreFoundByNameAndSayWhereTheirFileIs) {
    parse(R"({"textures":{"t1":{"name":"Wood"},"t2":{"name":"Stone"},"t3":{"name":"Stone"},"t4":7,"t5":{"name":4}},
              "images":{"a":{"file":"a/b.png"},"b":{"file":"c.glsl","asset":"default"},"c":{"file":3},"d":{}},
              "meshes":"none"})");
    EXPECT_EQ(file.resourceByName("textures", "Stone"), "t2");
    EXPECT_EQ(file.resourceByName("textures", "Wood"), "t1");
    for(const char* const section: {"textures", "meshes", "nothing"})
        EXPECT_EQ(file.resourceByName(section, "Brick"), "") << section;
    EXPECT_EQ(file.resourceByName("textures", ""), "");
    const struct {
        const char* id;
        const char* asset;
        const char* file;
    } rows[]{{"a", "", "a/b.png"}, {"b", "default", "c.glsl"}, {"c", "", ""}, {"d", "", ""}, {"e", "", ""}};
    for(const auto& row: rows) {
        EXPECT_EQ(file.fileLinkForResource("images", row.id).asset, row.asset) << row.id;
        EXPECT_EQ(file.fileLinkForResource("images", row.id).file, row.file) << row.id;
    }
}

TEST(RapidJsonUtilsTest, enumStringToValue) {
    const Containers::StringView names[]{"red", "green"};
    EXPECT_EQ(RapidJsonUtils::enumStringToValue("green", names), 1u);
    Containers::String out;
    {
        Utility::Warning redirected{&out};
        EXPECT_EQ(RapidJsonUtils::enumStringToValue("blue", names), 0u);
    }
    EXPECT_EQ(out, "RapidJsonUtils::enumStringToValue(): blue is none of red green\n");
}

} // namespace
