#include "Import/Converter/GltfAnimations.h"

#include <algorithm>
#include <cmath>

#include "Import/Converter/AnimationRepair.h"
#include "Import/Converter/Text.h"

namespace VantrelImport {

namespace {

// A cubic segment is followed by lines of at most this many seconds, and of not more than so many.
constexpr float SampleDistance = 1.0f / 60.0f;
constexpr int MaximumSamples = 240;

class AnimationReader {
public:
    explicit AnimationReader(GltfFile& file, const std::vector<int>& places, const Json& json, Messages& messages):
        _file{file}, _places{places}, _json{json}, _messages{messages} {}

    Animation read(const std::string& name) {
        Animation animation;
        animation.name = name;
        const Json* const channels = member(&_json, "channels");
        for(std::size_t i = 0; i != sizeOf(channels); ++i) {
            try {
                addChannel(*elementOf(channels, i), animation);
            } catch(const Unusable& problem) {
                _messages.warn("animation " + quoted(name) + ": channel " + std::to_string(i + 1) +
                    " is left out: " + problem.what());
            }
        }
        return animation;
    }

private:
    void addChannel(const Json& json, Animation& animation) {
        const Json* const target = member(&json, "target");
        const int node = asIndex(member(target, "node"));
        if(node == Nothing) throw Unusable{"it moves no object"};
        if(std::size_t(node) >= _places.size() || _places[std::size_t(node)] == Nothing)
            throw Unusable{"its object is not in the scene"};
        Channel channel;
        channel.node = _places[std::size_t(node)];
        const std::string_view path = asText(member(target, "path"));
        if(path == "rotation")
            channel.path = ChannelPath::Rotation;
        else if(path == "scale")
            channel.path = ChannelPath::Scaling;
        else if(path != "translation")
            throw Unusable{quoted(path) + " cannot be animated"};
        readSampler(asIndex(member(&json, "sampler")), channel);
        if(repair(channel, "animation " + quoted(animation.name), _messages))
            animation.channels.push_back(std::move(channel));
    }

    void readSampler(int index, Channel& channel) {
        const Json* const sampler = index < 0 ? nullptr : elementOf(member(&_json, "samplers"), std::uint64_t(index));
        if(!sampler) throw Unusable{"its sampler is not there"};
        const std::string_view interpolation = asText(member(sampler, "interpolation"));
        channel.isConstant = interpolation == "STEP";
        channel.keys = _file.floats(asIndex(member(sampler, "input")), 1);
        const unsigned components = componentsOf(channel.path);
        channel.values = _file.floats(asIndex(member(sampler, "output")), components);
        const bool isCubic = interpolation == "CUBICSPLINE";
        if(channel.values.size() != channel.keys.size() * components * (isCubic ? 3 : 1))
            throw Unusable{"it has another number of values than of keys"};
        if(isCubic) followCurve(channel);
    }

    // https://registry.khronos.org/glTF/specs/2.0/glTF-2.0.html#interpolation-cubic: a key has a tangent that comes in,
    // a value, and a tangent that goes out.
    static void followCurve(Channel& channel) {
        const unsigned components = componentsOf(channel.path);
        Channel followed;
        const auto at = [&](std::size_t key, unsigned part, unsigned i) {
            return channel.values[(key * 3 + part) * components + i];
        };
        const auto add = [&](float time, std::size_t key, float t, float duration) {
            const float square = t * t, cube = square * t;
            followed.keys.push_back(time);
            for(unsigned i = 0; i != components; ++i) {
                float value = at(key, 1, i) * (2 * cube - 3 * square + 1);
                if(t > 0.0f)
                    value += at(key, 2, i) * (cube - 2 * square + t) * duration +
                        at(key + 1, 1, i) * (3 * square - 2 * cube) + at(key + 1, 0, i) * (cube - square) * duration;
                followed.values.push_back(value);
            }
        };
        for(std::size_t key = 0; key != channel.keys.size(); ++key) {
            const bool isLast = key + 1 == channel.keys.size();
            const float duration = isLast ? 0.0f : channel.keys[key + 1] - channel.keys[key];
            const float wanted = std::ceil(duration / SampleDistance);
            const int samples = wanted >= 1.0f ? int(std::min(wanted, float(MaximumSamples))) : 1;
            for(int i = 0; i != samples; ++i) {
                const float t = float(i) / float(samples);
                add(channel.keys[key] + t * duration, key, t, duration);
            }
        }
        channel.keys = std::move(followed.keys);
        channel.values = std::move(followed.values);
    }

    GltfFile& _file;
    const std::vector<int>& _places;
    const Json& _json;
    Messages& _messages;
};

} // namespace

void readGltfAnimations(GltfFile& file, const std::vector<int>& places, Model& model, Messages& messages) {
    const Json* const animations = file.list("animations");
    for(std::size_t i = 0; i != sizeOf(animations); ++i) {
        const Json& json = *elementOf(animations, i);
        const std::string name = nameOr(asText(member(&json, "name")), "Animation " + std::to_string(i + 1));
        Animation animation = AnimationReader{file, places, json, messages}.read(name);
        if(animation.channels.empty())
            messages.warn("animation " + quoted(name) + " is left out: it moves nothing");
        else
            model.animations.push_back(std::move(animation));
    }
}

} // namespace VantrelImport
