#include "Magnum/GL/Sampler.h"

#include "Corrade/Utility/Assert.h"
#include "Corrade/Utility/Debug.h"

namespace Magnum::GL {

SamplerFilter samplerFilter(Magnum::SamplerFilter filter) {
    switch(filter) {
    case Magnum::SamplerFilter::Nearest: return SamplerFilter::Nearest;
    case Magnum::SamplerFilter::Linear: return SamplerFilter::Linear;
    }
    CORRADE_ASSERT_UNREACHABLE("GL::samplerFilter(): invalid filter SamplerFilter("
            << Debug::nospace << Debug::hex << UnsignedInt(filter) << Debug::nospace << ")",
        {});
}

SamplerMipmap samplerMipmap(Magnum::SamplerMipmap mipmap) {
    switch(mipmap) {
    case Magnum::SamplerMipmap::Base: return SamplerMipmap::Base;
    case Magnum::SamplerMipmap::Nearest: return SamplerMipmap::Nearest;
    case Magnum::SamplerMipmap::Linear: return SamplerMipmap::Linear;
    }
    CORRADE_ASSERT_UNREACHABLE("GL::samplerMipmap(): invalid mode SamplerMipmap("
            << Debug::nospace << Debug::hex << UnsignedInt(mipmap) << Debug::nospace << ")",
        {});
}

SamplerWrapping samplerWrapping(Magnum::SamplerWrapping wrapping) {
    switch(wrapping) {
    case Magnum::SamplerWrapping::Repeat: return SamplerWrapping::Repeat;
    case Magnum::SamplerWrapping::MirroredRepeat: return SamplerWrapping::MirroredRepeat;
    case Magnum::SamplerWrapping::ClampToEdge: return SamplerWrapping::ClampToEdge;
    case Magnum::SamplerWrapping::ClampToBorder: return SamplerWrapping::ClampToBorder;
    case Magnum::SamplerWrapping::MirrorClampToEdge: return SamplerWrapping::MirrorClampToEdge;
    }
    CORRADE_ASSERT_UNREACHABLE("GL::samplerWrapping(): invalid wrapping SamplerWrapping("
            << Debug::nospace << Debug::hex << UnsignedInt(wrapping) << Debug::nospace << ")",
        {});
}

}
