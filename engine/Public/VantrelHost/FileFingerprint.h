#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

// 64 bits that change with each byte of the text and with its length; start is the checksum of what stands before it. Finds
// mistakes, no malice: two texts of the same length that differ within eight bytes never have the same one.
CORRADE_VISIBILITY_EXPORT std::uint64_t checksum(std::string_view text, std::uint64_t start = 0);

// What a file holds, told by a few bytes.
struct FileFingerprint {
    std::uint64_t size = 0, checksum = 0;

    bool operator==(const FileFingerprint& other) const { return size == other.size && checksum == other.checksum; }
    bool operator!=(const FileFingerprint& other) const { return !(*this == other); }
};

CORRADE_VISIBILITY_EXPORT FileFingerprint fingerprintOf(std::string_view contents);
// None for what is no regular file, or cannot be read.
CORRADE_VISIBILITY_EXPORT std::optional<FileFingerprint> fingerprintOfFile(const std::string& path);

} // namespace VantrelEngine
