#include "Import/Converter/LibraryFiles.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string_view>

#include <assimp/IOStream.hpp>

#include "Import/Converter/Text.h"

namespace VantrelImport {

namespace {

class MemoryStream: public Assimp::IOStream {
public:
    explicit MemoryStream(std::vector<char> bytes): _bytes{std::move(bytes)} {}

    // Whole elements, as fread() counts them.
    std::size_t Read(void* buffer, std::size_t size, std::size_t count) override {
        if(size == 0 || count == 0) return 0;
        const std::size_t whole = std::min(count, (_bytes.size() - _position) / size);
        if(whole) std::memcpy(buffer, _bytes.data() + _position, whole * size);
        _position += whole * size;
        return whole;
    }

    std::size_t Write(const void*, std::size_t, std::size_t) override { return 0; }

    // Offsets from the end count backwards, as the library's own streams in memory have it.
    aiReturn Seek(std::size_t offset, aiOrigin origin) override {
        const std::size_t size = _bytes.size();
        const std::size_t from = origin == aiOrigin_CUR ? _position : 0;
        if(origin == aiOrigin_END ? offset > size : offset > size - from) return aiReturn_FAILURE;
        _position = origin == aiOrigin_END ? size - offset : from + offset;
        return aiReturn_SUCCESS;
    }

    std::size_t Tell() const override { return _position; }
    std::size_t FileSize() const override { return _bytes.size(); }
    void Flush() override {}

private:
    const std::vector<char> _bytes;
    std::size_t _position = 0;
};

std::string_view withoutDot(std::string_view name) { return name.substr(0, 2) == "./" ? name.substr(2) : name; }

} // namespace

LibraryFiles::LibraryFiles(
    std::string fileName, std::vector<char> bytes, const AssetFolder& folder, Messages& messages):
    _fileName{std::move(fileName)},
    _bytes{std::move(bytes)}, _folder{folder}, _messages{messages} {}

bool LibraryFiles::Exists(const char* name) const {
    std::string reason;
    return withoutDot(name) == _fileName || _folder.read(name, reason);
}

Assimp::IOStream* LibraryFiles::Open(const char* name, const char* mode) {
    if(std::strpbrk(mode, "wa+")) return nullptr;
    if(withoutDot(name) == _fileName) return new MemoryStream{_bytes};
    std::string reason;
    auto bytes = _folder.read(name, reason);
    if(bytes) return new MemoryStream{std::move(*bytes)};
    _messages.warn("file " + quoted(name) + " is left out: " + reason);
    return nullptr;
}

void LibraryFiles::Close(Assimp::IOStream* stream) { delete stream; }

bool LibraryFiles::ComparePaths(const char* one, const char* other) const {
    return withoutDot(one) == withoutDot(other);
}

} // namespace VantrelImport
