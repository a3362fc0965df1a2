#include "VantrelHost/FileFingerprint.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Data/Project/FileCalls.h"

namespace VantrelEngine {

namespace {

// Whole words, so that a text has the same fingerprint in memory and in a file.
constexpr std::size_t BlockSize = 1 << 16;

// Each step can be undone, so that two states that differ stay different whatever follows.
std::uint64_t mixed(std::uint64_t state, std::uint64_t word) {
    state = (state ^ word) * 0x9e3779b97f4a7c15u;
    return state ^ (state >> 29);
}

void add(FileFingerprint& fingerprint, std::string_view block) {
    fingerprint.checksum = checksum(block, fingerprint.checksum);
    fingerprint.size += block.size();
}

std::optional<FileFingerprint> fingerprintOfOpen(int file) {
    struct stat status;
    if(fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return {};
    const std::unique_ptr<char[]> block{new char[BlockSize]};
    FileFingerprint fingerprint;
    while(true) {
        const ssize_t size = readBlock(file, block.get(), BlockSize);
        if(size < 0) return {};
        if(!size) return fingerprint;
        add(fingerprint, {block.get(), std::size_t(size)});
    }
}

} // namespace

std::uint64_t checksum(std::string_view text, std::uint64_t start) {
    std::uint64_t word = 0, state = start;
    for(; text.size() >= sizeof word; text.remove_prefix(sizeof word)) {
        std::memcpy(&word, text.data(), sizeof word);
        state = mixed(state, word);
    }
    // The last word tells how much of it counts.
    word = std::uint64_t(text.size()) << 56;
    std::memcpy(&word, text.data(), text.size());
    return mixed(state, word);
}

FileFingerprint fingerprintOf(std::string_view contents) {
    FileFingerprint fingerprint;
    for(; !contents.empty(); contents.remove_prefix(std::min(BlockSize, contents.size())))
        add(fingerprint, contents.substr(0, BlockSize));
    return fingerprint;
}

std::optional<FileFingerprint> fingerprintOfFile(const std::string& path) {
    const int file = open(path.data(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if(file < 0) return {};
    const std::optional<FileFingerprint> fingerprint = fingerprintOfOpen(file);
    close(file);
    return fingerprint;
}

} // namespace VantrelEngine
