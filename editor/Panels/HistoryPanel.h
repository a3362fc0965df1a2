#pragma once

#include <cstddef>
#include <optional>

namespace VantrelEngine {

class StepLog;

// Shows the steps in the window that is current: those that were undone dimmed, the one that the project is at, and the
// one that is saved. A click, or the arrow keys, go to one. Follows the project when it goes elsewhere. Costs the rows that
// are seen.
class HistoryPanel {
public:
    // How many steps the user wants to be in effect, if that was asked for.
    std::optional<std::size_t> draw(const StepLog& log);

private:
    struct Shown {
        std::size_t position = 0;
        float rowHeight = 0.0f, height = 0.0f;

        bool operator!=(const Shown& other) const {
            return position != other.position || rowHeight != other.rowHeight || height != other.height;
        }
    };

    // Last.
    Shown _shown;
};

} // namespace VantrelEngine
