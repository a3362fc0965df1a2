#include "ContainersTesting.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Pointer.h>

using namespace Corrade;
using namespace Corrade::Containers;
using namespace ContainersTesting;

namespace {

struct ContainersArray: CountedTest {};

struct Aggregate {
    int a, b;
};

std::vector<std::pair<const int*, std::size_t>> deleted;

void recordDeletion(int* data, std::size_t size) { deleted.emplace_back(data, size); }

TEST_F(ContainersArray, IsNullByDefault) {
    const Array<int> array;
    EXPECT_EQ(array.data(), nullptr);
    EXPECT_EQ(array.size(), 0);
    EXPECT_TRUE(array.isEmpty());
    EXPECT_FALSE(array);
    EXPECT_EQ(array.deleter(), nullptr);
    const Array<int> null = nullptr;
    EXPECT_FALSE(null);
    EXPECT_EQ(sizeof(array), 3 * sizeof(void*));
}

TEST_F(ContainersArray, Constructs) {
    EXPECT_THAT(items(Array<int>{ValueInit, 3}), testing::ElementsAre(0, 0, 0));
    EXPECT_THAT(items(Array<int>{DirectInit, 3, 7}), testing::ElementsAre(7, 7, 7));
    EXPECT_THAT(items(Array<int>{InPlaceInit, {1, 2, 3}}), testing::ElementsAre(1, 2, 3));
    EXPECT_THAT(items(Array<int>{InPlaceInit, arrayView({4, 5})}), testing::ElementsAre(4, 5));
    EXPECT_THAT(items(array({1, 2})), testing::ElementsAre(1, 2));
    EXPECT_THAT(items(array<float>({1, 2})), testing::ElementsAre(1.0f, 2.0f));
    EXPECT_THAT(items(Array<std::string>{DirectInit, 2, "xxxx", std::size_t{3}}), testing::ElementsAre("xxx", "xxx"));
    EXPECT_EQ((Array<Aggregate>{DirectInit, 2, 3, 4}[1].b), 4);
    EXPECT_EQ((Array<int>{NoInit, 5}.size()), 5);
    EXPECT_EQ((Array<Pointer<int>>{ValueInit, 2}[1]), nullptr);
}

TEST_F(ContainersArray, HasNoDataWithoutItems) {
    EXPECT_EQ((Array<int>{ValueInit, 0}.data()), nullptr);
    EXPECT_EQ((Array<int>{NoInit, 0}.data()), nullptr);
    EXPECT_EQ((Array<Counted>{DirectInit, 0}.data()), nullptr);
    EXPECT_EQ((Array<int>{InPlaceInit, ArrayView<const int>{}}.data()), nullptr);
}

TEST_F(ContainersArray, ConstructsAndDestroysItsItems) {
    {
        const Array<Counted> array{ValueInit, 3};
        EXPECT_EQ(Counted::alive, 3);
        const Array<Counted> direct{DirectInit, 2, 5};
        EXPECT_EQ(Counted::alive, 5);
        EXPECT_THAT(values(direct), testing::ElementsAre(5, 5));
        EXPECT_EQ(Counted::copies, 0);
        const Array<Counted> list{InPlaceInit, {1, 2}};
        EXPECT_EQ(Counted::copies, 2);
        EXPECT_EQ(Counted::alive, 7);
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(ContainersArray, LeavesConstructionToTheCaller) {
    Array<Counted> array{NoInit, 2};
    EXPECT_EQ(Counted::alive, 0);
    new(&array[0]) Counted{1};
    new(&array[1]) Counted{2};
    EXPECT_THAT(values(array), testing::ElementsAre(1, 2));
}

TEST_F(ContainersArray, HasADeleterOnlyWhereDeleteIsNotEnough) {
    EXPECT_EQ((Array<int>{NoInit, 1}.deleter()), nullptr);
    EXPECT_EQ((Array<int>{DirectInit, 1, 1}.deleter()), nullptr);
    EXPECT_EQ((Array<Counted>{ValueInit, 1}.deleter()), nullptr);
    EXPECT_NE((Array<Counted>{DirectInit, 1}.deleter()), nullptr);
}

TEST_F(ContainersArray, CallsTheDeleterWithDataAndSize) {
    int data[3]{};
    deleted.clear();
    {
        const Array<int> array{data, 3, recordDeletion};
        EXPECT_EQ(array.deleter(), recordDeletion);
        EXPECT_TRUE(deleted.empty());
    }
    EXPECT_THAT(deleted, testing::ElementsAre(testing::Pair(data, 3)));
}

TEST_F(ContainersArray, CallsTheDeleterForNothingToo) {
    deleted.clear();
    { const Array<int> array{nullptr, 0, recordDeletion}; }
    EXPECT_THAT(deleted, testing::ElementsAre(testing::Pair(nullptr, 0)));
}

TEST_F(ContainersArray, TakesOwnership) {
    const Array<Counted> array{new Counted[2], 2};
    EXPECT_EQ(array.deleter(), nullptr);
    EXPECT_EQ(Counted::alive, 2);
}

struct StatefulDeleter {
    int* sum = nullptr;
    void operator()(int*, std::size_t size) {
        if(sum) *sum += int(size);
    }
};

TEST_F(ContainersArray, HasDeletersOfAnyType) {
    int sum = 0;
    int data[2]{};
    {
        Array<int, StatefulDeleter> array{data, 2, StatefulDeleter{&sum}};
        const Array<int, StatefulDeleter> moved = std::move(array);
        EXPECT_EQ(moved.deleter().sum, &sum);
        EXPECT_EQ(sum, 0);
    }
    EXPECT_EQ(sum, 2);
}

TEST_F(ContainersArray, Moves) {
    static_assert(!std::is_copy_constructible<Array<int>>::value, "");
    static_assert(!std::is_copy_assignable<Array<int>>::value, "");
    static_assert(std::is_nothrow_move_constructible<Array<int>>::value, "");
    static_assert(std::is_nothrow_move_assignable<Array<int>>::value, "");

    int data[3]{};
    deleted.clear();
    Array<int> a{data, 3, recordDeletion};
    Array<int> b = std::move(a);
    EXPECT_EQ(a.data(), nullptr);
    EXPECT_EQ(a.size(), 0);
    EXPECT_EQ(a.deleter(), nullptr);
    EXPECT_EQ(b.data(), data);
    Array<int> c;
    c = std::move(b);
    EXPECT_EQ(c.data(), data);
    EXPECT_EQ(c.size(), 3);
    EXPECT_EQ(b.data(), nullptr);
    EXPECT_TRUE(deleted.empty());
    c = nullptr;
    EXPECT_EQ(deleted.size(), 1);
}

TEST_F(ContainersArray, Releases) {
    deleted.clear();
    int data[3]{};
    {
        Array<int> array{data, 3, recordDeletion};
        EXPECT_EQ(array.release(), data);
        EXPECT_EQ(array.data(), nullptr);
        EXPECT_EQ(array.size(), 0);
        EXPECT_EQ(array.deleter(), nullptr);
    }
    EXPECT_TRUE(deleted.empty());
}

TEST_F(ContainersArray, AccessesAndSlices) {
    Array<int> array{InPlaceInit, {1, 2, 3, 4, 5}};
    const Array<int>& constant = array;
    array[1] = 20;
    array.front() = 10;
    array.back() = 50;
    for(int& i: array) ++i;
    EXPECT_THAT(items(constant), testing::ElementsAre(11, 21, 4, 5, 51));
    EXPECT_EQ(constant.front(), 11);
    EXPECT_EQ(constant.back(), 51);
    EXPECT_EQ(constant.end() - constant.begin(), 5);

    static_assert(std::is_same<decltype(array.slice(0, 1)), ArrayView<int>>::value, "");
    static_assert(std::is_same<decltype(constant.prefix(1)), ArrayView<const int>>::value, "");
    static_assert(std::is_same<decltype(array.slice<2>(0)), StaticArrayView<2, int>>::value, "");
    static_assert(std::is_same<decltype(constant.slice<2>(0)), StaticArrayView<2, const int>>::value, "");
    EXPECT_THAT(items(array.slice(1, 3)), testing::ElementsAre(21, 4));
    EXPECT_THAT(items(constant.sliceSize(1, 2)), testing::ElementsAre(21, 4));
    EXPECT_THAT(items(array.slice<2>(3)), testing::ElementsAre(5, 51));
    EXPECT_THAT(items(array.prefix(1)), testing::ElementsAre(11));
    EXPECT_THAT(items(array.suffix(array.data() + 4)), testing::ElementsAre(51));
    EXPECT_THAT(items(array.exceptPrefix(3)), testing::ElementsAre(5, 51));
    EXPECT_THAT(items(constant.exceptSuffix(3)), testing::ElementsAre(11, 21));
}

TEST_F(ContainersArray, Asserts) {
    Array<int> array{InPlaceInit, {1, 2, 3}};
    Array<int> empty;
    EXPECT_ASSERT(array[3] = 0, "Containers::Array::operator[](): index 3 out of range for 3 elements\n");
    EXPECT_ASSERT(empty.front() = 0, "Containers::Array::front(): array is empty\n");
    EXPECT_ASSERT(empty.back() = 0, "Containers::Array::back(): array is empty\n");
    EXPECT_ASSERT(array.slice(2, 1), "Containers::ArrayView::slice(): slice [2:1] out of range for 3 elements\n");
    EXPECT_ASSERT(array.prefix(4), "Containers::ArrayView::slice(): slice [0:4] out of range for 3 elements\n");
}

}
