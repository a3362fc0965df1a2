#include "ContainersTesting.h"

#include <Corrade/Containers/GrowableArray.h>
#include <Corrade/Containers/Pointer.h>
#include <Corrade/Containers/StringView.h>

using namespace Corrade;
using namespace Corrade::Containers;
using namespace ContainersTesting;

namespace {

struct ContainersGrowableArray: CountedTest {};

template<int size> struct Bytes { char data[size]; };

/** Capacities in the order in which they appear when items are appended one by one. */
template<class T> std::vector<std::size_t> capacities(std::size_t count) {
    std::vector<std::size_t> out;
    Array<T> array;
    while(out.size() != count) {
        arrayAppend(array, NoInit, 1);
        if(out.empty() || out.back() != arrayCapacity(array)) out.push_back(arrayCapacity(array));
    }
    return out;
}

TEST_F(ContainersGrowableArray, DoublesSmallAllocationsAndGrowsLargeOnesByHalf) {
    EXPECT_THAT(capacities<char>(8), testing::ElementsAre(8, 24, 56, 88, 136, 208, 316, 478));
    EXPECT_THAT(capacities<short>(6), testing::ElementsAre(4, 12, 28, 44, 68, 104));
    EXPECT_THAT(capacities<int>(10), testing::ElementsAre(2, 6, 14, 22, 34, 52, 79, 119, 179, 269));
    EXPECT_THAT(capacities<double>(6), testing::ElementsAre(1, 3, 7, 11, 17, 26));
    EXPECT_THAT(capacities<Bytes<3>>(5), testing::ElementsAre(2, 3, 8, 18, 38));
    EXPECT_THAT(capacities<Bytes<12>>(6), testing::ElementsAre(1, 2, 4, 8, 12, 18));
    EXPECT_THAT(capacities<Bytes<40>>(6), testing::ElementsAre(1, 2, 3, 4, 6, 9));
    EXPECT_THAT(capacities<Bytes<100>>(6), testing::ElementsAre(1, 2, 3, 4, 6, 9));
    EXPECT_THAT(capacities<long double>(5), testing::ElementsAre(1, 3, 5, 8, 12));
}

TEST_F(ContainersGrowableArray, ResizesToExactlyTheSize) {
    Array<int> array;
    for(const std::size_t size: {1, 2, 5}) {
        arrayResize(array, size);
        EXPECT_EQ(array.size(), size);
        EXPECT_EQ(arrayCapacity(array), size);
    }
    arrayAppend(array, 6);
    EXPECT_EQ(array.size(), 6);
    EXPECT_EQ(arrayCapacity(array), 12);
    arrayResize(array, 2);
    EXPECT_EQ(array.size(), 2);
    EXPECT_EQ(arrayCapacity(array), 12);
    arrayResize(array, 12);
    EXPECT_EQ(arrayCapacity(array), 12);
    arrayResize(array, 13);
    EXPECT_EQ(arrayCapacity(array), 13);
}

TEST_F(ContainersGrowableArray, InitialisesNewItems) {
    Array<int> array{InPlaceInit, {1, 2}};
    arrayResize(array, 4);
    EXPECT_THAT(items(array), testing::ElementsAre(1, 2, 0, 0));
    arrayResize(array, ValueInit, 5);
    arrayResize(array, DirectInit, 6, 9);
    arrayResize(array, 8, 3);
    EXPECT_THAT(items(array), testing::ElementsAre(1, 2, 0, 0, 0, 9, 3, 3));
    arrayResize(array, NoInit, 2);
    arrayResize(array, 3);
    EXPECT_THAT(items(array), testing::ElementsAre(1, 2, 0));
    arrayResize(array, 3, 100);
    EXPECT_THAT(items(array), testing::ElementsAre(1, 2, 0));
}

TEST_F(ContainersGrowableArray, KeepsForeignMemoryWhereNothingChanges) {
    const auto fixed = [] { return Array<int>{ValueInit, 5}; };
    const struct {
        const char* name;
        void (*change)(Array<int>&);
        std::size_t size, capacity;
        bool growable;
    } cases[]{
        {"nothing", [](Array<int>&) {}, 5, 5, false},
        {"resize to the same", [](Array<int>& a) { arrayResize(a, 5); }, 5, 5, false},
        {"resize to less", [](Array<int>& a) { arrayResize(a, 2); }, 2, 2, true},
        {"resize to more", [](Array<int>& a) { arrayResize(a, 7); }, 7, 7, true},
        {"resize to nothing", [](Array<int>& a) { arrayResize(a, 0); }, 0, 0, true},
        {"append", [](Array<int>& a) { arrayAppend(a, 1); }, 6, 6, true},
        {"append nothing", [](Array<int>& a) { arrayAppend(a, ArrayView<const int>{}); }, 5, 5, false},
        {"reserve less", [](Array<int>& a) { arrayReserve(a, 3); }, 5, 5, false},
        {"reserve more", [](Array<int>& a) { arrayReserve(a, 9); }, 5, 9, true},
        {"shrink", [](Array<int>& a) { arrayShrink(a); }, 5, 5, false},
        {"clear", [](Array<int>& a) { arrayClear(a); }, 0, 0, false},
        {"remove", [](Array<int>& a) { arrayRemove(a, 1); }, 4, 4, true},
        {"remove nothing", [](Array<int>& a) { arrayRemove(a, 1, 0); }, 5, 5, false},
        {"remove unordered", [](Array<int>& a) { arrayRemoveUnordered(a, 1); }, 4, 4, true},
        {"remove suffix", [](Array<int>& a) { arrayRemoveSuffix(a, 2); }, 3, 3, true},
        {"remove no suffix", [](Array<int>& a) { arrayRemoveSuffix(a, 0); }, 5, 5, false},
    };
    for(const auto& i: cases) {
        SCOPED_TRACE(i.name);
        Array<int> array = fixed();
        i.change(array);
        EXPECT_EQ(array.size(), i.size);
        EXPECT_EQ(arrayCapacity(array), i.capacity);
        EXPECT_EQ(arrayIsGrowable(array), i.growable);
    }
}

TEST_F(ContainersGrowableArray, CallsTheDeleterOfForeignMemory) {
    static int deletedSize;
    deletedSize = -1;
    int data[]{1, 2, 3};
    Array<int> array{data, 3, [](int*, std::size_t size) { deletedSize = int(size); }};
    arrayAppend(array, 4);
    EXPECT_EQ(deletedSize, 3);
    EXPECT_THAT(items(array), testing::ElementsAre(1, 2, 3, 4));
}

TEST_F(ContainersGrowableArray, AppendsWithAllForms) {
    Array<int> array;
    const int one = 1;
    const int& appendedOne = arrayAppend(array, one);
    EXPECT_EQ(&appendedOne, array.data());
    arrayAppend(array, 2) = 20;
    arrayAppend(array, InPlaceInit, 3);
    const ArrayView<int> appended = arrayAppend(array, {4, 5});
    EXPECT_THAT(items(appended), testing::ElementsAre(4, 5));
    EXPECT_EQ(appended.end(), array.end());
    arrayAppend(array, arrayView({6, 7}));
    EXPECT_EQ(arrayAppend(array, ValueInit, 2).size(), 2);
    arrayAppend(array, NoInit, 1)[0] = 9;
    EXPECT_THAT(items(array), testing::ElementsAre(1, 20, 3, 4, 5, 6, 7, 0, 0, 9));
}

TEST_F(ContainersGrowableArray, AppendsNothingWithoutAllocating) {
    Array<int> array;
    EXPECT_EQ(arrayAppend(array, NoInit, 0).size(), 0);
    EXPECT_EQ(arrayAppend(array, ArrayView<const int>{}).size(), 0);
    EXPECT_EQ(arrayInsert(array, 0, NoInit, 0).size(), 0);
    EXPECT_EQ(array.data(), nullptr);
    EXPECT_FALSE(arrayIsGrowable(array));
}

TEST_F(ContainersGrowableArray, ListsGrowToWhatTheyNeed) {
    Array<int> array;
    arrayAppend(array, {1, 2, 3, 4, 5, 6, 7});
    EXPECT_EQ(arrayCapacity(array), 7);
    Array<int> other;
    arrayResize(other, 5);
    arrayInsert(other, 2, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14});
    EXPECT_EQ(arrayCapacity(other), 19);
}

