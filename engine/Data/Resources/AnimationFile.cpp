#include "Data/Resources/AnimationFile.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <vector>

#include <Corrade/Containers/GrowableArray.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/Math/Vector3.h>

#include "Data/Resources/GlbFile.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// A small file can name the same keys in many channels.
constexpr std::uint64_t MaximumKeyDataSize = std::uint64_t{1} << 30;

struct PathRule {
    const char* path;
    Trade::AnimationTrackTarget target;
    Trade::AnimationTrackType type;
    // Of a value, in floats.
    unsigned components;
};

constexpr PathRule Paths[]{
    {"translation", Trade::AnimationTrackTarget::Translation3D, Trade::AnimationTrackType::Vector3, 3},
    {"rotation", Trade::AnimationTrackTarget::Rotation3D, Trade::AnimationTrackType::Quaternion, 4},
    {"scale", Trade::AnimationTrackTarget::Scaling3D, Trade::AnimationTrackType::Vector3, 3}};

// A track before there is memory for it.
struct Channel {
    const PathRule* rule;
    std::uint64_t target;
    Animation::Interpolation interpolation;
    GlbAccessor keys, values;

    std::uint64_t dataSize() const { return keys.count * (rule->components + 1) * sizeof(Float); }
};

class AnimationReader {
public:
    AnimationReader(const GlbFile& file, const GlbValue& animation, std::string& reason):
        _file{file}, _animation{animation}, _reason{reason} {}

    std::optional<Trade::AnimationData> read() {
        const GlbValue* const channels = GlbFile::member(_animation, "channels");
        if(!channels || !channels->IsArray()) {
            refuse("the animation has no channels");
            return {};
        }
        for(const GlbValue& channel: channels->GetArray())
            if(!addChannel(channel)) return {};
        return readTracks();
    }

private:
    bool refuse(std::string reason) {
        _reason = std::move(reason);
        return false;
    }

    // Channels of what has no place here, such as weights of morph targets, are left out.
    bool addChannel(const GlbValue& json) {
        const GlbValue* const target = GlbFile::member(json, "target");
        if(!target || !target->IsObject()) return refuse("a channel has no target");
        if(!GlbFile::member(*target, "node")) return true;
        Channel channel{};
        if(!GlbFile::readIndex(*target, "node", channel.target, _reason)) return false;
        for(const PathRule& rule: Paths)
            if(GlbFile::isText(*target, "path", rule.path)) channel.rule = &rule;
        if(!channel.rule) return true;
        if(!_file.element("nodes", channel.target)) return refuse("the node of a channel is not there");
        channel.target = _targets.emplace(channel.target, _targets.size()).first->second;
        if(!readSampler(json, channel)) return refuse(std::string{channel.rule->path} + ": " + _reason);
        _size += channel.dataSize();
        if(_size > MaximumKeyDataSize) return refuse("there are too many keys");
        _channels.push_back(channel);
        return true;
    }

    bool readSampler(const GlbValue& json, Channel& channel) {
        std::uint64_t index = ~std::uint64_t{};
        if(!GlbFile::readIndex(json, "sampler", index, _reason)) return false;
        const GlbValue* const samplers = GlbFile::member(_animation, "samplers");
        if(!samplers || !samplers->IsArray() || index >= samplers->Size()) return refuse("its sampler is not there");
        const GlbValue& sampler = (*samplers)[rapidjson::SizeType(index)];
        return readInterpolation(sampler, channel) && readAccessor(sampler, "input", channel.keys) &&
            readAccessor(sampler, "output", channel.values) && checkTypes(channel);
    }

    bool readInterpolation(const GlbValue& sampler, Channel& channel) {
        channel.interpolation = Animation::Interpolation::Linear;
        if(!GlbFile::member(sampler, "interpolation") || GlbFile::isText(sampler, "interpolation", "LINEAR"))
            return true;
        channel.interpolation = Animation::Interpolation::Constant;
        if(GlbFile::isText(sampler, "interpolation", "STEP")) return true;
        if(GlbFile::isText(sampler, "interpolation", "CUBICSPLINE"))
            return refuse("the interpolation CUBICSPLINE is not supported");
        return refuse("its interpolation is not known");
    }

