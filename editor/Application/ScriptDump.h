#pragma once

#include <string>

namespace VantrelEngine {

class Editor;

// What a script writes about the editor. The kind is one that the parser knows:
//
//     document    the project, as it would be saved
//     selection   the selected objects' ids in the document, a line each, in the order of their numbers
//     undo        the changes, a line each: "GROUP POINTER", an arrow in front of the last one that is in effect
//     history     the steps, a line each: how many changes and what it is called, an arrow in front of the last one in
//                 effect and a star in front of the last one that is saved
//     log         what was said
//     statistics  what the view's last frame drew, and what its last reload made
//
// Returns an empty text, or one line; "-" as a file is the standard output.
std::string dumpTo(Editor& editor, const std::string& kind, const std::string& file);

} // namespace VantrelEngine
