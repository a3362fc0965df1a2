#include "Data/Resources/SkinFile.h"

#include <algorithm>
#include <cmath>

#include "Data/Resources/GlbFile.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

std::optional<std::vector<Matrix4>> readMatrices(const GlbAccessor& accessor, std::string& reason) {
    if(!accessor.isFloat() || accessor.components != 16) {
        reason = "inverseBindMatrices: their type is not supported";
        return {};
    }
    std::vector<Matrix4> matrices(accessor.count);
    accessor.readFloats(matrices.data(), sizeof(Matrix4), 16);
    for(const Matrix4& matrix: matrices) {
        if(std::all_of(matrix.data(), matrix.data() + 16, [](Float value) { return std::isfinite(value); })) continue;
        reason = "a matrix is not finite";
        return {};
    }
    return matrices;
}

} // namespace

std::optional<std::vector<Matrix4>> readSkin(Containers::ArrayView<const char> bytes, std::string& reason) {
    const std::optional<GlbFile> file = GlbFile::open(bytes, reason);
    if(!file) return {};
    const GlbValue* const skin = file->element("skins", 0);
    const GlbValue* const joints = skin ? GlbFile::member(*skin, "joints") : nullptr;
    if(!joints || !joints->IsArray()) {
        reason = "the file has no skin";
        return {};
    }
    if(!GlbFile::member(*skin, "inverseBindMatrices")) return std::vector<Matrix4>(joints->Size());
    std::uint64_t index = 0;
    if(!GlbFile::readIndex(*skin, "inverseBindMatrices", index, reason)) return {};
    const std::optional<GlbAccessor> accessor = file->accessor(index, reason);
    return accessor ? readMatrices(*accessor, reason) : std::nullopt;
}

} // namespace VantrelEngine
