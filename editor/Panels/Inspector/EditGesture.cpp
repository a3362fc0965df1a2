#include "Panels/Inspector/EditGesture.h"

#include "ChangeManager.h"

namespace VantrelEngine {

namespace {

// "field", of all gestures: each begins anew.
constexpr std::uint64_t GestureKey = 0x6669656c64;

} // namespace

void EditGesture::apply(ChangeManager& changes, const ProjectFile& file, const Edit& edit, unsigned holder) {
    if(edit.records.empty() || changes.group() >= 0) return;
    const bool goesOn = _holder && changes.trial() == Trial::Gesture;
    if(!goesOn && changes.trial() == Trial::Gesture) return;
    if(!goesOn && changes.trial() == Trial::Preview) changes.dropTrial();
    if(!goesOn && edit.isHeld) changes.beginTrial(Trial::Gesture);
    changes.beginGroup(GestureKey, goesOn);
    recordEdit(changes, file, edit, goesOn);
    changes.commit();
    if(edit.isHeld) _holder = holder;
}

void EditGesture::endFrame(ChangeManager& changes, unsigned activeItem, bool isEscapePressed) {
    if(!_holder) return;
    const bool isOurs = changes.trial() == Trial::Gesture && changes.group() < 0;
    if(isOurs && isEscapePressed)
        changes.dropTrial();
    else if(isOurs && activeItem != _holder)
        changes.keepTrial();
    else if(isOurs)
        return;
    _holder = 0;
}

} // namespace VantrelEngine
