#pragma once

#include "Import/Converter/Confinement.h"

namespace VantrelImport {

// From now on this process starts no other program or process, opens no sockets, sends signals to nobody but itself, and
// changes neither owners and permissions of files nor anything of other processes: such calls fail with EPERM. Threads
// can be started. NotKnown on processors that there is no table for, too.
Confined confineCalls();

} // namespace VantrelImport
