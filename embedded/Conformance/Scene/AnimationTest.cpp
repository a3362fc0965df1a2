#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/Animation/Track.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Math/Vector4.h>
#include <Magnum/Trade/AnimationData.h>

#include "Expect.h"

using namespace Corrade;
using namespace Magnum;
using namespace Magnum::Math::Literals;
using Animation::Extrapolation;
using Animation::Interpolation;
using SceneTest::printed;

namespace {

typedef Trade::AnimationTrackTarget Target;
typedef Trade::AnimationTrackType Type;

const Float Keys[]{1.0f, 2.0f, 4.0f};
const Float Values[]{10.0f, 30.0f, 20.0f};

struct Sampling {
    Interpolation interpolation;
    Extrapolation before, after;
    // At 0, 1, 1.5, 2, 3, 4 and 5.
    std::vector<Float> expected;
};

const Sampling Samplings[]{
    {Interpolation::Linear, Extrapolation::Constant, Extrapolation::Constant, {10, 10, 20, 30, 25, 20, 20}},
    {Interpolation::Linear, Extrapolation::Extrapolated, Extrapolation::Extrapolated, {-10, 10, 20, 30, 25, 20, 15}},
    {Interpolation::Linear, Extrapolation::DefaultConstructed, Extrapolation::DefaultConstructed,
        {0, 10, 20, 30, 25, 0, 0}},
    {Interpolation::Linear, Extrapolation::DefaultConstructed, Extrapolation::Extrapolated,
        {0, 10, 20, 30, 25, 20, 15}},
    {Interpolation::Constant, Extrapolation::Constant, Extrapolation::Constant, {10, 10, 10, 30, 30, 20, 20}},
    {Interpolation::Constant, Extrapolation::Extrapolated, Extrapolation::Extrapolated, {10, 10, 10, 30, 30, 20, 20}},
    {Interpolation::Constant, Extrapolation::Constant, Extrapolation::DefaultConstructed, {10, 10, 10, 30, 30, 0, 0}},
};

typedef Animation::TrackView<const Float, const Float> FloatTrack;

FloatTrack floatTrack(std::size_t size, Interpolation interpolation, Extrapolation before, Extrapolation after) {
    return FloatTrack{Containers::stridedArrayView(Keys).prefix(size),
        Containers::stridedArrayView(Values).prefix(size), interpolation, before, after};
}

TEST(TrackViewTest, sampling) {
    for(const Sampling& sampling: Samplings) {
        SCOPED_TRACE(printed(sampling.interpolation) + " " + printed(sampling.before) + " " + printed(sampling.after));
        const FloatTrack track = floatTrack(3, sampling.interpolation, sampling.before, sampling.after);
        EXPECT_EQ(track.interpolation(), sampling.interpolation);
        EXPECT_EQ(track.before(), sampling.before);
        EXPECT_EQ(track.after(), sampling.after);
        std::vector<Float> actual;
        for(const Float key: {0.0f, 1.0f, 1.5f, 2.0f, 3.0f, 4.0f, 5.0f}) actual.push_back(track.at(key));
        EXPECT_THAT(actual, testing::Pointwise(testing::FloatEq(), sampling.expected));
    }
}

TEST(TrackViewTest, extrapolationIsConstantUnlessSaidOtherwise) {
    const FloatTrack track{
        Containers::stridedArrayView(Keys), Containers::stridedArrayView(Values), Interpolation::Linear};
    EXPECT_EQ(track.before(), Extrapolation::Constant);
    EXPECT_EQ(track.after(), Extrapolation::Constant);
}

TEST(TrackViewTest, contents) {
    const FloatTrack track = floatTrack(3, Interpolation::Linear, Extrapolation::Constant, Extrapolation::Constant);
    EXPECT_EQ(track.size(), 3u);
    EXPECT_EQ(track.duration(), (Range1D{1.0f, 4.0f}));
    EXPECT_EQ(track.keys().data(), Keys);
    EXPECT_EQ(track.values().data(), Values);
    EXPECT_FLOAT_EQ(track.values()[1], 30.0f);
}

TEST(TrackViewTest, hintIsTheStartOfTheSegment) {
    const FloatTrack track = floatTrack(3, Interpolation::Linear, Extrapolation::Constant, Extrapolation::Constant);
    const struct {
        std::size_t hint;
        Float key;
        std::size_t expected;
    } cases[]{{0, 1.5f, 0}, {2, 1.5f, 0}, {0, 3.5f, 1}, {1, 100.0f, 1}, {77, 0.0f, 0}, {0, 2.0f, 1}, {1, 4.0f, 1},
        {1, 1.0f, 0}};
    for(const auto& i: cases) {
        SCOPED_TRACE(i.key);
        std::size_t hint = i.hint;
        EXPECT_FLOAT_EQ(track.at(i.key, hint), track.at(i.key));
        EXPECT_EQ(hint, i.expected);
    }
}

TEST(TrackViewTest, manyKeysWithAnyHint) {
    Float keys[100];
    Float values[100];
    for(std::size_t i = 0; i != 100; ++i) {
        keys[i] = Float(i);
        values[i] = Float(i * i);
    }
    const FloatTrack track{
        Containers::stridedArrayView(keys), Containers::stridedArrayView(values), Interpolation::Linear};
    for(std::size_t key = 0; key != 99; ++key) {
        for(std::size_t start: {0, 1, 42, 98, 200}) {
            std::size_t hint = start;
            const Float expected = (Float(key * key) + Float((key + 1) * (key + 1))) / 2.0f;
            ASSERT_FLOAT_EQ(track.at(Float(key) + 0.5f, hint), expected) << "hint " << start;
            ASSERT_EQ(hint, key);
        }
    }
}

TEST(TrackViewTest, ofTwoKeysAtTheSameTimeTheLaterWins) {
    const Float keys[]{1.0f, 2.0f, 2.0f, 4.0f};
    const Float values[]{1.0f, 2.0f, 3.0f, 4.0f};
    const FloatTrack track{
        Containers::stridedArrayView(keys), Containers::stridedArrayView(values), Interpolation::Linear};
    EXPECT_NEAR(track.at(1.999f), 1.999f, 1.0e-5f);
    EXPECT_FLOAT_EQ(track.at(2.0f), 3.0f);
    EXPECT_FLOAT_EQ(track.at(3.0f), 3.5f);
}

TEST(TrackViewTest, singleKey) {
    const FloatTrack constant =
        floatTrack(1, Interpolation::Linear, Extrapolation::Constant, Extrapolation::Extrapolated);
    EXPECT_FLOAT_EQ(constant.at(0.0f), 10.0f);
    EXPECT_FLOAT_EQ(constant.at(1.0f), 10.0f);
    EXPECT_FLOAT_EQ(constant.at(5.0f), 10.0f);
    EXPECT_EQ(constant.duration(), (Range1D{1.0f, 1.0f}));
    const FloatTrack outside =
        floatTrack(1, Interpolation::Linear, Extrapolation::DefaultConstructed, Extrapolation::DefaultConstructed);
    EXPECT_FLOAT_EQ(outside.at(0.0f), 0.0f);
    EXPECT_FLOAT_EQ(outside.at(1.0f), 10.0f);
    EXPECT_FLOAT_EQ(outside.at(5.0f), 0.0f);
}

TEST(TrackViewTest, withoutKeys) {
    const FloatTrack track =
        floatTrack(0, Interpolation::Linear, Extrapolation::Extrapolated, Extrapolation::Extrapolated);
    EXPECT_FLOAT_EQ(track.at(3.0f), 0.0f);
    EXPECT_EQ(track.duration(), Range1D{});
    EXPECT_EQ((Animation::TrackView<const Float, const Quaternion>{}.at(3.0f)), Quaternion{});
}

TEST(TrackViewTest, vectors) {
    const Vector3 values[]{{0.0f, 0.0f, 0.0f}, {2.0f, 4.0f, 6.0f}, {2.0f, 0.0f, 6.0f}};
    const Animation::TrackView<const Float, const Vector3> track{
        Containers::stridedArrayView(Keys), Containers::stridedArrayView(values), Interpolation::Linear};
    EXPECT_EQ(track.at(1.25f), (Vector3{0.5f, 1.0f, 1.5f}));
    EXPECT_EQ(track.at(3.0f), (Vector3{2.0f, 2.0f, 6.0f}));
}

// 0, 90 and 150 degrees, the last one on the other side of the sphere.
TEST(TrackViewTest, rotationsTakeTheShorterWayAtConstantSpeed) {
    const auto rotation = [](Deg angle) { return Quaternion::rotation(angle, Vector3::xAxis()); };
    const Quaternion values[]{rotation(0.0_degf), rotation(90.0_degf), -rotation(150.0_degf)};
    const Animation::TrackView<const Float, const Quaternion> track{Containers::stridedArrayView(Keys),
        Containers::stridedArrayView(values), Interpolation::Linear, Extrapolation::Extrapolated};
    EXPECT_EQ(track.at(1.25f), rotation(22.5_degf));
    EXPECT_EQ(track.at(2.5f), -rotation(105.0_degf));
    EXPECT_EQ(track.at(0.5f), rotation(-45.0_degf));
}

TEST(TrackViewTest, rigidTransformationsScrew) {
    const DualQuaternion values[]{DualQuaternion{},
        DualQuaternion::translation({2.0f, 0.0f, 0.0f}) * DualQuaternion::rotation(90.0_degf, Vector3::xAxis())};
    const Animation::TrackView<const Float, const DualQuaternion> track{
        Containers::stridedArrayView(Keys).prefix(2), Containers::stridedArrayView(values), Interpolation::Linear};
    EXPECT_EQ(track.at(1.25f).translation(), (Vector3{0.5f, 0.0f, 0.0f}));
    EXPECT_EQ(track.at(1.25f).rotation(), Quaternion::rotation(22.5_degf, Vector3::xAxis()));
}

TEST(TrackViewTest, asserts) {
    EXPECT_ABORT(FloatTrack(Containers::stridedArrayView(Keys), Containers::stridedArrayView(Values).prefix(2),
                     Interpolation::Linear),
        "Animation::TrackView: expected key and value view to have the same size but got 3 and 2");
    EXPECT_ABORT(Animation::interpolatorFor<Vector3>(Interpolation::Spline),
        "Animation::interpolatorFor(): can't deduce interpolator function for Animation::Interpolation::Spline");
    EXPECT_ABORT(Animation::interpolatorFor<Vector3>(Interpolation::Custom),
        "Animation::interpolatorFor(): can't deduce interpolator function for Animation::Interpolation::Custom");
}

TEST(InterpolationTest, functions) {
    EXPECT_FLOAT_EQ(Animation::interpolatorFor<Float>(Interpolation::Linear)(1.0f, 3.0f, 0.25f), 1.5f);
    EXPECT_FLOAT_EQ(Animation::interpolatorFor<Float>(Interpolation::Constant)(1.0f, 3.0f, 0.99f), 1.0f);
    EXPECT_FLOAT_EQ(Animation::interpolatorFor<Float>(Interpolation::Constant)(1.0f, 3.0f, 1.0f), 3.0f);
}

TEST(InterpolationTest, valuesAndNames) {
    const char* const interpolations[]{"Constant", "Linear", "Spline", "Custom"};
    for(UnsignedInt i = 0; i != 4; ++i)
        EXPECT_EQ(printed(Interpolation(i)), std::string{"Animation::Interpolation::"} + interpolations[i]);
    EXPECT_EQ(printed(Interpolation(0xbe)), "Animation::Interpolation(0xbe)");
    EXPECT_EQ(UnsignedInt(Interpolation::Custom), 3u);
    const char* const extrapolations[]{"Extrapolated", "Constant", "DefaultConstructed"};
    for(UnsignedInt i = 0; i != 3; ++i)
        EXPECT_EQ(printed(Extrapolation(i)), std::string{"Animation::Extrapolation::"} + extrapolations[i]);
    EXPECT_EQ(UnsignedInt(Extrapolation::DefaultConstructed), 2u);
}

TEST(AnimationTrackTypeTest, valuesAndNames) {
    const char* const names[]{"Bool", "Float", "UnsignedInt", "Int", "BitVector2", "BitVector3", "BitVector4",
        "Vector2", "Vector2ui", "Vector2i", "Vector3", "Vector3ui", "Vector3i", "Vector4", "Vector4ui", "Vector4i",
        "Complex", "Quaternion", "DualQuaternion", "CubicHermite1D", "CubicHermite2D", "CubicHermite3D",
        "CubicHermiteComplex", "CubicHermiteQuaternion"};
    for(UnsignedInt i = 0; i != std::size(names); ++i)
        EXPECT_EQ(printed(Type(i + 1)), std::string{"Trade::AnimationTrackType::"} + names[i]);
    EXPECT_EQ(printed(Type(0xde)), "Trade::AnimationTrackType(0xde)");
    EXPECT_EQ(UnsignedInt(Type::Vector3), 11u);
    EXPECT_EQ(UnsignedInt(Type::Quaternion), 18u);
    EXPECT_EQ(UnsignedInt(Type::CubicHermiteQuaternion), 24u);
}

TEST(AnimationTrackTargetTest, valuesAndNames) {
    const char* const names[]{"Translation2D", "Translation3D", "Rotation2D", "Rotation3D", "Scaling2D", "Scaling3D"};
    for(UnsignedInt i = 0; i != std::size(names); ++i)
        EXPECT_EQ(printed(Target(i + 1)), std::string{"Trade::AnimationTrackTarget::"} + names[i]);
    EXPECT_EQ(printed(Target(0xde)), "Trade::AnimationTrackTarget(0xde)");
    EXPECT_EQ(printed(Target(32769)), "Trade::AnimationTrackTarget::Custom(1)");
    EXPECT_EQ(UnsignedInt(Target::Translation3D), 2u);
    EXPECT_EQ(UnsignedInt(Target::Rotation3D), 4u);
    EXPECT_EQ(UnsignedInt(Target::Scaling3D), 6u);
}

struct Frames {
    Float translationKeys[3];
    Vector3 translations[3];
    Float rotationKeys[2];
    Quaternion rotations[2];
};

// A translation from 1 to 4 and a rotation from 0.5 to 3.
Trade::AnimationData animation() {
    Containers::Array<char> data{ValueInit, sizeof(Frames)};
    Frames& frames = *reinterpret_cast<Frames*>(data.data());
    frames = Frames{{1.0f, 2.0f, 4.0f}, {{}, {2.0f, 4.0f, 6.0f}, {}}, {0.5f, 3.0f},
        {Quaternion{}, Quaternion::rotation(90.0_degf, Vector3::yAxis())}};
    const Containers::StridedArrayView1D<const Float> rotationKeys = frames.rotationKeys;
    const Containers::StridedArrayView1D<const Quaternion> rotations = frames.rotations;
    return Trade::AnimationData{Utility::move(data),
        {Trade::AnimationTrackData{Target::Translation3D, 17, Containers::stridedArrayView(frames.translationKeys),
             Containers::stridedArrayView(frames.translations), Interpolation::Linear},
            Trade::AnimationTrackData{Target::Rotation3D, 1ull << 40, Type::Quaternion, rotationKeys, rotations,
                Interpolation::Constant, Extrapolation::Extrapolated}}};
}

TEST(AnimationDataTest, tracks) {
    const Trade::AnimationData data = animation();
    EXPECT_EQ(data.trackCount(), 2u);
    EXPECT_EQ(data.duration(), (Range1D{0.5f, 4.0f}));
    EXPECT_EQ(data.data().size(), sizeof(Frames));
    EXPECT_EQ(data.trackType(0), Type::Vector3);
    EXPECT_EQ(data.trackResultType(0), Type::Vector3);
    EXPECT_EQ(data.trackTargetName(0), Target::Translation3D);
    EXPECT_EQ(data.trackTarget(0), 17u);
    EXPECT_EQ(data.trackType(1), Type::Quaternion);
    EXPECT_EQ(data.trackResultType(1), Type::Quaternion);
    EXPECT_EQ(data.trackTargetName(1), Target::Rotation3D);
    EXPECT_EQ(data.trackTarget(1), 1ull << 40);
    EXPECT_EQ(data.track(0).size(), 3u);
    EXPECT_EQ(data.track(1).interpolation(), Interpolation::Constant);
    EXPECT_EQ(data.track(1).before(), Extrapolation::Extrapolated);
    EXPECT_EQ(data.track(1).after(), Extrapolation::Extrapolated);
    EXPECT_EQ(data.track(1).keys().data(), data.data().data() + offsetof(Frames, rotationKeys));
    EXPECT_EQ(data.track<Vector3>(0).at(1.5f), (Vector3{1.0f, 2.0f, 3.0f}));
    EXPECT_EQ(data.track<Quaternion>(1).at(2.0f), Quaternion{});
    EXPECT_EQ(data.track<Quaternion>(1).at(3.0f), Quaternion::rotation(90.0_degf, Vector3::yAxis()));
}

// The same keys and values for another object, in a copy of the memory.
TEST(AnimationDataTest, retarget) {
    const Trade::AnimationData original = animation();
    Containers::Array<char> data{InPlaceInit, original.data()};
    const auto moved = [&](const void* pointer) {
        return data.data() + (static_cast<const char*>(pointer) - original.data().data());
    };
    const auto& track = original.track(1);
    const Containers::StridedArrayView1D<const Float> keys{
        data, reinterpret_cast<const Float*>(moved(track.keys().data())), track.size(), track.keys().stride()};
    const Containers::StridedArrayView1D<const void> values{
        data, moved(track.values().data()), track.size(), track.values().stride()};
    const Trade::AnimationData copy{Utility::move(data),
        {Trade::AnimationTrackData{original.trackTargetName(1), 99, original.trackType(1), original.trackResultType(1),
            keys, values, track.interpolation(), track.before(), track.after()}}};
    EXPECT_EQ(copy.trackTarget(0), 99u);
    EXPECT_EQ(copy.trackTargetName(0), Target::Rotation3D);
    EXPECT_EQ(copy.duration(), (Range1D{0.5f, 3.0f}));
    EXPECT_EQ(copy.track<Quaternion>(0).at(3.0f), Quaternion::rotation(90.0_degf, Vector3::yAxis()));
}

TEST(AnimationDataTest, trackFromView) {
    const Float floats[]{1.0f, 2.0f, 3.0f};
    const Trade::AnimationTrackData track{Target(32770), 5,
        Animation::TrackView<const Float, const Float>{
            Containers::stridedArrayView(Keys), Containers::stridedArrayView(floats), Interpolation::Linear}};
    EXPECT_EQ(track.type(), Type::Float);
    EXPECT_EQ(track.targetName(), Target(32770));
    EXPECT_EQ(track.target(), 5u);
    EXPECT_EQ(track.track().size(), 3u);
}

// Tracks of a single key do not make an animation longer.
TEST(AnimationDataTest, duration) {
    const Float late[]{7.0f};
    const Trade::AnimationTrackData track{Target::Translation3D, 0, Containers::stridedArrayView(Keys),
        Containers::stridedArrayView(Values), Interpolation::Linear};
    const Trade::AnimationTrackData single{Target::Translation3D, 0, Containers::stridedArrayView(late),
        Containers::stridedArrayView(Values).prefix(1), Interpolation::Linear};
    EXPECT_EQ((Trade::AnimationData{nullptr, {track, single}}.duration()), (Range1D{1.0f, 4.0f}));
    EXPECT_EQ((Trade::AnimationData{nullptr, {single, track}}.duration()), (Range1D{1.0f, 4.0f}));
    EXPECT_EQ((Trade::AnimationData{nullptr, {single}}.duration()), (Range1D{7.0f, 7.0f}));
    EXPECT_EQ((Trade::AnimationData{nullptr, {track}, {2.0f, 5.0f}}.duration()), (Range1D{2.0f, 5.0f}));
    Containers::Array<Trade::AnimationTrackData> none;
    const Trade::AnimationData empty{nullptr, Utility::move(none)};
    EXPECT_EQ(empty.trackCount(), 0u);
    EXPECT_EQ(empty.duration(), Range1D{});
}

TEST(AnimationDataTest, move) {
    Trade::AnimationData a = animation();
    const char* const data = a.data().data();
    Trade::AnimationData b{Utility::move(a)};
    EXPECT_EQ(b.data().data(), data);
    Trade::AnimationData c{nullptr, Containers::Array<Trade::AnimationTrackData>{}};
    c = Utility::move(b);
    EXPECT_EQ(c.trackCount(), 2u);
    EXPECT_EQ(c.duration(), (Range1D{0.5f, 4.0f}));
    EXPECT_FALSE(std::is_copy_constructible<Trade::AnimationData>::value);
}

TEST(AnimationDataTest, asserts) {
    const Trade::AnimationData data = animation();
    EXPECT_ABORT(data.trackType(2), "Trade::AnimationData::trackType(): index 2 out of range for 2 tracks");
    EXPECT_ABORT(data.trackResultType(2), "Trade::AnimationData::trackResultType(): index 2 out of range for 2 tracks");
    EXPECT_ABORT(data.trackTargetName(2), "Trade::AnimationData::trackTargetName(): index 2 out of range for 2 tracks");
    EXPECT_ABORT(data.trackTarget(2), "Trade::AnimationData::trackTarget(): index 2 out of range for 2 tracks");
    EXPECT_ABORT(data.track(2), "Trade::AnimationData::track(): index 2 out of range for 2 tracks");
    EXPECT_ABORT(data.track<Vector3>(2), "Trade::AnimationData::track(): index 2 out of range for 2 tracks");
    EXPECT_ABORT(data.track<Quaternion>(0),
        "Trade::AnimationData::track(): improper type requested for Trade::AnimationTrackType::Vector3");
    EXPECT_ABORT((data.track<Quaternion, Vector3>(1)),
        "Trade::AnimationData::track(): improper result type requested for Trade::AnimationTrackType::Quaternion");
}

TEST(AnimationTrackDataTest, asserts) {
    const Containers::StridedArrayView1D<const Float> keys = Keys;
    const Containers::StridedArrayView1D<const Float> values = Values;
    EXPECT_ABORT(Trade::AnimationTrackData(Target::Rotation3D, 1, keys, values.prefix(2), Interpolation::Linear),
        "Trade::AnimationTrackData: expected key and value view to have the same size but got 3 and 2");
    EXPECT_ABORT(Trade::AnimationTrackData(Target::Rotation3D, 1, Type{}, keys, values, Interpolation::Linear),
        "Trade::AnimationTrackData: can't deduce interpolator function for Trade::AnimationTrackType(0x0), "
        "Trade::AnimationTrackType(0x0) and Animation::Interpolation::Linear");
    EXPECT_ABORT(Trade::AnimationTrackData(Target::Rotation3D, 1, Type::Float, keys, values, Interpolation::Spline),
        "Animation::interpolatorFor(): can't deduce interpolator function for Animation::Interpolation::Spline");
}

}
