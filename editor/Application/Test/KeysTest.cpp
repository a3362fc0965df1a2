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

constexpr ShortcutFocus Anywhere[]{ShortcutFocus::View, ShortcutFocus::Objects, ShortcutFocus::Elsewhere};

TEST(ShortcutsTest, KeysModifiersAndRepeats) {
    const int n = 78, s = 83, z = 90, f5 = 294;
    for(const ShortcutFocus focus: Anywhere) {
        EXPECT_EQ(shortcutOf(n, 2, false, focus), Command::New);
        EXPECT_FALSE(shortcutOf(n, 0, false, focus));
        EXPECT_FALSE(shortcutOf(n, 2, true, focus)) << "not while the key is held";
        EXPECT_EQ(shortcutOf(s, 2, false, focus), Command::Save);
        EXPECT_EQ(shortcutOf(s, 3, false, focus), Command::SaveAs);
        EXPECT_FALSE(shortcutOf(s, 4, false, focus)) << "the view's";
        EXPECT_FALSE(shortcutOf(s, 6, false, focus));
        EXPECT_EQ(shortcutOf(z, 2, true, focus), Command::Undo);
        EXPECT_EQ(shortcutOf(z, 3, true, focus), Command::Redo);
        EXPECT_EQ(shortcutOf(f5, 0, false, focus), Command::ReloadView);
    }
}

TEST(ShortcutsTest, WhatIsDoneToObjectsWantsTheirList) {
    const struct {
        int key;
        unsigned modifiers;
        Command command;
    } cases[]{{67, 2, Command::Copy}, {67, 3, Command::CopyTrees}, {86, 2, Command::Paste},
        {86, 3, Command::PasteChild}, {68, 2, Command::Duplicate}, {68, 3, Command::DuplicateTrees},
        {261, 0, Command::Delete}};
    for(const auto& testCase: cases) {
        for(unsigned modifiers = 0; modifiers != 16; ++modifiers)
            EXPECT_EQ(shortcutOf(testCase.key, modifiers, false, ShortcutFocus::Objects) == testCase.command,
                modifiers == testCase.modifiers);
        // The view has them as keys of its own, and what has the focus elsewhere may mean something else.
        EXPECT_FALSE(shortcutOf(testCase.key, testCase.modifiers, false, ShortcutFocus::View));
        EXPECT_FALSE(shortcutOf(testCase.key, testCase.modifiers, false, ShortcutFocus::Elsewhere));
        EXPECT_EQ(shortcutOf(testCase.key, testCase.modifiers, true, ShortcutFocus::Objects).has_value(),
            testCase.command == Command::Delete);
    }
}

TEST(ShortcutsTest, SelectingWantsTheViewOrTheList) {
    const int a = 65;
    for(const ShortcutFocus focus: {ShortcutFocus::View, ShortcutFocus::Objects}) {
        EXPECT_EQ(shortcutOf(a, 2, false, focus), Command::SelectAll);
        EXPECT_EQ(shortcutOf(a, 3, false, focus), Command::SelectNone);
        EXPECT_FALSE(shortcutOf(a, 0, false, focus));
    }
    EXPECT_FALSE(shortcutOf(a, 2, false, ShortcutFocus::Elsewhere));
}

} // namespace

} // namespace VantrelEngine
