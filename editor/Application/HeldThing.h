#pragma once

#include <string>

namespace VantrelEngine {

// Something that a script drags over the windows, as a panel would: from when it is taken until the left button is
// released.
class HeldThing {
public:
    // The UI library's type of it, and the text that it carries, see PayloadTypes.h.
    void take(std::string type, std::string text);
    void letGo() { _type.clear(); }
    // Before the windows of a frame.
    void draw();

private:
    // Empty for nothing.
    std::string _type, _text;
};

} // namespace VantrelEngine
