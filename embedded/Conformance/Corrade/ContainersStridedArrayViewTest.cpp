#include "ContainersTesting.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StaticArray.h>
#include <Corrade/Containers/StridedArrayView.h>

using namespace Corrade;
using namespace Corrade::Containers;
using namespace ContainersTesting;

namespace {

struct Vertex {
    int id;
    short weight;
    char name[6];
};
static_assert(sizeof(Vertex) == 12, "");

struct ContainersStridedArrayView: testing::Test {
    int numbers[12]{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    StridedArrayView2D<int> grid{numbers, {3, 4}};
    Vertex vertices[3]{{1, 2, "a"}, {3, 4, "b"}, {5, 6, "c"}};
    StridedArrayView1D<Vertex> list = vertices;
};

using Rows = std::vector<std::vector<int>>;

Rows rows(const StridedArrayView2D<const int>& view) {
    Rows out;
    for(const StridedArrayView1D<const int> row: view) out.push_back(items(row));
    return out;
}

/** Distance from the first of the numbers to the first item, in items. */
template<unsigned dimensions> std::ptrdiff_t offset(const StridedArrayView<dimensions, int>& view, const int* base) {
    return static_cast<const int*>(view.data()) - base;
}

TEST_F(ContainersStridedArrayView, IsEmptyByDefault) {
    const StridedArrayView2D<int> view;
    EXPECT_EQ(view.data(), nullptr);
    EXPECT_EQ(view.size(), (Size2D{0, 0}));
    EXPECT_EQ(view.stride(), (Stride2D{0, 0}));
    EXPECT_TRUE(view.isEmpty()[0]);
    EXPECT_FALSE(view);
    const StridedArrayView1D<int> null = nullptr;
    EXPECT_EQ(null.size(), 0);
    EXPECT_TRUE(null.isEmpty());
}

TEST_F(ContainersStridedArrayView, IsMadeOfContiguousData) {
    const StridedArrayView1D<int> ofArray = numbers;
    EXPECT_EQ(ofArray.size(), 12);
    EXPECT_EQ(ofArray.stride(), 4);
    EXPECT_EQ(ofArray.data(), numbers);
    EXPECT_EQ(StridedArrayView1D<const int>{arrayView(numbers)}.size(), 12);
    Array<int> array{ValueInit, 3};
    EXPECT_EQ(StridedArrayView1D<int>{array}.size(), 3);
    StaticArray<2, int> fixed;
    EXPECT_EQ(StridedArrayView1D<int>{fixed}.size(), 2);
    EXPECT_EQ((StridedArrayView1D<int>{numbers, 5}.size()), 5);

    static_assert(std::is_same<decltype(stridedArrayView(numbers)), StridedArrayView1D<int>>::value, "");
    static_assert(std::is_same<decltype(stridedArrayView(array)), StridedArrayView1D<int>>::value, "");
    static_assert(std::is_same<decltype(stridedArrayView(arrayView({1}))), StridedArrayView1D<const int>>::value, "");
    static_assert(std::is_same<decltype(stridedArrayView(grid)), StridedArrayView2D<int>>::value, "");
    EXPECT_EQ(stridedArrayView(numbers)[11], 11);
}

TEST_F(ContainersStridedArrayView, LastDimensionIsAdjacent) {
    EXPECT_EQ(grid.size(), (Size2D{3, 4}));
    EXPECT_EQ(grid.stride(), (Stride2D{16, 4}));
    EXPECT_EQ(rows(grid), (Rows{{0, 1, 2, 3}, {4, 5, 6, 7}, {8, 9, 10, 11}}));
    const StridedArrayView3D<int> cube{numbers, {2, 3, 2}};
    EXPECT_EQ(cube.stride(), (Stride3D{24, 8, 4}));
    EXPECT_EQ(cube[1][2][0], 10);
    EXPECT_EQ((cube[{1, 2, 0}]), 10);
    const StridedArrayView4D<int> four{numbers, {1, 2, 3, 2}};
    EXPECT_EQ((four[{0, 1, 2, 1}]), 11);
}

TEST_F(ContainersStridedArrayView, HasAnyStride) {
    const StridedArrayView1D<int> ids{ArrayView<Vertex>{vertices}, &vertices[0].id, 3, sizeof(Vertex)};
    EXPECT_THAT(items(ids), testing::ElementsAre(1, 3, 5));
    const StridedArrayView1D<int> backwards{arrayView(numbers), numbers + 11, 3, -8};
    EXPECT_THAT(items(backwards), testing::ElementsAre(11, 9, 7));
    EXPECT_EQ(backwards.back(), 7);
    const StridedArrayView1D<int> repeated{arrayView(numbers), numbers + 5, 1000, 0};
    EXPECT_EQ(repeated[999], 5);
    EXPECT_EQ(repeated.end() - repeated.begin(), 1000);
    const StridedArrayView2D<int> columns{arrayView(numbers), {2, 3}, {4, 8}};
    EXPECT_EQ(rows(columns), (Rows{{0, 2, 4}, {1, 3, 5}}));
}

TEST_F(ContainersStridedArrayView, AccessesItems) {
    static_assert(std::is_same<decltype(grid[0]), StridedArrayView1D<int>>::value, "");
    static_assert(std::is_same<decltype(grid[0][0]), int&>::value, "");
    static_assert(std::is_same<decltype(StridedArrayView1D<const int>{}[0]), const int&>::value, "");
    grid[1][2] = 60;
    EXPECT_EQ((grid[{1, 2}]), 60);
    EXPECT_EQ(numbers[6], 60);
    EXPECT_THAT(items(grid.front()), testing::ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(items(grid.back()), testing::ElementsAre(8, 9, 10, 11));
    for(const StridedArrayView1D<int> row: grid)
        for(int& i: row) ++i;
    EXPECT_EQ(numbers[11], 12);
    EXPECT_EQ(grid.end() - grid.begin(), 3);
}

TEST_F(ContainersStridedArrayView, SlicesTheFirstDimension) {
    EXPECT_EQ(rows(grid.slice(1, 2)), (Rows{{4, 5, 6, 7}}));
    EXPECT_EQ(rows(grid.sliceSize(1, 2)), (Rows{{4, 5, 6, 7}, {8, 9, 10, 11}}));
    EXPECT_EQ(rows(grid.prefix(1)), (Rows{{0, 1, 2, 3}}));
    EXPECT_EQ(rows(grid.exceptPrefix(2)), (Rows{{8, 9, 10, 11}}));
    EXPECT_EQ(rows(grid.exceptSuffix(2)), (Rows{{0, 1, 2, 3}}));
    EXPECT_EQ(grid.slice(3, 3).size(), (Size2D{0, 4}));
}

TEST_F(ContainersStridedArrayView, SlicesAllDimensions) {
    EXPECT_EQ(rows(grid.slice({1, 1}, {3, 3})), (Rows{{5, 6}, {9, 10}}));
    EXPECT_EQ(rows(grid.sliceSize({1, 1}, {1, 2})), (Rows{{5, 6}}));
    EXPECT_EQ(rows(grid.prefix({2, 1})), (Rows{{0}, {4}}));
    EXPECT_EQ(rows(grid.exceptPrefix({1, 2})), (Rows{{6, 7}, {10, 11}}));
    EXPECT_EQ(rows(grid.exceptSuffix({1, 1})), (Rows{{0, 1, 2}, {4, 5, 6}}));
    EXPECT_EQ(grid.exceptPrefix({3, 4}).size(), (Size2D{0, 0}));
}

TEST_F(ContainersStridedArrayView, SlicesMembers) {
    const StridedArrayView1D<short> weights = list.slice(&Vertex::weight);
    EXPECT_THAT(items(weights), testing::ElementsAre(2, 4, 6));
    EXPECT_EQ(weights.stride(), 12);
    weights[1] = 40;
    EXPECT_EQ(vertices[1].weight, 40);
    static_assert(std::is_same<decltype(StridedArrayView1D<const Vertex>{list}.slice(&Vertex::id)),
                      StridedArrayView1D<const int>>::value,
        "");
    EXPECT_THAT(items(list.every(-2).slice(&Vertex::id)), testing::ElementsAre(5, 1));
    EXPECT_EQ(StridedArrayView1D<Vertex>{}.slice(&Vertex::weight).size(), 0);
}

TEST_F(ContainersStridedArrayView, TakesEveryNth) {
    EXPECT_EQ(rows(grid.every(2)), (Rows{{0, 1, 2, 3}, {8, 9, 10, 11}}));
    EXPECT_EQ(rows(grid.every({2, 3})), (Rows{{0, 3}, {8, 11}}));
    EXPECT_EQ(rows(grid.every({1, 5})), (Rows{{0}, {4}, {8}}));
    EXPECT_EQ(rows(grid.every(-2)), (Rows{{8, 9, 10, 11}, {0, 1, 2, 3}}));
    EXPECT_THAT(items(grid[1].every(-3)), testing::ElementsAre(7, 4));
    EXPECT_EQ(offset(grid.every({-2, 1}), numbers), 8);
    EXPECT_EQ(grid.prefix(0).every(-1).size(), (Size2D{0, 4}));
}

TEST_F(ContainersStridedArrayView, TransposesFlipsAndBroadcasts) {
    EXPECT_EQ(rows(grid.transposed<0, 1>()), (Rows{{0, 4, 8}, {1, 5, 9}, {2, 6, 10}, {3, 7, 11}}));
    EXPECT_EQ((grid.transposed<1, 0>().stride()), (Stride2D{4, 16}));
    EXPECT_EQ(rows(grid.flipped<0>()), (Rows{{8, 9, 10, 11}, {4, 5, 6, 7}, {0, 1, 2, 3}}));
    EXPECT_EQ(rows(grid.flipped<1>()), (Rows{{3, 2, 1, 0}, {7, 6, 5, 4}, {11, 10, 9, 8}}));
    EXPECT_EQ(grid.flipped<0>().stride(), (Stride2D{-16, 4}));
    EXPECT_EQ(offset(grid.flipped<0>(), numbers), 8);
    EXPECT_EQ(rows(grid.flipped<0>().flipped<0>()), rows(grid));
    EXPECT_EQ(rows(grid.flipped<0>().exceptPrefix(2)), (Rows{{0, 1, 2, 3}}));
    const StridedArrayView2D<int> repeated = grid.slice({1, 0}, {2, 2}).broadcasted<0>(3);
    EXPECT_EQ(rows(repeated), (Rows{{4, 5}, {4, 5}, {4, 5}}));
    EXPECT_EQ(repeated.stride(), (Stride2D{0, 4}));
}

TEST_F(ContainersStridedArrayView, KnowsWhetherThereAreGaps) {
    EXPECT_TRUE(grid.isContiguous());
    EXPECT_TRUE(grid.isContiguous<1>());
    EXPECT_FALSE(grid.flipped<0>().isContiguous());
    EXPECT_TRUE(grid.flipped<0>().isContiguous<1>());
    EXPECT_FALSE(grid.flipped<1>().isContiguous<1>());
    EXPECT_FALSE((grid.transposed<0, 1>().isContiguous()));
    EXPECT_FALSE(grid.prefix({3, 2}).isContiguous());
    EXPECT_TRUE(grid.prefix({3, 2}).isContiguous<1>());
    EXPECT_TRUE(grid.prefix(2).isContiguous());

    EXPECT_EQ(grid.asContiguous().size(), 12);
    EXPECT_EQ(grid.asContiguous().data(), numbers);
    const StridedArrayView3D<int> cube{numbers, {2, 3, 2}};
    EXPECT_EQ(rows(cube.flipped<0>().asContiguous<1>()), (Rows{{6, 7, 8, 9, 10, 11}, {0, 1, 2, 3, 4, 5}}));
    EXPECT_EQ(cube.asContiguous<0>().size(), 12);
}

struct Base {
    int base;
};
struct Derived: Base {};

TEST_F(ContainersStridedArrayView, Converts) {
    static_assert(std::is_convertible<StridedArrayView2D<int>, StridedArrayView2D<const int>>::value, "");
    static_assert(!std::is_convertible<StridedArrayView2D<const int>, StridedArrayView2D<int>>::value, "");
    static_assert(!std::is_convertible<StridedArrayView2D<int>, StridedArrayView1D<int>>::value, "");
    static_assert(!std::is_convertible<const Array<int>&, StridedArrayView1D<int>>::value, "");
    static_assert(std::is_trivially_copyable<StridedArrayView2D<int>>::value, "");
    static_assert(sizeof(StridedArrayView2D<int>) == 40, "");
    EXPECT_EQ(rows(StridedArrayView2D<const int>{grid}), rows(grid));

    Derived objects[]{{{1}}, {{3}}};
    const StridedArrayView1D<Base> bases = objects;
    EXPECT_EQ(bases.stride(), 4);
    EXPECT_EQ(bases[1].base, 3);
    const StridedArrayView1D<Base> converted = StridedArrayView1D<Derived>{objects};
    EXPECT_EQ(converted[1].base, 3);
}

TEST_F(ContainersStridedArrayView, ErasesTypes) {
    const StridedArrayView1D<const void> ofStrided = list;
    EXPECT_EQ(ofStrided.data(), vertices);
    EXPECT_EQ(ofStrided.size(), 3);
    EXPECT_EQ(ofStrided.stride(), 12);
    EXPECT_FALSE(ofStrided.isEmpty());
    EXPECT_EQ(StridedArrayView1D<const void>{vertices}.stride(), 12);
    EXPECT_EQ(StridedArrayView1D<const void>{arrayView(numbers)}.stride(), 4);
    EXPECT_EQ((StridedArrayView2D<void>{grid}.size()), (Size2D{3, 4}));
    EXPECT_EQ((StridedArrayView1D<const void>{arrayView(numbers), numbers + 1, 3, 8}.data()), numbers + 1);
    EXPECT_EQ((StridedArrayView1D<const void>{arrayView(numbers), 3, 8}.data()), numbers);
    static_assert(std::is_convertible<StridedArrayView1D<void>, StridedArrayView1D<const void>>::value, "");
    static_assert(!std::is_convertible<StridedArrayView1D<const int>, StridedArrayView1D<void>>::value, "");
    EXPECT_EQ(StridedArrayView1D<const void>{}.data(), nullptr);
}

TEST_F(ContainersStridedArrayView, CastsToAnotherType) {
    EXPECT_THAT(items(arrayCast<short>(list.slice(&Vertex::id))), testing::ElementsAre(1, 3, 5));
    EXPECT_EQ(arrayCast<unsigned>(grid).stride(), (Stride2D{16, 4}));
    const StridedArrayView1D<const void> erased = list;
    EXPECT_EQ(arrayCast<const Vertex>(erased)[2].weight, 6);
    EXPECT_EQ(arrayCast<const int>(erased)[2], 5);
    EXPECT_EQ(arrayCast<float>(grid.prefix({1, 4}).broadcasted<0>(5)).size(), (Size2D{5, 4}));
    EXPECT_EQ(arrayCast<unsigned>(grid.flipped<0>())[0][0], 8);
}

TEST_F(ContainersStridedArrayView, CastsToMoreDimensions) {
    const StridedArrayView2D<char> bytes = arrayCast<2, char>(list);
    EXPECT_EQ(bytes.size(), (Size2D{3, 12}));
    EXPECT_EQ(bytes.stride(), (Stride2D{12, 1}));
    EXPECT_EQ(bytes[1][6], 'b');
    EXPECT_EQ((arrayCast<2, const short>(list.slice(&Vertex::id)).size()), (Size2D{3, 2}));
    EXPECT_EQ((arrayCast<2, double>(list).size()), (Size2D{3, 1}));
    EXPECT_EQ((arrayCast<3, char>(grid.flipped<1>()).stride()), (Stride3D{16, -4, 1}));

    const StridedArrayView1D<const void> erased = list;
    const StridedArrayView2D<const int> pairs = arrayCast<2, const int>(erased, 1);
    EXPECT_EQ(rows(pairs), (Rows{{1}, {3}, {5}}));
    EXPECT_EQ((arrayCast<2, const char>(erased, 12).size()), (Size2D{3, 12}));
}

TEST_F(ContainersStridedArrayView, CastsToLessDimensions) {
    const StridedArrayView1D<Vertex> back = arrayCast<1, Vertex>(arrayCast<2, char>(list));
    EXPECT_EQ(back.size(), 3);
    EXPECT_EQ(back[2].id, 5);
    EXPECT_THAT(items(arrayCast<1, int>(arrayCast<2, char>(list).prefix({3, 4}))), testing::ElementsAre(1, 3, 5));
    EXPECT_EQ((arrayCast<1, double>(grid.prefix({3, 2}).flipped<0>()).stride()), -16);
}

TEST_F(ContainersStridedArrayView, AssertsAccess) {
    EXPECT_ASSERT(list[3], "Containers::StridedArrayView::operator[](): index 3 out of range for 3 elements\n");
    EXPECT_ASSERT(grid[1][4], "Containers::StridedArrayView::operator[](): index 4 out of range for 4 elements\n");
    EXPECT_ASSERT(
        (grid[{1, 4}]), "Containers::StridedArrayView::operator[](): index {1, 4} out of range for {3, 4} elements\n");
    EXPECT_ASSERT(StridedArrayView1D<int>{}.front(), "Containers::StridedArrayView::front(): view is empty\n");
    EXPECT_ASSERT(StridedArrayView1D<int>{}.back(), "Containers::StridedArrayView::back(): view is empty\n");
}

TEST_F(ContainersStridedArrayView, AssertsSlices) {
    EXPECT_ASSERT(list.slice(3, 2), "Containers::StridedArrayView::slice(): slice [3:2] out of range for 3 elements\n");
    EXPECT_ASSERT(list.prefix(4), "Containers::StridedArrayView::slice(): slice [0:4] out of range for 3 elements\n");
    EXPECT_ASSERT(list.exceptSuffix(4),
        "Containers::StridedArrayView::slice(): slice [0:18446744073709551615] out of range for 3 elements\n");
    EXPECT_ASSERT(grid.slice({0, 0}, {4, 1}),
        "Containers::StridedArrayView::slice(): slice [{0, 0}:{4, 1}] out of range for {3, 4} elements in dimension "
        "0\n");
    EXPECT_ASSERT(grid.prefix({1, 5}),
        "Containers::StridedArrayView::slice(): slice [{0, 0}:{1, 5}] out of range for {3, 4} elements in dimension "
        "1\n");
    EXPECT_ASSERT(list.every(0), "Containers::StridedArrayView::every(): expected a non-zero step, got {0}\n");
    EXPECT_ASSERT(grid.every({1, 0}), "Containers::StridedArrayView::every(): expected a non-zero step, got {1, 0}\n");
    EXPECT_ASSERT(grid.broadcasted<1>(3),
        "Containers::StridedArrayView::broadcasted(): can't broadcast dimension 1 with 4 elements\n");
    EXPECT_ASSERT(
        list.every(2).asContiguous(), "Containers::StridedArrayView::asContiguous(): the view is not contiguous\n");
    EXPECT_ASSERT(grid.flipped<1>().asContiguous<1>(),
        "Containers::StridedArrayView::asContiguous(): the view is not contiguous from dimension 1\n");
}

TEST_F(ContainersStridedArrayView, AssertsEnoughData) {
    const ArrayView<int> data = arrayView(numbers).prefix(10);
    EXPECT_ASSERT((StridedArrayView1D<int>{data, 11}),
        "Containers::StridedArrayView: data size 40 is not enough for {11} elements of stride {4}\n");
    EXPECT_ASSERT((StridedArrayView1D<int>{data, numbers + 9, 6, -8}),
        "Containers::StridedArrayView: data size 40 is not enough for {6} elements of stride {-8}\n");
    EXPECT_ASSERT((StridedArrayView2D<int>{data, {2, 6}}),
        "Containers::StridedArrayView: data size 40 is not enough for {2, 6} elements of stride {24, 4}\n");
    EXPECT_EQ((StridedArrayView2D<int>{data, numbers, {0, 500}, {40, 4}}.size()), (Size2D{0, 500}));
}

TEST_F(ContainersStridedArrayView, AssertsCasts) {
    const StridedArrayView1D<const void> erased = list;
    const StridedArrayView2D<char> bytes = arrayCast<2, char>(list);
    EXPECT_ASSERT(arrayCast<double>(stridedArrayView(numbers)),
        "Containers::arrayCast(): can't fit a 8-byte type into a stride of 4\n");
    EXPECT_ASSERT(
        arrayCast<double>(grid.flipped<1>()), "Containers::arrayCast(): can't fit a 8-byte type into a stride of -4\n");
    EXPECT_ASSERT((arrayCast<2, const char>(erased, 13)),
        "Containers::arrayCast(): can't fit 13 1-byte items into a stride of 12\n");
    EXPECT_ASSERT((arrayCast<1, int>(bytes)),
        "Containers::arrayCast(): last dimension needs to have byte size equal to new type size in order to be "
        "flattened, expected 4 but got 12\n");
    EXPECT_ASSERT((arrayCast<1, Vertex>(bytes.every({1, 2}))),
        "Containers::arrayCast(): last dimension needs to be contiguous in order to be flattened, expected stride 1 "
        "but got 2\n");
}

TEST(ContainersStridedDimensions, AreListsOfValues) {
    Size2D size{1, 2};
    size[0] = 3;
    EXPECT_THAT(items(size), testing::ElementsAre(3, 2));
    EXPECT_TRUE((size == Size2D{3, 2}));
    EXPECT_TRUE((size != Size2D{3, 3}));
    EXPECT_EQ(Size3D{}[2], 0);
    const Size1D one = 5;
    const std::size_t value = one;
    EXPECT_EQ(value, 5);
    EXPECT_EQ((Stride2D{-1, 2}[0]), -1);
    static_assert(!std::is_convertible<Size2D, std::size_t>::value, "");
}

}
