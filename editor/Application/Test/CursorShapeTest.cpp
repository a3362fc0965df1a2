#include "Application/CursorShape.h"

#include <climits>

#include <gtest/gtest.h>
#include <imgui.h>

namespace VantrelEngine {

namespace {

TEST(CursorShapeTest, AnyNumberHasAShape) {
    EXPECT_EQ(cursorShapeOf(ImGuiMouseCursor_None), CursorShape::None);
    EXPECT_EQ(cursorShapeOf(INT_MIN), CursorShape::None);
    EXPECT_EQ(cursorShapeOf(ImGuiMouseCursor_Arrow), CursorShape::Arrow);
    EXPECT_EQ(cursorShapeOf(ImGuiMouseCursor_TextInput), CursorShape::TextInput);
    EXPECT_EQ(cursorShapeOf(ImGuiMouseCursor_ResizeEW), CursorShape::ResizeWE);
    EXPECT_EQ(cursorShapeOf(ImGuiMouseCursor_ResizeNS), CursorShape::ResizeNS);
    EXPECT_EQ(cursorShapeOf(ImGuiMouseCursor_Hand), CursorShape::Hand);
    EXPECT_EQ(cursorShapeOf(ImGuiMouseCursor_COUNT - 1), CursorShape::Arrow);
    EXPECT_EQ(cursorShapeOf(ImGuiMouseCursor_COUNT), CursorShape::Crosshair);
    EXPECT_EQ(cursorShapeOf(ImGuiMouseCursor_COUNT + 1), CursorShape::Crosshair);
    EXPECT_EQ(cursorShapeOf(INT_MAX), CursorShape::Crosshair);
}

} // namespace

} // namespace VantrelEngine
