#pragma once

/** Files that are compiled into the program. */

#include "Corrade/Containers/Containers.h"
#include "Corrade/Utility/Utility.h"
#include "Corrade/Utility/VisibilityMacros.h"

#include <cstddef>

/** Layout of Implementation::ResourceGroup; generated units check it. */
#define CORRADE_RESOURCE_VERSION 2

/**
Registers a group whose unit is in a static library, where it wouldn't be linked and hence not register itself. To be
used outside of any namespace, inside a function.
*/
#define CORRADE_RESOURCE_INITIALIZE(name)                                                                              \
    extern int corradeResourceInitializer_##name();                                                                    \
    corradeResourceInitializer_##name();

/** The opposite. */
#define CORRADE_RESOURCE_FINALIZE(name)                                                                                \
    extern int corradeResourceFinalizer_##name();                                                                      \
    corradeResourceFinalizer_##name();

namespace Corrade::Utility {

namespace Implementation {

/** Record of a group, owned by the unit that registers it. */
struct ResourceGroup {
    const char* name;
    /** Number of files. */
    unsigned int count;
    /**
    A pair for each file: the end of its name, and the end of its data with padding. The upper 8 bits of the former
    are the size of the padding, which consists of zero bytes. Files are sorted bytewise by name.
    */
    const unsigned int* positions;
    const unsigned char* filenames;
    const unsigned char* data;
    /** Null while the group isn't registered. */
    ResourceGroup* next;
};

}

/** A registered group. Views that it returns are valid as long as the group is registered. */
class CORRADE_VISIBILITY_EXPORT Resource {
public:
    /** Both are harmless when repeated. Of equally named groups the one that was registered last is found. */
    static void registerData(Implementation::ResourceGroup& group);
    static void unregisterData(Implementation::ResourceGroup& group);

    static bool hasGroup(Containers::StringView group);

    /** The group has to be registered. */
    explicit Resource(Containers::StringView group);

    /** Names of all files, sorted bytewise. */
    Containers::StringIterable list() const;

    bool hasFile(Containers::StringView filename) const;

    /** @{ Contents of a file that has to be there. Logarithmic in the number of files. */
    Containers::ArrayView<const char> getRaw(Containers::StringView filename) const;
    /** Flagged as global, and as null-terminated if there is padding behind the file. */
    Containers::StringView getString(Containers::StringView filename) const;
    /** @} */

private:
    const Implementation::ResourceGroup* _group;
};

}
