#include "Application/HeadlessApplication.h"

#include <fstream>
#include <iterator>
#include <memory>
#include <utility>

#include <Corrade/Utility/Debug.h>

#include "Application/Application.h"
#include "Application/CommandLine.h"
#include "Application/Editor.h"
#include "Application/EndSignals.h"
#include "Application/HeadlessContext.h"
#include "Application/ModuleFile.h"
#include "Application/RenderTarget.h"
#include "Application/ReplayPlatform.h"
#include "Application/ScriptRunner.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

int fail(const std::string& line, int status) {
    if(!line.empty()) Utility::Error{} << line.data();
    return status;
}

std::string readScript(const std::string& file, std::vector<ScriptCommand>& commands) {
    if(file.empty()) return {};
    std::ifstream stream{file, std::ios::binary};
    const std::string text{std::istreambuf_iterator<char>{stream}, {}};
    if(!stream) return file + ": the script cannot be read";
    ParsedScript script = parseScript(text);
    commands = std::move(script.commands);
    return script.error.empty() ? std::string{} : file + ": " + script.error;
}

class HeadlessApplication {
public:
    explicit HeadlessApplication(const CommandLine& line, const EndSignals* signals):
        _signals{signals},
        _line(line), _platform{line.size, line.scale}, _editor{_platform,
                                                           {line.module.empty() ? defaultModuleFile() : line.module,
                                                               line.converter.empty() ? defaultConverterFile()
                                                                                      : line.converter,
                                                               {}}} {
        if(line.fontScale > 0.0f) _editor.settings().fontScale = line.fontScale;
        _editor.input().warpTo({-1.0f, -1.0f});
        _editor.openReplayed();
        if(line.keepsJournals) _editor.keepJournals(line.recover.value_or(Recover::PutAside));
    }

    // Empty, or one line.
    std::string start() {
        std::string error = fitTarget();
        if(error.empty()) error = _editor.loadView();
        if(!error.empty()) return error;
        if(_line.project.empty()) _editor.recoverUntitled();
        const bool isAsked = _line.recover == Recover::Ask;
        if(isAsked && !_line.project.empty()) _editor.openAsked(_line.project);
        return isAsked || _line.project.empty() ? std::string{} : _editor.open(_line.project);
    }
    // Of a model. What is wrong was said then.
    bool isModelThere() { return _editor.finishImports(); }

    std::string play(const std::vector<ScriptCommand>& commands) {
        // Windows find their order and their places.
        for(int i = 0; i != FramesBeforeScript; ++i) drawFrame();
        ScriptRunner::Stage stage{[this] { drawFrame(); }, [this] { return fitTarget(); },
            [this](const std::string& file) { return writePicture(file); }};
        return ScriptRunner{_editor, _platform, std::move(stage)}.run(commands);
    }

    std::string finish() {
        for(int i = 0; i != _line.frameCount; ++i) drawFrame();
        return _line.screenshot.empty() ? std::string{} : writePicture(_line.screenshot);
    }

private:
    static constexpr int FramesBeforeScript = 3;

    // Empty, or one line; the target is the old one then.
    std::string fitTarget() {
        if(_target && _target->size() == _platform.framebufferSize()) return {};
        std::string error;
        std::unique_ptr<RenderTarget> target = RenderTarget::create(_platform.framebufferSize(), error);
        if(target) _target = std::move(target);
        return error;
    }

    void drawFrame() {
        if(_signals && _signals->isEnding() && !std::exchange(_isLeft, true)) _editor.leave();
        _platform.advance();
        _editor.drawFrame(_target->framebuffer(), Vector2{_platform.size()});
        // The window system would tell that the cursor is elsewhere now.
        if(const std::optional<Vector2d> warp = _platform.takeWarp()) _editor.input().warpTo(Vector2{*warp});
    }

    // Of a frame that lacks nothing.
    std::string writePicture(const std::string& file) {
        _editor.wantWholePicture(true);
        if(_editor.isPictureIncomplete()) drawFrame();
        _editor.wantWholePicture(false);
        return writePng(file, _target->read());
    }

    // Null: they end the process.
    const EndSignals* _signals;
    bool _isLeft = false;
    const CommandLine& _line;
    ReplayPlatform _platform;
    std::unique_ptr<RenderTarget> _target;
    Editor _editor;
};

} // namespace

int runHeadless(const CommandLine& line) {
    // There is nothing to be left in order without a journal.
    const std::unique_ptr<EndSignals> signals = line.keepsJournals ? std::make_unique<EndSignals>() : nullptr;
    std::vector<ScriptCommand> commands;
    std::string error = readScript(line.script, commands);
    if(!error.empty()) return fail(error, MistakeStatus);
    const std::unique_ptr<HeadlessContext> context = HeadlessContext::create(error);
    if(!context) return fail(error, NoDisplayStatus);
    HeadlessApplication application{line, signals.get()};
    error = application.start();
    if(!error.empty() || !application.isModelThere()) return fail(error, FailureStatus);
    error = application.play(commands);
    if(!error.empty()) return fail(line.script + ": " + error, MistakeStatus);
    error = application.finish();
    return fail(error, error.empty() ? 0 : FailureStatus);
}

} // namespace VantrelEngine
