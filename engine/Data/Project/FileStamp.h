#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <utility>

#include <sys/stat.h>

namespace VantrelEngine {

// A file by what it is, not by the path that leads to it.
using FileIdentity = std::pair<dev_t, ino_t>;

// A file that has the same one still holds the same, as far as one can tell without reading it.
struct FileStamp {
    FileIdentity identity;
    off_t size;
    time_t seconds;
    long nanoseconds;

    bool operator==(const FileStamp& other) const {
        return identity == other.identity && size == other.size && seconds == other.seconds &&
            nanoseconds == other.nanoseconds;
    }
    bool operator!=(const FileStamp& other) const { return !(*this == other); }
};

// Of what links lead to; none where nothing is there.
std::optional<FileStamp> stampOf(const std::string& path);

}
