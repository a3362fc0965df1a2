#include "Shaders/BloomKernel.h"

#include <cstdint>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine::Shaders;
using testing::DoubleNear;
using testing::ElementsAre;

template<class T> std::vector<T> list(const Containers::Array<T>& values) {
    return std::vector<T>(values.begin(), values.end());
}

std::uint64_t sumOf(UnsignedInt kernelSize) {
    std::uint64_t sum = 0;
    for(const UnsignedInt coefficient: bloomCoefficients(kernelSize)) sum += coefficient;
    return sum;
}

TEST(BloomKernelTest, hasATapForEachPixelAndAnOddNumberOfThem) {
    for(UnsignedInt size = 0; size <= MaxBloomKernelSize; ++size) {
        const UnsignedInt taps = size == 0 ? 1 : size % 2 ? size : size + 1;
        EXPECT_EQ(bloomCoefficients(size).size(), taps) << size;
        EXPECT_EQ(2 * bloomWeightCount(size) - 1, taps) << size;
        EXPECT_EQ(bloomWeights(size).size(), bloomWeightCount(size)) << size;
    }
}

TEST(BloomKernelTest, coefficientsAreTheMiddleOfARowOfPascalsTriangle) {
    EXPECT_THAT(list(bloomCoefficients(0)), ElementsAre(2));
    EXPECT_THAT(list(bloomCoefficients(2)), ElementsAre(15, 20, 15));
    EXPECT_THAT(list(bloomCoefficients(4)), ElementsAre(28, 56, 70, 56, 28));
    EXPECT_THAT(list(bloomCoefficients(6)), ElementsAre(220, 495, 792, 924, 792, 495, 220));
}

TEST(BloomKernelTest, sumsHaveRoomIn32Bits) {
    EXPECT_EQ(sumOf(1), 2u);
    EXPECT_EQ(sumOf(3), 50u);
    EXPECT_EQ(sumOf(5), 238u);
    EXPECT_EQ(sumOf(9), 16172u);
    EXPECT_EQ(sumOf(21), 4294481646u);
}

TEST(BloomKernelTest, weightsOfSomeSizes) {
    EXPECT_THAT(list(bloomWeights(0)), ElementsAre(1.0));
    EXPECT_THAT(list(bloomWeights(1)), ElementsAre(1.0));
    EXPECT_THAT(list(bloomWeights(3)), ElementsAre(DoubleNear(0.4, 1e-15), DoubleNear(0.3, 1e-15)));
    EXPECT_THAT(list(bloomWeights(9)),
        ElementsAre(DoubleNear(0.2122186495, 5e-11), DoubleNear(0.1856913183, 5e-11), DoubleNear(0.1237942122, 5e-11),
            DoubleNear(0.06189710611, 5e-12), DoubleNear(0.02250803859, 5e-12)));
    const Containers::Array<Double> largest = bloomWeights(21);
    EXPECT_NEAR(largest.front(), 0.1399657606, 5e-11);
    EXPECT_NEAR(largest.back(), 0.0002110131268, 5e-14);
}

TEST(BloomKernelTest, weightsAddUpToOneAndFallFromTheMiddleOn) {
    for(UnsignedInt size = 0; size <= MaxBloomKernelSize; ++size) {
        const Containers::Array<Double> weights = bloomWeights(size);
        double sum = weights[0];
        for(std::size_t i = 1; i != weights.size(); ++i) {
            sum += 2.0 * weights[i];
            EXPECT_LT(weights[i], weights[i - 1]) << size;
        }
        EXPECT_NEAR(sum, 1.0, 1e-15) << size;
    }
}

TEST(BloomKernelTest, anEvenSizeIsThatOfTheNextOddOne) {
    for(UnsignedInt size = 0; size < MaxBloomKernelSize; size += 2)
        EXPECT_EQ(list(bloomWeights(size)), list(bloomWeights(size + 1))) << size;
}

}
