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

// NotKnown: the kernel does not know how. Failed: it does, and would not.
enum class Confined { Yes, NotKnown, Failed };

// From now on files can only be read below one folder, and only be read and made below the other, and no network can be
// reached, as far as the kernel's version of Landlock goes (Linux 5.13 and later). What is opened by name is checked
// besides; this is for what gets past that. Failed, too, where a folder cannot be opened.
Confined confineFiles(const std::string& readableFolder, const std::string& writableFolder);

// Ends this process when the thread that started it ends. False where nobody reads its output any more: that came first.
bool endWithParent(int output);

} // namespace VantrelImport
