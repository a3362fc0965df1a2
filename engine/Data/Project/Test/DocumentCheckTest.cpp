#include "Data/Project/DocumentCheck.h"

#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Data/Project/KnownKeys.h"
#include "Data/Project/ParentLinks.h"
#include "Data/Project/Test/DocumentTestSupport.h"
#include <VantrelHost/DocumentWriter.h>

namespace {

using namespace VantrelEngine;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Checked {
    explicit Checked(const std::string& text): document{parsed(text)}, problems{checkDocument(document)} {}

    std::vector<std::string> lines() const { return linesOf(problems); }

    JsonDocument document;
    std::vector<DocumentProblem> problems;
};

constexpr const char* Once = "the key stands here once more; the later value was removed";

// Objects with these ids and parents, in this order.
std::string objects(const std::vector<std::pair<std::string, std::string>>& parents) {
    std::string text = "{\"objects\":{";
    for(const auto& [id, parent]: parents)
        text += (text.back() == '{' ? "\"" : ",\"") + id + "\":{\"name\":\"\",\"parent\":\"" + parent + "\"}";
    return text + "}}";
}

std::string objects(std::size_t count, bool chain) {
    std::vector<std::pair<std::string, std::string>> parents;
    for(std::size_t i = 0; i != count; ++i)
        parents.emplace_back(std::to_string(i), chain && i + 1 != count ? std::to_string(i + 1) : "");
    return objects(parents);
}

TEST(DocumentCheckTest, nothingToSay) {
    const char* const text =
        R"({"objects":{"a/b~{}%":{"name":"","parent":"","skin":"","translation":[0,1,2],)"
        R"("rotation":[0,0,0,1],"scaling":[1,1,-0.0],"components":[{"type":"Spin","Spin":{"x":1e300}}]},)"
        R"("0":{"name":"x","parent":"a/b~{}%","other":{"translation":1}}},)"
        R"("settings":{"editor":{"camera":{"far":1e39}},"other":[1e300]},"other":[]})";
    const Checked checked{text};
    EXPECT_THAT(checked.lines(), IsEmpty());
    EXPECT_EQ(jsonText(checked.document), jsonText(parsed(text)));
    EXPECT_FALSE(isRefused(checked.problems));
    EXPECT_FALSE(isRepaired(checked.problems));
}

TEST(DocumentCheckTest, objectsAreAlwaysThere) {
    const Checked checked{R"({"settings":{}})"};
    EXPECT_THAT(checked.lines(), IsEmpty());
    EXPECT_EQ(jsonText(checked.document), R"({"settings":{},"objects":{}})");
}

TEST(DocumentCheckTest, duplicateKeysAtEachLevel) {
    const Checked checked{R"({"settings":{"a":[1,{"b":1,"b":2}],"a":3},"objects":{"x":{"name":"n","name":"m",)"
                          R"("components":[{},{"type":"light","light":{"color":[1,1,1],"color":5},"type":4}]},)"
                          R"("y":{},"x":{"lost":1}},"objects":{"lost":1},"z":{"k":1,"l":2,"k":3,"k":4}})"};
    EXPECT_THAT(checked.lines(),
        ElementsAre(std::string{"R settings/a/1/b: "} + Once, std::string{"R settings/a: "} + Once,
            std::string{"R objects/x/name: "} + Once, std::string{"R objects/x/components/1/type: "} + Once,
            std::string{"R objects/x/components/1/light/color: "} + Once,
            "W objects/x/components/0/type: missing, expected is a text", std::string{"R objects/x: "} + Once,
            std::string{"R objects: "} + Once, std::string{"R z/k: "} + Once, std::string{"R z/k: "} + Once));
    EXPECT_EQ(jsonText(checked.document),
        R"({"settings":{"a":[1,{"b":1}]},"objects":{"x":{"name":"n","components":[{},{"type":"light",)"
        R"("light":{"color":[1,1,1]}}]},"y":{}},"z":{"k":1,"l":2}})");
    EXPECT_TRUE(isRepaired(checked.problems));
}

TEST(DocumentCheckTest, manyDuplicateKeys) {
    std::string text = "{\"objects\":{";
    for(int i = 0; i != 60000; ++i)
        text += "\"" + std::to_string(i / 2) + "\":{\"name\":\"" + std::to_string(i) + "\"},";
    text.back() = '}';
    const Checked checked{text + "}"};
    EXPECT_EQ(checked.problems.size(), 30000u);
    ASSERT_EQ(checked.document["objects"].MemberCount(), 30000u);
    EXPECT_STREQ(checked.document["objects"]["29999"]["name"].GetString(), "59998");
}

TEST(DocumentCheckTest, sectionsAreObjects) {
    for(const char* section: {"objects", "meshes", "materials", "textures", "images", "shaders", "pipelines",
            "animations", "skins", "fonts", "settings"})
        for(const char* value: {"[]", "null", "1", "\"\"", "true"}) {
            const Checked checked{std::string{"{\""} + section + "\":" + value + "}"};
            EXPECT_THAT(checked.lines(), ElementsAre(std::string{"X "} + section + ": not an object"));
            EXPECT_TRUE(isRefused(checked.problems));
        }
}

TEST(DocumentCheckTest, objectsThatAreNone) {
    const Checked checked{R"({"objects":{"a":[],"":{},"b":{},"c":null}})"};
    EXPECT_THAT(checked.lines(),
        ElementsAre(
            "X objects/a: not an object", "X objects: an object has an empty id", "X objects/c: not an object"));
}

TEST(DocumentCheckTest, asManyObjectsAsThereCanBe) {
    EXPECT_THAT(Checked{objects(65534, false)}.lines(), IsEmpty());
    EXPECT_THAT(Checked{objects(65535, false)}.lines(),
        ElementsAre("X objects: 65535 objects are more than the 65534 that a project can have"));
}

TEST(DocumentCheckTest, aChainOfAllObjects) {
    EXPECT_THAT(Checked{objects(65534, true)}.lines(), IsEmpty());
    std::string text = objects(65534, true);
    // The last one's parent becomes the first one.
    text.replace(text.rfind("\"\""), 2, "\"0\"");
    const Checked checked{text};
    EXPECT_THAT(checked.lines(),
        ElementsAre("R objects/0/parent: \"1\" makes the object its own ancestor, it went to the root"));
}

TEST(DocumentCheckTest, cyclesAreBrokenAtTheirFirstObject) {
    const Checked checked{objects({{"in", "c"}, {"self", "self"}, {"b", "c"}, {"c", "d"}, {"ok", ""}, {"d", "b"},
        {"below", "in"}, {"y", "x/~"}, {"x/~", "y"}})};
    EXPECT_THAT(checked.lines(),
        ElementsAre("R objects/self/parent: \"self\" makes the object its own ancestor, it went to the root",
            "R objects/b/parent: \"c\" makes the object its own ancestor, it went to the root",
            "R objects/y/parent: \"x/~\" makes the object its own ancestor, it went to the root"));
    EXPECT_EQ(jsonText(checked.document),
        jsonText(parsed(objects({{"in", "c"}, {"self", ""}, {"b", ""}, {"c", "d"}, {"ok", ""}, {"d", "b"},
            {"below", "in"}, {"y", ""}, {"x/~", "y"}}))));
    EXPECT_TRUE(ParentLinks{checked.document["objects"]}.cycles().empty());
}

TEST(DocumentCheckTest, manyCycles) {
    std::vector<std::pair<std::string, std::string>> parents;
    for(int i = 0; i != 30000; ++i) parents.emplace_back(std::to_string(i), std::to_string(i ^ 1));
    Checked checked{objects(parents)};
    EXPECT_EQ(checked.problems.size(), 15000u);
    EXPECT_TRUE(ParentLinks{checked.document["objects"]}.cycles().empty());
    EXPECT_THAT(checkDocument(checked.document), IsEmpty());
}

TEST(DocumentCheckTest, parentsThatDoNotExist) {
    const Checked checked{R"({"objects":{"a":{"parent":"gone"},"b":{"parent":5},"c":{},"d":{"parent":"a"}}})"};
    EXPECT_THAT(checked.lines(),
        ElementsAre("W objects/a/parent: there is no object \"gone\", the root is taken",
            "W objects/b/parent: not usable, expected is a text"));
    EXPECT_STREQ(checked.document["objects"]["a"]["parent"].GetString(), "gone");
    EXPECT_FALSE(isRepaired(checked.problems));
}

TEST(DocumentCheckTest, componentsThatAreNone) {
    const Checked checked{R"({"objects":{"a":{"components":[1,{},{"type":2},{"type":"light","light":[]}]},)"
                          R"("b":{"components":{}}}})"};
    EXPECT_THAT(checked.lines(),
        ElementsAre("W objects/a/components/0: not an object, skipped",
            "W objects/a/components/1/type: missing, expected is a text",
            "W objects/a/components/2/type: not usable, expected is a text",
            "W objects/a/components/3/light: not usable, expected is an object",
            "W objects/b/components: not usable, expected is an array"));
}

// Values, and whether a type takes them.
struct Sample {
    bool isOutOfKernelRange() const { return value[0] == '-' || std::string{value}.size() > 3; }

