#include "Renderer/Debug/SheetLayout.h"

#include <gtest/gtest.h>

namespace {

using namespace Magnum;
using namespace VantrelEngine;

TEST(SheetLayoutTest, rowsFromTheLowerRightCorner) {
    const Vector2i size{250, 400};
    EXPECT_EQ(sheetPlace(0, size), (Range2Di{{151, 1}, {249, 99}}));
    EXPECT_EQ(sheetPlace(1, size), (Range2Di{{51, 1}, {149, 99}}));
    EXPECT_EQ(sheetPlace(2, size), (Range2Di{{151, 101}, {249, 199}}));
    EXPECT_EQ(sheetPlace(7, size), (Range2Di{{51, 301}, {149, 399}}));
    EXPECT_EQ(sheetPlace(8, size), std::nullopt);
    EXPECT_EQ(sheetPlace(~std::size_t{}, size), std::nullopt);
}

TEST(SheetLayoutTest, smallPictures) {
    EXPECT_EQ(sheetPlace(0, {50, 400}), (Range2Di{{1, 1}, {49, 49}}));
    EXPECT_EQ(sheetPlace(1, {50, 400}), (Range2Di{{1, 51}, {49, 99}}));
    for(const Vector2i& size: {Vector2i{1, 1}, {100, 8}, {2, 100}, {0, 0}})
        EXPECT_EQ(sheetPlace(0, size), std::nullopt);
}

} // namespace
