#pragma once

namespace VantrelEngine {

class EditorData;
struct SharedState;

// The project's setting "physx/enable", as it is now.
bool hasPhysics(const EditorData& data);

// Begins or ends the simulation of the edited scene and says so in the log. With its end all objects go back to where the
// project has them, which costs the whole scene.
void simulatePhysics(bool on, SharedState& state);

} // namespace VantrelEngine
