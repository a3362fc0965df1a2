#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace VantrelEngine {

// The text of a journal: lines, each with 16 digits of a checksum over it and over all before it, a blank, and what it
// says. A line is there whole or not at all: of a text that was cut off or damaged, what stands before the damage counts.

// Adds a line, which has no line break in it, and what follows from it for the next one; 0 before the first.
void addJournalLine(std::string& text, std::string_view line, std::uint64_t& checksum);

struct JournalLine {
    // Into the text.
    std::string_view text;
    // Of the journal up to its end.
    std::size_t size;
    std::uint64_t checksum;
};
std::vector<JournalLine> readJournalLines(std::string_view text);

} // namespace VantrelEngine
