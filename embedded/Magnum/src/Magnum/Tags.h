#pragma once

#include "Corrade/Tags.h"

namespace Magnum {

// Magnum's own names for the tags, so that code outside of Corrade does not have to care where they come from.
using Corrade::DefaultInit;
using Corrade::DefaultInitT;
using Corrade::NoCreate;
using Corrade::NoCreateT;
using Corrade::NoInit;
using Corrade::NoInitT;

}
