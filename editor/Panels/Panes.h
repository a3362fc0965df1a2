#pragma once

#include <Vantrel/EditorData/EditorState.h>

#include "Panels/PaneLayout.h"

namespace VantrelEngine {

// The workspace between the menu bar and the status bar. Where the UI library docks windows, they dock here, at first as
// the sizes say; else the panes are pinned to their places, with splitters between them.
class Panes {
public:
    // Lays the panes out and lets the user drag the splitters, which changes the sizes.
    void layOut(PaneSizes& sizes);
    // Docked windows go back to where the sizes say.
    void reset() { _isReset = true; }

    // Opens the window of a pane: draw into it where this is true, and call end() either way.
    bool beginList(bool* isOpen) { return begin("Objects", isOpen, _places.list); }
    bool beginLog(bool* isOpen) { return begin("Log", isOpen, _places.log); }
    void end();

    // Tells a view where its window belongs.
    void place(EditorState& views, unsigned view) const;

private:
    bool begin(const char* title, bool* isOpen, const Magnum::Range2D& place);

    PanePlaces _places;
    bool _isReset = false;
};

} // namespace VantrelEngine
