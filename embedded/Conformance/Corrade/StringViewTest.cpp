#include "ContainersTesting.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StaticArray.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringIterable.h>
#include <Corrade/Containers/StringStl.h>
#include <Corrade/Containers/StringView.h>

#include <random>

using namespace Corrade;
using namespace Corrade::Containers;
using namespace Corrade::Containers::Literals;
using namespace ContainersTesting;

namespace {

using Strings = std::vector<std::string>;

constexpr StringViewFlags None;
constexpr StringViewFlags Global = StringViewFlag::Global;
constexpr StringViewFlags Terminated = StringViewFlag::NullTerminated;
constexpr StringViewFlags Both = StringViewFlag::Global | StringViewFlag::NullTerminated;

constexpr StringView Hello = "hello world"_s;

/** Position and size in Hello, or {-1, size} if null. */
template<class T> std::pair<std::ptrdiff_t, std::size_t> range(BasicStringView<T> view) {
    return {view.data() ? view.data() - Hello.data() : -1, view.size()};
}
using Range = std::pair<std::ptrdiff_t, std::size_t>;
constexpr Range NotFound{-1, 0};

TEST(StringView, IsGlobalWithoutData) {
    EXPECT_EQ(StringView{}.data(), nullptr);
    EXPECT_EQ(StringView{}.size(), 0);
    EXPECT_EQ(StringView{}.flags(), Global);
    EXPECT_EQ(StringView{nullptr}.flags(), Global);
    EXPECT_EQ((StringView{nullptr, 0}.flags()), None);
    const char* const null = nullptr;
    EXPECT_EQ(StringView{null}.flags(), Global);
    EXPECT_EQ(StringView{null}.size(), 0);
    EXPECT_FALSE(StringView{});
}

TEST(StringView, HasFlags) {
    const char* const text = "abc";
    EXPECT_EQ("abc"_s.flags(), Both);
    EXPECT_EQ("abc"_s.size(), 3);
    EXPECT_EQ("a\0c"_s.size(), 3);
    EXPECT_EQ(""_s.flags(), Both);
    EXPECT_EQ(StringView{text}.flags(), Terminated);
    EXPECT_EQ(StringView{text}.size(), 3);
    EXPECT_EQ((StringView{text, 2}.flags()), None);
    EXPECT_EQ((StringView{text, 2}.size()), 2);
    EXPECT_EQ((StringView{text, StringViewFlag::Global}.flags()), Both);
    EXPECT_EQ((StringView{text, 2, StringViewFlag::Global}.flags()), Global);
    EXPECT_EQ(std::size_t(StringViewFlag::Global), std::size_t{1} << 63);
    EXPECT_EQ(std::size_t(StringViewFlag::NullTerminated), std::size_t{1} << 62);
    static_assert(sizeof(StringView) == 16, "");
}

TEST(StringView, IsTrueIfNotEmpty) {
    EXPECT_TRUE("a"_s);
    EXPECT_FALSE(""_s);
    EXPECT_TRUE(""_s.isEmpty());
    EXPECT_FALSE("a"_s.isEmpty());
    static_assert(!std::is_convertible<StringView, bool>::value, "");
}

TEST(StringView, ReadsInConstantExpressions) {
    static_assert(Hello.size() == 11, "");
    static_assert(Hello[1] == 'e', "");
    static_assert(Hello[11] == '\0', "");
    static_assert(Hello.front() == 'h' && Hello.back() == 'd', "");
    static_assert(Hello.slice(2, 4).size() == 2, "");
    static_assert(Hello.exceptPrefix(6)[0] == 'w', "");
    static_assert(Hello.prefix(5).flags() == Global, "");
    constexpr StringView null = nullptr;
    static_assert(null.isEmpty(), "");
}

TEST(StringView, WritesThrough) {
    char text[] = "hello";
    const MutableStringView view = text;
    EXPECT_EQ(view.flags(), Terminated);
    view[0] = 'H';
    for(char& i: view.exceptPrefix(1)) i = char(i - 'a' + 'A');
    EXPECT_STREQ(text, "HELLO");
    view.find('L')[0] = 'l';
    EXPECT_STREQ(text, "HElLO");
    const StringView constant = view;
    EXPECT_EQ(constant.flags(), Terminated);
    EXPECT_EQ(view.split('l')[1].data(), text + 3);
    static_assert(!std::is_convertible<StringView, MutableStringView>::value, "");
    static_assert(!std::is_convertible<const char*, MutableStringView>::value, "");
}

TEST(StringView, ConvertsFromCharacterArrays) {
    Array<char> array{InPlaceInit, {'a', 'b'}};
    EXPECT_EQ(text(StringView{array}), "ab");
    EXPECT_EQ(StringView{array}.flags(), None);
    EXPECT_EQ((StringView{array, StringViewFlag::Global}.flags()), Global);
    EXPECT_EQ(MutableStringView{array}.data(), array.data());
    EXPECT_EQ(text(StringView{ArrayView<const char>{"abc", 2}}), "ab");
}

TEST(StringView, ConvertsFromAndToStd) {
    const std::string std = "abc";
    const StringView view = std;
    EXPECT_EQ(view.data(), std.data());
    EXPECT_EQ(view.size(), 3);
    EXPECT_EQ(view.flags(), Terminated);
    const std::string back = "x\0y"_s;
    EXPECT_EQ(back, (std::string{"x\0y", 3}));
    EXPECT_EQ(std::string{StringView{}}, "");
    std::string changing = "abc";
    MutableStringView{changing}[1] = 'X';
    EXPECT_EQ(changing, "aXc");
    EXPECT_TRUE("abc"_s == std);
}

TEST(StringView, SlicesKeepTheFlagsThatHold) {
    const struct {
        const char* name;
        StringView slice;
        Range expected;
        StringViewFlags flags;
    } cases[]{
        {"prefix", Hello.prefix(5), {0, 5}, Global},
        {"whole prefix", Hello.prefix(11), {0, 11}, Both},
        {"empty prefix", Hello.prefix(0), {0, 0}, Global},
        {"exceptPrefix", Hello.exceptPrefix(5), {5, 6}, Both},
        {"exceptPrefix of all", Hello.exceptPrefix(11), {11, 0}, Both},
        {"exceptSuffix", Hello.exceptSuffix(5), {0, 6}, Global},
        {"exceptSuffix of nothing", Hello.exceptSuffix(0), {0, 11}, Both},
        {"slice to the end", Hello.slice(2, 11), {2, 9}, Both},
        {"slice in the middle", Hello.slice(2, 4), {2, 2}, Global},
        {"sliceSize", Hello.sliceSize(2, 3), {2, 3}, Global},
        {"slice with pointers", Hello.slice(Hello.begin() + 1, Hello.begin() + 3), {1, 2}, Global},
        {"prefix to a pointer", Hello.prefix(Hello.begin() + 3), {0, 3}, Global},
        {"suffix from a pointer", Hello.suffix(Hello.begin() + 6), {6, 5}, Both},
        {"suffix from the end", Hello.suffix(Hello.end()), {11, 0}, Both},
        {"prefix to null", Hello.prefix(nullptr), {-1, 0}, Global},
        {"suffix from null", Hello.suffix(nullptr), {-1, 0}, Global},
        {"except a string in front", Hello.exceptPrefix("hello"), {5, 6}, Both},
        {"except an empty string in front", Hello.exceptPrefix(""), {0, 11}, Both},
        {"except a string behind", Hello.exceptSuffix("world"), {0, 6}, Global},
        {"except an empty string behind", Hello.exceptSuffix(""), {0, 11}, Both},
        {"of a null view", StringView{}.prefix(0), {-1, 0}, Global},
    };
    for(const auto& i: cases) {
        SCOPED_TRACE(i.name);
        EXPECT_EQ(range(i.slice), i.expected);
        EXPECT_EQ(i.slice.flags(), i.flags);
    }
    EXPECT_EQ((StringView{Hello.data(), 11}.slice(0, 11).flags()), None);
}

TEST(StringView, Asserts) {
    const StringView unterminated{Hello.data(), 11};
    const StringView empty;
    EXPECT_ASSERT((StringView{static_cast<const char*>(nullptr), 0, StringViewFlag::NullTerminated}),
        "Containers::StringView: Containers::StringViewFlag::NullTerminated expects non-null null-terminated data\n");
    EXPECT_ASSERT((StringView{"abc", 2, StringViewFlag::NullTerminated}),
        "Containers::StringView: Containers::StringViewFlag::NullTerminated expects non-null null-terminated data\n");
    EXPECT_ASSERT(static_cast<void>(Hello[12]),
        "Containers::StringView::operator[](): index 12 out of range for 11 null-terminated bytes\n");
    EXPECT_ASSERT(static_cast<void>(unterminated[11]),
        "Containers::StringView::operator[](): index 11 out of range for 11 bytes\n");
    EXPECT_ASSERT(static_cast<void>(empty.front()), "Containers::StringView::front(): view is empty\n");
    EXPECT_ASSERT(static_cast<void>(empty.back()), "Containers::StringView::back(): view is empty\n");
    EXPECT_ASSERT(static_cast<void>(Hello.prefix(12)),
        "Containers::StringView::slice(): slice [0:12] out of range for 11 elements\n");
    EXPECT_ASSERT(static_cast<void>(Hello.slice(3, 2)),
        "Containers::StringView::slice(): slice [3:2] out of range for 11 elements\n");
    EXPECT_ASSERT(static_cast<void>(Hello.exceptPrefix(12)),
        "Containers::StringView::slice(): slice [12:11] out of range for 11 elements\n");
    EXPECT_ASSERT(static_cast<void>(Hello.exceptPrefix(1).suffix(Hello.begin())),
        "Containers::StringView::slice(): slice [-1:10] out of range for 10 elements\n");
    EXPECT_ASSERT(static_cast<void>(Hello.exceptPrefix("world")),
        "Containers::StringView::exceptPrefix(): string doesn't begin with world\n");
    EXPECT_ASSERT(static_cast<void>(Hello.exceptSuffix("hello")),
        "Containers::StringView::exceptSuffix(): string doesn't end with hello\n");
    EXPECT_ASSERT(static_cast<void>(Hello.split("")), "Containers::StringView::split(): delimiter is empty\n");
}

TEST(StringView, Finds) {
    const StringView null;
    const struct {
        const char* name;
        StringView found;
        Range expected;
    } cases[]{
        {"character", Hello.find('o'), {4, 1}},
        {"character at the end", Hello.find('d'), {10, 1}},
        {"absent character", Hello.find('x'), NotFound},
        {"string", Hello.find("wor"), {6, 3}},
        {"string at the end", Hello.find("ld"), {9, 2}},
        {"itself", Hello.find(Hello), {0, 11}},
        {"one character as a string", Hello.find("l"), {2, 1}},
        {"absent string", Hello.find("worlds"), NotFound},
        {"longer string", Hello.find("hello world!"), NotFound},
        {"empty string", Hello.find(""), {0, 0}},
        {"empty string in null", null.find(""), NotFound},
        {"character in null", null.find('x'), NotFound},
        {"last character", Hello.findLast('o'), {7, 1}},
        {"absent last character", Hello.findLast('x'), NotFound},
        {"last string", Hello.findLast("l"), {9, 1}},
        {"last string at the beginning", Hello.findLast("hello"), {0, 5}},
        {"last string among false starts", Hello.findLast("lo"), {3, 2}},
        {"absent last string", Hello.findLast("lx"), NotFound},
        {"last empty string", Hello.findLast(""), {11, 0}},
        {"last empty string in null", null.findLast(""), NotFound},
        {"any", Hello.findAny("wo"), {4, 1}},
        {"any of nothing", Hello.findAny(""), NotFound},
        {"absent any", Hello.findAny("xyz"), NotFound},
        {"last any", Hello.findLastAny("he"), {1, 1}},
        {"absent last any", Hello.findLastAny("xyz"), NotFound},
        {"or", Hello.findOr('x', Hello.end()), {11, 0}},
        {"or string", Hello.findOr("xx", Hello.begin()), {0, 0}},
        {"or not needed", Hello.findOr("or", Hello.end()), {7, 2}},
        {"last or", Hello.findLastOr('x', Hello.begin()), {0, 0}},
        {"last or string", Hello.findLastOr("xx", Hello.end()), {11, 0}},
        {"any or", Hello.findAnyOr("xz", Hello.end()), {11, 0}},
        {"last any or", Hello.findLastAnyOr("xz", Hello.begin()), {0, 0}},
    };
    for(const auto& i: cases) {
        SCOPED_TRACE(i.name);
        EXPECT_EQ(range(i.found), i.expected);
    }
    EXPECT_EQ(Hello.find('o').flags(), Global);
    EXPECT_EQ(Hello.find('d').flags(), Both);
    EXPECT_EQ(Hello.find('x').flags(), None);
    EXPECT_EQ(Hello.findOr('x', Hello.end()).flags(), None);
    const char bytes[]{'a', '\0', '\xff', '\0'};
    EXPECT_EQ((StringView{bytes, 4}.findLast('\0').data()), bytes + 3);
    EXPECT_EQ((StringView{bytes, 4}.findAny("\xff").data()), bytes + 2);
}

TEST(StringView, FindsTheSameAsStd) {
    std::mt19937 random{1};
    for(int i = 0; i != 2000; ++i) {
        std::string haystack(random() % 40, ' ');
        std::string needle(1 + random() % 5, ' ');
        for(char& c: haystack) c = char('a' + random() % 3);
        for(char& c: needle) c = char('a' + random() % 3);
        const StringView view = haystack;
        const auto position = [&](StringView found) {
            return found.data() ? std::size_t(found.data() - view.data()) : std::string::npos;
        };
        ASSERT_EQ(position(view.find(needle)), haystack.find(needle)) << haystack << " " << needle;
        ASSERT_EQ(position(view.findLast(needle)), haystack.rfind(needle)) << haystack << " " << needle;
        ASSERT_EQ(position(view.findLast(needle[0])), haystack.rfind(needle[0])) << haystack << " " << needle;
        ASSERT_EQ(position(view.findAny(needle)), haystack.find_first_of(needle)) << haystack << " " << needle;
        ASSERT_EQ(position(view.findLastAny(needle)), haystack.find_last_of(needle)) << haystack << " " << needle;
        ASSERT_EQ(view < StringView{needle}, haystack < needle) << haystack << " " << needle;
    }
}

TEST(StringView, Queries) {
    EXPECT_TRUE(Hello.hasPrefix("hello"));
    EXPECT_TRUE(Hello.hasPrefix('h'));
    EXPECT_TRUE(Hello.hasPrefix(""));
    EXPECT_FALSE(Hello.hasPrefix("hello world!"));
    EXPECT_FALSE(Hello.hasPrefix('e'));
    EXPECT_TRUE(StringView{}.hasPrefix(""));
    EXPECT_FALSE(StringView{}.hasPrefix('a'));
    EXPECT_TRUE(Hello.hasSuffix("world"));
    EXPECT_TRUE(Hello.hasSuffix('d'));
    EXPECT_TRUE(Hello.hasSuffix(""));
    EXPECT_FALSE(Hello.hasSuffix("!hello world"));
    EXPECT_FALSE(Hello.hasSuffix('l'));
    EXPECT_FALSE(StringView{}.hasSuffix('a'));
    EXPECT_TRUE(Hello.contains("lo w"));
    EXPECT_TRUE(Hello.contains('h'));
    EXPECT_TRUE(Hello.contains(""));
    EXPECT_FALSE(Hello.contains('x'));
    EXPECT_FALSE(Hello.contains("low"));
    EXPECT_FALSE(StringView{}.contains(""));
    EXPECT_TRUE(Hello.containsAny("xyh"));
    EXPECT_FALSE(Hello.containsAny("xyz"));
    EXPECT_EQ(Hello.count('l'), 3);
    EXPECT_EQ(Hello.count('x'), 0);
    EXPECT_EQ(StringView{}.count('x'), 0);
}

TEST(StringView, Trims) {
    EXPECT_EQ(text("  \t\n\v\f\r a b \t"_s.trimmed()), "a b");
    EXPECT_EQ(text("  a "_s.trimmedPrefix()), "a ");
    EXPECT_EQ(text("  a "_s.trimmedSuffix()), "  a");
    EXPECT_EQ(text(" \0 "_s.trimmed()), (std::string{"\0", 1}));
    EXPECT_EQ(text("xxaxx"_s.trimmed("x")), "a");
    EXPECT_EQ(text("xyaxy"_s.trimmedPrefix("xy")), "axy");
    EXPECT_EQ(text("xyaxy"_s.trimmedSuffix("xy")), "xya");
    EXPECT_EQ(text("abc"_s.trimmed("")), "abc");
    const StringView blank = "  ";
    EXPECT_EQ(blank.trimmed().data(), blank.end());
    EXPECT_EQ(blank.trimmedPrefix().data(), blank.end());
    EXPECT_EQ(blank.trimmedSuffix().data(), blank.begin());
    EXPECT_EQ(StringView{}.trimmed().data(), nullptr);
}

TEST(StringView, SplitsOnACharacter) {
    const struct {
        StringView string;
        Strings parts, nonEmpty;
    } cases[]{
        {"/objects/x/translation", {"", "objects", "x", "translation"}, {"objects", "x", "translation"}},
        {"/", {"", ""}, {}},
        {"a", {"a"}, {"a"}},
        {"", {}, {}},
        {{}, {}, {}},
        {"a//b/", {"a", "", "b", ""}, {"a", "b"}},
    };
    for(const auto& i: cases) {
        SCOPED_TRACE(text(i.string));
        EXPECT_EQ(strings(i.string.split('/')), i.parts);
        EXPECT_EQ(strings(i.string.splitWithoutEmptyParts('/')), i.nonEmpty);
    }
    const Array<StringView> parts = Hello.split(' ');
    EXPECT_EQ(range(parts[1]), (Range{6, 5}));
    EXPECT_EQ(parts[0].flags(), Global);
    EXPECT_EQ(parts[1].flags(), Both);
}

TEST(StringView, SplitsOnAString) {
    EXPECT_EQ(strings("a, b,c, "_s.split(", ")), (Strings{"a", "b,c", ""}));
    EXPECT_EQ(strings(", "_s.split(", ")), (Strings{"", ""}));
    EXPECT_EQ(strings(""_s.split(", ")), Strings{});
    EXPECT_EQ(strings("aaaaa"_s.split("aa")), (Strings{"", "", "a"}));
    EXPECT_EQ(strings("abc"_s.split("abcd")), (Strings{"abc"}));
}

TEST(StringView, SplitsOnAnyOfSeveral) {
    EXPECT_EQ(strings("a, b;c ;"_s.splitOnAnyWithoutEmptyParts(" ,;")), (Strings{"a", "b", "c"}));
    EXPECT_EQ(strings("abc"_s.splitOnAnyWithoutEmptyParts("")), (Strings{"abc"}));
    EXPECT_EQ(strings(""_s.splitOnAnyWithoutEmptyParts(",")), Strings{});
    EXPECT_EQ(strings("  a\tb\n\v\fc\r "_s.splitOnWhitespaceWithoutEmptyParts()), (Strings{"a", "b", "c"}));
    EXPECT_EQ(strings("   "_s.splitOnWhitespaceWithoutEmptyParts()), Strings{});
}

TEST(StringView, SplitsIntoMany) {
    std::string joined;
    Strings expected;
    for(int i = 0; i != 1000; ++i) {
        expected.push_back(std::to_string(i * 37));
        joined += (i ? "," : "") + expected.back();
        if(i < 50 || i == 999) {
            ASSERT_EQ(strings(StringView{joined}.split(',')), expected);
            ASSERT_EQ(strings(StringView{joined}.split(",")), expected);
        }
    }
}

TEST(StringView, Partitions) {
    EXPECT_EQ(strings("a=b=c"_s.partition('=')), (Strings{"a", "=", "b=c"}));
    EXPECT_EQ(strings("a=b=c"_s.partitionLast('=')), (Strings{"a=b", "=", "c"}));
    EXPECT_EQ(strings("=a"_s.partition('=')), (Strings{"", "=", "a"}));
    EXPECT_EQ(strings("a="_s.partitionLast('=')), (Strings{"a", "=", ""}));
    EXPECT_EQ(strings("a->b->c"_s.partition("->")), (Strings{"a", "->", "b->c"}));
    EXPECT_EQ(strings("a->b->c"_s.partitionLast("->")), (Strings{"a->b", "->", "c"}));
    EXPECT_EQ(strings("abc"_s.partition("abc")), (Strings{"", "abc", ""}));
    EXPECT_EQ(strings("abc"_s.partition("")), (Strings{"", "", "abc"}));
    EXPECT_EQ(strings("abc"_s.partitionLast("")), (Strings{"abc", "", ""}));
    EXPECT_EQ(strings(StringView{}.partition('=')), (Strings{"", "", ""}));
    EXPECT_EQ("a=b=c"_s.partition('=')[0].flags(), Global);
    EXPECT_EQ("a=b=c"_s.partition('=')[2].flags(), Both);
}

TEST(StringView, PartitionsWithoutASeparator) {
    const Array3<StringView> first = Hello.partition('=');
    EXPECT_EQ(range(first[0]), (Range{0, 11}));
    EXPECT_EQ(range(first[1]), (Range{11, 0}));
    EXPECT_EQ(range(first[2]), (Range{11, 0}));
    const Array3<StringView> last = Hello.partitionLast("->");
    EXPECT_EQ(range(last[0]), (Range{11, 0}));
    EXPECT_EQ(range(last[1]), (Range{11, 0}));
    EXPECT_EQ(range(last[2]), (Range{0, 11}));
}

TEST(StringView, Joins) {
    EXPECT_EQ(text(", "_s.join({"a", "b", ""})), "a, b, ");
    EXPECT_EQ(text(", "_s.join({})), "");
    EXPECT_EQ(text("/"_s.join({"a"})), "a");
    EXPECT_EQ(text(""_s.join({"a", "b"})), "ab");
    EXPECT_EQ(text(", "_s.joinWithoutEmptyParts({"", "a", "", "b", ""})), "a, b");
    EXPECT_EQ(text(", "_s.joinWithoutEmptyParts({"", ""})), "");
    EXPECT_EQ(text("/"_s.join("/objects/x"_s.split('/'))), "/objects/x");
}

TEST(StringView, Compares) {
    EXPECT_TRUE("a"_s == "a"_s);
    EXPECT_TRUE(StringView{} == ""_s);
    EXPECT_FALSE("a\0b"_s == "a"_s);
    EXPECT_FALSE("a\0b"_s == "a\0c"_s);
    EXPECT_TRUE("a"_s != "b"_s);
    EXPECT_TRUE("a"_s == "a");
    EXPECT_TRUE("a" == "a"_s);
    const StringView ordered[]{"", "A", "a", "a\0"_s, "aa", "b", "\xff"};
    for(std::size_t i = 0; i != std::size(ordered); ++i)
        for(std::size_t j = 0; j != std::size(ordered); ++j) {
            SCOPED_TRACE(std::to_string(i) + " " + std::to_string(j));
            EXPECT_EQ(ordered[i] < ordered[j], i < j);
            EXPECT_EQ(ordered[i] <= ordered[j], i <= j);
            EXPECT_EQ(ordered[i] > ordered[j], i > j);
            EXPECT_EQ(ordered[i] >= ordered[j], i >= j);
            EXPECT_EQ(ordered[i] == ordered[j], i == j);
            EXPECT_EQ(ordered[i] != ordered[j], i != j);
        }
    char changing[] = "abc";
    EXPECT_TRUE(MutableStringView{changing} == "abc");
}

TEST(StringView, ConcatenatesAndRepeats) {
    EXPECT_EQ(text("a"_s + "bc"_s), "abc");
    EXPECT_EQ(text("a"_s + ""), "a");
    EXPECT_EQ(text(StringView{} + StringView{}), "");
    EXPECT_EQ(text("ab"_s * 3), "ababab");
    EXPECT_EQ(text("ab"_s * 0), "");
    EXPECT_EQ(text("0123456789012345678901"_s + "x"_s), "0123456789012345678901x");
}

}
