#pragma once

#include <cstdint>
#include <string>

#include <VantrelHost/Thumbnails.h>
#include <imgui.h>

namespace VantrelEngine {

// Small pictures in lists and grids, drawn into the window that is current. Window points.

enum class CellIcon : std::uint8_t { Folder, Model, Image, Document };

// Of a UI texture: rows upwards in it.
void drawThumbnail(const Thumbnail& thumbnail, const ImVec2& min, const ImVec2& max);
void drawIcon(CellIcon icon, const ImVec2& min, const ImVec2& max);

// The text, or as much of its begin and its end as fits into the width, with "..." in between: the ends of the names of
// files tell what they are.
std::string elided(const std::string& text, float width);

// What is seen at the mouse while something is dragged: between BeginDragDropSource() and EndDragDropSource(). The
// thumbnail may be null.
void drawDragged(const Thumbnail* thumbnail, CellIcon icon, const std::string& name);

// Cells of a grid that fills the width of the window.
struct CellGrid {
    // Of the picture; below it is a line of text.
    float pictureSize;
    ImVec2 cellSize;
    int columns;
};
CellGrid gridOf(float pictureSize);

} // namespace VantrelEngine
