#include "Renderer/Meshes/ObjectBuffer.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include <Vantrel/EngineData/Scene.h>

#include "Renderer/Meshes/MeshBuffers.h"
#include "Renderer/TextureUnits.h"
#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Two uploads cost more than so many records in between.
constexpr std::size_t WorthSkipping = 32;

} // namespace

void ObjectBuffer::resize(std::size_t size) {
    for(std::size_t slot = size; slot < this->size(); ++slot) touch(slot);
    _records.resize(size);
    _isMirrored.resize(size);
    _spheres.resize(size);
    _dirty.resize((size + 63) / 64);
    _nextSlot.resize(size, NoComponent);
    // Where slots went and the others stayed, nothing else would unlink them.
    _objects.assign(size, NoObject);
    if(!_buffer.reserve(size * sizeof(Record))) upload(0, size);
}

void ObjectBuffer::update(const Scene& scene, const MeshBuffers& meshes) {
    std::fill(_dirty.begin(), _dirty.end(), 0);
    _touched.clear();
    if(scene.meshes.numActiveComponents() != size()) {
        resize(scene.meshes.numActiveComponents());
        _areAllDirty = true;
    }
    takeSlots(scene);
    if(_areAllDirty) std::fill(_dirty.begin(), _dirty.end(), ~std::uint64_t{});
    _areAllDirty = false;
    markChanged(scene);

    // Ranges of records that are others than before.
    std::size_t first = 0, end = 0;
    forEachDirty([&](std::size_t slot) {
        touch(slot);
        const bool isOther = compute(slot, scene, meshes);
        touch(slot);
        if(!isOther) return;
        if(first != end && slot - end > WorthSkipping) {
            upload(first, end);
            first = end;
        }
        if(first == end) first = slot;
        end = slot + 1;
    });
    upload(first, end);
}

void ObjectBuffer::takeSlots(const Scene& scene) {
    takeIds(_meshes, scene.meshes.meshes());
    takeIds(_materials, scene.meshes.materials());
    if(takeIds(_objects, scene.meshes.objects())) linkSlots();
}

// Marks the slots where the ids are others than the known ones; whether there are any.
bool ObjectBuffer::takeIds(std::vector<Id>& known, Containers::ArrayView<const Id> ids) {
    known.resize(size(), NoObject);
    if(known.empty() || !std::memcmp(known.data(), ids.data(), known.size() * sizeof(Id))) return false;
    for(std::size_t slot = 0; slot != known.size(); ++slot)
        if(known[slot] != ids[slot]) mark(slot);
    std::copy_n(ids.data(), known.size(), known.data());
    return true;
}

void ObjectBuffer::linkSlots() {
    _firstSlot.assign(MaxObjects + 1, NoComponent);
    for(std::size_t slot = size(); slot-- != 0;) {
        Id& first = _firstSlot[_objects[slot]];
        _nextSlot[slot] = first;
        first = Id(slot);
    }
}

void ObjectBuffer::markChanged(const Scene& scene) {
    const BitSetView changed = scene.changed();
    for(std::size_t object = changed.findFirstSet(); object < std::min(changed.size(), _firstSlot.size());
        object = changed.findFirstSet(object + 1))
        for(Id slot = _firstSlot[object]; slot != NoComponent; slot = _nextSlot[slot]) mark(slot);
}

template<class Function> void ObjectBuffer::forEachDirty(Function function) {
    for(std::size_t word = 0; word != _dirty.size(); ++word)
        for(std::uint64_t bits = _dirty[word]; bits; bits &= bits - 1) {
            const std::size_t slot = word * 64 + std::size_t(__builtin_ctzll(bits));
            if(slot < size()) function(slot);
        }
}

void ObjectBuffer::touch(std::size_t slot) {
    if(_spheres.radius[slot] >= 0.0f) _touched.add(_spheres.center(slot), _spheres.radius[slot]);
}

bool ObjectBuffer::compute(std::size_t slot, const Scene& scene, const MeshBuffers& meshes) {
    const Matrix4 matrix = scene.absoluteTransformationAsMatrix(_objects[slot]);
    const Vector3 scaling = scene.absoluteScaling(_objects[slot]);
    const Float largest = Math::abs(scaling).max();
    _isMirrored[slot] = (scaling.x() < 0.0f) != ((scaling.y() < 0.0f) != (scaling.z() < 0.0f));

    const MeshRange range = meshes.range(_meshes[slot]);
    if(range.indexCount)
        _spheres.set(slot, matrix.transformVector(range.center) + matrix.translation(), range.radius * largest);
    else
        _spheres.set(slot, {}, -1.0f);

    const Record record{{matrix.row(0), matrix.row(1), matrix.row(2)},
        {Float(_objects[slot]), Float(_materials[slot]), largest > 0.0f ? 1.0f / largest : 1.0f,
            _isMirrored[slot] ? -1.0f : 1.0f}};
    if(!std::memcmp(&record, &_records[slot], sizeof(Record))) return false;
    _records[slot] = record;
    return true;
}

void ObjectBuffer::upload(std::size_t first, std::size_t end) {
    _buffer.write(first * sizeof(Record), vectorView(_records).slice(first, end));
}

void ObjectBuffer::bind() { _buffer.bind(TextureUnit::ObjectData); }

} // namespace VantrelEngine
