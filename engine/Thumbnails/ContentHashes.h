#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

// Numbers for the contents of resources of one kind, each of which takes to go through all of the content: kept by index
// for as long as the revision is the same.
class ContentHashes {
public:
    // Calls hash() where it is not known.
    template<class Hash> std::uint64_t of(Id index, std::uint32_t revision, Hash hash) {
        if(index >= _known.size()) _known.resize(std::size_t{index} + 1);
        Known& known = _known[index];
        if(!known.isThere || known.revision != revision) {
            known = {revision, hash(), true};
            ++_hashed;
        }
        return known.hash;
    }

    // Contents that were gone through since the construction.
    std::size_t hashed() const { return _hashed; }

private:
    struct Known {
        std::uint32_t revision = 0;
        std::uint64_t hash = 0;
        bool isThere = false;
    };

    std::vector<Known> _known;
    std::size_t _hashed = 0;
};

} // namespace VantrelEngine
