#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <vector>

#include <Corrade/Containers/StringView.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

struct Scene;

// The components that an object has, as long as none of the document's has taken them. The first one of a type is taken,
// and the last one of all comes to its place; so the order decides which one is next.
//
// Few candidates, as nearly every object has them, are searched; many are found through an index, in logarithmic time.
class ComponentCandidates {
public:
    struct Candidate {
        Id component;
        Magnum::UnsignedByte manager;
    };

    // All components of an object, in their order.
    void reset(const Scene& scene, Id object);

    // Takes the first component that is of this type: whose manager has this name or, of a script, whose own type has.
    // 65,535 where there is none. Expects the scene as it was.
    Id take(const Scene& scene, Corrade::Containers::StringView type);

    // What was not taken.
    const std::vector<Candidate>& rest() const { return _candidates; }

private:
    // A manager, and the type of a script.
    using Key = std::uint32_t;
    static constexpr Key NoKey = ~Key{};
    static constexpr std::size_t SearchedCount = 32;

    static Key keyOf(const Scene& scene, const Candidate& candidate);
    static Key keyOf(const Scene& scene, Corrade::Containers::StringView type);
    std::size_t firstOf(const Scene& scene, Key key) const;

    std::vector<Candidate> _candidates;
    // Positions of the candidates of a key, where there are many.
    std::map<Key, std::set<std::uint32_t>> _positions;
    bool _isIndexed = false;
};

} // namespace VantrelEngine
