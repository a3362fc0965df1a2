#pragma once

#include <string>
#include <string_view>

namespace VantrelEngine {

class FileCalls;

// Puts new contents in the place of a file, so that at each moment, also after a crash or a power failure, either the
// old or the new contents are there whole: a new file is written beside it, flushed to the disk, and renamed over it.
// The old contents stay as PATH.bak, one generation. A symbolic link stays one: its target is replaced. The mode of the
// old file is kept; a file that is new has 0666 less the umask.
//
// Returns an empty text, or what failed and why; the old contents are in place then and no other file is left behind.
std::string replaceFile(const std::string& path, std::string_view contents, FileCalls& calls);
std::string replaceFile(const std::string& path, std::string_view contents);

}
