#include "Data/Project/DefaultSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Data/Project/DocumentCheck.h"
#include "Data/Project/KnownKeys.h"
#include "Data/Project/Test/DocumentTestSupport.h"

namespace {

using namespace VantrelEngine;
using testing::IsEmpty;

TEST(DefaultSettingsTest, haveEachKeyOfTheSettings) {
    const JsonDocument defaults = defaultProject();
    for(const KnownKey& known: settingsKeys()) {
        const JsonValue* const value = valueAtKey(defaults["settings"], known.key);
        ASSERT_TRUE(value) << known.key;
        EXPECT_FALSE(whyNotUsable(*value, known.type)) << known.key;
    }
}

TEST(DefaultSettingsTest, nothingIsWrongWithThem) {
    JsonDocument defaults = defaultProject(), project = newProject();
    EXPECT_THAT(linesOf(checkDocument(defaults)), IsEmpty());
    EXPECT_THAT(linesOf(checkDocument(project)), IsEmpty());
}

TEST(DefaultSettingsTest, aNewProjectHasPipelinesWithTheirShaders) {
    const JsonDocument project = newProject();
    EXPECT_TRUE(project["objects"].ObjectEmpty());
    std::vector<std::string> names;
    for(const auto& pipeline: project["pipelines"].GetObject()) {
        names.push_back(pipeline.value["name"].GetString());
        const JsonValue& shaders = project["shaders"];
        ASSERT_TRUE(shaders.HasMember(pipeline.value["shader"])) << names.back();
        EXPECT_EQ(shaders[pipeline.value["shader"]]["name"], pipeline.value["name"]);
    }
    EXPECT_THAT(names, testing::UnorderedElementsAre("MeshVisualizer", "Text", "Lit", "Flat"));
}

TEST(DefaultSettingsTest, aNewProjectHasMaterialsThatFitTheirShaders) {
    const JsonDocument project = newProject();
    EXPECT_EQ(project["materials"].MemberCount(), 2u);
    for(const auto& material: project["materials"].GetObject()) {
        const JsonValue& pipeline = project["pipelines"][material.value["pipeline"]];
        const JsonValue& shader = project["shaders"][pipeline["shader"]];
        const JsonValue& values = material.value[shader["name"]];
        EXPECT_EQ(values.MemberCount(), shader["parameters"].Size());
        for(const JsonValue& parameter: shader["parameters"].GetArray())
            EXPECT_TRUE(values.HasMember(parameter["name"])) << jsonText(parameter);
    }
}

} // namespace
