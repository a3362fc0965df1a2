#include "Capture.h"

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringIterable.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Resource.h>

#include <cstdint>
#include <string>
#include <vector>

#include <dlfcn.h>

using namespace Corrade;
using Containers::StringView;
using Containers::StringViewFlag;
using Utility::Resource;
using Utility::Implementation::ResourceGroup;

/* The macros declare functions of the global namespace. */
static void initializeOther() { CORRADE_RESOURCE_INITIALIZE(ConformanceOther) }
static void finalizeOther() { CORRADE_RESOURCE_FINALIZE(ConformanceOther) }

namespace {

std::vector<std::string> names(const Resource& resource) {
    std::vector<std::string> names;
    for(const StringView name: resource.list()) names.emplace_back(name.data(), name.size());
    return names;
}

TEST(Resource, hasGroup) {
    EXPECT_TRUE(Resource::hasGroup("conformance/group"));
    EXPECT_FALSE(Resource::hasGroup("conformance/grou"));
    EXPECT_FALSE(Resource::hasGroup("conformance/group2"));
    EXPECT_FALSE(Resource::hasGroup(""));
}

TEST(Resource, unknownGroup) { EXPECT_ABORTS("Utility::Resource: group 'nothing' was not found", Resource{"nothing"}); }

TEST(Resource, listIsSortedBytewise) {
    EXPECT_THAT(names(Resource{"conformance/group"}),
        testing::ElementsAre("Alias.txt", "aligned", "bytes.bin", "empty.txt", "text", "text.txt"));
}

TEST(Resource, listOutlivesTheObject) {
    std::string joined;
    for(const StringView name: Resource{"conformance/group"}.list()) {
        EXPECT_TRUE(name.flags() & StringViewFlag::Global);
        joined.append(name.data(), name.size()) += ' ';
    }
    EXPECT_EQ(joined, "Alias.txt aligned bytes.bin empty.txt text text.txt ");

    const Containers::StringIterable list = Resource{"conformance/group"}.list();
    EXPECT_EQ(list.size(), 6u);
    EXPECT_EQ(list[3], "empty.txt");
}

TEST(Resource, hasFile) {
    const Resource resource{"conformance/group"};
    for(const StringView name: resource.list()) EXPECT_TRUE(resource.hasFile(name));
    EXPECT_FALSE(resource.hasFile("folder/nested.txt"));
    EXPECT_FALSE(resource.hasFile("tex"));
    EXPECT_FALSE(resource.hasFile("zzz"));
    EXPECT_FALSE(resource.hasFile("A"));
    EXPECT_FALSE(resource.hasFile(""));
}

TEST(Resource, unknownFile) {
    const Resource resource{"conformance/group"};
    EXPECT_ABORTS("Utility::Resource::get(): file 'nothing' was not found in group 'conformance/group'",
        resource.getString("nothing"));
    EXPECT_ABORTS(
        "Utility::Resource::get(): file 'tex' was not found in group 'conformance/group'", resource.getRaw("tex"));
}

TEST(Resource, contents) {
    const Resource resource{"conformance/group"};
    EXPECT_EQ(resource.getString("Alias.txt"), "nested");
    EXPECT_EQ(resource.getString("text"), "nested");
    EXPECT_EQ(resource.getString("text.txt"), "What is asked for by name.\n");
    EXPECT_EQ(resource.getString("empty.txt"), "");

    std::string allBytes;
    for(int i = 0; i != 256; ++i) allBytes += char(i);
    const Containers::ArrayView<const char> bytes = resource.getRaw("bytes.bin");
    EXPECT_EQ(std::string(bytes.data(), bytes.size()), allBytes);
    const Containers::ArrayView<const char> aligned = resource.getRaw("aligned");
    EXPECT_EQ(std::string(aligned.data(), aligned.size()), allBytes);
}

TEST(Resource, flagsAndAlignment) {
    const Resource resource{"conformance/group"};
    for(const StringView name: resource.list()) EXPECT_TRUE(resource.getString(name).flags() & StringViewFlag::Global);

    const StringView terminated = resource.getString("text.txt");
    EXPECT_TRUE(terminated.flags() & StringViewFlag::NullTerminated);
    EXPECT_EQ(terminated.data()[terminated.size()], '\0');
    EXPECT_FALSE(resource.getString("bytes.bin").flags() & StringViewFlag::NullTerminated);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(resource.getRaw("aligned").data()) % 64, 0u);
    /* What is before the aligned file is padded. */
    EXPECT_TRUE(resource.getString("Alias.txt").flags() & StringViewFlag::NullTerminated);
}

TEST(Resource, finalizeAndInitialize) {
    initializeOther();
    EXPECT_TRUE(Resource::hasGroup("conformance/other"));
    finalizeOther();
    EXPECT_FALSE(Resource::hasGroup("conformance/other"));
    finalizeOther();
    EXPECT_FALSE(Resource::hasGroup("conformance/other"));
    initializeOther();
    EXPECT_TRUE(Resource::hasGroup("conformance/other"));
    initializeOther();
    EXPECT_EQ(Resource{"conformance/other"}.getString("nested"), "nested");
    finalizeOther();
    EXPECT_FALSE(Resource::hasGroup("conformance/other"));
}

