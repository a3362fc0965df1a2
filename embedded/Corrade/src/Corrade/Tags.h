#pragma once

/**
Tags that choose a constructor. None of them can be made from `{}`, so that an empty initializer list never selects a
tagged overload by accident.
*/

namespace Corrade {

namespace Implementation {
struct TagInit {};
}

/** What the type is without arguments, whatever that means for it. */
struct DefaultInitT {
    constexpr explicit DefaultInitT(Implementation::TagInit) {}
};

/** Zeroed, or default-constructed where there is a constructor. */
struct ValueInitT {
    constexpr explicit ValueInitT(Implementation::TagInit) {}
};

/** Contents undefined; the caller writes them before reading. */
struct NoInitT {
    constexpr explicit NoInitT(Implementation::TagInit) {}
};

/** No underlying (GL) object is created. */
struct NoCreateT {
    constexpr explicit NoCreateT(Implementation::TagInit) {}
};

/** Every item is constructed from the arguments that follow. */
struct DirectInitT {
    constexpr explicit DirectInitT(Implementation::TagInit) {}
};

/** Items are given by a list, or one item is constructed where it will live. */
struct InPlaceInitT {
    constexpr explicit InPlaceInitT(Implementation::TagInit) {}
};

inline constexpr DefaultInitT DefaultInit{Implementation::TagInit{}};
inline constexpr ValueInitT ValueInit{Implementation::TagInit{}};
inline constexpr NoInitT NoInit{Implementation::TagInit{}};
inline constexpr NoCreateT NoCreate{Implementation::TagInit{}};
inline constexpr DirectInitT DirectInit{Implementation::TagInit{}};
inline constexpr InPlaceInitT InPlaceInit{Implementation::TagInit{}};

}
