#pragma once
// Tags that select what a matrix is filled with.

namespace Magnum::Math {

// Explicit constructors, so that {} never means one of the tags.
struct ZeroInitT {
    struct Init {};
    constexpr explicit ZeroInitT(Init) {}
};
struct IdentityInitT {
    struct Init {};
    constexpr explicit IdentityInitT(Init) {}
};

inline constexpr ZeroInitT ZeroInit{ZeroInitT::Init{}};
inline constexpr IdentityInitT IdentityInit{IdentityInitT::Init{}};

}
