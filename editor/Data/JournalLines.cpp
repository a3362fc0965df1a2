#include "Data/JournalLines.h"

#include <charconv>

#include <VantrelHost/FileFingerprint.h>

namespace VantrelEngine {

namespace {

constexpr std::size_t DigitCount = 16;

std::string digitsOf(std::uint64_t checksum) {
    char text[DigitCount];
    const std::to_chars_result end = std::to_chars(text, text + DigitCount, checksum, 16);
    const std::string digits(text, end.ptr);
    return std::string(DigitCount - digits.size(), '0') + digits;
}

} // namespace

void addJournalLine(std::string& text, std::string_view line, std::uint64_t& checksum) {
    checksum = VantrelEngine::checksum(line, checksum);
    text += digitsOf(checksum);
    text += ' ';
    text += line;
    text += '\n';
}

std::vector<JournalLine> readJournalLines(std::string_view text) {
    std::vector<JournalLine> lines;
    std::size_t size = 0;
    std::uint64_t checksum = 0;
    while(true) {
        const std::string_view rest = text.substr(size);
        const std::size_t end = rest.find('\n');
        if(end == rest.npos || end <= DigitCount || rest[DigitCount] != ' ') return lines;
        const std::string_view line = rest.substr(DigitCount + 1, end - DigitCount - 1);
        checksum = VantrelEngine::checksum(line, checksum);
        if(rest.substr(0, DigitCount) != digitsOf(checksum)) return lines;
        size += end + 1;
        lines.push_back({line, size, checksum});
    }
}

} // namespace VantrelEngine
