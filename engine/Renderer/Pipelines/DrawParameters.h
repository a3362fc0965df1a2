#pragma once

namespace VantrelEngine {

// At the beginning of a vertex shader: makes RANGE_NUMBER the number of the range that is drawn, of several in one call.
constexpr const char* DrawParametersSource = "#extension GL_ARB_shader_draw_parameters: require\n"
                                             "#define RANGE_NUMBER gl_DrawIDARB\n";

// Whether the GL can do that: it says so, and its compiler takes it in the version that the shaders are written in.
bool hasDrawParameters();

} // namespace VantrelEngine
