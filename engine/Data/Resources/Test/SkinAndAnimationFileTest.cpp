#include <cmath>
#include <random>

#include <Magnum/Math/Quaternion.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Data/Resources/AnimationFile.h"
#include "Data/Resources/SkinFile.h"
#include "GlbBuilder.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelEngine::Test;
using testing::HasSubstr;
using VantrelEngine::Test::Float;
using VantrelEngine::Test::Short;
using VantrelEngine::Test::UnsignedShort;

std::vector<float> twoMatrices() {
    std::vector<float> values(32);
    for(std::size_t i = 0; i != values.size(); ++i) values[i] = float(i);
    return values;
}

TEST(SkinFileTest, matrices) {
    const std::string bytes = skinFile(twoMatrices());
    std::string reason;
    const auto matrices = readSkin(view(bytes), reason);
    ASSERT_TRUE(matrices) << reason;
    ASSERT_EQ(matrices->size(), 2u);
    EXPECT_EQ((*matrices)[1], (Matrix4{{16, 17, 18, 19}, {20, 21, 22, 23}, {24, 25, 26, 27}, {28, 29, 30, 31}}));
}

TEST(SkinFileTest, withoutMatricesTheyAreIdentity) {
    const std::string bytes = GlbBuilder{}.file("\"skins\":[{\"joints\":[4,5,6]}]");
    std::string reason;
    const auto matrices = readSkin(view(bytes), reason);
    ASSERT_TRUE(matrices) << reason;
    EXPECT_THAT(*matrices, testing::ElementsAre(Matrix4{}, Matrix4{}, Matrix4{}));
}

TEST(SkinFileTest, skinsThatAreNone) {
    GlbBuilder builder;
    std::vector<float> values = twoMatrices();
    values[20] = NAN;
    builder.add(Float, "MAT4", 16, values);
    builder.add(Float, "VEC4", 4, values);
    const struct {
        const char *members, *reason;
    } data[]{{"\"x\":0", "no skin"}, {"\"skins\":[]", "no skin"}, {"\"skins\":[{}]", "no skin"},
        {"\"skins\":[{\"joints\":[0],\"inverseBindMatrices\":0}]", "a matrix is not finite"},
        {"\"skins\":[{\"joints\":[0],\"inverseBindMatrices\":1}]", "type is not supported"},
        {"\"skins\":[{\"joints\":[0],\"inverseBindMatrices\":2}]", "accessor 2"},
        {"\"skins\":[{\"joints\":[0],\"inverseBindMatrices\":{}}]", "\"inverseBindMatrices\" is not a whole"}};
    for(const auto& row: data) {
        std::string reason;
        const std::string bytes = builder.file(row.members);
        EXPECT_FALSE(readSkin(view(bytes), reason)) << row.members;
        EXPECT_THAT(reason, HasSubstr(row.reason));
    }
}

// Node 7 turns and moves, node 3 is scaled in steps.
GlbBuilder animationBuilder() {
    GlbBuilder builder;
    builder.add(Float, "SCALAR", 1, std::vector<float>{0.5f, 1, 3});
    builder.add(Float, "VEC3", 3, std::vector<float>{1, 2, 3, 3, 4, 5, 0, 0, 0});
    // Of length 2, and half a turn around Z.
    builder.add(Float, "VEC4", 4, std::vector<float>{0, 0, 0, 2, 0, 0, 2, 0, 0, 0, 0, 2});
    builder.add(Short, "VEC4", 4, std::vector<std::int16_t>{0, 0, 0, 32767, 0, 0, 32767, 0, 0, 32767, 0, 0}, true);
    builder.add(Float, "SCALAR", 1, std::vector<float>{0, 0, 1});
    builder.add(Float, "SCALAR", 1, std::vector<float>{0, 1});
    builder.add(Float, "VEC3", 3, std::vector<float>{1, 2, 3, 3, INFINITY, 5, 0, 0, 0});
    builder.add(Float, "VEC4", 4, std::vector<float>(12));
    builder.add(UnsignedShort, "SCALAR", 1, std::vector<std::uint16_t>{0, 1, 2});
    builder.add(Float, "SCALAR", 1, std::vector<float>{0, NAN, 1});
    return builder;
}

const std::string Nodes = "\"nodes\":[0,1,2,3,4,5,6,7],";

std::string animation(const std::string& samplers, const std::string& channels) {
    return animationBuilder().file(
        Nodes + "\"animations\":[{\"samplers\":[" + samplers + "],\"channels\":[" + channels + "]}]");
}

std::string channel(const char* path, int sampler, int node) {
    return "{\"sampler\":" + std::to_string(sampler) + ",\"target\":{\"path\":\"" + path +
        "\",\"node\":" + std::to_string(node) + "}}";
}

std::string fullAnimation() {
    return animation("{\"input\":0,\"output\":1},{\"input\":0,\"output\":2,\"interpolation\":\"LINEAR\"},"
                     "{\"input\":0,\"output\":1,\"interpolation\":\"STEP\"},{\"input\":0,\"output\":3}",
        channel("rotation", 1, 7) + "," + channel("weights", 0, 5) + "," + channel("scale", 2, 3) + "," +
            channel("translation", 0, 7) + "," + channel("rotation", 3, 3) +
            ",{\"sampler\":0,\"target\":{\"path\":\"translation\"}}");
}

