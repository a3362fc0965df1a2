#include "Data/Resources/FontFile.h"

#include <cstdint>

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr std::uint32_t TrueType = 0x00010000;
constexpr std::uint32_t OpenType = 0x4f54544f;       // "OTTO"
constexpr std::uint32_t AppleTrueType = 0x74727565;  // "true"
constexpr std::uint32_t FontCollection = 0x74746366; // "ttcf"

constexpr std::uint64_t DirectoryHeaderSize = 12;
constexpr std::uint64_t TableRecordSize = 16;
constexpr std::uint64_t CollectionHeaderSize = 12;
// More would make checking them slow: they can share their tables.
constexpr std::uint64_t MaximumFontCount = 256;

class FontBytes {
public:
    explicit FontBytes(Containers::ArrayView<const char> bytes): _bytes{bytes} {}

    bool holds(std::uint64_t offset, std::uint64_t size) const {
        return offset <= _bytes.size() && size <= _bytes.size() - offset;
    }

    // Big endian; 0 beyond the end.
    std::uint32_t number(std::uint64_t offset, std::size_t size) const {
        std::uint32_t value = 0;
        if(holds(offset, size))
            for(std::size_t i = 0; i != size; ++i)
                value = value << 8 | static_cast<unsigned char>(_bytes[std::size_t(offset) + i]);
        return value;
    }
    std::uint32_t word(std::uint64_t offset) const { return number(offset, 4); }

private:
    Containers::ArrayView<const char> _bytes;
};

bool checkDirectory(const FontBytes& bytes, std::uint64_t offset, std::string& reason) {
    const std::uint32_t signature = bytes.word(offset);
    if(signature != TrueType && signature != OpenType && signature != AppleTrueType) {
        reason = "this is not a TrueType or OpenType font";
        return false;
    }
    const std::uint32_t count = bytes.number(offset + 4, 2);
    if(!count || !bytes.holds(offset, DirectoryHeaderSize + count * TableRecordSize)) {
        reason = "its list of tables is truncated";
        return false;
    }
    for(std::uint32_t i = 0; i != count; ++i) {
        const std::uint64_t record = offset + DirectoryHeaderSize + i * TableRecordSize;
        if(bytes.holds(bytes.word(record + 8), bytes.word(record + 12))) continue;
        reason = "a table reaches beyond the end of the file";
        return false;
    }
    return true;
}

} // namespace

bool checkFont(Containers::ArrayView<const char> data, std::string& reason) {
    const FontBytes bytes{data};
    if(bytes.word(0) != FontCollection) return checkDirectory(bytes, 0, reason);
    const std::uint64_t count = bytes.word(8);
    if(!count || !bytes.holds(CollectionHeaderSize, count * 4)) {
        reason = "its list of fonts is truncated";
        return false;
    }
    if(count > MaximumFontCount) {
        reason = "there are " + std::to_string(count) + " fonts in it, too many";
        return false;
    }
    for(std::uint64_t i = 0; i != count; ++i)
        if(!checkDirectory(bytes, bytes.word(CollectionHeaderSize + i * 4), reason)) return false;
    return true;
}

} // namespace VantrelEngine
