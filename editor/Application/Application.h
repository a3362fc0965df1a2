#pragma once

namespace VantrelEngine {

// How the process ends.
constexpr int FailureStatus = 1;
// A mistake on the command line or in a script.
constexpr int MistakeStatus = 2;
// There is no display, or none with OpenGL 3.3. The window library ends the process with it, too.
constexpr int NoDisplayStatus = 8;

// Runs the editor as the arguments say and returns the exit status.
int runEditor(int argc, char** argv);

} // namespace VantrelEngine