TEST_F(ContainersGrowableArray, AppendsPartsOfItself) {
    Array<int> array{InPlaceInit, {1, 2, 3}};
    arrayAppend(array, array.prefix(2));
    EXPECT_THAT(items(array), testing::ElementsAre(1, 2, 3, 1, 2));
    arrayAppend(array, array.exceptPrefix(3));
    EXPECT_THAT(items(array), testing::ElementsAre(1, 2, 3, 1, 2, 1, 2));
    arrayInsert(array, 1, array.slice(2, 4));
    EXPECT_THAT(items(array), testing::ElementsAre(1, 3, 1, 2, 3, 1, 2, 1, 2));
    arrayInsert(array, 3, array.slice(0, 2));
    EXPECT_THAT(items(array), testing::ElementsAre(1, 3, 1, 1, 3, 2, 3, 1, 2, 1, 2));
    arrayReserve(array, 100);
    arrayInsert(array, 1, array.slice(4, 6));
    EXPECT_THAT(items(array), testing::ElementsAre(1, 3, 2, 3, 1, 1, 3, 2, 3, 1, 2, 1, 2));

    Array<std::string> text{InPlaceInit, {"first", "a second one that is not small"}};
    arrayAppend(text, text);
    arrayInsert(text, 1, text.exceptPrefix(3));
    EXPECT_THAT(items(text),
        testing::ElementsAre("first", "a second one that is not small", "a second one that is not small", "first",
            "a second one that is not small"));
}

