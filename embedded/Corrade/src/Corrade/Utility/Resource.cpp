#include "Corrade/Utility/Resource.h"

#include "Corrade/Containers/ArrayView.h"
#include "Corrade/Containers/StringIterable.h"
#include "Corrade/Containers/StringView.h"
#include "Corrade/Utility/Assert.h"

#include <functional>

namespace Corrade::Utility {

using Containers::StringView;
using Containers::StringViewFlag;
using Implementation::ResourceGroup;

namespace {

/* The end of the list isn't null, so that the last group is seen to be registered as well. */
ResourceGroup listEnd{};
ResourceGroup* listBegin = &listEnd;

const ResourceGroup* findGroup(const StringView name) {
    for(const ResourceGroup* group = listBegin; group != &listEnd; group = group->next)
        if(name == group->name) return group;
    return nullptr;
}

constexpr unsigned int NameEndMask = 0x00ffffff;
constexpr unsigned int PaddingShift = 24;

StringView nameAt(const ResourceGroup& group, const std::size_t i) {
    const unsigned int begin = i ? group.positions[2 * (i - 1)] & NameEndMask : 0;
    const unsigned int end = group.positions[2 * i] & NameEndMask;
    return {reinterpret_cast<const char*>(group.filenames) + begin, end - begin, StringViewFlag::Global};
}

/*
A pair in ResourceGroup::positions that converts to the name of its file. The name isn't stored next to it: look for the
group that the pair is in. This way a list of names needs no memory and lives as long as the group.
*/
struct Positions {
    unsigned int nameEnd;
    unsigned int dataEnd;

    operator StringView() const {
        const auto* const position = reinterpret_cast<const unsigned int*>(this);
        const ResourceGroup* group = listBegin;
        while(std::less<>{}(position, group->positions) ||
            !std::less<>{}(position, group->positions + 2 * group->count)) {
            group = group->next;
            CORRADE_INTERNAL_ASSERT(group != &listEnd);
        }
        return nameAt(*group, std::size_t(position - group->positions) / 2);
    }
};

StringView dataAt(const ResourceGroup& group, const std::size_t i) {
    const unsigned int begin = i ? group.positions[2 * (i - 1) + 1] : 0;
    const unsigned int padding = group.positions[2 * i] >> PaddingShift;
    const unsigned int end = group.positions[2 * i + 1] - padding;
    return {reinterpret_cast<const char*>(group.data) + begin, end - begin,
        padding ? StringViewFlag::Global | StringViewFlag::NullTerminated : StringViewFlag::Global};
}

/* The number of files if there is none of that name. */
std::size_t findFile(const ResourceGroup& group, const StringView name) {
    std::size_t begin = 0;
    std::size_t end = group.count;
    while(begin != end) {
        const std::size_t middle = begin + (end - begin) / 2;
        if(nameAt(group, middle) < name)
            begin = middle + 1;
        else
            end = middle;
    }
    return begin != group.count && nameAt(group, begin) == name ? begin : group.count;
}

}

void Resource::registerData(ResourceGroup& group) {
    if(group.next) return;
    group.next = listBegin;
    listBegin = &group;
}

void Resource::unregisterData(ResourceGroup& group) {
    if(!group.next) return;
    ResourceGroup** link = &listBegin;
    while(*link != &group) link = &(*link)->next;
    *link = group.next;
    group.next = nullptr;
}

bool Resource::hasGroup(const StringView group) { return findGroup(group); }

Resource::Resource(const StringView group): _group{findGroup(group)} {
    CORRADE_ASSERT(
        _group, "Utility::Resource: group '" << Debug::nospace << group << Debug::nospace << "' was not found", );
}

Containers::StringIterable Resource::list() const {
    static_assert(sizeof(Positions) == 2 * sizeof(unsigned int));
    return Containers::ArrayView<const Positions>{reinterpret_cast<const Positions*>(_group->positions), _group->count};
}

bool Resource::hasFile(const StringView filename) const { return findFile(*_group, filename) != _group->count; }

Containers::ArrayView<const char> Resource::getRaw(const StringView filename) const {
    const StringView contents = getString(filename);
    return {contents.data(), contents.size()};
}

StringView Resource::getString(const StringView filename) const {
    const std::size_t i = findFile(*_group, filename);
    CORRADE_ASSERT(i != _group->count,
        "Utility::Resource::get(): file '" << Debug::nospace << filename << Debug::nospace
                                           << "' was not found in group '" << Debug::nospace << _group->name
                                           << Debug::nospace << "'",
        {});
    return dataAt(*_group, i);
}

}
