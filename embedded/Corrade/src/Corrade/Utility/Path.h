#pragma once

/**
File names and whole-file operations, in UTF-8 with forward slashes. Operations that touch files report a failure with
one line to Error and their return value.
*/

#include "Corrade/Containers/StringView.h"
#include "Corrade/Utility/VisibilityMacros.h"

#include <initializer_list>

namespace Corrade::Utility::Path {

enum class ListFlag : unsigned char {
    SkipDotAndDotDot = 1,
    /** Links count as what they lead to, and are never skipped when that doesn't exist. */
    SkipFiles = 2,
    SkipDirectories = 4,
    /** Devices, pipes, sockets. */
    SkipSpecial = 8,
    /** Bytewise. The two orders share a bit: together they are ascending. */
    SortAscending = 16 | 32,
    SortDescending = 32
};
typedef Containers::EnumSet<ListFlag> ListFlags;
CORRADE_ENUMSET_OPERATORS(ListFlags)

/** Directory and file name; views on the argument. The directory has a trailing slash only if it's the root. */
CORRADE_VISIBILITY_EXPORT Containers::Pair<Containers::StringView, Containers::StringView> split(
    Containers::StringView path);
CORRADE_VISIBILITY_EXPORT Containers::StringView path(Containers::StringView path);
CORRADE_VISIBILITY_EXPORT Containers::StringView filename(Containers::StringView path);

/** Everything before the last dot of the file name and the rest; leading dots of the file name don't count. */
CORRADE_VISIBILITY_EXPORT Containers::Pair<Containers::StringView, Containers::StringView> splitExtension(
    Containers::StringView path);

/** An absolute path replaces what is before it. */
CORRADE_VISIBILITY_EXPORT Containers::String join(Containers::StringView path, Containers::StringView filename);
CORRADE_VISIBILITY_EXPORT Containers::String join(const Containers::StringIterable& paths);
CORRADE_VISIBILITY_EXPORT Containers::String join(std::initializer_list<Containers::StringView> paths);

/** Links are followed. */
CORRADE_VISIBILITY_EXPORT bool exists(Containers::StringView filename);
CORRADE_VISIBILITY_EXPORT bool isDirectory(Containers::StringView path);

/** Creates a directory and all its parents; succeeds also if it's already there. */
CORRADE_VISIBILITY_EXPORT bool make(Containers::StringView path);
/** A file, a link or an empty directory. */
CORRADE_VISIBILITY_EXPORT bool remove(Containers::StringView path);

CORRADE_VISIBILITY_EXPORT Containers::Optional<Containers::Array<char>> read(Containers::StringView filename);
CORRADE_VISIBILITY_EXPORT Containers::Optional<Containers::String> readString(Containers::StringView filename);

/** Replaces the contents of a file that exists. */
CORRADE_VISIBILITY_EXPORT bool write(Containers::StringView filename, Containers::ArrayView<const void> data);
/** Would write the terminator as well: pass a string view. */
bool write(Containers::StringView filename, const char* data) = delete;

/** Names, without the path, in no particular order unless sorted. */
CORRADE_VISIBILITY_EXPORT Containers::Optional<Containers::Array<Containers::String>> list(
    Containers::StringView path, ListFlags flags = {});

/** The absolute file name of the running program. */
CORRADE_VISIBILITY_EXPORT Containers::Optional<Containers::String> executableLocation();

}
