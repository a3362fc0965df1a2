#include <iostream>
#include <stdexcept>

#include "Display.h"
#include "Options.h"
#include "PluginSession.h"
#include "Proof.h"
#include "ProofWindow.h"
#include "Support/HeadlessContext.h"

using namespace VantrelProof;

namespace {

bool showWindow(ProofWindow& window, const Options& options) {
    PluginSession session{options.pluginDirectory};
    if(!session.load()) return false;
    bool shown = false;
    if(auto proof = session.instantiate()) shown = window.show(*proof) == 0;
    return session.unload() && shown;
}

bool runOnDisplay(int argc, char** argv, const Options& options) {
    if(!canOpenDisplay()) return false;
    ProofWindow window{ProofWindow::Arguments{argc, argv}};
    return window.open(options.window) && (options.window ? showWindow(window, options) : drawOnce(options));
}

bool runHeadless(const Options& options) {
    try {
        const VantrelTest::HeadlessContext context;
        return drawOnce(options);
    } catch(const std::runtime_error& error) {
        std::cerr << "vantrel-proof: no OpenGL 3.3 without a display: " << error.what() << "\n";
        return false;
    }
}

}

int main(int argc, char** argv) {
    int exitCode = 0;
    const std::optional<Options> options = parseOptions(argc, argv, exitCode);
    if(!options) return exitCode;
    // A picture needs no display, a window does.
    const bool fine = options->window || hasDisplay() ? runOnDisplay(argc, argv, *options) : runHeadless(*options);
    return fine ? 0 : 1;
}