    bool readAccessor(const GlbValue& sampler, const char* key, GlbAccessor& accessor) {
        std::uint64_t index = ~std::uint64_t{};
        if(!GlbFile::readIndex(sampler, key, index, _reason)) return false;
        const std::optional<GlbAccessor> found = _file.accessor(index, _reason);
        if(found) accessor = *found;
        return bool(found);
    }

    bool checkTypes(const Channel& channel) {
        if(!channel.keys.isFloat() || channel.keys.components != 1) return refuse("the type of its keys is wrong");
        const bool isRotation = channel.rule->type == Trade::AnimationTrackType::Quaternion;
        if(channel.values.components != channel.rule->components ||
            !(channel.values.isFloat() || (isRotation && channel.values.isNormalized)))
            return refuse("the type of its values is wrong");
        if(channel.keys.count == channel.values.count) return true;
        return refuse("there are " + std::to_string(channel.values.count) + " values for " +
            std::to_string(channel.keys.count) + " keys");
    }

    std::optional<Trade::AnimationData> readTracks() {
        Containers::Array<char> data{ValueInit, std::size_t(_size)};
        Containers::Array<Trade::AnimationTrackData> tracks;
        auto* place = reinterpret_cast<Float*>(data.data());
        for(const Channel& channel: _channels) {
            Float* const keys = place;
            Float* const values = place + channel.keys.count;
            const unsigned components = channel.rule->components;
            place = values + channel.keys.count * components;
            channel.keys.readFloats(keys, sizeof(Float), 1);
            channel.values.readFloats(values, components * sizeof(Float), components);
            if(!checkKeys(keys, channel) || !checkValues(values, channel)) return {};
            arrayAppend(tracks, track(channel, keys, values));
        }
        return Trade::AnimationData{std::move(data), std::move(tracks)};
    }

    bool checkKeys(const Float* keys, const Channel& channel) {
        for(std::size_t i = 0; i != channel.keys.count; ++i)
            if(!std::isfinite(keys[i]) || (i && !(keys[i - 1] < keys[i])))
                return refuse(std::string{channel.rule->path} + ": its keys do not ascend");
        return true;
    }

    bool checkValues(Float* values, const Channel& channel) {
        const std::size_t count = channel.values.count * channel.rule->components;
        for(std::size_t i = 0; i != count; ++i)
            if(!std::isfinite(values[i])) return refuse(std::string{channel.rule->path} + ": a value is not finite");
        if(channel.rule->type != Trade::AnimationTrackType::Quaternion) return true;
        for(std::size_t i = 0; i != count; i += 4)
            if(!normalize(values + i)) return refuse("rotation: a quaternion has no length");
        return true;
    }

    static bool normalize(Float* quaternion) {
        double square = 0.0;
        for(int i = 0; i != 4; ++i) square += double(quaternion[i]) * quaternion[i];
        if(square == 0.0) return false;
        for(int i = 0; i != 4; ++i) quaternion[i] = Float(quaternion[i] / std::sqrt(square));
        return true;
    }

    static Trade::AnimationTrackData track(const Channel& channel, const Float* keys, const Float* values) {
        const std::size_t count = channel.keys.count;
        const std::size_t size = channel.rule->components * sizeof(Float);
        return Trade::AnimationTrackData{channel.rule->target, channel.target, channel.rule->type,
            Containers::stridedArrayView(Containers::arrayView(keys, count)),
            Containers::StridedArrayView1D<const void>{
                Containers::ArrayView<const void>{values, count * size}, count, std::ptrdiff_t(size)},
            channel.interpolation};
    }

    const GlbFile& _file;
    const GlbValue& _animation;
    std::string& _reason;
    // From nodes.
    std::unordered_map<std::uint64_t, std::uint64_t> _targets;
    std::vector<Channel> _channels;
    std::uint64_t _size = 0;
};

} // namespace

std::optional<Trade::AnimationData> readAnimation(Containers::ArrayView<const char> bytes, std::string& reason) {
    const std::optional<GlbFile> file = GlbFile::open(bytes, reason);
    if(!file) return {};
    if(const GlbValue* const animation = file->element("animations", 0))
        return AnimationReader{*file, *animation, reason}.read();
    reason = "the file has no animation";
    return {};
}

std::size_t targetCount(const Trade::AnimationData& animation) {
    std::size_t count = 0;
    for(UnsignedInt i = 0; i != animation.trackCount(); ++i)
        count = std::max(count, std::size_t(animation.trackTarget(i)) + 1);
    return count;
}

} // namespace VantrelEngine
