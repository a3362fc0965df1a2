#pragma once

#include <optional>
#include <string>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

#include "Application/Recover.h"

namespace VantrelEngine {

// What the editor was asked for when it was started.
struct CommandLine {
    // A project, or a model or an image that a new project is made of. Empty for a new project.
    std::string project;
    // The view's library; empty for the one beside the program.
    std::string module;
    // The program that reads what is imported; empty for the one beside the program.
    std::string converter;
    // Without a window: draws this many frames, or plays the script, and ends.
    bool isHeadless = false;
    int frameCount = 3;
    std::string script;
    // Without a window: each project has a journal. With one it always has.
    bool keepsJournals = false;
    // None: with a window the user is asked, without one the journal is put aside.
    std::optional<Recover> recover;
    // The picture of the last frame; empty for none.
    std::string screenshot;
    // Window points, and framebuffer pixels per point.
    Magnum::Vector2i size{1440, 900};
    Magnum::Float scale = 1.0f;
    // 0: as it was the last time.
    Magnum::Float fontScale = 0.0f;
};

constexpr int MaxWindowSize = 8192;
// Of the whole window, after the scale.
constexpr long long MaxPixelCount = 64ll * 1024 * 1024;
constexpr int MaxFrameCount = 1000000;

// Reads the arguments. Where the process is to end instead, after help or because of a mistake, which is printed then,
// returns nothing and its exit status: 2 for a mistake.
std::optional<CommandLine> readCommandLine(int argc, const char* const* argv, int& status);

// "1280x720"; nothing for what is no size from 1x1 to 8192x8192.
std::optional<Magnum::Vector2i> parseSize(const std::string& text);

} // namespace VantrelEngine
