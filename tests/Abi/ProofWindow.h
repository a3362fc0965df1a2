#pragma once

#include <Corrade/Containers/Pointer.h>
#include <Magnum/Platform/GlfwApplication.h>

#include "AbstractProof.h"

namespace VantrelProof {

// A window with OpenGL 3.3, hidden or with what an AbstractProof draws in it. Escape closes it.
class ProofWindow final: public Magnum::Platform::GlfwApplication {
public:
    explicit ProofWindow(const Arguments& arguments);

    // False, and a line on the error output, without OpenGL 3.3.
    bool open(bool visible);

    // Returns when the window was closed, or with exit code 0 after one frame if it is hidden.
    int show(AbstractProof& proof);

private:
    void drawEvent() override;
    void viewportEvent(ViewportEvent& event) override;
    void keyPressEvent(KeyEvent& event) override;

    AbstractProof* _proof{};
};

}
