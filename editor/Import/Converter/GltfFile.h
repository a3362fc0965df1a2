#pragma once

#include <map>
#include <vector>

#include "Import/Converter/AssetFolder.h"
#include "Import/Converter/Json.h"

namespace VantrelImport {

// glTF 2.0, as text or in its binary container, with the buffers that it refers to. Every reference that is followed is
// checked; functions throw Unusable where something is wrong.
class GltfFile {
public:
    // The folder has to stay.
    explicit GltfFile(std::vector<char> bytes, const AssetFolder& folder);

    const Json& root() const { return _json; }
    const Json* list(const char* name) const { return member(&_json, name); }
    // Null where there is none.
    const Json* element(const char* name, int index) const {
        return index < 0 ? nullptr : elementOf(list(name), std::uint64_t(index));
    }

    // Numbers of an accessor one after the other, as many an element as asked for; more are left out. Normalized
    // integers become what they stand for.
    std::vector<float> floats(int accessor, unsigned components);
    // The same of unsigned integers that are not normalized.
    std::vector<std::uint32_t> integers(int accessor, unsigned components);
    // Components of an element.
    unsigned componentsOf(int accessor) const;
    // Whether values stand in the file for it; others are zero.
    bool hasValues(int accessor) const;

    // Of an image: the bytes of a buffer view, or of a URI.
    std::vector<char> viewBytes(int bufferView);
    std::vector<char> uriBytes(std::string_view uri) const;

private:
    struct View {
        const char* data;
        std::uint64_t size;
        // 0: none is given.
        std::uint64_t stride;
    };

    void readContainer(const std::vector<char>& bytes);
    void readJson(const char* text, std::size_t size);
    void checkVersion() const;
    void checkExtensions() const;
    const std::vector<char>& buffer(int index);
    View view(int index);
    template<class To> std::vector<To> values(int accessor, unsigned components);
    template<class To>
    void putSparse(const Json& sparse, int type, bool isNormalized, unsigned components, unsigned wanted,
        std::size_t count, std::vector<To>& values);

    const AssetFolder& _folder;
    rapidjson::Document _json;
    std::vector<char> _binary;
    bool _hasBinary = false;
    std::map<int, std::vector<char>> _buffers;
};

// Whether the bytes begin as a binary container does.
bool isGltfContainer(const std::vector<char>& bytes);

} // namespace VantrelImport
