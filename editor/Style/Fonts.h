#pragma once

#include <vector>

#include <Magnum/Magnum.h>

namespace VantrelEngine {

// Fills the font atlas of the UI context that is current: text, and the icons of the toolbar at their private code
// points. The text is drawn at TextSize times the font scale, in window points; the pixels are made for the framebuffer
// scale. Without the text font's file, which one line says, the UI library's own font is taken. Icons that the icon font
// lacks, and all of them where it is empty, have shapes of the editor's own; it outlives the atlas.
void loadFonts(float fontScale, float framebufferScale, const std::vector<unsigned char>& iconFont);

// Window points.
constexpr float TextSize = 15.0f;

} // namespace VantrelEngine
