#pragma once

#include <optional>

#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class EditorData;

struct ObjectClick {
    Id object;
    // Whether it was clicked to change its own state only.
    bool toggles;
};

// Lists the objects of the scene in the window that is current, descendants below their ancestors, and tells which one was
// clicked. Costs the rows that are seen.
std::optional<ObjectClick> drawObjectList(const EditorData& data);

// Selects the object, or, toggling, changes its own state only.
void applyClick(EditorData& data, const ObjectClick& click);

} // namespace VantrelEngine
