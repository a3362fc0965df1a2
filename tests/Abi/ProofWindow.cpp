#include "ProofWindow.h"

#include <iostream>

#include <Magnum/GL/DefaultFramebuffer.h>
#include <Magnum/GL/Version.h>
#include <Magnum/Math/Range.h>

#include "RenderTarget.h"

using namespace Magnum;

namespace VantrelProof {

ProofWindow::ProofWindow(const Arguments& arguments): GlfwApplication{arguments, NoCreate} {}

bool ProofWindow::open(bool visible) {
    Configuration configuration;
    configuration.setTitle("Proof picture").setSize({800, 500}).addWindowFlags(Configuration::WindowFlag::Resizable);
    if(!visible) configuration.addWindowFlags(Configuration::WindowFlag::Hidden);
    GLConfiguration glConfiguration;
    glConfiguration.setVersion(GL::Version::GL330).addFlags(GLConfiguration::Flag::QuietLog);
    if(tryCreate(configuration, glConfiguration)) return true;
    std::cerr << "vantrel-proof: this display has no OpenGL 3.3\n";
    return false;
}

int ProofWindow::show(AbstractProof& proof) {
    _proof = &proof;
    return exec();
}

void ProofWindow::drawEvent() {
    // Not larger than the window, which may have no area at all.
    RenderTarget target{Math::max(framebufferSize(), Vector2i{1})};
    _proof->draw(target.multisampled(), target.size());
    target.resolve();
    target.copyTo(GL::defaultFramebuffer);
    swapBuffers();
}

void ProofWindow::viewportEvent(ViewportEvent& event) {
    GL::defaultFramebuffer.setViewport({{}, event.framebufferSize()});
    redraw();
}

void ProofWindow::keyPressEvent(KeyEvent& event) {
    if(event.key() == Key::Esc) exit();
}

}
