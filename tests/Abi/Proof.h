#pragma once

#include "Options.h"

namespace VantrelProof {

// Each loads the plugin, draws with it and unloads it; a GL context is current, and stays so. True if everything was
// as expected, otherwise the error output says what was not.

// Draws once, and writes or compares the picture as the options say.
bool drawOnce(const Options& options);

}
