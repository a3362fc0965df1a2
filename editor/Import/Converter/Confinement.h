#pragma once

#include <cstdint>
#include <string>

namespace VantrelImport {

struct ResourceLimits {
    // Of the processor.
    std::uint64_t seconds = 120;
    // Bytes of address space. Not kept by builds with the address sanitizer, which reserves more than any machine has.
    std::uint64_t memory = std::uint64_t{4} << 30;
};

// What this process may use from now on, whatever a damaged file makes the libraries do: time, memory, the sizes of
// files, and few files at once. Beyond that the system ends it. No core files. False where the system refuses.
bool limitResources(const ResourceLimits& limits);

// From now on files can only be read below one folder, and only be read and made below the other, where the kernel knows
// how (Landlock, Linux 5.13). What is opened by name is checked besides; this is for what gets past that. False where
// there is no such kernel; a folder that cannot be opened is not opened to this process then, either.
bool confineFiles(const std::string& readableFolder, const std::string& writableFolder);

} // namespace VantrelImport
