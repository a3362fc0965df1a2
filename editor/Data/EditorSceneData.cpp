#include "Vantrel/EditorData/EditorSceneData.h"

namespace VantrelEngine {

EditorSceneData::EditorSceneData() = default;

EditorSceneData::~EditorSceneData() = default;

} // namespace VantrelEngine
