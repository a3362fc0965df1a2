#include "Import/Converter/Text.h"

#include <algorithm>
#include <cctype>

namespace VantrelImport {

namespace {

// Bytes of the UTF-8 sequence at the start of a text that is not empty; 0 where there is none. RFC 3629, section 4.
std::size_t sequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(0);
    if(first < 0x80) return 1;
    const std::size_t length = first >= 0xc2 && first < 0xe0 ? 2
        : (first & 0xf0) == 0xe0                             ? 3
        : first >= 0xf0 && first < 0xf5                      ? 4
                                                             : 0;
    if(length == 0 || text.size() < length) return 0;
    for(std::size_t i = 1; i != length; ++i)
        if((byte(i) & 0xc0) != 0x80) return 0;
    const unsigned second = byte(1);
    // Overlong, surrogates, beyond U+10FFFF.
    if((first == 0xe0 && second < 0xa0) || (first == 0xed && second > 0x9f) || (first == 0xf0 && second < 0x90) ||
        (first == 0xf4 && second > 0x8f))
        return 0;
    return length;
}

// Of one character; U+0080 to U+009F are such, too, and U+2028 and U+2029 end lines.
bool isControl(std::string_view sequence) {
    const auto first = static_cast<unsigned char>(sequence[0]);
    if(sequence.size() == 1) return first < 0x20 || first == 0x7f;
    if(sequence.size() == 2) return first == 0xc2 && static_cast<unsigned char>(sequence[1]) < 0xa0;
    return sequence == "\xe2\x80\xa8" || sequence == "\xe2\x80\xa9";
}

} // namespace

std::string cleanText(std::string_view text, std::size_t limit) {
    std::string clean;
    while(!text.empty()) {
        const std::size_t length = sequenceLength(text);
        const std::string_view sequence = text.substr(0, std::max<std::size_t>(length, 1));
        if(clean.size() + sequence.size() > limit) return clean + "...";
        if(length == 0)
            clean += '?';
        else if(isControl(sequence))
            clean += ' ';
        else
            clean += sequence;
        text.remove_prefix(sequence.size());
    }
    return clean;
}

std::string nameOr(std::string_view text, const std::string& otherwise) {
    const std::string clean = cleanText(text, 200);
    return clean.find_first_not_of(' ') == clean.npos ? otherwise : clean;
}

std::string quoted(std::string_view text) { return '"' + cleanText(text, 200) + '"'; }

std::string lowerCase(std::string_view text) {
    std::string lower{text};
    for(char& c: lower) c = char(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

std::string extensionOf(std::string_view fileName) {
    const std::size_t point = fileName.rfind('.');
    return point == fileName.npos ? std::string{} : lowerCase(fileName.substr(point + 1));
}

std::string stemOf(std::string_view fileName) {
    const std::size_t point = fileName.rfind('.');
    return std::string{point == fileName.npos || point == 0 ? fileName : fileName.substr(0, point)};
}

std::string folderOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == path.npos ? "." : std::string{path.substr(0, slash + 1)};
}

std::string baseName(std::string_view path) {
    const std::size_t slash = path.find_last_of("/\\");
    return std::string{slash == path.npos ? path : path.substr(slash + 1)};
}

} // namespace VantrelImport
