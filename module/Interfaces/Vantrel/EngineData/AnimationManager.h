#pragma once

#include <Corrade/Containers/Pointer.h>

#include <Vantrel/EngineData/ComponentManager.h>

namespace Magnum {
namespace Trade {
class AnimationData;
}
}

namespace VantrelEngine {

// Where the playing of an animation stands.
struct OzzPlayer {
    // Seconds from the start of the animation.
    Magnum::Float time = 0.0f;
    // Whole runs so far.
    Magnum::Int completed = 0;
    bool isPlaying = false;
};

// Animations that play on objects of the scene ("animation").
class CORRADE_VISIBILITY_EXPORT AnimationManager: public ComponentManager {
public:
    explicit AnimationManager(std::size_t capacity = 0);
    ~AnimationManager();

    // Runs until it stops; 0 for no end.
    Magnum::Int& playCount(Id component) { return _settings[slot(component)].playCount; }
    // Factor for the time, initially 1; negative plays backwards.
    Magnum::Float speed(Id component) const { return _settings[slot(component)].speed; }
    void setSpeed(Id component, Magnum::Float speed) { _settings[slot(component)].speed = speed; }
    // Whether it plays as soon as the scene runs.
    bool isAutoplay(Id component) const { return _settings[slot(component)].isAutoplay; }
    void setAutoplay(Id component, bool autoplay) { _settings[slot(component)].isAutoplay = autoplay; }
    // Whether the tracks drive other objects than those that the animation names.
    bool isRetarget(Id component) const { return _settings[slot(component)].isRetarget; }
    void setRetarget(Id component, bool retarget) { _settings[slot(component)].isRetarget = retarget; }

    // Index of the scene's animation, 0 for none.
    Id& animation(Id component) { return _settings[slot(component)].animation; }
    // What is played, null for nothing. The component takes over the data, or lets whoever gave the reference keep it.
    const Magnum::Trade::AnimationData* animationData(Id component) const { return _data[slot(component)]; }
    void setAnimation(Id component, const Magnum::Trade::AnimationData& data);
    void setAnimation(Id component, Magnum::Trade::AnimationData&& data);

    OzzPlayer& player(Id component) { return _player[slot(component)]; }
    bool isPlaying(Id component) const { return _player[slot(component)].isPlaying; }
    // From where it stands.
    void play(Id component) { _player[slot(component)].isPlaying = true; }

private:
    struct Settings {
        Magnum::Int playCount = 0;
        Magnum::Float speed = 1.0f;
        Id animation = 0;
        bool isAutoplay = false;
        bool isRetarget = false;
    };

    Field<Settings> _settings{*this};
    Field<OzzPlayer> _player{*this};
    Field<const Magnum::Trade::AnimationData*> _data{*this, nullptr};
    // What components own, by id.
    Corrade::Containers::Array<Corrade::Containers::Pointer<Magnum::Trade::AnimationData>> _owned;
};

}
