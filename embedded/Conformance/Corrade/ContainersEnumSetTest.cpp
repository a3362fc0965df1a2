#include "ContainersTesting.h"

#include <Corrade/Containers/EnumSet.hpp>
#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>

using namespace Corrade;
using namespace Corrade::Containers;
using namespace ContainersTesting;

namespace {

enum class Feature : unsigned char { Fast = 1, Cheap = 2, Popular = 4, Both = 3 };
using Features = EnumSet<Feature>;
using KnownFeatures = EnumSet<Feature, 7>;
CORRADE_ENUMSET_OPERATORS(Features)

class Shape {
public:
    enum class Flag : unsigned { Round = 1u << 31, Flat = 1 };
    using Flags = EnumSet<Flag>;
    CORRADE_ENUMSET_FRIEND_OPERATORS(Flags)
};

template<class> class Generic {
public:
    enum class Flag : int { A = 1, B = 2 };
    using Flags = EnumSet<Flag>;
    CORRADE_ENUMSET_FRIEND_OPERATORS(Flags)
};

Utility::Debug& operator<<(Utility::Debug& debug, Feature value) {
    if(value == Feature::Fast) return debug << "Fast";
    if(value == Feature::Cheap) return debug << "Cheap";
    if(value == Feature::Popular) return debug << "Popular";
    if(value == Feature::Both) return debug << "Both";
    return debug << "Feature(" << Utility::Debug::nospace << int(value) << Utility::Debug::nospace << ")";
}

std::string printed(Features value, std::initializer_list<Feature> names) {
    String out;
    {
        Utility::Debug debug{&out, Utility::Debug::Flag::NoNewlineAtTheEnd};
        enumSetDebugOutput(debug, value, "Features{}", names) << "!";
    }
    return text(out);
}

TEST(ContainersEnumSet, ConvertsExplicitlyToItsNumber) {
    static_assert(sizeof(Features) == 1, "");
    static_assert(!std::is_convertible<unsigned char, Features>::value, "");
    static_assert(!std::is_convertible<Features, unsigned char>::value, "");
    static_assert(!std::is_convertible<Features, bool>::value, "");
    EXPECT_EQ(static_cast<unsigned char>(Features{}), 0);
    EXPECT_EQ(static_cast<unsigned char>(Features{Feature::Popular}), 4);
    EXPECT_EQ(static_cast<unsigned char>(Features{static_cast<unsigned char>(0xf0)}), 0xf0);
    EXPECT_EQ(enumCastUnderlyingType(Feature::Popular), 4);
    EXPECT_EQ(enumCastUnderlyingType(Feature::Popular | Feature::Cheap), 6);
    static_assert(std::is_same<decltype(enumCastUnderlyingType(Feature::Fast)), unsigned char>::value, "");
}

TEST(ContainersEnumSet, Combines) {
    constexpr Features both = Feature::Fast | Feature::Cheap;
    static_assert(both == Feature::Both, "");
    EXPECT_TRUE((both & Feature::Fast) == Feature::Fast);
    EXPECT_FALSE(both & Feature::Popular);
    EXPECT_TRUE((both ^ Feature::Fast) == Feature::Cheap);
    EXPECT_TRUE((Feature::Popular | both) == Features{static_cast<unsigned char>(7)});
    EXPECT_TRUE((Feature::Fast & both) == Feature::Fast);
    EXPECT_TRUE((Feature::Fast ^ both) == Feature::Cheap);
    EXPECT_TRUE(both != Feature::Fast);
    EXPECT_TRUE(Feature::Fast != both);
    EXPECT_TRUE(Feature::Both == both);
    Features changing;
    changing |= Feature::Popular;
    changing |= Feature::Fast;
    changing &= ~Feature::Fast;
    EXPECT_TRUE(changing == Feature::Popular);
    changing ^= Feature::Popular;
    EXPECT_FALSE(changing);
}

TEST(ContainersEnumSet, ComplementsWithinTheFullValue) {
    EXPECT_EQ(enumCastUnderlyingType(~Features{Feature::Fast}), 254);
    EXPECT_EQ(enumCastUnderlyingType(~KnownFeatures{Feature::Fast}), 6);
    EXPECT_EQ(enumCastUnderlyingType(~Feature::Fast), 254);
}

TEST(ContainersEnumSet, ComparesAsSets) {
    const Features both = Feature::Fast | Feature::Cheap;
    EXPECT_TRUE(both >= Feature::Fast);
    EXPECT_FALSE(both <= Feature::Fast);
    EXPECT_TRUE(Feature::Fast <= both);
    EXPECT_FALSE(Feature::Fast >= both);
    EXPECT_TRUE(Features{} <= Feature::Fast);
    EXPECT_TRUE(both >= both);
    EXPECT_FALSE(Features{Feature::Popular} >= Feature::Fast);
    EXPECT_FALSE(Features{Feature::Popular} <= Feature::Fast);
}

TEST(ContainersEnumSet, HasOperatorsInClasses) {
    const Shape::Flags flags = Shape::Flag::Round | Shape::Flag::Flat;
    EXPECT_EQ(enumCastUnderlyingType(flags), 0x80000001u);
    EXPECT_TRUE((~Shape::Flag::Flat & flags) == Shape::Flag::Round);
    using Flag = Generic<float>::Flag;
    EXPECT_EQ(enumCastUnderlyingType(Flag::A | Flag::B), 3);
}

TEST(ContainersEnumSet, IsPrintedAsNames) {
    const auto plain = {Feature::Fast, Feature::Cheap, Feature::Popular};
    EXPECT_EQ(printed({}, plain), "Features{} !");
    EXPECT_EQ(printed(Feature::Cheap, plain), "Cheap !");
    EXPECT_EQ(printed(Feature::Popular | Feature::Fast, plain), "Fast|Popular !");
    EXPECT_EQ(printed(Features{static_cast<unsigned char>(0xf1)}, plain), "Fast|Feature(240) !");
    EXPECT_EQ(printed(Features{static_cast<unsigned char>(0xf0)}, plain), "Feature(240) !");
    const auto withBoth = {Feature::Both, Feature::Fast, Feature::Cheap, Feature::Popular};
    EXPECT_EQ(printed(Feature::Fast | Feature::Cheap, withBoth), "Both !");
    EXPECT_EQ(printed(Features{static_cast<unsigned char>(7)}, withBoth), "Both|Popular !");
    EXPECT_EQ(printed(Feature::Fast | Feature::Popular, withBoth), "Fast|Popular !");
}

}
