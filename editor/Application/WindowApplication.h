#pragma once

namespace VantrelEngine {

struct CommandLine;

// Opens the editor's window and returns the exit status when the user has closed it; NoDisplayStatus where there is no
// display or no OpenGL 3.3, which one line says.
int runWindow(const CommandLine& line, int& argc, char** argv);

} // namespace VantrelEngine
