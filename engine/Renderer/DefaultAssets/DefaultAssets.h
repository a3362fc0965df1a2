#pragma once

#include <Vantrel/EngineData/ResourceManager.h>

namespace VantrelEngine {

// The files of the asset "default", which are compiled in.
class CORRADE_VISIBILITY_EXPORT DefaultAssets: public Resource {
public:
    std::optional<Corrade::Containers::Array<char>> get(
        Corrade::Containers::StringView file, std::size_t limit, std::string& reason) const override;
};

// The text of one of the files, for who knows that it is there. Valid as long as the code is.
CORRADE_VISIBILITY_EXPORT Corrade::Containers::StringView defaultAsset(Corrade::Containers::StringView file);

} // namespace VantrelEngine
