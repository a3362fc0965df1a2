#include "Style/Fonts.h"

#include <cstdio>
#include <memory>
#include <vector>

#include <Corrade/Utility/Debug.h>
#include <imgui.h>

#include "Style/IconFont.h"
#include "Style/IconShapes.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr const char* TextFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

// Latin, Greek, Cyrillic, punctuation, arrows, a few signs. Nothing of the private range, where the icons are.
constexpr ImWchar TextRanges[]{
    0x20, 0x17f, 0x370, 0x3ff, 0x400, 0x45f, 0x2010, 0x2027, 0x2190, 0x2193, 0x2212, 0x2212, 0x25a0, 0x25cf, 0};

bool isThere(const char* file) {
    std::FILE* const stream = std::fopen(file, "rb");
    if(stream) std::fclose(stream);
    return stream;
}

void addTextFont(ImFontAtlas& atlas, float size) {
    if(isThere(TextFont) && atlas.AddFontFromFileTTF(TextFont, size, nullptr, TextRanges)) return;
    static bool isTold = false;
    if(!isTold) Utility::Warning{} << "Fonts: there is no" << TextFont << "- taking the built-in font";
    isTold = true;
    ImFontConfig config;
    config.SizePixels = size;
    atlas.AddFontDefault(&config);
}

// Sorted, a range for each icon; the atlas keeps the pointer.
const ImWchar* iconRanges() {
    static const std::vector<ImWchar> ranges = [] {
        std::vector<ImWchar> list;
        for(const IconShape& shape: iconShapes()) list.insert(list.end(), 2, ImWchar(shape.codePoint));
        list.push_back(0);
        return list;
    }();
    return ranges.data();
}

// The atlas takes of it what is not there yet, and reads it as long as the atlas is there.
void addIcons(ImFontAtlas& atlas, float size, const std::vector<unsigned char>& font) {
    ImFontConfig config;
    config.MergeMode = true;
    config.FontDataOwnedByAtlas = false;
    atlas.AddFontFromMemoryTTF(const_cast<unsigned char*>(font.data()), int(font.size()), size, &config, iconRanges());
}

} // namespace

void loadFonts(float fontScale, float framebufferScale, const std::vector<unsigned char>& iconFont) {
    ImGuiIO& io = ImGui::GetIO();
#if IMGUI_VERSION_NUM >= 19200
    // Sizes and pixels are chosen while text is drawn.
    static_cast<void>(fontScale), static_cast<void>(framebufferScale);
    if(!io.Fonts->Fonts.empty()) return;
    constexpr float size = TextSize;
#else
    io.Fonts->Clear();
    io.FontGlobalScale = 1.0f / framebufferScale;
    const float size = TextSize * fontScale * framebufferScale;
#endif
    addTextFont(*io.Fonts, size);
    if(!iconFont.empty()) addIcons(*io.Fonts, size, iconFont);
    static const std::vector<unsigned char> ownShapes = makeIconFont(iconShapes());
    addIcons(*io.Fonts, size, ownShapes);
}

} // namespace VantrelEngine