    const char* value;
    std::set<KeyType> takers;
};
const Sample Samples[]{{"\"x\"", {KeyType::Text}}, {"true", {KeyType::Truth}}, {"null", {}},
    {"1", {KeyType::Number, KeyType::NumberOrInfinity, KeyType::WholeNumber, KeyType::UnsignedNumber}},
    {"2.0", {KeyType::Number, KeyType::NumberOrInfinity, KeyType::WholeNumber, KeyType::UnsignedNumber}},
    {"-1", {KeyType::Number, KeyType::NumberOrInfinity, KeyType::WholeNumber}},
    {"4294967295", {KeyType::Number, KeyType::NumberOrInfinity, KeyType::UnsignedNumber}},
    {"4294967296", {KeyType::Number, KeyType::NumberOrInfinity}}, {"1.5", {KeyType::Number, KeyType::NumberOrInfinity}},
    {"1e39", {KeyType::NumberOrInfinity}}, {"-1e39", {KeyType::NumberOrInfinity}},
    {"3.4e38", {KeyType::Number, KeyType::NumberOrInfinity}}, {"{}", {KeyType::Object}}, {"[]", {KeyType::Array}},
    {"[1,2]", {KeyType::Array, KeyType::Vector2i}}, {"[1,2.5]", {KeyType::Array}},
    {"[1,2,3]", {KeyType::Array, KeyType::Vector3}}, {"[1,2,\"3\"]", {KeyType::Array}},
    {"[1,2,1e39]", {KeyType::Array}}, {"[1,2,3,4]", {KeyType::Array, KeyType::Vector4, KeyType::Rotation}},
    {"[0,0,0,0]", {KeyType::Array, KeyType::Vector4}}, {"[0,0,0,-1e39]", {KeyType::Array}},
    {"[1,2,3,4,5]", {KeyType::Array}}};

// A value at a key with steps.
std::string nested(std::string key, std::string value) {
    for(std::size_t slash; (slash = key.rfind('/')) != key.npos; key.resize(slash))
        value = "{\"" + key.substr(slash + 1) + "\":" + value + "}";
    return "{\"" + key + "\":" + value + "}";
}

std::string withType(const std::string& object, const char* type) {
    return std::string{"{\"type\":\""} + type + "\"," + object.substr(1);
}

// Each key with each sample: exactly one warning, or none.
void expectTypes(Corrade::Containers::ArrayView<const KnownKey> keys, const std::string& place,
    std::string (*document)(const KnownKey&, const char* value)) {
    ASSERT_FALSE(keys.isEmpty());
    for(const KnownKey& known: keys)
        for(const Sample& sample: Samples) {
            // Said otherwise: "kernelSize" out of range, and the members of "components".
            const std::string key = known.key;
            if(key == BloomKernelSizeKey && sample.isOutOfKernelRange()) continue;
            if(key == "components" && sample.value[0] == '[') continue;
            if(key == "parent" && sample.value[0] == '"') continue;
            const std::vector<std::string> lines = Checked{document(known, sample.value)}.lines();
            if(sample.takers.count(known.type)) {
                EXPECT_THAT(lines, IsEmpty()) << place << key << sample.value;
            } else {
                ASSERT_EQ(lines.size(), 1u) << place << key << sample.value;
                EXPECT_THAT(lines[0], testing::StartsWith("W " + place + key + ": not usable")) << sample.value;
            }
        }
}

TEST(DocumentCheckTest, typesOfObjectKeys) {
    expectTypes(objectKeys(), "objects/a/", [](const KnownKey& known, const char* value) {
        return "{\"objects\":{\"a\":" + nested(known.key, value) + "}}";
    });
}

template<int i> void expectComponentTypes() {
    static constexpr const char* types[]{"mesh", "collision", "animation", "light", "view", "input", "text", "physx"};
    expectTypes(componentKeys(types[i]), "objects/a/components/1/", [](const KnownKey& known, const char* value) {
        return "{\"objects\":{\"a\":{\"components\":[{\"type\":\"x\"}," + withType(nested(known.key, value), types[i]) +
            "]}}}";
    });
    if constexpr(i + 1 != std::size(types)) expectComponentTypes<i + 1>();
}

TEST(DocumentCheckTest, typesOfComponentKeys) { expectComponentTypes<0>(); }

TEST(DocumentCheckTest, typesOfSettings) {
    expectTypes(settingsKeys(), "settings/",
        [](const KnownKey& known, const char* value) { return "{\"settings\":" + nested(known.key, value) + "}"; });
}

TEST(DocumentCheckTest, kernelSizeOfTheBloom) {
    const struct {
        const char *value, *clamped;
    } data[]{{"0", "0"}, {"21", "21"}, {"20.5", "20.5"}, {"22", "21"}, {"21.5", "21"}, {"-1", "0"}, {"-0.5", "0"},
        {"1e30", "21"}, {"1e39", "21"}, {"-1e39", "0"}};
    for(const auto& row: data) {
        const Checked checked{"{\"settings\":" + nested(BloomKernelSizeKey, row.value) + "}"};
        EXPECT_EQ(jsonText(*valueAtKey(checked.document["settings"], BloomKernelSizeKey)), row.clamped);
        EXPECT_EQ(checked.problems.size(), std::string{row.value} == row.clamped ? 0u : 1u) << row.value;
        EXPECT_EQ(isRepaired(checked.problems), std::string{row.value} != row.clamped) << row.value;
    }
    EXPECT_THAT(Checked{"{\"settings\":" + nested(BloomKernelSizeKey, "22.5") + "}"}.lines(),
        ElementsAre("R settings/rendering/bloom/kernelSize: 22.5 is not between 0 and 21, it became 21"));
}

TEST(DocumentCheckTest, inTheOrderOfTheDocument) {
    const Checked checked{R"({"settings":{"physx":1},"objects":{"a":{"parent":"x"},"b":{"parent":"b"},)"
                          R"("c":{"name":1,"name":2},"d":{"skin":1}},"settings":1,"fonts":[]})"};
    std::vector<std::string> places;
    for(const std::string& line: checked.lines()) places.push_back(line.substr(0, line.find(':')));
    EXPECT_THAT(places,
        ElementsAre("W settings/physx", "W objects/a/parent", "R objects/b/parent", "R objects/c/name",
            "W objects/c/name", "W objects/d/skin", "R settings", "X fonts"));
}

// Every key that the engine reads of the scene and the settings, with a usable value.
constexpr const char* EveryKey = R"({
"objects": {"all": {"name": "All", "parent": "", "skin": "s", "translation": [1, 2, 3], "rotation": [0, 0, 0, 1],
"scaling": [1, 1, 0], "components": [
{"type": "mesh", "active": true, "mesh": {"mesh": "m", "material": "m", "skin": ""}},
{"type": "collision", "active": true, "collision": {"collider": "obb", "groups": 255, "sphere": {"radius": 1.5},
"aabb": {"extents": [1, 1, 1]}, "obb": {"extents": [1, 1, 1]}}},
{"type": "animation", "active": true, "animation": {"preview": false, "playCount": -1, "speed": 0.5, "animation": "a",
"retarget": false, "autoplay": true}},
{"type": "light", "active": true, "light": {"color": [1, 0.5, 0], "intensity": 2, "type": "spot", "outerAngle": 45.5,
"innerAngle": 30, "shadows": true, "shadowRange": 10.5, "shadowBias": 0.1, "shadowNormalBias": 0.1,
"shadowTexelSize": 0.1, "cascadeCount": 4}},
{"type": "view", "active": true, "view": {"fov": 90, "near": 0.1, "far": 1e39}},
{"type": "input", "active": true, "input": {"type": "mouse"}},
{"type": "text", "active": false, "text": {"text": "x", "alignment": "left", "justification": "top",
"characterSpacing": 0.5, "lineSpacing": 1.5, "effect": "none", "material": "m"}},
{"type": "physx", "active": true, "physx": {"mass": 1.5, "staticFriction": 0.5, "dynamicFriction": 0.5,
"bounciness": 0.5, "linearDamping": 0.5, "angularDamping": 0.5, "shape": "box", "groups": 1, "block": 2, "lockAxis": 63,
"static": true, "gravity": true, "kinematic": true, "simulate": true, "allowSimulation": true, "allowQuery": true,
"trigger": true, "sphere": {"radius": 0.5}, "capsule": {"radius": 0.5, "halfHeight": 0.5},
"box": {"extents": [0.5, 0.5, 0.5]}, "convexMesh": {"mesh": "m", "scaling": [1, 1, 1]},
"triangleMesh": {"mesh": "m", "scaling": [1, 1, 1]}}}
]}},
"settings": {"rendering": {"clearColor": [0, 0, 0, 1], "bloom": {"enabled": true, "passes": 3, "kernelSize": 20.5,
"threshold": 0.5, "intensity": 0.5}, "hdr": {"exposure": 0.5},
"environment": {"image": "i", "intensity": 0.5, "rotation": 45, "background": true}, "usePreZ": true, "useMultiDraw": true,
"useFrustumCulling": true, "textureAtlasSize": [512, 512], "compressedTextureAtlasSize": [512, 512]},
"editor": {"camera": {"near": 0.5, "far": 100.5, "pitch": -45.5, "yaw": 30.5}}, "physx": {"enable": true}}
})";

