#pragma once

#include <cstddef>
#include <cstdint>

// Memory from operator new, of the whole process: modules that were loaded later, too. What goes to malloc() by itself does
// not count, and neither does what is asked for inside of a NotOurs.
namespace VantrelBench {

// How often this thread asked for memory since the program began.
std::uint64_t allocationCount();

// Remembers from now on what is allocated, which makes allocating slower. Call before there are other threads.
void trackAllocations();
// Bytes of what was allocated since then and is still there.
std::size_t trackedBytes();

// What this thread asks for while one of these lives is somebody else's.
class NotOurs {
public:
    explicit NotOurs() { ++_depth; }
    ~NotOurs() { --_depth; }
    NotOurs(const NotOurs&) = delete;
    NotOurs& operator=(const NotOurs&) = delete;

    static bool isOn() { return _depth; }

private:
    static inline thread_local int _depth = 0;
};

}
