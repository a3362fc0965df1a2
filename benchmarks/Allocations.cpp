#include "Allocations.h"

#include <cstdlib>
#include <mutex>
#include <new>
#include <unordered_map>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelBench {

namespace {

// For the list of allocations, which would otherwise be on it.
template<class T> struct PlainAllocator {
    using value_type = T;

    PlainAllocator() = default;
    template<class U> PlainAllocator(const PlainAllocator<U>&) {}
    T* allocate(std::size_t count) { return static_cast<T*>(std::malloc(count * sizeof(T))); }
    void deallocate(T* memory, std::size_t) { std::free(memory); }
    bool operator==(const PlainAllocator&) const { return true; }
    bool operator!=(const PlainAllocator&) const { return false; }
};

struct Tracked {
    std::mutex mutex;
    std::size_t bytes = 0;
    std::unordered_map<void*, std::size_t, std::hash<void*>, std::equal_to<void*>,
        PlainAllocator<std::pair<void* const, std::size_t>>>
        sizes;
};

thread_local std::uint64_t count = 0;
// Stays: memory is freed until the very end.
Tracked* tracked = nullptr;

void* noted(void* memory, std::size_t size) {
    // The program is no worse off without an exception that nobody catches.
    if(!memory) std::abort();
    if(NotOurs::isOn()) return memory;
    ++count;
    if(!tracked) return memory;
    const std::lock_guard<std::mutex> lock{tracked->mutex};
    tracked->sizes[memory] = size;
    tracked->bytes += size;
    return memory;
}

void forget(void* memory) {
    if(tracked && memory) {
        const std::lock_guard<std::mutex> lock{tracked->mutex};
        const auto found = tracked->sizes.find(memory);
        if(found != tracked->sizes.end()) {
            tracked->bytes -= found->second;
            tracked->sizes.erase(found);
        }
    }
    std::free(memory);
}

}

std::uint64_t allocationCount() { return count; }

void trackAllocations() {
    if(!tracked) tracked = new(std::malloc(sizeof(Tracked))) Tracked;
}

std::size_t trackedBytes() {
    const std::lock_guard<std::mutex> lock{tracked->mutex};
    return tracked->bytes;
}

}

// The program's own, in the place of the C++ library's; the others (of arrays, without exceptions) call these.
CORRADE_VISIBILITY_EXPORT void* operator new(std::size_t size) {
    return VantrelBench::noted(std::malloc(size ? size : 1), size);
}

CORRADE_VISIBILITY_EXPORT void* operator new(std::size_t size, std::align_val_t alignment) {
    const std::size_t step = std::size_t(alignment);
    return VantrelBench::noted(std::aligned_alloc(step, (size + step - 1) / step * step), size);
}

CORRADE_VISIBILITY_EXPORT void operator delete(void* memory) noexcept { VantrelBench::forget(memory); }
CORRADE_VISIBILITY_EXPORT void operator delete(void* memory, std::size_t) noexcept { VantrelBench::forget(memory); }
CORRADE_VISIBILITY_EXPORT void operator delete(void* memory, std::align_val_t) noexcept {
    VantrelBench::forget(memory);
}
CORRADE_VISIBILITY_EXPORT void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    VantrelBench::forget(memory);
}
