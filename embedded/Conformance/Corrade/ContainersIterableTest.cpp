#include "ContainersTesting.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Iterable.h>
#include <Corrade/Containers/Reference.h>
#include <Corrade/Containers/StaticArray.h>
#include <Corrade/Containers/StridedArrayView.h>

using namespace Corrade;
using namespace Corrade::Containers;
using namespace ContainersTesting;

namespace {

/** Can neither be copied nor moved. */
struct Item {
    Item(int value): value{value} {}
    Item(const Item&) = delete;
    int value;
};
struct DerivedItem: Item {
    using Item::Item;
};
struct LargerItem: Item {
    using Item::Item;
    int more = 0;
};

std::vector<int> collect(const Iterable<Item>& list) { return values(list); }
std::vector<int> collectConstant(const Iterable<const Item>& list) { return values(list); }

TEST(ContainersIterable, TakesListsInBraces) {
    Item a{1};
    const Item constant{3};
    Item c{4};
    LargerItem b{2};
    EXPECT_THAT(collect({a, b}), testing::ElementsAre(1, 2));
    EXPECT_THAT(collectConstant({a, constant}), testing::ElementsAre(1, 3));
    EXPECT_THAT(collect({c}), testing::ElementsAre(4));
    EXPECT_THAT(collect({}), testing::ElementsAre());
    EXPECT_THAT(collect(nullptr), testing::ElementsAre());
}

TEST(ContainersIterable, TakesAllKindsOfLists) {
    Item items[]{1, 2, 3};
    EXPECT_THAT(collect(items), testing::ElementsAre(1, 2, 3));
    EXPECT_THAT(collectConstant(items), testing::ElementsAre(1, 2, 3));
    EXPECT_THAT(collect(arrayView(items)), testing::ElementsAre(1, 2, 3));
    EXPECT_THAT(collect(StridedArrayView1D<Item>{items}.every(-2)), testing::ElementsAre(3, 1));
    DerivedItem derived[]{4, 5};
    EXPECT_THAT(collect(arrayView(derived)), testing::ElementsAre(4, 5));
    Array<Item> array{DirectInit, 2, 7};
    EXPECT_THAT(collect(array), testing::ElementsAre(7, 7));
    const Array<Item>& constant = array;
    EXPECT_THAT(collectConstant(constant), testing::ElementsAre(7, 7));
    static_assert(!std::is_convertible<const Array<Item>&, Iterable<Item>>::value, "");

    LargerItem larger{6};
    Reference<Item> references[]{items[2], items[0]};
    EXPECT_THAT(collect(references), testing::ElementsAre(3, 1));
    EXPECT_THAT(collectConstant(references), testing::ElementsAre(3, 1));
    const Array<Reference<Item>> referenceArray{InPlaceInit, {items[1], larger}};
    EXPECT_THAT(collect(referenceArray), testing::ElementsAre(2, 6));
}

TEST(ContainersIterable, RefersToTheItems) {
    Item items[]{1, 2, 3};
    const Iterable<Item> list = items;
    EXPECT_EQ(list.data(), items);
    EXPECT_EQ(list.size(), 3);
    EXPECT_EQ(list.stride(), std::ptrdiff_t(sizeof(Item)));
    EXPECT_FALSE(list.isEmpty());
    EXPECT_EQ(&list[1], &items[1]);
    EXPECT_EQ(&list.front(), &items[0]);
    EXPECT_EQ(&list.back(), &items[2]);
    for(Item& item: list) item.value *= 10;
    EXPECT_EQ(items[2].value, 30);
    EXPECT_EQ(list.end() - list.begin(), 3);
    EXPECT_TRUE(Iterable<Item>{}.isEmpty());
}

TEST(ContainersIterable, Asserts) {
    Item items[]{1, 2, 3};
    const Iterable<Item> list = items;
    EXPECT_ASSERT(list[3], "Containers::Iterable::operator[](): index 3 out of range for 3 elements\n");
    EXPECT_ASSERT(Iterable<Item>{}.front(), "Containers::Iterable::front(): view is empty\n");
    EXPECT_ASSERT(Iterable<Item>{}.back(), "Containers::Iterable::back(): view is empty\n");
}

}
