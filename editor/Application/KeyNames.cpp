#include "Application/KeyNames.h"

#include <algorithm>
#include <cctype>

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>
#include <Vantrel/Module/InputEvents.h>

namespace VantrelEngine {

namespace {

struct NamedKey {
    std::string_view name;
    int key;
};

constexpr NamedKey Keys[]{{"Space", GLFW_KEY_SPACE}, {"Escape", GLFW_KEY_ESCAPE}, {"Enter", GLFW_KEY_ENTER},
    {"Tab", GLFW_KEY_TAB}, {"Backspace", GLFW_KEY_BACKSPACE}, {"Insert", GLFW_KEY_INSERT}, {"Delete", GLFW_KEY_DELETE},
    {"Right", GLFW_KEY_RIGHT}, {"Left", GLFW_KEY_LEFT}, {"Down", GLFW_KEY_DOWN}, {"Up", GLFW_KEY_UP},
    {"PageUp", GLFW_KEY_PAGE_UP}, {"PageDown", GLFW_KEY_PAGE_DOWN}, {"Home", GLFW_KEY_HOME}, {"End", GLFW_KEY_END},
    {"LeftShift", GLFW_KEY_LEFT_SHIFT}, {"LeftCtrl", GLFW_KEY_LEFT_CONTROL}, {"LeftAlt", GLFW_KEY_LEFT_ALT},
    {"LeftSuper", GLFW_KEY_LEFT_SUPER}, {"RightShift", GLFW_KEY_RIGHT_SHIFT}, {"RightCtrl", GLFW_KEY_RIGHT_CONTROL},
    {"RightAlt", GLFW_KEY_RIGHT_ALT}, {"RightSuper", GLFW_KEY_RIGHT_SUPER}, {"KeypadEnter", GLFW_KEY_KP_ENTER},
    {"KeypadDecimal", GLFW_KEY_KP_DECIMAL}};

bool isSame(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
        [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

bool isDigit(char character) { return character >= '0' && character <= '9'; }

std::optional<int> functionKey(std::string_view name) {
    if(name.size() < 2 || name.size() > 3 || std::toupper(static_cast<unsigned char>(name[0])) != 'F') return {};
    int number = 0;
    for(const char digit: name.substr(1)) {
        if(!isDigit(digit)) return {};
        number = number * 10 + (digit - '0');
    }
    if(number < 1 || number > 12 || name[1] == '0') return {};
    return GLFW_KEY_F1 + number - 1;
}

} // namespace

std::optional<int> keyOf(std::string_view name) {
    constexpr std::string_view keypad = "Keypad";
    if(name.size() == 1) {
        const int character = std::toupper(static_cast<unsigned char>(name[0]));
        if((character >= 'A' && character <= 'Z') || isDigit(name[0])) return character;
        return {};
    }
    if(name.size() == keypad.size() + 1 && isSame(name.substr(0, keypad.size()), keypad) && isDigit(name.back()))
        return GLFW_KEY_KP_0 + (name.back() - '0');
    for(const NamedKey& key: Keys)
        if(isSame(name, key.name)) return key.key;
    return functionKey(name);
}

unsigned modifierOf(int key) {
    switch(key) {
    case GLFW_KEY_LEFT_SHIFT:
    case GLFW_KEY_RIGHT_SHIFT: return ModifierShift;
    case GLFW_KEY_LEFT_CONTROL:
    case GLFW_KEY_RIGHT_CONTROL: return ModifierControl;
    case GLFW_KEY_LEFT_ALT:
    case GLFW_KEY_RIGHT_ALT: return ModifierAlt;
    case GLFW_KEY_LEFT_SUPER:
    case GLFW_KEY_RIGHT_SUPER: return ModifierSuper;
    }
    return 0;
}

} // namespace VantrelEngine
