#include "ContainersTesting.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StaticArray.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringIterable.h>
#include <Corrade/Containers/StringStl.h>

using namespace Corrade;
using namespace Corrade::Containers;
using namespace Corrade::Containers::Literals;
using namespace ContainersTesting;

namespace {

using Strings = std::vector<std::string>;

Strings collect(const StringIterable& list) { return strings(list); }

TEST(StringIterable, TakesListsInBraces) {
    EXPECT_EQ(collect({"a", "b"_s, String{"c"}}), (Strings{"a", "b", "c"}));
    EXPECT_EQ(collect({"a"}), Strings{"a"});
    EXPECT_EQ(collect({}), Strings{});
    EXPECT_EQ(collect(nullptr), Strings{});
}

TEST(StringIterable, TakesAllKindsOfLists) {
    const Strings expected{"x", "yy"};
    const char* pointers[]{"x", "yy"};
    EXPECT_EQ(collect(pointers), expected);
    String owned[]{"x", "yy"};
    EXPECT_EQ(collect(owned), expected);
    StringView views[]{"x", "yy"};
    EXPECT_EQ(collect(views), expected);
    EXPECT_EQ(collect(arrayView(views)), expected);
    EXPECT_EQ(collect(StridedArrayView1D<StringView>{views}.flipped<0>()), (Strings{"yy", "x"}));
    char first[] = "x";
    char second[] = "yy";
    MutableStringView mutableViews[]{first, second};
    EXPECT_EQ(collect(mutableViews), expected);
    Array<std::string> std{InPlaceInit, {"x", "yy"}};
    EXPECT_EQ(collect(std), expected);
    const Array<String> array{InPlaceInit, {"x", "yy"}};
    EXPECT_EQ(collect(array), expected);
    EXPECT_EQ(collect(StaticArray<2, String>{"x", "yy"}), expected);
    EXPECT_EQ(collect("x yy"_s.split(' ')), expected);
    static_assert(!std::is_convertible<StringView, StringIterable>::value, "");
    static_assert(!std::is_convertible<const char*, StringIterable>::value, "");
    static_assert(!std::is_convertible<Array<int>&, StringIterable>::value, "");
}

TEST(StringIterable, ViewsTheStrings) {
    const StringView views[]{"abc"_s, "def"_s.prefix(1)};
    const StringIterable list = views;
    EXPECT_EQ(list.size(), 2);
    EXPECT_FALSE(list.isEmpty());
    EXPECT_EQ(list.data(), views);
    EXPECT_EQ(list.stride(), 16);
    EXPECT_EQ(list[0].data(), views[0].data());
    EXPECT_EQ(list[0].flags(), StringViewFlag::Global | StringViewFlag::NullTerminated);
    EXPECT_EQ(list.back().flags(), StringViewFlag::Global);
    EXPECT_EQ(text(list.front()), "abc");
    EXPECT_EQ(list.end() - list.begin(), 2);
    EXPECT_TRUE(StringIterable{}.isEmpty());
    const String owned[]{"a"};
    EXPECT_EQ(StringIterable{owned}[0].flags(), StringViewFlag::NullTerminated);
}

}
