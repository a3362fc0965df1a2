#include "Import/Converter/AssetFolder.h"

#include <algorithm>
#include <cctype>

namespace VantrelImport {

using namespace Corrade;

namespace {

constexpr std::size_t MaximumFileSize = std::size_t{1} << 30;

// Without "." and "..". A ".." that leads out stays, and is refused by whoever opens the file.
std::string withoutDots(std::string_view path) {
    std::vector<std::string_view> parts;
    while(true) {
        const std::size_t slash = path.find('/');
        const std::string_view part = path.substr(0, slash);
        if(part == ".." && !parts.empty() && !parts.back().empty() && parts.back() != "..")
            parts.pop_back();
        else if(part != ".")
            parts.push_back(part);
        if(slash == path.npos) break;
        path.remove_prefix(slash + 1);
    }
    std::string result;
    for(std::size_t i = 0; i != parts.size(); ++i) result.append(i ? "/" : "").append(parts[i]);
    return result;
}

int hexadecimal(char digit) {
    const char lower = char(std::tolower(static_cast<unsigned char>(digit)));
    if(lower >= '0' && lower <= '9') return lower - '0';
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

int base64Digit(char digit) {
    if(digit >= 'A' && digit <= 'Z') return digit - 'A';
    if(digit >= 'a' && digit <= 'z') return digit - 'a' + 26;
    if(digit >= '0' && digit <= '9') return digit - '0' + 52;
    if(digit == '+' || digit == '-') return 62;
    return digit == '/' || digit == '_' ? 63 : -1;
}

std::optional<std::vector<char>> base64Decoded(std::string_view text) {
    while(!text.empty() && text.back() == '=') text.remove_suffix(1);
    if(text.size() % 4 == 1) return {};
    std::vector<char> bytes;
    bytes.reserve(text.size() / 4 * 3 + 3);
    unsigned bits = 0, count = 0;
    for(const char c: text) {
        const int digit = base64Digit(c);
        if(digit < 0) return {};
        bits = (bits << 6 | unsigned(digit)) & 0xffffff;
        count += 6;
        if(count < 8) continue;
        count -= 8;
        bytes.push_back(char(bits >> count & 0xff));
    }
    return bytes;
}

} // namespace

std::optional<std::vector<char>> AssetFolder::read(std::string_view name, std::string& reason) const {
    std::string path{name};
    std::replace(path.begin(), path.end(), '\\', '/');
    return readPath(withoutDots(path), reason);
}

// With a dot in front a colon in the name is no scheme's.
std::optional<std::vector<char>> AssetFolder::readModel(const std::string& fileName, std::string& reason) const {
    return readPath("./" + fileName, reason);
}

std::optional<std::vector<char>> AssetFolder::readPath(const std::string& path, std::string& reason) const {
    const auto bytes = _files.get({path.data(), path.size()}, MaximumFileSize, reason);
    if(!bytes) return {};
    return std::vector<char>(bytes->begin(), bytes->end());
}

std::string percentDecoded(std::string_view uri) {
    std::string text;
    for(std::size_t i = 0; i != uri.size(); ++i) {
        const bool isEncoded =
            uri[i] == '%' && uri.size() - i > 2 && hexadecimal(uri[i + 1]) >= 0 && hexadecimal(uri[i + 2]) >= 0;
        text += isEncoded ? char(hexadecimal(uri[i + 1]) << 4 | hexadecimal(uri[i + 2])) : uri[i];
        if(isEncoded) i += 2;
    }
    return text;
}

std::optional<std::vector<char>> dataOfUri(std::string_view uri) {
    if(uri.substr(0, 5) != "data:") return {};
    const std::size_t comma = uri.find(',');
    constexpr std::string_view Encoding = ";base64";
    if(comma == uri.npos || comma < 5 + Encoding.size() ||
        uri.substr(comma - Encoding.size(), Encoding.size()) != Encoding)
        return {};
    return base64Decoded(uri.substr(comma + 1));
}

} // namespace VantrelImport
