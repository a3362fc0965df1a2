#include "Panels/CellPictures.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>
#include <vector>

namespace VantrelEngine {

namespace {

// A texture's name as the UI library wants it: a pointer or a number, depending on its version.
template<class T> T textureId(Magnum::UnsignedInt texture) {
    if constexpr(std::is_pointer<T>::value)
        return reinterpret_cast<T>(std::uintptr_t(texture));
    else
        return T(texture);
}

// Where a place in a square from 0 to 1, y down, is on the screen.
class Square {
public:
    explicit Square(const ImVec2& min, const ImVec2& max):
        _size{std::min(max.x - min.x, max.y - min.y)}, _min{(min.x + max.x - _size) * 0.5f,
                                                           (min.y + max.y - _size) * 0.5f} {}

    ImVec2 at(float x, float y) const { return {_min.x + x * _size, _min.y + y * _size}; }
    float size() const { return _size; }

private:
    float _size;
    ImVec2 _min;
};

// Where the letters of a text begin, and where it ends: none of several bytes is cut.
std::vector<std::size_t> letterStarts(const std::string& text) {
    std::vector<std::size_t> starts;
    for(std::size_t i = 0; i != text.size(); ++i)
        if((static_cast<unsigned char>(text[i]) & 0xc0) != 0x80) starts.push_back(i);
    starts.push_back(text.size());
    return starts;
}

void drawFolder(ImDrawList& list, const Square& square) {
    const ImU32 back = IM_COL32(196, 152, 66, 255), front = IM_COL32(228, 186, 96, 255);
    const float rounding = square.size() * 0.04f;
    list.AddRectFilled(square.at(0.12f, 0.2f), square.at(0.5f, 0.4f), back, rounding);
    list.AddRectFilled(square.at(0.12f, 0.28f), square.at(0.88f, 0.8f), back, rounding);
    list.AddRectFilled(square.at(0.12f, 0.37f), square.at(0.88f, 0.8f), front, rounding);
}

void drawModel(ImDrawList& list, const Square& square) {
    const ImVec2 top = square.at(0.5f, 0.14f), middle = square.at(0.5f, 0.5f), bottom = square.at(0.5f, 0.86f);
    const ImVec2 left = square.at(0.18f, 0.32f), right = square.at(0.82f, 0.32f);
    const ImVec2 lowLeft = square.at(0.18f, 0.68f), lowRight = square.at(0.82f, 0.68f);
    list.AddQuadFilled(left, top, right, middle, IM_COL32(158, 190, 224, 255));
    list.AddQuadFilled(left, middle, bottom, lowLeft, IM_COL32(98, 138, 184, 255));
    list.AddQuadFilled(middle, right, lowRight, bottom, IM_COL32(70, 104, 146, 255));
}

void drawImage(ImDrawList& list, const Square& square) {
    list.AddRectFilled(square.at(0.14f, 0.2f), square.at(0.86f, 0.8f), IM_COL32(146, 184, 214, 255));
    list.AddCircleFilled(square.at(0.68f, 0.36f), square.size() * 0.07f, IM_COL32(250, 236, 170, 255));
    list.AddTriangleFilled(
        square.at(0.14f, 0.8f), square.at(0.4f, 0.4f), square.at(0.66f, 0.8f), IM_COL32(94, 140, 92, 255));
    list.AddTriangleFilled(
        square.at(0.44f, 0.8f), square.at(0.66f, 0.52f), square.at(0.86f, 0.8f), IM_COL32(72, 116, 76, 255));
}

void drawDocument(ImDrawList& list, const Square& square) {
    list.AddRectFilled(square.at(0.22f, 0.12f), square.at(0.78f, 0.88f), IM_COL32(206, 208, 212, 255));
    for(int i = 0; i != 4; ++i) {
        const float y = 0.28f + 0.14f * float(i);
        list.AddRectFilled(
            square.at(0.32f, y), square.at(i == 3 ? 0.56f : 0.68f, y + 0.05f), IM_COL32(120, 124, 132, 255));
    }
}

} // namespace

void drawThumbnail(const Thumbnail& thumbnail, const ImVec2& min, const ImVec2& max) {
    const Magnum::Range2D& part = thumbnail.part;
    ImGui::GetWindowDrawList()->AddImage(textureId<ImTextureID>(thumbnail.texture), min, max,
        {part.min().x(), part.max().y()}, {part.max().x(), part.min().y()});
}

void drawIcon(CellIcon icon, const ImVec2& min, const ImVec2& max) {
    ImDrawList& list = *ImGui::GetWindowDrawList();
    const Square square{min, max};
    switch(icon) {
    case CellIcon::Folder: return drawFolder(list, square);
    case CellIcon::Model: return drawModel(list, square);
    case CellIcon::Image: return drawImage(list, square);
    case CellIcon::Document: return drawDocument(list, square);
    }
}

std::string elided(const std::string& text, float width) {
    if(ImGui::CalcTextSize(text.data(), text.data() + text.size()).x <= width) return text;
    std::vector<std::size_t> letters = letterStarts(text);
    // Of an odd number the begin has one more.
    for(std::size_t kept = letters.size() - 1; kept--;) {
        const std::size_t front = kept - kept / 2, back = letters.size() - 1 - kept / 2;
        const std::string part = text.substr(0, letters[front]) + "..." + text.substr(letters[back]);
        if(ImGui::CalcTextSize(part.data()).x <= width) return part;
    }
    return {};
}

void drawDragged(const Thumbnail* thumbnail, CellIcon icon, const std::string& name) {
    const float size = ImGui::GetFontSize() * 4.0f;
    const ImVec2 min = ImGui::GetCursorScreenPos(), max{min.x + size, min.y + size};
    ImGui::Dummy({size, size});
    if(thumbnail)
        drawThumbnail(*thumbnail, min, max);
    else
        drawIcon(icon, min, max);
    ImGui::TextUnformatted(name.data(), name.data() + name.size());
}

CellGrid gridOf(float pictureSize) {
    const ImGuiStyle& style = ImGui::GetStyle();
    CellGrid grid{};
    grid.pictureSize = pictureSize;
    grid.cellSize = {pictureSize + style.FramePadding.x * 2.0f,
        pictureSize + ImGui::GetTextLineHeight() + style.FramePadding.y * 2.0f};
    const float width = ImGui::GetContentRegionAvail().x + style.ItemSpacing.x;
    grid.columns = std::max(1, int(std::floor(width / (grid.cellSize.x + style.ItemSpacing.x))));
    return grid;
}

} // namespace VantrelEngine
