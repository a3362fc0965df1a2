#include "Corrade/PluginManager/LibraryFile.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

#include <link.h>

namespace Corrade::PluginManager::Implementation {

namespace {

typedef ElfW(Ehdr) FileHeader;
typedef ElfW(Phdr) ProgramHeader;

constexpr unsigned char NativeClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

bool readAt(std::FILE* file, std::size_t offset, void* data, std::size_t size) {
    return std::fseek(file, long(offset), SEEK_SET) == 0 && std::fread(data, 1, size, file) == size;
}

bool isNativeLibrary(const FileHeader& header) {
    return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && header.e_ident[EI_CLASS] == NativeClass &&
        header.e_phentsize == sizeof(ProgramHeader);
}

}

bool isTruncatedLibrary(const char* path) {
    const std::unique_ptr<std::FILE, Close> file{std::fopen(path, "rb")};
    FileHeader header;
    if(!file || !readAt(file.get(), 0, &header, sizeof(header)) || !isNativeLibrary(header)) return false;

    std::vector<ProgramHeader> segments(header.e_phnum);
    if(!readAt(file.get(), header.e_phoff, segments.data(), segments.size() * sizeof(ProgramHeader))) return true;
    if(std::fseek(file.get(), 0, SEEK_END) != 0) return false;
    const std::size_t size = std::size_t(std::ftell(file.get()));
    for(const ProgramHeader& segment: segments)
        if(segment.p_type == PT_LOAD && (segment.p_filesz > size || segment.p_offset > size - segment.p_filesz))
            return true;
    return false;
}

}
