#pragma once

#include <cstddef>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Format.h>

namespace VantrelEngine {

// A text that grows at its end, for generated sources. Appending costs amortised constant time a character; the text is
// always followed by a NUL.
class StringWriter {
public:
    // Releases storage that was handed over; called with its address and its capacity.
    using Deleter = void (*)(char* data, std::size_t capacity);

    // An empty text with room for capacity - 1 characters before the first reallocation.
    explicit StringWriter(std::size_t capacity = 0);

    // Takes over storage of capacity bytes (at least 1) and starts an empty text in it. The storage is released with
    // the deleter, or with delete[] where there is none. Storage of a later reallocation is the writer's own.
    explicit StringWriter(char* storage, std::size_t capacity, Deleter deleter);

    StringWriter(StringWriter&& other) noexcept;
    StringWriter& operator=(StringWriter&& other) noexcept;
    ~StringWriter();

    // Characters without the NUL.
    std::size_t size() const { return _size; }
    // Bytes of storage.
    std::size_t capacity() const { return _capacity; }
    // Bytes of storage behind the text, the place of the NUL included.
    std::size_t available() const { return _capacity - _size; }
    // Valid, and NUL-terminated, until the next append.
    Corrade::Containers::StringView text() const;

    // Makes room for this many more characters and the NUL: at least one and a half times the old capacity (computed in
    // single precision and truncated) where there is not enough. Existing text is kept.
    void reserve(std::size_t bytes);

    // Appends formatted text, placeholders as in Corrade::Utility::format().
    template<class... Args> StringWriter& format(const char* format, const Args&... args) {
        const std::size_t bytes =
            Corrade::Utility::formatInto(Corrade::Containers::MutableStringView{}, format, args...);
        Corrade::Utility::formatInto({prepare(bytes), available()}, format, args...);
        return finish(bytes);
    }

    // Appends bytes as they are.
    StringWriter& append(Corrade::Containers::ArrayView<const char> bytes);

private:
    // Start of room for this many characters and the NUL. Aborts with "Assertion available() > bytes failed at
    // Utils/StringWriter:83" where no room could be made: the new size is beyond the address space.
    char* prepare(std::size_t bytes);
    StringWriter& finish(std::size_t bytes);
    void release();

    char* _data = nullptr;
    std::size_t _capacity = 0;
    std::size_t _size = 0;
    Deleter _deleter = nullptr;
};

}
