#pragma once

/** A list of strings of whatever type. */

#include "Corrade/Containers/ErasedList.h"
#include "Corrade/Containers/StringView.h"

namespace Corrade::Containers {

namespace Implementation {
struct StringIterableName {
    static constexpr const char* Value = "StringIterable";
};
}

/**
View on a list of anything that converts to StringView: arrays, views and initializer lists of StringView, String,
`const char*` and others. The list has to stay alive; an initializer list does until the end of the full expression.
Access is checked in debug builds.
*/
class StringIterable: public Implementation::ErasedList<StringView, Implementation::StringIterableName> {
public:
    /*implicit*/ StringIterable(std::nullptr_t = nullptr) noexcept {}
    /*implicit*/ StringIterable(std::initializer_list<StringView> list) noexcept: StringIterable{arrayView(list)} {}
    template<class C, class U = typename decltype(stridedArrayView(std::declval<C&&>()))::Type,
        class = std::enable_if_t<std::is_convertible<const U&, StringView>::value>>
    /*implicit*/ StringIterable(C&& list) noexcept:
        ErasedList{list, [](const void* item) { return StringView(*static_cast<const U*>(item)); }} {}
};

}