/* Two files: "a" with "hello", "bb" with "wor" and one byte of padding. */
const unsigned int Positions[]{1, 5, 1u << 24 | 3, 9};
const unsigned char Filenames[] = "abb";
const unsigned char Data[] = "hellowor";
const unsigned char OtherData[] = "HELLOWOR";

TEST(ResourceGroup, layout) {
    ResourceGroup group{"made by hand", 2, Positions, Filenames, Data, nullptr};
    EXPECT_FALSE(Resource::hasGroup("made by hand"));
    Resource::registerData(group);
    ASSERT_TRUE(Resource::hasGroup("made by hand"));
    {
        const Resource resource{"made by hand"};
        EXPECT_THAT(names(resource), testing::ElementsAre("a", "bb"));
        EXPECT_EQ(resource.getString("a"), "hello");
        EXPECT_EQ(resource.getString("bb"), "wor");
        EXPECT_EQ(resource.getString("a").data(), reinterpret_cast<const char*>(Data));
        EXPECT_EQ(resource.getString("a").flags(), StringViewFlag::Global);
        EXPECT_EQ(resource.getString("bb").flags(), StringViewFlag::Global | StringViewFlag::NullTerminated);
        EXPECT_EQ(resource.getRaw("bb").size(), 3u);
    }
    Resource::unregisterData(group);
    EXPECT_FALSE(Resource::hasGroup("made by hand"));
}

TEST(ResourceGroup, withoutFiles) {
    ResourceGroup group{"empty", 0, nullptr, nullptr, nullptr, nullptr};
    Resource::registerData(group);
    const Resource resource{"empty"};
    EXPECT_EQ(resource.list().size(), 0u);
    EXPECT_FALSE(resource.hasFile("a"));
    EXPECT_ABORTS("Utility::Resource::get(): file 'a' was not found in group 'empty'", resource.getString("a"));
    Resource::unregisterData(group);
}

TEST(ResourceGroup, listWithOtherGroupsAround) {
    ResourceGroup a{"group a", 2, Positions, Filenames, Data, nullptr};
    Resource::registerData(a);
    const Containers::StringIterable list = Resource{"group a"}.list();
    ResourceGroup b{"group b", 0, nullptr, nullptr, nullptr, nullptr};
    Resource::registerData(b);
    EXPECT_EQ(list[0], "a");
    EXPECT_EQ(list[1], "bb");
    Resource::unregisterData(b);
    Resource::unregisterData(a);
}

TEST(ResourceGroup, nextTellsWhetherItIsRegistered) {
    ResourceGroup group{"g", 2, Positions, Filenames, Data, nullptr};
    Resource::registerData(group);
    EXPECT_NE(group.next, nullptr);
    Resource::unregisterData(group);
    EXPECT_EQ(group.next, nullptr);
}

TEST(ResourceGroup, repeatedRegistrationIsHarmless) {
    ResourceGroup a{"a", 2, Positions, Filenames, Data, nullptr};
    ResourceGroup b{"b", 2, Positions, Filenames, Data, nullptr};
    Resource::unregisterData(a);
    Resource::registerData(a);
    Resource::registerData(b);
    Resource::registerData(a);
    Resource::registerData(b);
    EXPECT_TRUE(Resource::hasGroup("a"));
    EXPECT_TRUE(Resource::hasGroup("b"));
    EXPECT_TRUE(Resource::hasGroup("conformance/group"));
    EXPECT_FALSE(Resource::hasGroup("c"));

    Resource::unregisterData(a);
    EXPECT_FALSE(Resource::hasGroup("a"));
    Resource::unregisterData(a);
    EXPECT_TRUE(Resource::hasGroup("b"));
    Resource::unregisterData(b);
    EXPECT_FALSE(Resource::hasGroup("b"));
    EXPECT_TRUE(Resource::hasGroup("conformance/group"));
}

TEST(ResourceGroup, ofEquallyNamedTheLastOneIsFound) {
    ResourceGroup first{"same", 2, Positions, Filenames, Data, nullptr};
    ResourceGroup second{"same", 2, Positions, Filenames, OtherData, nullptr};
    Resource::registerData(first);
    Resource::registerData(second);
    EXPECT_EQ(Resource{"same"}.getString("a"), "HELLO");
    Resource::unregisterData(second);
    EXPECT_EQ(Resource{"same"}.getString("a"), "hello");
    Resource::unregisterData(first);
}

TEST(ResourcePlugin, sharesTheGroupsWhileItIsLoaded) {
    EXPECT_FALSE(Resource::hasGroup("conformance/plugin"));
    void* const plugin = dlopen(RESOURCE_PLUGIN, RTLD_NOW | RTLD_GLOBAL);
    ASSERT_TRUE(plugin) << dlerror();
    EXPECT_TRUE(Resource::hasGroup("conformance/plugin"));
    EXPECT_EQ(Resource{"conformance/plugin"}.getString("text.txt"), "What is asked for by name.\n");

    const auto hasGroup = reinterpret_cast<bool (*)(const char*)>(dlsym(plugin, "hasGroup"));
    ASSERT_TRUE(hasGroup);
    EXPECT_TRUE(hasGroup("conformance/group"));
    EXPECT_TRUE(hasGroup("conformance/plugin"));

    ASSERT_EQ(dlclose(plugin), 0);
    EXPECT_FALSE(Resource::hasGroup("conformance/plugin"));
    EXPECT_TRUE(Resource::hasGroup("conformance/group"));
}

}
