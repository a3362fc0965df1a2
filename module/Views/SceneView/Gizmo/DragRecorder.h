#pragma once

#include <array>
#include <unordered_map>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector3.h>
#include <Vantrel/EngineData/BitSetView.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class EditorData;
class ValueAccess;
struct SharedState;

// Takes objects along with one drag: writes where they are into the scene and, through the change manager, whose group
// the caller opens and commits, into the document. No object of them is below another one. Costs what is dragged.
//
// An object is left out, with a line, where its parent's scaling would skew it, and from moving and turning where that is
// zero. What the simulation moves is left alone while it runs.
class DragRecorder {
public:
    using Objects = Corrade::Containers::ArrayView<const Id>;

    // As long as the recorder lives; the scene's absolute transformations are up to date whenever it is called.
    explicit DragRecorder(EditorData& data, SharedState& state): _data{data}, _state{state} {}

    // The delta since the last call, in the world.
    void move(const Magnum::Matrix4& delta, Objects objects);
    // The factors since the first call, along the objects' own axes. An object that would be too large or too small for a
    // float stays as it is, and comes back with factors that it can have.
    void scale(const Magnum::Vector3& factors, Objects objects);

    // Whether any of the objects takes part still.
    bool isAnyoneLeft(Objects objects) const { return _leftOutCount < objects.size(); }

    // After the commit: what was written last is in its place and need not be compiled.
    void committed();

private:
    enum class Reason { Flat, Skewed };

    BitSetView leftOut() { return BitSetView{{_leftOutWords.data(), _leftOutWords.size()}, MaxObjects + 1}; }
    // Those that take part, with their places in the document.
    template<class Function> void forEachDragged(Objects objects, Function&& function);
    bool isSimulated(Id object) const;
    bool isBelowZero(Id object) const;
    ValueAccess entryOf(Id object) const;
    void leaveOutFlat(Objects objects);
    void moveObject(const Magnum::Matrix4& delta, Id object, const ValueAccess& entry);
    void recordTransform(Id object, const ValueAccess& entry);
    void leaveOut(Id object);
    void sayLeftOut(Reason reason);

    EditorData& _data;
    SharedState& _state;
    bool _isFlatKnown = false;
    // By id.
    std::array<Magnum::UnsignedLong, BitSetView::wordCount(MaxObjects + 1)> _leftOutWords{};
    std::size_t _leftOutCount = 0;
    std::vector<Id> _newlyLeftOut, _written;
    // Of those that were scaled.
    std::unordered_map<Id, Magnum::Vector3> _scalingBefore;
};

} // namespace VantrelEngine
