#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Panels/Assets/AssetFolder.h"

namespace VantrelEngine {

class FilePictures;
class ProjectSession;

// Pictures of images, and of models.
struct AssetPictures {
    FilePictures& images;
    FilePictures& models;
};

// Shows what of a folder can be imported in the window that is current: imports it, and is where it can be dragged from.
// The project's folder at first, and whenever another project is there. Costs the cells that are seen.
class AssetBrowser {
public:
    // Waiting, files are read at once, so that a run is the same each time.
    void draw(ProjectSession& session, const AssetPictures& pictures, bool waits);
    // Of the file or the folder that is selected; empty for none.
    std::string selectedName() const { return selected() ? selected()->name : std::string{}; }
    // Something is read still.
    bool isReading() const { return _folder.isReading(); }

private:
    struct Frame;

    void follow(const ProjectSession& session);
    void enter(const std::string& folder);
    void showFiltered();
    void select(std::size_t position);
    void drawBar(const Frame& frame);
    void drawPath();
    void drawFilter();
    void drawCells(const Frame& frame);
    void drawCell(std::size_t position, const Frame& frame);
    void drawRow(std::size_t position, const Frame& frame);
    void touch(std::size_t position, const Frame& frame);
    void drawMenu(std::size_t position, const Frame& frame);
    void moveByKeys(int columns, const Frame& frame);
    void open(const Asset& asset, const Frame& frame);
    std::string pathOf(const Asset& asset) const;
    const Asset* selected() const;

    AssetFolder _folder;
    AssetFilter _filter, _filtered;
    std::vector<std::size_t> _shown;
    // Of those that are shown, and its name, which stays when it is not shown.
    std::optional<std::size_t> _selected;
    std::string _selectedName;
    std::string _project;
    // Where to go when this frame is over; empty for nowhere.
    std::string _wish;
    bool _isGrid = true;
    bool _scrollsToSelected = false;
    char _filterField[128]{};
    char _pathField[4096]{};
};

} // namespace VantrelEngine
