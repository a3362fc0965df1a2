#pragma once

#include <string>

#include "Import/Converter/Messages.h"
#include "Import/Converter/Model.h"

namespace VantrelImport {

// Drops keys that do not ascend and keys with values that are not finite or quaternions without a length, with a warning
// that begins with the name of the animation. False where none is left. Expects as many values as keys.
bool repair(Channel& channel, const std::string& animation, Messages& messages);

} // namespace VantrelImport
