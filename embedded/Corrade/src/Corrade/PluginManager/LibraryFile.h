#pragma once

namespace Corrade::PluginManager::Implementation {

// Whether a file is an ELF library that ends before the last byte that its program headers map. The dynamic linker does
// not check that: it dies of SIGBUS when it touches the missing pages, and a library that is being written by a linker
// at the moment looks exactly like this. False for anything else, such as files that cannot be read or are no library:
// these the dynamic linker refuses itself.
bool isTruncatedLibrary(const char* file);

}