TEST(AnimationFileTest, tracks) {
    const std::string bytes = fullAnimation();
    std::string reason;
    const auto data = readAnimation(view(bytes), reason);
    ASSERT_TRUE(data) << reason;
    ASSERT_EQ(data->trackCount(), 4u);
    EXPECT_EQ(data->duration(), (Range1D{0.5f, 3}));
    EXPECT_EQ(targetCount(*data), 2u);
    const struct {
        Trade::AnimationTrackTarget name;
        std::size_t target;
        Animation::Interpolation interpolation;
    } expected[]{{Trade::AnimationTrackTarget::Rotation3D, 0, Animation::Interpolation::Linear},
        {Trade::AnimationTrackTarget::Scaling3D, 1, Animation::Interpolation::Constant},
        {Trade::AnimationTrackTarget::Translation3D, 0, Animation::Interpolation::Linear},
        {Trade::AnimationTrackTarget::Rotation3D, 1, Animation::Interpolation::Linear}};
    for(Magnum::UnsignedInt i = 0; i != 4; ++i) {
        EXPECT_EQ(data->trackTargetName(i), expected[i].name) << i;
        EXPECT_EQ(data->trackTarget(i), expected[i].target) << i;
        EXPECT_EQ(data->track(i).interpolation(), expected[i].interpolation) << i;
    }
    const auto rotation = data->track<Quaternion>(0);
    EXPECT_EQ(rotation.at(1.0f), (Quaternion{{0, 0, 1}, 0}));
    EXPECT_EQ(data->track<Vector3>(1).at(2.9f), (Vector3{3, 4, 5}));
    EXPECT_EQ(data->track<Vector3>(2).at(0.75f), (Vector3{2, 3, 4}));
    EXPECT_EQ(data->track<Quaternion>(3).values()[2], (Quaternion{{0, 1, 0}, 0}));
}

TEST(AnimationFileTest, animationsThatAreNone) {
    const struct {
        std::string bytes;
        const char* reason;
    } data[]{{animationBuilder().file("\"x\":0"), "no animation"},
        {animationBuilder().file("\"animations\":[{}]"), "no channels"},
        {animation("", "{}"), "a channel has no target"},
        {animation("", channel("translation", 0, 0)), "translation: its sampler is not there"},
        {animation("{}", channel("translation", 0, 8)), "node of a channel is not there"},
        {animation("{}", channel("translation", 0, 0)), "accessor"},
        {animation("{\"input\":0,\"output\":1,\"interpolation\":\"CUBICSPLINE\"}", channel("scale", 0, 0)),
            "scale: the interpolation CUBICSPLINE is not supported"},
        {animation("{\"input\":0,\"output\":1,\"interpolation\":3}", channel("scale", 0, 0)), "is not known"},
        {animation("{\"input\":1,\"output\":1}", channel("scale", 0, 0)), "type of its keys"},
        {animation("{\"input\":8,\"output\":1}", channel("scale", 0, 0)), "type of its keys"},
        {animation("{\"input\":0,\"output\":2}", channel("scale", 0, 0)), "scale: the type of its values"},
        {animation("{\"input\":0,\"output\":1}", channel("rotation", 0, 0)), "rotation: the type of its values"},
        {animation("{\"input\":5,\"output\":1}", channel("scale", 0, 0)), "there are 3 values for 2 keys"},
        {animation("{\"input\":4,\"output\":1}", channel("scale", 0, 0)), "scale: its keys do not ascend"},
        {animation("{\"input\":9,\"output\":1}", channel("scale", 0, 0)), "scale: its keys do not ascend"},
        {animation("{\"input\":0,\"output\":6}", channel("scale", 0, 0)), "a value is not finite"},
        {animation("{\"input\":0,\"output\":7}", channel("rotation", 0, 0)), "a quaternion has no length"}};
    for(const auto& row: data) {
        std::string reason;
        EXPECT_FALSE(readAnimation(view(row.bytes), reason)) << row.reason;
        EXPECT_THAT(reason, HasSubstr(row.reason));
    }
}

// A file of a megabyte cannot ask for gigabytes.
TEST(AnimationFileTest, keysThatAreSharedAreCounted) {
    GlbBuilder builder;
    std::vector<float> keys(50000);
    for(std::size_t i = 0; i != keys.size(); ++i) keys[i] = float(i);
    builder.add(Float, "SCALAR", 1, keys);
    builder.add(Float, "VEC3", 3, std::vector<float>(keys.size() * 3));
    std::string channels = channel("scale", 0, 0);
    for(int i = 0; i != 2000; ++i) channels += "," + channel("scale", 0, 0);
    const std::string bytes = builder.file(
        Nodes + "\"animations\":[{\"samplers\":[{\"input\":0,\"output\":1}],\"channels\":[" + channels + "]}]");
    std::string reason;
    EXPECT_FALSE(readAnimation(view(bytes), reason));
    EXPECT_EQ(reason, "there are too many keys");
}

TEST(AnimationFileTest, damagedAtRandom) {
    const std::string files[]{fullAnimation(), skinFile(twoMatrices())};
    std::mt19937 random{2};
    int readable[2]{};
    for(int i = 0; i != 20000; ++i) {
        std::string bytes = files[i % 2];
        for(unsigned flips = 1 + random() % 3; flips != 0; --flips)
            bytes[random() % bytes.size()] ^= char(1 << random() % 8);
        std::string reason;
        bool isRead = false;
        if(i % 2) {
            isRead = bool(readSkin(view(bytes), reason));
        } else if(const auto data = readAnimation(view(bytes), reason)) {
            isRead = true;
            EXPECT_TRUE(std::isfinite(data->duration().size()) || data->duration().size() == INFINITY);
            EXPECT_LE(targetCount(*data), data->trackCount());
        }
        ASSERT_NE(isRead, !reason.empty());
        readable[i % 2] += isRead;
    }
    EXPECT_GT(readable[0], 500);
    EXPECT_GT(readable[1], 500);
}

}
