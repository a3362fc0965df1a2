#pragma once

#include <optional>

#include <Vantrel/EditorData/EditorState.h>

#include "Panels/PaneLayout.h"

namespace VantrelEngine {

// The workspace between the menu bar and the status bar. Where the UI library docks windows, they dock here, at first as
// the sizes say; else the panes are pinned to their places, with splitters between them, and panels are tabs in them.
class Panes {
public:
    // Lays the panes out and lets the user drag the splitters, which changes the sizes. The scale is that of the text.
    void layOut(PaneSizes& sizes, Magnum::Float scale);
    // Docked windows go back to where the sizes say.
    void reset() { _isReset = true; }
    // Brings a panel to the front of its pane, when it is drawn next.
    void bringToFront(Panel panel) { _front = panel; }

    // Whether it was open when the panes were laid out.
    bool isOpen(Panel panel) const { return _sizes[panel]; }
    // To be called for each panel that is open, in their order: draw into it where this is true, and call end() either
    // way. The user may close it. A badge, where it is not empty, stands behind the title.
    bool begin(Panel panel, PaneSizes& sizes, const char* badge = "");
    void end(Panel panel);

    // Tells a view where its window belongs.
    void place(EditorState& views, unsigned view) const;

private:
    PanePlaces _places;
    // When they were laid out: what is closed since is closed in the next frame.
    PaneSizes _sizes;
    std::optional<Panel> _front;
    // Of the pane that is being drawn, and of the panel in it.
    bool _isPaneShown = false;
    bool _isPanelShown = false;
    bool _isReset = false;
    // Of the text, when they were laid out last.
    Magnum::Float _scale = 0.0f;

    // What the tabs of a pane have room in, how large they are, and whether that is enough; when they were drawn last.
    struct TabRoom {
        float width = 0.0f, fontSize = 0.0f;
        bool isEnough = true;

        bool operator!=(const TabRoom& other) const { return width != other.width || fontSize != other.fontSize; }
    };
    TabRoom _tabRooms[3];
};

} // namespace VantrelEngine
