#include "Views/SceneView/Keys/KeyActions.h"

#include <optional>

namespace VantrelEngine {

using namespace Magnum;

namespace {

// GLFW's.
enum Key : int {
    KeyB = 'B',
    KeyC = 'C',
    KeyD = 'D',
    KeyF = 'F',
    KeyG = 'G',
    KeyR = 'R',
    KeyS = 'S',
    KeyV = 'V',
    KeyEscape = 256,
    KeyDelete = 261,
    Keypad1 = 321,
    Keypad3 = 323,
    Keypad7 = 327
};

std::optional<KeyAction> idleAction(int key) {
    switch(key) {
    case KeyG: return KeyAction::ChooseTranslation;
    case KeyR: return KeyAction::ChooseRotation;
    case KeyS: return KeyAction::ChooseScaling;
    case KeyB: return KeyAction::ArmBox;
    case KeyDelete: return KeyAction::DeleteSelected;
    case Keypad7:
    case Keypad1:
    case Keypad3: return KeyAction::ShowAxisView;
    case KeyEscape: return KeyAction::CancelBox;
    default: return {};
    }
}

std::optional<KeyAction> clipboardAction(int key, bool isForTrees) {
    switch(key) {
    case KeyC: return isForTrees ? KeyAction::CopyTrees : KeyAction::Copy;
    case KeyV: return isForTrees ? KeyAction::PasteChild : KeyAction::Paste;
    case KeyD: return isForTrees ? KeyAction::DuplicateTrees : KeyAction::Duplicate;
    default: return {};
    }
}

GizmoChoice withNextSpace(GizmoOperation operation, const GizmoChoice& present) {
    const bool isOther = operation == present.operation && present.space == GizmoSpace::World;
    return {operation, isOther ? GizmoSpace::Local : GizmoSpace::World};
}

}

std::vector<KeyAction> actionsOf(const KeyEvent& event, const KeyContext& context) {
    std::vector<KeyAction> actions;
    const auto add = [&actions](std::optional<KeyAction> action) {
        if(action) actions.push_back(*action);
    };
    if(event.key == KeyF && !context.isItemActive) add(KeyAction::FrameSelection);
    add(KeyAction::Navigate);
    if(!context.hasFocus) return actions;

    if(context.isIdle && !(event.modifiers & (ModifierControl | ModifierAlt))) add(idleAction(event.key));
    if(event.isRepeated) return actions;
    if(event.modifiers == ModifierAlt && event.key == KeyS && context.hasPhysics) add(KeyAction::ToggleSimulation);
    if(event.modifiers == ModifierControl) add(clipboardAction(event.key, false));
    if(event.modifiers == (ModifierControl | ModifierShift)) add(clipboardAction(event.key, true));
    return actions;
}

GizmoChoice chosen(KeyAction action, const GizmoChoice& present) {
    switch(action) {
    case KeyAction::ChooseTranslation: return withNextSpace(GizmoOperation::Translate, present);
    case KeyAction::ChooseRotation: return withNextSpace(GizmoOperation::Rotate, present);
    case KeyAction::ChooseScaling: return {GizmoOperation::Scale, GizmoSpace::Local};
    default: return present;
    }
}

} // namespace VantrelEngine
