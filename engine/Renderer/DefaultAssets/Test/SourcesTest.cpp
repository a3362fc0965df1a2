// The sources as the pipelines of a new project have them, in all programs that are made of them.

#include <string>

#include <gmock/gmock.h>

#include "Data/Project/DefaultSettings.h"
#include "Renderer/DefaultAssets/DefaultAssets.h"
#include "Renderer/Meshes/VertexLayout.h"
#include "Renderer/Pipelines/MeshProgram.h"
#include "Renderer/Pipelines/ShaderSources.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Corrade;
using namespace VantrelEngine;

typedef VantrelTest::GlTest DefaultSourcesTest;

std::string source(const JsonValue& name) {
    const Containers::StringView text = defaultAsset(name.GetString());
    return {text.data(), text.size()};
}

ParameterType typeOf(const std::string& name) {
    return name == "float" ? ParameterType::Float
        : name == "vector" ? ParameterType::Vector
        : name == "color"  ? ParameterType::Color
                           : ParameterType::Texture;
}

ScenePipeline pipelineOf(const JsonValue& shader, std::size_t parameterCount) {
    ScenePipeline pipeline;
    const auto parameters = shader["parameters"].GetArray();
    for(std::size_t i = 0; i != std::min(parameterCount, std::size_t(parameters.Size())); ++i)
        pipeline.parameters.push_back(
            {parameters[i]["name"].GetString(), typeOf(parameters[i]["type"].GetString()), {}});
    return pipeline;
}

TEST_F(DefaultSourcesTest, compileForEachShaderOfANewProject) {
    const JsonDocument project = newProject();
    for(const auto& entry: project["shaders"].GetObject()) {
        SCOPED_TRACE(entry.name.GetString());
        const std::string vertex = source(entry.value["vertex"]), fragment = source(entry.value["fragment"]);
        // With all parameters, some, and none.
        for(const std::size_t parameterCount: {std::size_t{100}, std::size_t{2}, std::size_t{0}}) {
            PipelineRecipe recipe{pipelineOf(entry.value, parameterCount), vertex, fragment, VertexLayout{}, {}};
            PipelineHeader& header = recipe.description.header;
            for(const std::uint32_t flags: {0u, std::uint32_t(PipelineHeader::AlphaMask | PipelineHeader::DoubleSided),
                    std::uint32_t(PipelineHeader::Blend)})
                for(const std::uint32_t layout: {0u, 31u})
                    for(const ProgramPurpose purpose:
                        {ProgramPurpose::Picture, ProgramPurpose::ObjectIds, ProgramPurpose::OneColor}) {
                        header.flags = flags;
                        recipe.layout = VertexLayout{layout};
                        std::string reason;
                        EXPECT_TRUE(MeshProgram::make(pipelineSources(recipe, false, purpose), reason))
                            << reason << ", flags " << flags << ", layout " << layout << ", purpose " << int(purpose);
                    }
            header.flags = 0;
            recipe.hasShadows = true;
            std::string noReason;
            EXPECT_TRUE(MeshProgram::make(pipelineSources(recipe, false, ProgramPurpose::Picture), noReason))
                << noReason << ", with shadows";
            constexpr TextureNeeds Needs[]{TextureNeed::Any, TextureNeed::Color, TextureNeed::Data, TextureNeed::Float,
                TextureNeed::Color | TextureNeed::Data};
            for(const TextureNeeds needs: Needs) {
                recipe.needs.assign(recipe.description.parameters.size(), TextureNeeds(TextureNeed::Any | needs));
                std::string reason;
                EXPECT_TRUE(MeshProgram::make(pipelineSources(recipe, false, ProgramPurpose::Picture), reason))
                    << reason << ", needs " << int(needs);
            }
            recipe.hasEnvironment = true;
            std::string reason;
            EXPECT_TRUE(MeshProgram::make(pipelineSources(recipe, false, ProgramPurpose::Picture), reason)) << reason;
        }
    }
}

// What looks at neighbouring fragments is not defined any more where one of them has ended.
TEST_F(DefaultSourcesTest, surroundingsAreLookedAtBeforeAFragmentEnds) {
    const std::string lit = source(JsonValue{"Lit.frag"});
    const std::size_t end = lit.rfind("discard;"), ambient = lit.rfind("ambient(surface)");
    ASSERT_NE(end, std::string::npos);
    ASSERT_NE(ambient, std::string::npos);
    EXPECT_LT(ambient, end);
}

TEST_F(DefaultSourcesTest, ofTheWholeScreenCompile) {
    for(const char* const define: {"", "#define SKY\n"}) {
        ShaderSources sources;
        sources.vertex = source(JsonValue{"FullScreenTriangle.vert"});
        sources.fragmentPrefix = std::string{define} + "out vec4 fragmentColor;\n";
        sources.fragment = source(JsonValue{"TileFeedback.frag"});
        std::string reason;
        EXPECT_TRUE(MeshProgram::make(sources, reason)) << reason;
    }
    for(const bool isLinear: {false, true}) {
        std::string reason;
        EXPECT_TRUE(MeshProgram::make(skySources(isLinear), reason)) << reason;
    }
}

} // namespace
