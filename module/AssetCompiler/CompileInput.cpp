#include "AssetCompiler/ComponentHandlers.h"

namespace VantrelEngine {

using namespace Corrade;

void compileInput(ComponentTask& task) {
    InputManager& inputs = task.scene.inputs;
    if(!task.ensureComponent(inputs)) return;
    const Containers::StringView type = task.json["input"]["type"].readValue().asString("keyboard");
    inputs.inputType(task.component) = task.enumValue(type, InputManager::EnumValuesInputType);
    inputs.setActive(task.component, task.isActive());
}

} // namespace VantrelEngine
