#pragma once

#include <Vantrel/EngineData/StringArray.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

// One text for every object of a scene, by object id: a display name, the id in the document, the name of a skin. Knows
// nothing of the scene graph; who deletes an object blanks its texts.
class CORRADE_VISIBILITY_EXPORT NameManager {
public:
    // Names, the root's included.
    std::size_t size() const { return _names.size(); }
    // Names that were reserved or are in use.
    std::size_t capacity() const { return _names.countCapacity(); }
    // Bytes of text that were reserved or are in use, and those of them that no name occupies.
    std::size_t textCapacity() const { return _names.capacity(); }
    std::size_t unusedTextCapacity() const { return _names.unusedCapacity(); }

    // Raises the capacity to this many names, and the text capacity by this many bytes for each name added.
    void allocate(std::size_t capacity, std::size_t bytesPerAddedName);

    // Makes room for ids below the size. No name is lost: the size stays beyond the last name that is not empty. Costs a
    // step for every name added or dropped.
    void setSize(std::size_t size);

    // Empty for an id that has no name, also beyond the size. NUL-terminated; valid until the next change.
    Corrade::Containers::StringView nameOf(Id object) const;

    // Amortised constant time a byte. The size grows where the id is beyond it. Expects an id below 65,535.
    void setName(Id object, Corrade::Containers::StringView name);

    // Another number after each name that was set.
    Magnum::UnsignedInt revision() const { return _revision; }

private:
    StringArray _names;
    Magnum::UnsignedInt _revision = 0;
};

}
