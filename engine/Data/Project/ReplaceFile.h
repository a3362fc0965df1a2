#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Data/Project/FileStamp.h"

namespace VantrelEngine {

class FileCalls;

// What stands at a path when a file is put there: one that is known (none: nothing), or whatever it is.
class ExpectedFile {
public:
    ExpectedFile() = default;
    explicit ExpectedFile(const std::optional<FileStamp>& stamp): _isKnown{true}, _stamp{stamp} {}

    bool is(const std::optional<FileStamp>& stamp) const { return !_isKnown || _stamp == stamp; }

private:
    bool _isKnown = false;
    std::optional<FileStamp> _stamp;
};

// Puts new contents in the place of a file, so that at each moment, also after a crash or a power failure, either the
// old or the new contents are there whole: a new file is written beside it, flushed to the disk, and changes places with
// it. The old contents stay as PATH.bak, one generation. A symbolic link stays one: its target is replaced. The mode of the
// old file is kept; a file that is new has 0666 less the umask.
//
// A file that is another one than is expected, also one that comes there at the last moment, is left as it is. Only where
// the file system cannot exchange two files there is a moment between the last look and the new contents; what comes
// there then is lost, where else it is in the backup. A file that is gone is made again.
//
// Returns an empty text, or what failed and why; the old contents are in place then and no other file is left behind.
std::string replaceFile(
    const std::string& path, std::string_view contents, const ExpectedFile& expected, FileCalls& calls);
// Whatever stands there.
std::string replaceFile(const std::string& path, std::string_view contents, FileCalls& calls);
std::string replaceFile(const std::string& path, std::string_view contents);

}
