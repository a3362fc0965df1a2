#pragma once

namespace VantrelEngine {

struct CommandLine;

// Draws without a window, after the script if there is one, and returns the exit status: 0; 1 where the project, the view
// or a file is at fault; 2 for a mistake in the script; NoDisplayStatus where there is no OpenGL 3.3.
int runHeadless(const CommandLine& line);

} // namespace VantrelEngine
