/* Comes with a group of its own; says whether it sees the groups of others. */

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Resource.h>
#include <Corrade/Utility/VisibilityMacros.h>

extern "C" CORRADE_VISIBILITY_EXPORT bool hasGroup(const char* name);
extern "C" bool hasGroup(const char* name) { return Corrade::Utility::Resource::hasGroup(name); }

#ifndef CORRADE_DYNAMIC_PLUGIN
#error this is compiled as a plugin
#endif
