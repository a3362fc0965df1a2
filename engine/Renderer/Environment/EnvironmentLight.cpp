#include "Renderer/Environment/EnvironmentLight.h"

#include <algorithm>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/ImageView.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/SceneEnvironment.h>
#include <Vantrel/EngineData/SceneResources.h>

#include "Renderer/Environment/BakeFile.h"
#include "Renderer/Environment/EquirectTexture.h"
#include "Renderer/TextureUnits.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// So that no frame takes long even where the GL computes without a GPU.
constexpr std::size_t SamplesPerFrame = 1000000;

// In memory.
constexpr std::size_t KeptBakes = 8;

void setLevel(GL::Texture2D& texture, Int level, const EnvironmentBake& bake, std::size_t target) {
    texture.setSubImage(level, {},
        ImageView2D{PixelFormat::RGBA16F, BakeTargets[target].size,
            Containers::ArrayView<const std::uint16_t>{
                bake.data() + bakeTargetOffset(target), bakeTargetLength(target)}});
}

// The texels of a level, of which each one after is half as wide.
Int levelOf(Int from, Int to) {
    Int level = 0;
    while(from > to) from /= 2, ++level;
    return level;
}

} // namespace

void EnvironmentLight::update(const SceneEnvironment& environment, const EnvironmentBaking& baking) {
    _intensity = environment.intensity;
    _rotation = environment.rotation;
    _isBackground = environment.isBackground;
    const bool isThere = environment.image && environment.image->pixels;
    const std::uint32_t revision = isThere ? environment.image->revision : 0;
    if(revision != _revision) {
        _revision = revision;
        changeImage(environment, baking);
    }
    if(!_baker.isUnderWay() || !_baker.advance(baking.isAtOnce ? 0 : SamplesPerFrame)) return;
    ++_bakeCount;
    show(_baker.picture(), _baker.bake());
    write(baking, _baker.bake());
    keep(_baker.bake());
    _baker.cancel();
}

void EnvironmentLight::changeImage(const SceneEnvironment& environment, const EnvironmentBaking& baking) {
    _baker.cancel();
    if(!_revision) {
        _surroundings = {};
        _irradiance = {};
        return;
    }
    EnvironmentPicture picture = environmentPicture(*environment.image);
    _key = contentKey(picture);
    if(const EnvironmentBake* const bake = find(baking))
        show(picture, *bake);
    else
        _baker.begin(std::move(picture));
}

const EnvironmentBake* EnvironmentLight::find(const EnvironmentBaking& baking) {
    const auto found =
        std::find_if(_kept.begin(), _kept.end(), [this](const auto& bake) { return bake.first == _key; });
    if(found != _kept.end()) {
        std::rotate(found, found + 1, _kept.end());
        return &_kept.back().second;
    }
    if(baking.cacheFolder.empty()) return nullptr;
    std::optional<EnvironmentBake> bake = readBake(baking.cacheFolder, _key);
    if(!bake) return nullptr;
    keep(std::move(*bake));
    return &_kept.back().second;
}

void EnvironmentLight::keep(EnvironmentBake bake) {
    if(_kept.size() == KeptBakes) _kept.erase(_kept.begin());
    _kept.emplace_back(_key, std::move(bake));
}

void EnvironmentLight::write(const EnvironmentBaking& baking, const EnvironmentBake& bake) {
    if(baking.cacheFolder.empty()) return;
    const std::string reason = writeBake(baking.cacheFolder, _key, bake);
    if(reason.empty() || _isWarned) return;
    _isWarned = true;
    Utility::Warning{} << "WebGL2Renderer: the light of an environment cannot be kept in" << baking.cacheFolder.c_str()
                       << Utility::Debug::nospace << ":" << reason.c_str();
}

void EnvironmentLight::show(const EnvironmentPicture& picture, const EnvironmentBake& bake) {
    _firstBakedLevel = levelOf(picture.size.x(), BakeTargets[1].size.x());
    _surroundings = equirectTexture(_firstBakedLevel + Int(BakeTargetCount) - 1, picture.size);
    _surroundings->setLabel("Environment");
    showLevel(0, picture);
    EnvironmentPicture smaller;
    for(Int level = 1; level != _firstBakedLevel; ++level) {
        smaller = resized(level == 1 ? picture : smaller, picture.size / (1 << level));
        showLevel(level, smaller);
    }
    for(std::size_t target = 1; target != BakeTargetCount; ++target)
        setLevel(*_surroundings, _firstBakedLevel + Int(target) - 1, bake, target);

    _irradiance = equirectTexture(1, BakeTargets[0].size);
    _irradiance->setLabel("Environment irradiance");
    setLevel(*_irradiance, 0, bake, 0);
}

void EnvironmentLight::showLevel(Int level, const EnvironmentPicture& picture) {
    _surroundings->setSubImage(level, {},
        ImageView2D{PixelFormat::RGBA32F, picture.size,
            Containers::ArrayView<const Color4>{picture.texels.data(), picture.texels.size()}});
}

Vector4 EnvironmentLight::uniform() const {
    return {Math::sin(_rotation), Math::cos(_rotation), _intensity, Float(_firstBakedLevel)};
}

void EnvironmentLight::bind() {
    if(!isThere()) return;
    _surroundings->bind(TextureUnit::Surroundings);
    _irradiance->bind(TextureUnit::Irradiance);
}

} // namespace VantrelEngine
