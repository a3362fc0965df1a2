#include "Capture.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Corrade/Utility/Algorithms.h>

#include <vector>

using namespace Corrade;

namespace {

using testing::ElementsAre;

TEST(Copy, contiguous) {
    const int from[]{1, 2, 3};
    int to[3]{};
    Utility::copy(from, to);
    EXPECT_THAT(to, ElementsAre(1, 2, 3));

    Containers::Array<int> array{ValueInit, 3};
    Utility::copy(Containers::arrayView(from), array);
    EXPECT_THAT(std::vector<int>(array.begin(), array.end()), ElementsAre(1, 2, 3));

    Utility::copy(array.prefix(1), Containers::arrayView(to).slice(1, 2));
    EXPECT_THAT(to, ElementsAre(1, 1, 3));
}

TEST(Copy, nothing) {
    int to[]{1};
    Utility::copy(Containers::ArrayView<const int>{}, Containers::ArrayView<int>{to, 0});
    Utility::copy(Containers::StridedArrayView1D<const int>{}, Containers::StridedArrayView1D<int>{});
    EXPECT_EQ(to[0], 1);
}

TEST(Copy, strided) {
    const int from[]{1, 2, 3, 4};
    int to[4]{};
    Utility::copy(Containers::stridedArrayView(from).flipped<0>(), to);
    EXPECT_THAT(to, ElementsAre(4, 3, 2, 1));

    Utility::copy(Containers::stridedArrayView(from).prefix(2), Containers::stridedArrayView(to).every(2));
    EXPECT_THAT(to, ElementsAre(1, 3, 2, 1));
}

TEST(Copy, severalDimensions) {
    const short from[]{1, 2, 3, 4, 5, 6};
    short to[6]{};
    const Containers::StridedArrayView2D<const short> source{from, {2, 3}};
    Utility::copy(source.transposed<0, 1>(), Containers::StridedArrayView2D<short>{to, {3, 2}});
    EXPECT_THAT(to, ElementsAre(1, 4, 2, 5, 3, 6));
}

TEST(Copy, differentSizes) {
    const double from[3]{};
    double to[4]{};
    EXPECT_ABORTS("Utility::copy(): sizes {2, 8} and {4, 8} don't match",
        Utility::copy(Containers::stridedArrayView(from).prefix(2), Containers::stridedArrayView(to)));
    const short shorts[4]{};
    short otherShorts[4]{};
    EXPECT_ABORTS("Utility::copy(): sizes {2, 1, 2} and {2, 2, 2} don't match",
        Utility::copy(Containers::StridedArrayView2D<const short>{shorts, {2, 2}}.prefix({2, 1}),
            Containers::StridedArrayView2D<short>{otherShorts, {2, 2}}));
}

}
