#pragma once

// Forward declarations for the Magnum::Platform namespace.

namespace Magnum::Platform {

class GLContext;
class GlfwApplication;

}
