#include <Corrade/Utility/Debug.h>

#include "AssetCompiler.h"
#include "AssetCompiler/ComponentHandlers.h"

namespace VantrelEngine {

using namespace Corrade;

void compileJavaScript(ComponentTask& task) {
    JavaScriptManager& scripts = task.scene.scripts;
    const Containers::StringView name = task.json["type"].readValue().asString();
    const Magnum::UnsignedShort type = scripts.typeIndex(name);
    if(type == JavaScriptManager::UnknownType) {
        if(task.problem("there is no JavaScript component " + std::string{name.data(), name.size()}))
            Utility::Warning{} << "Skipping component with missing JavaScript component:" << name << "on object"
                               << task.node.id.c_str();
        return;
    }
    if(task.component == NoComponent) task.component = scripts.addComponent(task.object(), type);
    if(!task.ensureComponent(scripts)) return;
    scripts.setComponentType(task.component, type);

    std::vector<AssetCompiler::JsComponentOrigin>& origins = task.compiler._jsComponentOrigins;
    if(origins.size() <= task.component) origins.resize(task.component + 1u);
    origins[task.component] = {task.node.id, task.position};
    scripts.setActive(task.component, task.isActive());
}

} // namespace VantrelEngine
