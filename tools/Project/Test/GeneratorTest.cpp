#include "Project/Generator.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace VantrelEngine;
using namespace VantrelTools;

std::string text(const JsonValue& value) { return {value.GetString(), value.GetStringLength()}; }

// Of short ids: "o12" is 12. Of no id, -1.
int number(const std::string& id) { return id.empty() ? -1 : std::stoi(id.substr(1)); }

struct Listed {
    int object, parent;
};

std::vector<Listed> listed(Topology topology, std::size_t count) {
    GeneratorOptions options;
    options.count = count;
    options.topology = topology;
    options.ids = IdStyle::Short;
    const JsonDocument project = generateProject(options);
    std::vector<Listed> objects;
    for(const auto& object: project["objects"].GetObject())
        objects.push_back({number(text(object.name)), number(text(object.value["parent"]))});
    return objects;
}

std::vector<int> order(const std::vector<Listed>& objects) {
    std::vector<int> order;
    for(const Listed& object: objects) order.push_back(object.object);
    return order;
}

std::vector<int> counted(int begin, int end) {
    std::vector<int> numbers;
    for(int i = begin; i != end; i += begin < end ? 1 : -1) numbers.push_back(i);
    return numbers;
}

TEST(GeneratorTest, flatHasNoParents) {
    const auto objects = listed(Topology::Flat, 300);
    EXPECT_EQ(order(objects), counted(0, 300));
    for(const Listed& object: objects) EXPECT_EQ(object.parent, -1);
}

TEST(GeneratorTest, treesHaveEightChildrenEach) {
    const auto tree = listed(Topology::Tree, 300), reverse = listed(Topology::Reverse, 300);
    EXPECT_EQ(order(tree), counted(0, 300));
    EXPECT_EQ(order(reverse), counted(299, -1));
    for(const auto* const objects: {&tree, &reverse}) {
        std::map<int, int> children;
        for(const Listed& object: *objects) {
            EXPECT_LT(object.parent, object.object);
            ++children[object.parent];
        }
        EXPECT_EQ(children.at(-1), 1);
        EXPECT_EQ(children.at(0), 8);
        // 299 are children: 37 parents have 8, the next one the remaining 3.
        EXPECT_EQ(children.at(36), 8);
        EXPECT_EQ(children.at(37), 3);
        EXPECT_EQ(children.count(38), 0);
    }
}

TEST(GeneratorTest, aChainIsListedFromItsEnd) {
    const auto objects = listed(Topology::Chain, 300);
    EXPECT_EQ(order(objects), counted(299, -1));
    for(const Listed& object: objects) EXPECT_EQ(object.parent, object.object - 1);
}

TEST(GeneratorTest, randomParentsAreNamedBeforeAndListedAnywhere) {
    const auto objects = listed(Topology::Random, 300);
    std::vector<int> sorted = order(objects);
    EXPECT_NE(sorted, counted(0, 300));
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(sorted, counted(0, 300));
    std::map<int, int> children;
    for(const Listed& object: objects) {
        EXPECT_LT(object.parent, object.object);
        ++children[object.parent];
    }
    EXPECT_EQ(children.at(-1), 1);
    // Neither a chain nor a star.
    EXPECT_GT(children.size(), 50);
    EXPECT_LT(children.size(), 250);
}

TEST(GeneratorTest, theSeedDecides) {
    GeneratorOptions options;
    options.count = 100;
    options.topology = Topology::Random;
    const JsonDocument project = generateProject(options);
    EXPECT_EQ(project, generateProject(options));
    options.seed = 2;
    EXPECT_NE(project, generateProject(options));
}

TEST(GeneratorTest, idsAreUuids) {
    GeneratorOptions options;
    options.count = 50;
    const JsonDocument project = generateProject(options);
    ASSERT_EQ(project["objects"].MemberCount(), 50);
    for(const auto& object: project["objects"].GetObject())
        EXPECT_THAT(text(object.name),
            testing::MatchesRegex("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}"));
}

TEST(GeneratorTest, rotationsAreUnitAndScalingsStayInRange) {
    for(const Topology topology: {Topology::Chain, Topology::Random}) {
        GeneratorOptions options;
        options.count = 500;
        options.topology = topology;
        const JsonDocument project = generateProject(options);
        for(const auto& object: project["objects"].GetObject()) {
            double length = 0.0;
            for(const JsonValue& value: object.value["rotation"].GetArray()) length += std::pow(value.GetDouble(), 2);
            EXPECT_NEAR(length, 1.0, 1e-12);
            double product = 1.0;
            for(const JsonValue* above = &object.value;;) {
                product *= above->FindMember("scaling")->value[0].GetDouble();
                const JsonValue& parent = above->FindMember("parent")->value;
                if(parent.GetStringLength() == 0) break;
                above = &project["objects"][parent];
            }
            EXPECT_GE(product, 0.125);
            EXPECT_LE(product, 8.0);
        }
    }
}

std::map<std::string, int> componentTypes(const JsonDocument& project) {
    std::map<std::string, int> types;
    for(const auto& object: project["objects"].GetObject())
        for(const JsonValue& component: object.value["components"].GetArray()) {
            const std::string type = text(component["type"]);
            EXPECT_TRUE(component[type.data()].IsObject());
            ++types[type];
        }
    return types;
}

TEST(GeneratorTest, componentsAreAMixOrAsManyAsWanted) {
    GeneratorOptions options;
    options.count = 1000;
    const auto mix = componentTypes(generateProject(options));
    EXPECT_EQ(mix.size(), 5);
    EXPECT_NEAR(mix.at("mesh"), 700, 80);
    EXPECT_NEAR(mix.at("light"), 40, 30);
    options.count = 10;
    options.componentsPerObject = 6;
    EXPECT_THAT(componentTypes(generateProject(options)),
        testing::ElementsAre(testing::Pair("collision", 10), testing::Pair("input", 10), testing::Pair("light", 10),
            testing::Pair("mesh", 20), testing::Pair("view", 10)));
    options.componentsPerObject = 0;
    EXPECT_THAT(componentTypes(generateProject(options)), testing::IsEmpty());
}

TEST(GeneratorTest, whatComponentsNameIsThere) {
    GeneratorOptions options;
    options.count = 200;
    const JsonDocument project = generateProject(options);
    EXPECT_EQ(project["materials"].MemberCount(), 8);
    EXPECT_EQ(project["meshes"].MemberCount(), 4);
    for(const auto& material: project["materials"].GetObject())
        EXPECT_TRUE(project["pipelines"].HasMember(material.value["pipeline"]));
    for(const auto& object: project["objects"].GetObject())
        for(const JsonValue& component: object.value["components"].GetArray()) {
            if(text(component["type"]) != "mesh") continue;
            EXPECT_TRUE(project["meshes"].HasMember(component["mesh"]["mesh"]));
            EXPECT_TRUE(project["materials"].HasMember(component["mesh"]["material"]));
        }
}

TEST(GeneratorTest, topologiesHaveNames) {
    EXPECT_EQ(topologyNamed("flat"), Topology::Flat);
    EXPECT_EQ(topologyNamed("reverse"), Topology::Reverse);
    EXPECT_EQ(topologyNamed("chain"), Topology::Chain);
    EXPECT_FALSE(topologyNamed("Flat"));
    EXPECT_FALSE(topologyNamed(""));
}

}
