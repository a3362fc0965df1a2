#pragma once

/** Forward declarations of Corrade::Utility. */

#include "Corrade/Corrade.h"

namespace Corrade::Utility {

class Debug;
class Warning;
class Error;
class Fatal;

class Resource;

}
