#pragma once

#include "Panels/Inspector/FieldEdit.h"

namespace VantrelEngine {

// Brings what the user did to fields into the document. What the mouse holds is on trial until it lets go, and one step
// of undo then; Escape takes all of it back. Anything else is a step of its own.
class EditGesture {
public:
    // Nothing where another gesture is under way. The holder is the UI's item that is active.
    void apply(ChangeManager& changes, const ProjectFile& file, const Edit& edit, unsigned holder);
    // At the end of each frame, with the item that is active then, whether its panel was drawn or not.
    void endFrame(ChangeManager& changes, unsigned activeItem, bool isEscapePressed);
    bool isUnderWay() const { return _holder; }

private:
    unsigned _holder = 0;
};

} // namespace VantrelEngine
