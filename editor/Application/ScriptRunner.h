#pragma once

#include <functional>
#include <string>

#include "Application/ScriptParser.h"

namespace VantrelEngine {

class Editor;
class ReplayPlatform;

// Plays what a user does. Whatever feeds input is followed by a frame, in which it is seen; so are a reload, an edit and
// a project that is opened.
class ScriptRunner {
public:
    // What the runner needs of whoever draws.
    struct Stage {
        // A frame later in time.
        std::function<void()> drawFrame;
        // What is drawn to becomes as large as the platform is now. Empty, or one line.
        std::function<std::string()> fit;
        // Writes the last frame to a file. Empty, or one line.
        std::function<std::string(const std::string& file)> writePicture;
    };

    explicit ScriptRunner(Editor& editor, ReplayPlatform& platform, Stage stage):
        _editor(editor), _platform(platform), _stage{std::move(stage)} {}

    // Stops at the first command that fails. Empty, or what mistakeIn() tells.
    std::string run(const std::vector<ScriptCommand>& commands);

private:
    // Empty, or the reason.
    std::string perform(const ScriptCommand& command);
    std::string select(const ScriptCommand& command);
    std::string mark(const ScriptCommand& command);
    std::string writeIdImage(const std::string& file);
    std::string writeThumbnail(const ScriptCommand& command);
    void moveTo(Magnum::Double x, Magnum::Double y);
    std::string moveToField(const ScriptCommand& command);
    std::string resized();
    // The result of what a frame follows.
    std::string drawn(std::string error);

    Editor& _editor;
    ReplayPlatform& _platform;
    Stage _stage;
};

} // namespace VantrelEngine
