#include "ContainersTesting.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StaticArray.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>

using namespace Corrade;
using namespace Corrade::Containers;
using namespace Corrade::Containers::Literals;
using namespace ContainersTesting;

namespace {

struct Base {
    int value;
};
struct Derived: Base {};

constexpr int Numbers[]{1, 2, 3, 4, 5};

TEST(ContainersArrayView, IsEmptyAndNullByDefault) {
    const ArrayView<int> view;
    EXPECT_EQ(view.data(), nullptr);
    EXPECT_EQ(view.size(), 0);
    EXPECT_TRUE(view.isEmpty());
    EXPECT_FALSE(view);
    EXPECT_EQ(view.begin(), view.end());
}

TEST(ContainersArrayView, IsTrueWhereverItPoints) {
    int value{};
    EXPECT_TRUE((ArrayView<int>{&value, 0}));
    EXPECT_FALSE((ArrayView<int>{nullptr, 5}));
}

TEST(ContainersArrayView, ReadsInConstantExpressions) {
    constexpr ArrayView<const int> view = Numbers;
    static_assert(view.size() == 5, "");
    static_assert(!view.isEmpty(), "");
    static_assert(view[1] == 2, "");
    static_assert(view.front() == 1, "");
    static_assert(view.back() == 5, "");
    static_assert(view.slice(1, 3).size() == 2, "");
    static_assert(view.exceptPrefix(2).front() == 3, "");
    constexpr StaticArrayView<5, const int> fixed = Numbers;
    static_assert(fixed[4] == 5, "");
    EXPECT_EQ(view.data(), Numbers);
}

TEST(ContainersArrayView, WritesThrough) {
    int data[]{1, 2, 3};
    ArrayView<int> view = data;
    view[1] = 20;
    for(int& i: view) ++i;
    view.front() = 7;
    EXPECT_THAT(data, testing::ElementsAre(7, 21, 4));
}

TEST(ContainersArrayView, Slices) {
    const ArrayView<const int> view = Numbers;
    EXPECT_THAT(items(view.slice(1, 3)), testing::ElementsAre(2, 3));
    EXPECT_THAT(items(view.sliceSize(1, 3)), testing::ElementsAre(2, 3, 4));
    EXPECT_THAT(items(view.prefix(2)), testing::ElementsAre(1, 2));
    EXPECT_THAT(items(view.suffix(Numbers + 3)), testing::ElementsAre(4, 5));
    EXPECT_THAT(items(view.exceptPrefix(3)), testing::ElementsAre(4, 5));
    EXPECT_THAT(items(view.exceptSuffix(3)), testing::ElementsAre(1, 2));
    const StaticArrayView<3, const int> fixed = view.slice<3>(1);
    EXPECT_THAT(items(fixed), testing::ElementsAre(2, 3, 4));
    EXPECT_EQ(fixed.data(), Numbers + 1);
}

TEST(ContainersArrayView, SlicesAtTheEnds) {
    const ArrayView<const int> view = Numbers;
    EXPECT_EQ(view.slice(5, 5).data(), Numbers + 5);
    EXPECT_EQ(view.prefix(0).data(), Numbers);
    EXPECT_EQ(view.prefix(5).size(), 5);
    EXPECT_EQ(view.exceptPrefix(5).size(), 0);
    EXPECT_EQ(view.suffix(Numbers + 5).size(), 0);
    EXPECT_EQ(ArrayView<const int>{}.prefix(0).data(), nullptr);
}

TEST(ContainersArrayView, SuffixFromNullIsNull) {
    const ArrayView<const int> suffix = ArrayView<const int>{Numbers}.suffix(nullptr);
    EXPECT_EQ(suffix.data(), nullptr);
    EXPECT_EQ(suffix.size(), 0);
}

TEST(ContainersArrayView, ConvertsWhereItIsSafe) {
    static_assert(std::is_convertible<ArrayView<int>, ArrayView<const int>>::value, "");
    static_assert(!std::is_convertible<ArrayView<const int>, ArrayView<int>>::value, "");
    static_assert(!std::is_convertible<ArrayView<int>, ArrayView<float>>::value, "");
    static_assert(std::is_convertible<ArrayView<Derived>, ArrayView<Base>>::value, "");
    static_assert(!std::is_convertible<ArrayView<Base>, ArrayView<Derived>>::value, "");

    static_assert(std::is_convertible<Array<int>&, ArrayView<int>>::value, "");
    static_assert(!std::is_convertible<const Array<int>&, ArrayView<int>>::value, "");
    static_assert(std::is_convertible<const Array<int>&, ArrayView<const int>>::value, "");
    static_assert(std::is_convertible<StaticArray<3, int>&, ArrayView<int>>::value, "");
    static_assert(std::is_convertible<StaticArrayView<3, int>, ArrayView<const int>>::value, "");
    static_assert(std::is_convertible<int(&)[3], ArrayView<const int>>::value, "");
    static_assert(!std::is_convertible<std::initializer_list<int>, ArrayView<const int>>::value, "");

    static_assert(std::is_convertible<StringView, ArrayView<const char>>::value, "");
    static_assert(std::is_convertible<String&, ArrayView<char>>::value, "");
    static_assert(!std::is_convertible<StringView, ArrayView<char>>::value, "");

    static_assert(!std::is_convertible<ArrayView<int>, bool>::value, "");
    static_assert(std::is_trivially_copyable<ArrayView<int>>::value, "");
    static_assert(sizeof(ArrayView<int>) == 2 * sizeof(void*), "");

    Array<int> array{ValueInit, 3};
    EXPECT_EQ(ArrayView<const int>{array}.data(), array.data());
    EXPECT_EQ(ArrayView<const int>{array}.size(), 3);
}

TEST(ContainersArrayView, IsMadeByAFunction) {
    int data[]{1, 2, 3};
    static_assert(std::is_same<decltype(arrayView(data)), ArrayView<int>>::value, "");
    static_assert(std::is_same<decltype(arrayView({1, 2})), ArrayView<const int>>::value, "");
    static_assert(
        std::is_same<decltype(arrayView(std::declval<const Array<int>&>())), ArrayView<const int>>::value, "");
    static_assert(std::is_same<decltype(arrayView(std::declval<Array<int>&>())), ArrayView<int>>::value, "");
    static_assert(std::is_same<decltype(arrayView(std::declval<StaticArray<3, int>&>())), ArrayView<int>>::value, "");
    static_assert(std::is_same<decltype(arrayView("a"_s)), ArrayView<const char>>::value, "");
    EXPECT_EQ(arrayView(data).size(), 3);
    EXPECT_EQ(arrayView(data, 2).size(), 2);
    const auto sum = [](ArrayView<const int> view) {
        int sum = 0;
        for(const int i: view) sum += i;
        return sum;
    };
    EXPECT_EQ(sum(arrayView({1, 2, 40})), 43);
}

TEST(ContainersArrayView, Asserts) {
    const ArrayView<const int> view = Numbers;
    const ArrayView<const int> empty;
    EXPECT_ASSERT(
        static_cast<void>(view[5]), "Containers::ArrayView::operator[](): index 5 out of range for 5 elements\n");
    EXPECT_ASSERT(static_cast<void>(empty.front()), "Containers::ArrayView::front(): view is empty\n");
    EXPECT_ASSERT(static_cast<void>(empty.back()), "Containers::ArrayView::back(): view is empty\n");
    EXPECT_ASSERT(static_cast<void>(view.slice(2, 1)),
        "Containers::ArrayView::slice(): slice [2:1] out of range for 5 elements\n");
    EXPECT_ASSERT(static_cast<void>(view.slice(2, 6)),
        "Containers::ArrayView::slice(): slice [2:6] out of range for 5 elements\n");
    EXPECT_ASSERT(static_cast<void>(view.sliceSize(2, 5)),
        "Containers::ArrayView::slice(): slice [2:7] out of range for 5 elements\n");
    EXPECT_ASSERT(
        static_cast<void>(view.prefix(6)), "Containers::ArrayView::slice(): slice [0:6] out of range for 5 elements\n");
    EXPECT_ASSERT(static_cast<void>(view.exceptPrefix(6)),
        "Containers::ArrayView::slice(): slice [6:5] out of range for 5 elements\n");
    EXPECT_ASSERT(static_cast<void>(view.exceptSuffix(6)),
        "Containers::ArrayView::slice(): slice [0:18446744073709551615] out of range for 5 elements\n");
    EXPECT_ASSERT(static_cast<void>(view.slice<3>(3)),
        "Containers::ArrayView::slice(): slice [3:6] out of range for 5 elements\n");
    EXPECT_ASSERT(static_cast<void>(view.slice(1, 4).suffix(Numbers)),
        "Containers::ArrayView::slice(): slice [-1:3] out of range for 3 elements\n");
}

TEST(ContainersErasedArrayView, CountsBytes) {
    int data[3]{};
    const ArrayView<const void> ofArray = data;
    EXPECT_EQ(ofArray.data(), data);
    EXPECT_EQ(ofArray.size(), 12);
    EXPECT_EQ((ArrayView<const void>{data, 2}.size()), 8);
    EXPECT_EQ((ArrayView<const void>{static_cast<const void*>(data), 2}.size()), 2);
    EXPECT_EQ(ArrayView<void>{arrayView(data)}.size(), 12);
    EXPECT_EQ(ArrayView<const void>{"abc"_s}.size(), 3);

    Array<short> array{ValueInit, 5};
    const ArrayView<void> mutableView = array;
    EXPECT_EQ(mutableView.size(), 10);
    EXPECT_EQ(ArrayView<const void>{mutableView}.size(), 10);
    EXPECT_EQ(ArrayView<const void>{}.data(), nullptr);

    static_assert(!std::is_convertible<ArrayView<const int>, ArrayView<void>>::value, "");
    static_assert(!std::is_convertible<const Array<int>&, ArrayView<void>>::value, "");
}

TEST(ContainersArrayCast, ReinterpretsTheSameMemory) {
    int data[]{0x01020304, 0x05060708};
    const ArrayView<unsigned char> bytes = arrayCast<unsigned char>(arrayView(data));
    EXPECT_EQ(bytes.size(), 8);
    EXPECT_EQ(bytes[4], 8);
    EXPECT_EQ(arrayCast<int>(bytes).data(), data);
    EXPECT_EQ(arrayCast<int>(bytes).size(), 2);
    EXPECT_EQ(arrayCast<const int>(ArrayView<const void>{data}).size(), 2);
    EXPECT_EQ(arrayCast<short>(ArrayView<void>{data}).size(), 4);

    Array<int> array{InPlaceInit, {1, 2, 3}};
    static_assert(std::is_same<decltype(arrayCast<unsigned>(array)), ArrayView<unsigned>>::value, "");
    EXPECT_EQ(arrayCast<unsigned>(array)[2], 3);
    EXPECT_EQ(arrayCast<int>(ArrayView<char>{}).size(), 0);
}

TEST(ContainersArrayCast, Asserts) {
    char data[3]{};
    EXPECT_ASSERT(arrayCast<int>(arrayView(data)),
        "Containers::arrayCast(): can't reinterpret 3 1-byte items into a 4-byte type\n");
    EXPECT_ASSERT(arrayCast<const int>(ArrayView<const void>{data}),
        "Containers::arrayCast(): can't reinterpret 3 bytes into a 4-byte type\n");
    EXPECT_ASSERT(arrayCast<int>(ArrayView<void>{data}),
        "Containers::arrayCast(): can't reinterpret 3 bytes into a 4-byte type\n");
}

TEST(ContainersStaticArrayView, KnowsItsSize) {
    int data[]{1, 2, 3};
    const StaticArrayView<3, int> view = data;
    EXPECT_EQ(view.size(), 3);
    EXPECT_FALSE(view.isEmpty());
    EXPECT_EQ(view.front(), 1);
    view.back() = 30;
    EXPECT_EQ(data[2], 30);
    EXPECT_EQ(ArrayView<int>{view}.size(), 3);
    EXPECT_EQ((StaticArrayView<2, int>{data + 1}[0]), 2);
    static_assert(!std::is_convertible<int*, StaticArrayView<3, int>>::value, "");
    static_assert(!std::is_constructible<StaticArrayView<3, int>, ArrayView<int>>::value, "");
    EXPECT_ASSERT(
        static_cast<void>(view[3]), "Containers::StaticArrayView::operator[](): index 3 out of range for 3 elements\n");
}

TEST(ContainersStaticArray, Constructs) {
    EXPECT_THAT(items(StaticArray<2, int>{}), testing::ElementsAre(0, 0));
    EXPECT_THAT(items(StaticArray<2, int>{ValueInit}), testing::ElementsAre(0, 0));
    EXPECT_THAT(items(StaticArray<2, int>{DirectInit, 5}), testing::ElementsAre(5, 5));
    EXPECT_THAT(items(StaticArray<3, int>{InPlaceInit, 1, 2, 3}), testing::ElementsAre(1, 2, 3));
    EXPECT_THAT(items(StaticArray<3, int>{InPlaceInit, {1, 2, 3}}), testing::ElementsAre(1, 2, 3));
    EXPECT_THAT(items(StaticArray<3, int>{1, 2, 3}), testing::ElementsAre(1, 2, 3));
    EXPECT_THAT(items(Array2<std::string>{"a", "b"}), testing::ElementsAre("a", "b"));
    StaticArray<2, int> uninitialised{NoInit};
    uninitialised[0] = uninitialised[1] = 3;
    EXPECT_EQ(uninitialised.back(), 3);
    EXPECT_EQ(sizeof(StaticArray<3, int>), sizeof(int) * 3);
    static_assert(std::is_trivially_copyable<StaticArray<3, int>>::value, "");
}

TEST(ContainersStaticArray, CopiesAndConverts) {
    StaticArray<3, int> array{1, 2, 3};
    StaticArray<3, int> copy = array;
    copy[0] = 10;
    EXPECT_EQ(array[0], 1);
    const StaticArrayView<3, int> view = array;
    EXPECT_EQ(view.data(), array.data());
    EXPECT_EQ(ArrayView<const int>{array}.size(), 3);
    EXPECT_EQ(array.front(), 1);
    EXPECT_EQ(array.size(), 3);
    EXPECT_ASSERT(array[3] = 0, "Containers::StaticArray::operator[](): index 3 out of range for 3 elements\n");
}

}
