#include "Application/CommandLine.h"

#include <charconv>

#include <CLI/CLI.hpp>

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr int UsageError = 2;

CLI::Validator isSize{[](std::string& text) {
                          return parseSize(text) ? std::string{}
                                                 : "\"" + text + "\" is no size: two numbers from 1 to " +
                                  std::to_string(MaxWindowSize) + ", like 1280x720";
                      },
    "WxH"};

Recover recoverOf(const std::string& text) {
    return text == "yes" ? Recover::BringBack : text == "no" ? Recover::PutAside : Recover::Ask;
}

// Whether what belongs to headless runs only came without one, or the other way round, or is too much together.
std::string whyNotTogether(const CLI::App& app, const CommandLine& line) {
    if(line.isHeadless) {
        if(line.project.empty() && line.script.empty()) return "--headless needs a project or a script";
        const Vector2d pixels = Vector2d{line.size} * Double(line.scale);
        if(line.recover && !line.keepsJournals) return "--recover without a window goes with --journal only";
        if(pixels.product() > Double(MaxPixelCount))
            return "--size times --scale is more than " + std::to_string(MaxPixelCount) + " pixels";
        return {};
    }
    for(const char* const option: {"--frames", "--screenshot", "--script", "--scale", "--journal"})
        if(app.count(option)) return std::string{option} + " goes with --headless only";
    return {};
}

} // namespace

std::optional<Vector2i> parseSize(const std::string& text) {
    Vector2i size;
    const char* const end = text.data() + text.size();
    const std::from_chars_result width = std::from_chars(text.data(), end, size.x());
    if(width.ec != std::errc{} || width.ptr == end || *width.ptr != 'x') return {};
    const std::from_chars_result height = std::from_chars(width.ptr + 1, end, size.y());
    if(height.ec != std::errc{} || height.ptr != end) return {};
    for(const int length: {size.x(), size.y()})
        if(length < 1 || length > MaxWindowSize) return {};
    return size;
}

std::optional<CommandLine> readCommandLine(int argc, const char* const* argv, int& status) {
    CommandLine line;
    std::string size, recover;
    CLI::App app{"Edits 3D scenes. Without --headless it opens a window.", "vantrel-editor"};
    app.add_option("PROJECT", line.project,
        "The project file to open, or a model (.glb, .gltf, .obj, .fbx, ...) or an "
        "image that a new project is made of");
    app.add_option("--module", line.module, "Library of the scene view (default: the one beside the program)");
    app.add_option("--converter", line.converter, "Program that reads what is imported (default: the one beside this)");
    app.add_option("--size", size, "Size of the window in points (default 1440x900)")->check(isSize);
    app.add_option("--font-size", line.fontScale, "Factor of the text's size")->check(CLI::Range(1.0f, 3.0f));
    app.add_flag("--headless", line.isHeadless, "Draws without a window or a display, and ends");
    app.add_option("--frames", line.frameCount, "Frames to draw, besides those of the script (default 3)")
        ->check(CLI::Range(1, MaxFrameCount));
    app.add_option("--script", line.script, "Plays what the user does from this file");
    app.add_option("--screenshot", line.screenshot, "Writes the last frame to this PNG file");
    app.add_flag("--journal", line.keepsJournals, "Keeps a journal without a window, too");
    app.add_option("--recover", recover, "Whether steps of a journal that were not saved are brought back")
        ->check(CLI::IsMember({"yes", "no", "ask"}));
    app.add_option("--scale", line.scale, "Framebuffer pixels per point (default 1)")->check(CLI::Range(0.25f, 4.0f));
    try {
        app.parse(argc, argv);
    } catch(const CLI::ParseError& error) {
        const int code = app.exit(error);
        status = code ? UsageError : 0;
        return {};
    }
    if(!size.empty()) line.size = *parseSize(size);
    if(!recover.empty()) line.recover = recoverOf(recover);
    const std::string mistake = whyNotTogether(app, line);
    if(mistake.empty()) return line;
    std::cerr << "vantrel-editor: " << mistake << "\n";
    status = UsageError;
    return {};
}

} // namespace VantrelEngine
