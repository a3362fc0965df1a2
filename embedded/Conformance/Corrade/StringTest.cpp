#include "ContainersTesting.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StaticArray.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringIterable.h>
#include <Corrade/Containers/StringStl.h>

using namespace Corrade;
using namespace Corrade::Containers;
using namespace Corrade::Containers::Literals;
using namespace ContainersTesting;

namespace {

constexpr const char* LargestSmall = "0123456789012345678901";
constexpr const char* SmallestLarge = "01234567890123456789012";

std::vector<std::pair<std::string, std::size_t>> deleted;

void recordDeletion(char* data, std::size_t size) {
    deleted.emplace_back(data, size);
    delete[] data;
}

char* allocated(const char* text) { return strcpy(new char[std::string{text}.size() + 1], text); }

TEST(String, IsSmallUpTo22Bytes) {
    static_assert(sizeof(String) == 24, "");
    EXPECT_TRUE(String{}.isSmall());
    EXPECT_TRUE(String{"abc"}.isSmall());
    const String small = LargestSmall;
    EXPECT_TRUE(small.isSmall());
    EXPECT_EQ(small.size(), 22);
    EXPECT_STREQ(small.data(), LargestSmall);
    const String large = SmallestLarge;
    EXPECT_FALSE(large.isSmall());
    EXPECT_EQ(large.size(), 23);
    EXPECT_STREQ(large.data(), SmallestLarge);
    const char* const begin = reinterpret_cast<const char*>(&small);
    EXPECT_TRUE(small.data() >= begin && small.data() < begin + sizeof(String));
}

TEST(String, Constructs) {
    EXPECT_EQ(text(String{}), "");
    EXPECT_STREQ(String{}.data(), "");
    EXPECT_EQ(text(String{nullptr}), "");
    EXPECT_EQ(text(String{"abc"_s}), "abc");
    EXPECT_EQ(text(String{"abc", 2}), "ab");
    EXPECT_STREQ((String{"abc", 2}.data()), "ab");
    EXPECT_EQ(text(String{nullptr, 0}), "");
    EXPECT_EQ((String{"a\0b"_s}.size()), 3);
    EXPECT_EQ(text(String{ValueInit, 3}), (std::string(3, '\0')));
    EXPECT_EQ(text(String{ValueInit, 30}), (std::string(30, '\0')));
    EXPECT_EQ(text(String{DirectInit, 3, 'x'}), "xxx");
    EXPECT_EQ(text(String{DirectInit, 30, 'x'}), std::string(30, 'x'));
    EXPECT_EQ((String{NoInit, 5}.size()), 5);
    EXPECT_EQ((String{NoInit, 30}[30]), '\0');
    EXPECT_EQ((String{NoInit, 5}[5]), '\0');
    const String allocatedOne{AllocatedInit, "abc"};
    EXPECT_FALSE(allocatedOne.isSmall());
    EXPECT_STREQ(allocatedOne.data(), "abc");
    EXPECT_FALSE((String{AllocatedInit, ""}.isSmall()));
    char mutableText[] = "abc";
    EXPECT_EQ(text(String{MutableStringView{mutableText}}), "abc");
    EXPECT_EQ(text(String{ArrayView<const char>{"abc", 2}}), "ab");
    EXPECT_TRUE(String{"a"});
    EXPECT_FALSE(String{});
    EXPECT_TRUE(String{}.isEmpty());
}

TEST(String, TakesOwnership) {
    deleted.clear();
    {
        const String string{allocated("abc"), 3, recordDeletion};
        EXPECT_FALSE(string.isSmall());
        EXPECT_EQ(string.deleter(), recordDeletion);
        EXPECT_EQ(text(string), "abc");
    }
    EXPECT_THAT(deleted, testing::ElementsAre(testing::Pair("abc", 3)));
    const String plain{allocated("abc"), 3, nullptr};
    EXPECT_EQ(plain.deleter(), nullptr);
    EXPECT_EQ((String{AllocatedInit, "a"}.deleter()), nullptr);
    EXPECT_EQ(String{SmallestLarge}.deleter(), nullptr);
}

TEST(String, Releases) {
    deleted.clear();
    String string{allocated("abc"), 3, recordDeletion};
    char* const data = string.release();
    EXPECT_STREQ(data, "abc");
    EXPECT_TRUE(string.isSmall());
    EXPECT_TRUE(string.isEmpty());
    EXPECT_STREQ(string.data(), "");
    EXPECT_TRUE(deleted.empty());
    delete[] data;
}

TEST(String, Copies) {
    String small = "abc";
    const String smallCopy = small;
    small[0] = 'X';
    EXPECT_EQ(text(smallCopy), "abc");
    EXPECT_TRUE(smallCopy.isSmall());

    String large = SmallestLarge;
    const String largeCopy = large;
    EXPECT_NE(largeCopy.data(), large.data());
    EXPECT_EQ(text(largeCopy), SmallestLarge);

    const String allocatedOne{AllocatedInit, "b"};
    const String allocatedCopy = allocatedOne;
    EXPECT_FALSE(allocatedCopy.isSmall());
    small = allocatedOne;
    EXPECT_FALSE(small.isSmall());
    EXPECT_EQ(text(small), "b");
    large = smallCopy;
    EXPECT_TRUE(large.isSmall());
    EXPECT_EQ(text(large), "abc");
}

TEST(String, CopiesDropTheDeleter) {
    deleted.clear();
    {
        const String original{allocated("abc"), 3, recordDeletion};
        const String copy = original;
        EXPECT_EQ(copy.deleter(), nullptr);
        String assigned{allocated("xyz"), 3, recordDeletion};
        assigned = original;
        EXPECT_THAT(deleted, testing::ElementsAre(testing::Pair("xyz", 3)));
    }
    EXPECT_EQ(deleted.size(), 2);
}

TEST(String, Moves) {
    static_assert(std::is_nothrow_move_constructible<String>::value, "");
    static_assert(std::is_nothrow_move_assignable<String>::value, "");
    String large = SmallestLarge;
    const char* const data = large.data();
    String moved = std::move(large);
    EXPECT_EQ(moved.data(), data);
    EXPECT_EQ(large.size(), 0);
    EXPECT_EQ(large.data(), nullptr);
    String small = "abc";
    const String movedSmall = std::move(small);
    EXPECT_EQ(text(movedSmall), "abc");
    EXPECT_EQ(small.size(), 0);
    EXPECT_EQ(small.data(), nullptr);
    small = "usable again";
    EXPECT_EQ(text(small), "usable again");
    small = std::move(moved);
    EXPECT_EQ(small.data(), data);
    EXPECT_EQ(text(moved), "usable again");
    deleted.clear();
    {
        String owner{allocated("abc"), 3, recordDeletion};
        const String next = std::move(owner);
        EXPECT_TRUE(deleted.empty());
    }
    EXPECT_EQ(deleted.size(), 1);
}

TEST(String, IsAssignedPartsOfItself) {
    String string = "abcdefghijklmnopqrstuvwxyz";
    string = string.exceptPrefix(20);
    EXPECT_EQ(text(string), "uvwxyz");
    string = string.prefix(2) + string;
    EXPECT_EQ(text(string), "uvuvwxyz");
}

TEST(String, ReferencesTerminatedViews) {
    const StringView global = "abc"_s;
    const String view = String::nullTerminatedView(global);
    EXPECT_EQ(view.data(), global.data());
    EXPECT_FALSE(view.isSmall());
    EXPECT_EQ(view.size(), 3);
    const String copy = view;
    EXPECT_NE(copy.data(), global.data());
    const char local[] = "abc";
    EXPECT_EQ(String::nullTerminatedView(local).data(), local);
    const String cut = String::nullTerminatedView(global.prefix(2));
    EXPECT_NE(cut.data(), global.data());
    EXPECT_STREQ(cut.data(), "ab");
    EXPECT_TRUE(cut.isSmall());
    EXPECT_EQ(text(String::nullTerminatedView({})), "");
    EXPECT_STREQ(String::nullTerminatedView({}).data(), "");
}

TEST(String, ReferencesGlobalViews) {
    const StringView global = "abc"_s;
    String view = String::nullTerminatedGlobalView(global);
    EXPECT_EQ(view.data(), global.data());
    EXPECT_EQ(StringView{view}.flags(), StringViewFlag::Global | StringViewFlag::NullTerminated);
    const String moved = std::move(view);
    EXPECT_EQ(moved.data(), global.data());
    EXPECT_EQ(StringView{moved}.flags(), StringViewFlag::Global | StringViewFlag::NullTerminated);
    const String copy = moved;
    EXPECT_EQ(StringView{copy}.flags(), StringViewFlag::NullTerminated);

    const char local[] = "abc";
    EXPECT_NE(String::nullTerminatedGlobalView(local).data(), local);
    const StringView unterminated = global.prefix(2);
    EXPECT_NE(String::nullTerminatedGlobalView(unterminated).data(), global.data());
}

TEST(String, ConvertsToViews) {
    String string = "abc";
    const StringView view = string;
    EXPECT_EQ(view.data(), string.data());
    EXPECT_EQ(view.flags(), StringViewFlag::NullTerminated);
    MutableStringView{string}[1] = 'X';
    EXPECT_EQ(text(string), "aXc");
    EXPECT_EQ(ArrayView<const char>{string}.size(), 3);
    EXPECT_EQ(ArrayView<const void>{string}.size(), 3);
    static_assert(!std::is_convertible<const String&, MutableStringView>::value, "");
}

TEST(String, ConvertsToArrays) {
    const Array<char> small = String{"abc"};
    EXPECT_EQ(small.size(), 3);
    EXPECT_EQ(small.deleter(), nullptr);
    EXPECT_STREQ(small.data(), "abc");
    String large = SmallestLarge;
    const char* const data = large.data();
    const Array<char> largeArray = std::move(large);
    EXPECT_EQ(largeArray.data(), data);
    EXPECT_EQ(largeArray.size(), 23);
    const Array<char> empty = String{};
    EXPECT_EQ(empty.size(), 0);
    EXPECT_STREQ(empty.data(), "");
    deleted.clear();
    {
        const Array<char> custom = String{allocated("abc"), 3, recordDeletion};
        EXPECT_EQ(custom.deleter(), recordDeletion);
    }
    EXPECT_EQ(deleted.size(), 1);
}

TEST(String, ConvertsFromAndToStd) {
    const std::string std = String{SmallestLarge};
    EXPECT_EQ(std, SmallestLarge);
    const String back = std;
    EXPECT_EQ(text(back), SmallestLarge);
    EXPECT_TRUE(back == std);
}

TEST(String, Compares) {
    const String a = "a";
    EXPECT_TRUE(a == "a");
    EXPECT_TRUE("a" == a);
    EXPECT_TRUE(a == "a"_s);
    EXPECT_TRUE(a == String{"a"});
    EXPECT_TRUE(a != "b");
    EXPECT_TRUE(a < String{"aa"});
    EXPECT_TRUE(String{"b"} > a);
}

TEST(String, HasTheQueriesOfViews) {
    String string = "a=b=c";
    const String& constant = string;
    static_assert(std::is_same<decltype(string.prefix(1)), MutableStringView>::value, "");
    static_assert(std::is_same<decltype(constant.prefix(1)), StringView>::value, "");
    static_assert(std::is_same<decltype(string.split('=')), Array<MutableStringView>>::value, "");
    static_assert(std::is_same<decltype(constant.split('=')), Array<StringView>>::value, "");
    static_assert(std::is_same<decltype(constant.partition('=')), Array3<StringView>>::value, "");

    EXPECT_EQ(string.front(), 'a');
    EXPECT_EQ(constant.back(), 'c');
    EXPECT_EQ(constant.end() - constant.begin(), 5);
    EXPECT_EQ(text(string.slice(1, 3)), "=b");
    EXPECT_EQ(text(string.sliceSize(1, 3)), "=b=");
    EXPECT_EQ(text(string.prefix(string.find('=').begin())), "a");
    EXPECT_EQ(text(constant.suffix(constant.findLast('=').end())), "c");
    EXPECT_EQ(text(constant.exceptPrefix("a=")), "b=c");
    EXPECT_EQ(text(constant.exceptSuffix(1)), "a=b=");
    EXPECT_EQ(strings(constant.split('=')), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(strings(constant.split("=b")), (std::vector<std::string>{"a", "=c"}));
    EXPECT_EQ(strings(constant.partitionLast('=')), (std::vector<std::string>{"a=b", "=", "c"}));
    EXPECT_EQ(text(String{", "}.join({"a", "b"})), "a, b");
    EXPECT_EQ(text(String{", "}.joinWithoutEmptyParts({"a", ""})), "a");
    EXPECT_TRUE(constant.hasPrefix("a="));
    EXPECT_TRUE(constant.hasPrefix('a'));
    EXPECT_TRUE(constant.hasSuffix("=c"));
    EXPECT_FALSE(constant.hasSuffix('b'));
    EXPECT_TRUE(constant.contains('b'));
    EXPECT_FALSE(constant.contains("bb"));
    EXPECT_TRUE(constant.containsAny("xb"));
    EXPECT_EQ(constant.count('='), 2);
    EXPECT_EQ(text(String{" a "}.trimmed()), "a");
    EXPECT_EQ(text(constant.trimmed("ac")), "=b=");
    EXPECT_EQ(constant.findOr('x', constant.end()).data(), constant.end());
    EXPECT_EQ(constant.findAny("bc").data(), constant.data() + 2);
    string.find("b")[0] = 'B';
    EXPECT_EQ(text(string), "a=B=c");
}

TEST(String, Asserts) {
    EXPECT_ASSERT(
        (String{static_cast<const char*>(nullptr), 1}), "Containers::String: received a null string of size 1\n");
    const char* const ownership = "Containers::String: can only take ownership of a non-null null-terminated array\n";
    char unterminated[]{'a', 'b', 'c'};
    EXPECT_ASSERT((String{unterminated, 2, recordDeletion}), ownership);
    EXPECT_ASSERT((String{static_cast<char*>(nullptr), 0, recordDeletion}), ownership);
    EXPECT_ASSERT(String{}.deleter(), "Containers::String::deleter(): cannot call on a SSO instance\n");
    EXPECT_ASSERT(String{"a"}.release(), "Containers::String::release(): cannot call on a SSO instance\n");
}

}
