#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <VantrelHost/Thumbnails.h>

#include "Panels/Resources/ResourceRows.h"

namespace VantrelEngine {

class ProjectSession;
struct InspectedResource;

// Lists the resources of the project in the window that is current: a click shows one in the inspector, each can be
// dragged to where it is wanted, and be renamed, duplicated or, unused, deleted. Costs the rows that are seen; a search
// looks at each resource of the kind when the text or the project changed.
class ResourcesPanel {
public:
    void draw(ProjectSession& session, Thumbnails& thumbnails, InspectedResource& inspected);

private:
    struct Frame;

    void drawKinds(const Frame& frame);
    void drawRows(const Frame& frame);
    void drawRow(std::size_t position, const Frame& frame);
    void drawName(const ResourceRow& row, const Frame& frame);
    void drawMenu(const ResourceRow& row, const Frame& frame);
    void drawDragSource(const ResourceRow& row, const Frame& frame);
    void search(const Frame& frame);
    void beginRename(const ResourceRow& row);
    const char* section() const { return ResourceTabs[_tab].section; }

    std::size_t _tab = 0;
    char _searchField[128]{};
    // What was found, for what, and in what of the project.
    std::vector<std::size_t> _found;
    std::string _searched;
    std::size_t _searchedTab = 0;
    std::uint64_t _searchedState = 0;
    // The one whose name is typed; empty for none.
    std::string _renamed;
    bool _isRenameNew = false;
    char _nameField[256]{};
    // Why something could not be done.
    std::string _complaint;
};

} // namespace VantrelEngine