void collectValues(JsonValue& value, const std::string& path, std::vector<std::pair<JsonValue*, std::string>>& values) {
    if(value.IsObject())
        for(auto& member: value.GetObject()) collectValues(member.value, path + "/" + member.name.GetString(), values);
    if(value.IsArray() && value[0].IsObject())
        for(rapidjson::SizeType i = 0; i != value.Size(); ++i)
            collectValues(value[i], path + "/" + std::to_string(i), values);
    else
        values.emplace_back(&value, path.substr(1));
}

TEST(DocumentCheckTest, everyKeyIsKnown) {
    JsonDocument document = parsed(EveryKey);
    ASSERT_THAT(linesOf(checkDocument(document)), IsEmpty());
    std::vector<std::pair<JsonValue*, std::string>> values;
    for(const char* section: {"objects", "settings"})
        for(auto& member: document[section].GetObject())
            collectValues(member.value, std::string{"/"} + section + "/" + member.name.GetString(), values);
    ASSERT_GT(values.size(), 100u);
    for(const auto& [value, place]: values) {
        // A refusal, not a warning.
        if(place == "objects/all") continue;
        JsonValue old;
        old.Swap(*value);
        const std::vector<std::string> lines = linesOf(checkDocument(document));
        ASSERT_EQ(lines.size(), 1u) << place;
        const bool isComponent = std::isdigit(static_cast<unsigned char>(place.back()));
        EXPECT_THAT(lines[0], testing::StartsWith("W " + place + (isComponent ? ": not an object" : ": not usable")));
        old.Swap(*value);
    }
}

