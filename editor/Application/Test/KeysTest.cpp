#include <gtest/gtest.h>

#include "Application/KeyNames.h"
#include "Application/Shortcuts.h"

namespace VantrelEngine {

namespace {

TEST(KeyNamesTest, NamesAndCodes) {
    const struct {
        const char* name;
        int key;
    } cases[]{{"W", 87}, {"w", 87}, {"7", 55}, {"Escape", 256}, {"delete", 261}, {"Keypad7", 327}, {"keypad0", 320},
        {"F1", 290}, {"f12", 301}, {"LeftShift", 340}, {"RightSuper", 347}, {"Space", 32}};
    for(const auto& testCase: cases) EXPECT_EQ(keyOf(testCase.name), testCase.key) << testCase.name;
    for(const char* const name: {"", "WW", "F0", "F13", "F01", "F1x", "Keypad", "KeypadX", "Shift", "!", "ß"})
        EXPECT_FALSE(keyOf(name)) << name;
}

TEST(KeyNamesTest, Modifiers) {
    EXPECT_EQ(modifierOf(340), 1);
    EXPECT_EQ(modifierOf(345), 2);
    EXPECT_EQ(modifierOf(342), 4);
    EXPECT_EQ(modifierOf(347), 8);
    EXPECT_EQ(modifierOf(87), 0);
    EXPECT_EQ(modifierOf(-1), 0);
}

TEST(ShortcutsTest, KeysModifiersAndRepeats) {
    const int n = 78, s = 83, z = 90, f5 = 294;
    EXPECT_EQ(shortcutOf(n, 2, false), Command::New);
    EXPECT_FALSE(shortcutOf(n, 0, false));
    EXPECT_FALSE(shortcutOf(n, 2, true)) << "not while the key is held";
    EXPECT_EQ(shortcutOf(s, 2, false), Command::Save);
    EXPECT_EQ(shortcutOf(s, 3, false), Command::SaveAs);
    EXPECT_FALSE(shortcutOf(s, 4, false)) << "the view's";
    EXPECT_FALSE(shortcutOf(s, 6, false));
    EXPECT_EQ(shortcutOf(z, 2, true), Command::Undo);
    EXPECT_EQ(shortcutOf(z, 3, true), Command::Redo);
    EXPECT_EQ(shortcutOf(f5, 0, false), Command::ReloadView);
}

} // namespace

} // namespace VantrelEngine
