#include <Corrade/Containers/ArrayView.h>
#include <Vantrel/EngineData/RapidJsonUtils.h>

#include "AssetCompiler/ComponentHandlers.h"

namespace VantrelEngine {

using namespace Corrade;

void compileInput(ComponentTask& task) {
    InputManager& inputs = task.scene.inputs;
    if(!task.ensureComponent(inputs)) return;
    const Containers::StringView type = task.json["input"]["type"].readValue().asString("keyboard");
    inputs.inputType(task.component) = Magnum::UnsignedByte(
        RapidJsonUtils::enumStringToValue(type, Containers::arrayView(InputManager::EnumValuesInputType)));
    inputs.setActive(task.component, task.isActive());
}

} // namespace VantrelEngine
