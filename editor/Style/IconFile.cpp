#include "Style/IconFile.h"

#include <fstream>
#include <iterator>

#include <Corrade/Utility/Debug.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr unsigned TrueType = 0x00010000;
constexpr unsigned SumOfFonts = 0xb1b0afba;

unsigned word(const std::vector<unsigned char>& font, std::size_t at) {
    return unsigned(font[at]) << 24 | unsigned(font[at + 1]) << 16 | unsigned(font[at + 2]) << 8 | font[at + 3];
}

}

bool isWholeFont(const std::vector<unsigned char>& font) {
    if(font.empty() || font.size() % 4 || word(font, 0) != TrueType) return false;
    unsigned sum = 0;
    for(std::size_t at = 0; at != font.size(); at += 4) sum += word(font, at);
    return sum == SumOfFonts;
}

std::vector<unsigned char> readIconFont(const std::string& file) {
    std::ifstream stream{file, std::ios::binary};
    if(!stream) return {};
    std::vector<unsigned char> font{std::istreambuf_iterator<char>{stream}, {}};
    if(isWholeFont(font)) return font;
    Utility::Warning{} << "Fonts:" << file.data() << "is damaged - drawing the icons by other means";
    return {};
}

} // namespace VantrelEngine
