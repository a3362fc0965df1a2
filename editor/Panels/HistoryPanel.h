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
    // What was shown last.
    std::size_t _position = 0;
};

} // namespace VantrelEngine