TEST_F(ContainersGrowableArray, Inserts) {
    Array<int> array;
    EXPECT_EQ(arrayInsert(array, 0, 3), 3);
    const int one = 1;
    const int& insertedOne = arrayInsert(array, 0, one);
    EXPECT_EQ(&insertedOne, array.data());
    arrayInsert(array, 1, InPlaceInit, 2);
    arrayInsert(array, 3, {4, 5});
    EXPECT_THAT(items(array), testing::ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(items(arrayInsert(array, 1, arrayView({7, 8}))), testing::ElementsAre(7, 8));
    arrayInsert(array, 0, ValueInit, 2);
    arrayInsert(array, 9, NoInit, 1)[0] = 9;
    EXPECT_THAT(items(array), testing::ElementsAre(0, 0, 1, 7, 8, 2, 3, 4, 5, 9));
}

TEST_F(ContainersGrowableArray, InsertingGrowsLikeAppending) {
    Array<int> array;
    arrayInsert(array, 0, 1);
    EXPECT_EQ(arrayCapacity(array), 2);
    arrayResize(array, 5);
    arrayInsert(array, 2, 1);
    EXPECT_EQ(arrayCapacity(array), 12);
}

TEST_F(ContainersGrowableArray, Removes) {
    Array<int> array;
    arrayAppend(array, {1, 2, 3, 4, 5, 6});
    arrayRemove(array, 1);
    EXPECT_THAT(items(array), testing::ElementsAre(1, 3, 4, 5, 6));
    arrayRemove(array, 1, 2);
    EXPECT_THAT(items(array), testing::ElementsAre(1, 5, 6));
    arrayRemove(array, 3, 0);
    arrayRemoveSuffix(array);
    EXPECT_THAT(items(array), testing::ElementsAre(1, 5));
    arrayRemoveSuffix(array, 2);
    EXPECT_TRUE(array.isEmpty());
    EXPECT_EQ(arrayCapacity(array), 6);
}

TEST_F(ContainersGrowableArray, RemovesUnorderedByMovingTheLast) {
    const struct {
        std::size_t index, count;
        std::vector<int> expected;
    } cases[]{
        {0, 1, {5, 2, 3, 4}},
        {0, 2, {4, 5, 3}},
        {1, 3, {1, 5}},
        {2, 2, {1, 2, 5}},
        {4, 1, {1, 2, 3, 4}},
        {3, 2, {1, 2, 3}},
        {0, 5, {}},
        {2, 0, {1, 2, 3, 4, 5}},
    };
    for(const auto& i: cases) {
        SCOPED_TRACE(std::to_string(i.index) + ", " + std::to_string(i.count));
        Array<int> numbers;
        Array<Counted> objects;
        for(const int value: {1, 2, 3, 4, 5}) {
            arrayAppend(numbers, value);
            arrayAppend(objects, InPlaceInit, value);
        }
        arrayRemoveUnordered(numbers, i.index, i.count);
        arrayRemoveUnordered(objects, i.index, i.count);
        EXPECT_EQ(items(numbers), i.expected);
        EXPECT_EQ(values(objects), i.expected);
    }
}

TEST_F(ContainersGrowableArray, Reserves) {
    Array<int> array;
    EXPECT_EQ(arrayReserve(array, 0), 0);
    EXPECT_FALSE(arrayIsGrowable(array));
    EXPECT_EQ(arrayReserve(array, 100), 100);
    EXPECT_EQ(arrayCapacity(array), 100);
    EXPECT_TRUE(arrayIsGrowable(array));
    EXPECT_EQ(array.size(), 0);
    EXPECT_EQ(arrayReserve(array, 50), 100);
    const int* const data = array.data();
    arrayResize(array, 100);
    EXPECT_EQ(array.data(), data);
}

TEST_F(ContainersGrowableArray, ShrinksToPlainMemory) {
    Array<int> array;
    arrayReserve(array, 100);
    arrayAppend(array, {1, 2, 3});
    arrayShrink(array);
    EXPECT_FALSE(arrayIsGrowable(array));
    EXPECT_EQ(arrayCapacity(array), 3);
    EXPECT_EQ(array.deleter(), nullptr);
    EXPECT_THAT(items(array), testing::ElementsAre(1, 2, 3));

    arrayReserve(array, 100);
    arrayResize(array, 0);
    arrayShrink(array);
    EXPECT_EQ(array.data(), nullptr);
}

TEST_F(ContainersGrowableArray, ClearsButKeepsTheCapacity) {
    Array<int> array;
    arrayClear(array);
    EXPECT_FALSE(arrayIsGrowable(array));
    arrayReserve(array, 100);
    arrayAppend(array, {1, 2, 3});
    arrayClear(array);
    EXPECT_TRUE(array.isEmpty());
    EXPECT_EQ(arrayCapacity(array), 100);
}

TEST_F(ContainersGrowableArray, ConstructsAndDestroysEveryItemOnce) {
    Array<Counted> array;
    for(int i = 0; i != 10; ++i) arrayAppend(array, Counted{i});
    EXPECT_EQ(Counted::alive, 10);
    EXPECT_EQ(Counted::copies, 0);
    arrayInsert(array, 3, InPlaceInit, 30);
    arrayInsert(array, 0, {Counted{100}, Counted{101}});
    EXPECT_THAT(values(array), testing::ElementsAre(100, 101, 0, 1, 2, 30, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_EQ(Counted::alive, 13);
    arrayRemove(array, 0, 2);
    arrayRemove(array, 3);
    arrayRemoveUnordered(array, 1);
    arrayRemoveSuffix(array, 2);
    EXPECT_THAT(values(array), testing::ElementsAre(0, 9, 2, 3, 4, 5, 6));
    EXPECT_EQ(Counted::alive, 7);
    arrayResize(array, 9);
    EXPECT_EQ(Counted::alive, 9);
    arrayResize(array, DirectInit, 10, 7);
    arrayResize(array, 4);
    EXPECT_EQ(Counted::alive, 4);
    arrayReserve(array, 100);
    EXPECT_EQ(Counted::alive, 4);
    arrayShrink(array);
    EXPECT_EQ(Counted::alive, 4);
    EXPECT_THAT(values(array), testing::ElementsAre(0, 9, 2, 3));
    arrayRemove(array, 0);
    EXPECT_EQ(Counted::alive, 3);
    arrayClear(array);
    EXPECT_EQ(Counted::alive, 0);
    arrayAppend(array, ValueInit, 5);
    EXPECT_EQ(Counted::alive, 5);
}

TEST_F(ContainersGrowableArray, MovesWhatCannotBeCopied) {
    Array<Pointer<int>> array;
    for(int i = 0; i != 20; ++i) arrayAppend(array, pointer<int>(i));
    arrayInsert(array, 0, pointer<int>(100));
    arrayRemove(array, 1, 5);
    arrayRemoveUnordered(array, 0);
    arrayShrink(array);
    EXPECT_EQ(array.size(), 15);
    EXPECT_EQ(*array[0], 19);
    EXPECT_EQ(*array[1], 5);

    Array<Array<int>> nested;
    arrayAppend(nested, Array<int>{InPlaceInit, {1, 2}});
    arrayAppend(nested, InPlaceInit, InPlaceInit, arrayView({3}));
    EXPECT_EQ(nested[1][0], 3);
}

TEST_F(ContainersGrowableArray, ConstructsWithBraces) {
    Array<std::vector<int>> array;
    EXPECT_EQ(arrayAppend(array, InPlaceInit, 3, 7).size(), 2);
    EXPECT_EQ(arrayInsert(array, 0, InPlaceInit, 3, 7).size(), 2);
    arrayResize(array, DirectInit, 3, 3, 7);
    EXPECT_EQ(array.back().size(), 2);
}

TEST_F(ContainersGrowableArray, ConvertsValues) {
    Array<std::string> array;
    arrayAppend(array, "a");
    arrayAppend(array, {"b", "c"});
    arrayAppend(array, InPlaceInit, "ddd", std::size_t{2});
    EXPECT_THAT(items(array), testing::ElementsAre("a", "b", "c", "dd"));
    Array<double> numbers;
    arrayAppend(numbers, 1);
    EXPECT_EQ(numbers[0], 1.0);
}

TEST_F(ContainersGrowableArray, MovesOnGrowableData) {
    Array<int> array;
    arrayAppend(array, {1, 2, 3});
    const Array<int> moved = std::move(array);
    EXPECT_THAT(items(moved), testing::ElementsAre(1, 2, 3));
    EXPECT_FALSE(arrayIsGrowable(array));
    arrayAppend(array, 5);
    EXPECT_THAT(items(array), testing::ElementsAre(5));
}

TEST_F(ContainersGrowableArray, Asserts) {
    Array<int> array;
    arrayAppend(array, {1, 2, 3, 4, 5});
    arrayReserve(array, 20);
    const char* const insert = "Containers::arrayInsert(): can't insert at index 6 into an array of size 5\n";
    EXPECT_ASSERT(arrayInsert(array, 6, 1), insert);
    EXPECT_ASSERT(arrayInsert(array, 6, {1, 2}), insert);
    EXPECT_ASSERT(arrayInsert(array, 6, NoInit, 2), insert);
    EXPECT_ASSERT(arrayRemove(array, 5),
        "Containers::arrayRemove(): can't remove 1 elements at index 5 from an array of size 5\n");
    EXPECT_ASSERT(arrayRemove(array, 3, 3),
        "Containers::arrayRemove(): can't remove 3 elements at index 3 from an array of size 5\n");
    EXPECT_ASSERT(arrayRemoveUnordered(array, 3, 3),
        "Containers::arrayRemoveUnordered(): can't remove 3 elements at index 3 from an array of size 5\n");
    EXPECT_ASSERT(arrayRemoveSuffix(array, 6),
        "Containers::arrayRemoveSuffix(): can't remove 6 elements from an array of size 5\n");
    EXPECT_ASSERT(arrayAppend(array, array[0]),
        "Containers::arrayAppend(): use the list variant to append values from within the array itself\n");
    EXPECT_ASSERT(arrayInsert(array, 1, array[3]),
        "Containers::arrayInsert(): use the list variant to insert values from within the array itself\n");
    EXPECT_ASSERT(arrayInsert(array, 1, array.prefix(3)),
        "Containers::arrayInsert(): attempting to insert a slice [0:3] into itself at index 1\n");
}

}
