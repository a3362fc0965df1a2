#include "Renderer/Meshes/InstanceList.h"

#include "Renderer/TextureUnits.h"
#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Corrade;

void InstanceList::use(const std::vector<Id>& slots) {
    if(slots != _uploaded) {
        _buffer.reserve(slots.size() * sizeof(Id));
        _buffer.write(0, vectorView(slots));
        _uploaded = slots;
    }
    _buffer.bind(TextureUnit::InstanceList);
}

} // namespace VantrelEngine