// Texts that are nearly a project.
TEST(DocumentCheckTest, whatIsAcceptedCanBeSavedAndNeedsNoMoreRepairs) {
    const std::string whole = R"({"objects":{"a":{"name":"x","parent":"b","rotation":[0,0,0,1],"components":[{"type":)"
                              R"("light","light":{"color":[1,1,1e3]}}]},"b":{"parent":"a","parent":"c"},"c":{"parent":)"
                              R"(""}},"settings":{"rendering":{"bloom":{"kernelSize":21}}},"fonts":{"\u00e9":{}}})";
    // Most of them keep the text JSON.
    const std::string alphabet = "0123456789abc\"\"{}[],:.-e ";
    std::mt19937 random{1};
    std::size_t accepted = 0, repaired = 0;
    for(int run = 0; run != 20000; ++run) {
        std::string text = whole;
        for(unsigned i = random() % 3 + 1; i; --i) text[random() % text.size()] = alphabet[random() % alphabet.size()];
        JsonDocument document;
        if(!parseDocument(text, document).empty()) continue;
        const std::vector<DocumentProblem> problems = checkDocument(document);
        if(isRefused(problems)) continue;
        ++accepted;
        repaired += isRepaired(problems);
        const std::string before = jsonText(document);
        ASSERT_FALSE(isRepaired(checkDocument(document))) << text;
        ASSERT_EQ(jsonText(document), before) << text;
        std::string saved;
        ASSERT_EQ(writeDocument(document, saved), "") << text;
        ASSERT_EQ(jsonText(parsed(saved)), before) << text;
    }
    EXPECT_GT(accepted, 1000u);
    EXPECT_GT(repaired, 1000u);
}

} // namespace
