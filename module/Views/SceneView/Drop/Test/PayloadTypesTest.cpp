#include <csignal>

#include <Vantrel/EditorUtilities/PayloadTypes.h>
#include <gtest/gtest.h>

namespace {

using namespace VantrelEngine;

TEST(PayloadTypesTest, everyKindHasItsType) {
    EXPECT_STREQ(payloadTypeOf("meshes"), "DND_MESH");
    EXPECT_STREQ(payloadTypeOf("textures"), "DND_TEXTURE");
    EXPECT_STREQ(payloadTypeOf("shaders"), "DND_SHADER");
    EXPECT_STREQ(payloadTypeOf("materials"), "DND_MATERIAL");
    EXPECT_STREQ(payloadTypeOf("images"), "DND_IMAGE");
    EXPECT_STREQ(payloadTypeOf("animations"), "DND_ANIMATION");
    EXPECT_STREQ(payloadTypeOf("skins"), "DND_SKIN");
    EXPECT_STREQ(payloadTypeOf("pipelines"), "DND_PIPELINE");
    EXPECT_STREQ(payloadTypeOf("objects"), "DND_OBJECT");
    EXPECT_STREQ(payloadTypeOf("fonts"), "DND_FONT");
    EXPECT_STREQ(FilePayloadType, "DND_ASSET_CELL");
}

TEST(PayloadTypesTest, anyOtherKindEndsTheProcess) {
    const auto ask = [](const char* kind) { EXPECT_NE(payloadTypeOf(kind), nullptr); };
    EXPECT_EXIT(ask("settings"), testing::KilledBySignal(SIGABRT),
        "^Ui::acceptDragDropResources\\(\\): resource type settings unsupported\\.\n$");
    EXPECT_EXIT(ask("material"), testing::KilledBySignal(SIGABRT), "resource type material unsupported");
}

}
