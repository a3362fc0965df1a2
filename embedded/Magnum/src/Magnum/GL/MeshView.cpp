#include "Magnum/GL/MeshView.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/GL/Mesh.h"

namespace Magnum::GL {

MeshView& MeshView::setIndexOffset(GLintptr offset) {
    CORRADE_ASSERT(_original->isIndexed(), "GL::MeshView::setIndexOffset(): mesh is not indexed", *this);
    _range.indexOffset = offset;
    return *this;
}

}
