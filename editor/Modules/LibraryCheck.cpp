#include "Modules/LibraryCheck.h"

#include <cstring>
#include <fstream>
#include <vector>

#include <elf.h>
#include <link.h>

namespace VantrelEngine {

namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);

#ifdef __LP64__
constexpr unsigned char NativeClass = ELFCLASS64;
#else
constexpr unsigned char NativeClass = ELFCLASS32;
#endif

constexpr const char* Truncated = "the file is cut off";

template<class T> bool read(std::ifstream& stream, std::uint64_t offset, T* data, std::size_t count) {
    stream.seekg(std::streamoff(offset));
    return bool(stream.read(reinterpret_cast<char*>(data), std::streamsize(count * sizeof(T))));
}

bool fits(std::uint64_t offset, std::uint64_t length, std::uint64_t size) {
    return offset <= size && length <= size - offset;
}

} // namespace

std::string whyNotLoadable(const std::string& file) {
    std::ifstream stream{file, std::ios::binary | std::ios::ate};
    if(!stream) return "the file cannot be read";
    const auto size = std::uint64_t(stream.tellg());
    Header header;
    if(!read(stream, 0, &header, 1)) return Truncated;
    if(std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0) return "the file is no library";
    if(header.e_ident[EI_CLASS] != NativeClass || header.e_type != ET_DYN)
        return "the file is no library for this machine";
    // The table of sections is the last thing in the file.
    if(!fits(header.e_shoff, std::uint64_t(header.e_shnum) * header.e_shentsize, size)) return Truncated;
    if(header.e_phentsize != sizeof(Segment) || !header.e_phnum) return "the file is no library for this machine";
    std::vector<Segment> segments(header.e_phnum);
    if(!read(stream, header.e_phoff, segments.data(), segments.size())) return Truncated;
    for(const Segment& segment: segments)
        if(!fits(segment.p_offset, segment.p_filesz, size)) return Truncated;
    return {};
}

} // namespace VantrelEngine
