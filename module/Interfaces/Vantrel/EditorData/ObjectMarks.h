#pragma once

#include <array>
#include <functional>
#include <set>
#include <string>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>

#include <Vantrel/EngineData/BitSetView.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class EditorSceneData;

// What a user sets aside while working; no part of the project.
enum class ObjectMark : Magnum::UnsignedByte {
    // Not drawn, throws no shadows and no light, and so cannot be picked or outlined either.
    Hidden,
    // Cannot be selected.
    Locked
};
constexpr std::size_t ObjectMarkCount = 2;

// Which objects are hidden or locked. A mark counts for the object's descendants, too. It belongs to the object's id in the
// document: it stays while the object is deleted, for undo to find it again.
//
// Asking takes constant time; so does an object that comes or goes. What changes a mark costs the objects of the subtree
// for which it makes a difference.
class CORRADE_VISIBILITY_EXPORT ObjectMarks {
public:
    using Ids = std::set<std::string, std::less<>>;

    // Both outlive the marks. Hides components of the scene, and takes locked objects out of the selection.
    explicit ObjectMarks(EditorSceneData& scene, BitSetView selection);
    ObjectMarks(const ObjectMarks&) = delete;
    ObjectMarks& operator=(const ObjectMarks&) = delete;

    // Whether it has the mark itself; and whether it has it itself or by an ancestor.
    bool isMarked(ObjectMark mark, Id object) const { return _own[std::size_t(mark)].bits.isSet(object); }
    bool isHidden(Id object) const { return inEffect(ObjectMark::Hidden).isSet(object); }
    bool isLocked(Id object) const { return inEffect(ObjectMark::Locked).isSet(object); }

    // Expects a valid object other than the root.
    void setMarked(ObjectMark mark, Id object, bool isMarked);
    // Takes the mark away from all that have it.
    void unmarkAll(ObjectMark mark);

    // Those that have a mark themselves, in the document or not.
    const Ids& ids(ObjectMark mark) const { return _ids[std::size_t(mark)]; }
    // Another number after each change of these.
    Magnum::UnsignedInt revision() const { return _revision; }
    // Another project: nothing is marked.
    void clear();

    // Told by who changes the scene: an object came, with its id and without children; got another parent; goes.
    void added(Id object);
    void moved(Id object);
    void removed(Id object);

private:
    struct Bits {
        std::array<Magnum::UnsignedLong, BitSetView::wordCount(MaxObjects + 1)> words{};
        BitSetView bits{{words.data(), words.size()}, MaxObjects + 1};
    };

    const BitSetView& inEffect(ObjectMark mark) const { return _inEffect[std::size_t(mark)].bits; }
    bool isToBeInEffect(ObjectMark mark, Id object) const;
    void update(ObjectMark mark, Id top);
    void apply(ObjectMark mark, Id object, bool isInEffect);

    EditorSceneData& _scene;
    BitSetView _selection;
    Bits _own[ObjectMarkCount], _inEffect[ObjectMarkCount];
    Ids _ids[ObjectMarkCount];
    Magnum::UnsignedInt _revision = 0;
};

} // namespace VantrelEngine
