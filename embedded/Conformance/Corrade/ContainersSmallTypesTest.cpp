#include "ContainersTesting.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/GrowableArray.h>
#include <Corrade/Containers/Optional.h>
#include <Corrade/Containers/Pair.h>
#include <Corrade/Containers/Pointer.h>
#include <Corrade/Containers/Reference.h>
#include <Corrade/Containers/StaticArray.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Containers/StructuredBindings.h>
#include <Corrade/Containers/Triple.h>

using namespace Corrade;
using namespace Corrade::Containers;
using namespace Corrade::Containers::Literals;
using namespace ContainersTesting;

namespace {

struct ContainersOptional: CountedTest {};
struct ContainersPointer: CountedTest {};

TEST_F(ContainersOptional, IsSetOrNot) {
    const Optional<int> empty;
    EXPECT_FALSE(empty);
    const Optional<int> alsoEmpty = NullOpt;
    EXPECT_FALSE(alsoEmpty);
    const Optional<int> set = 5;
    EXPECT_TRUE(set);
    EXPECT_EQ(*set, 5);
    const Optional<std::string> inPlace{InPlaceInit, "xxxx", std::size_t{3}};
    EXPECT_EQ(*inPlace, "xxx");
    EXPECT_EQ(inPlace->size(), 3);
    static_assert(!std::is_convertible<Optional<int>, bool>::value, "");
}

TEST_F(ContainersOptional, IsMadeByAFunction) {
    const int value = 3;
    static_assert(std::is_same<decltype(optional(value)), Optional<int>>::value, "");
    EXPECT_EQ(*optional(value), 3);
    EXPECT_EQ(*optional<std::string>("abc", std::size_t{2}), "ab");
    EXPECT_EQ(**optional(pointer<int>(4)), 4);
}

struct Aggregate {
    int a, b;
};

TEST_F(ContainersOptional, ConstructsWithBraces) {
    EXPECT_EQ((Optional<std::vector<int>> { InPlaceInit, 3, 7 } -> size()), 2);
    EXPECT_EQ((optional<std::vector<int>>(3, 7)->size()), 2);
    EXPECT_EQ((optional<Aggregate>(1, 2)->b), 2);
    Optional<Aggregate> aggregate;
    EXPECT_EQ(aggregate.emplace(3, 4).b, 4);
}

TEST_F(ContainersOptional, Compares) {
    EXPECT_TRUE(Optional<int>{} == NullOpt);
    EXPECT_FALSE(Optional<int>{} != NullOpt);
    EXPECT_TRUE(Optional<int>{3} != NullOpt);
    EXPECT_TRUE(NullOpt == Optional<int>{});
    EXPECT_TRUE(Optional<int>{3} == 3);
    EXPECT_TRUE(Optional<int>{3} != 4);
    EXPECT_FALSE(Optional<int>{} == 0);
    EXPECT_TRUE(Optional<int>{} != 0);
    EXPECT_TRUE(Optional<int>{3} == Optional<int>{3});
    EXPECT_TRUE(Optional<int>{} == Optional<int>{});
    EXPECT_TRUE(Optional<int>{3} != Optional<int>{});
    EXPECT_TRUE(Optional<int>{3} != Optional<int>{4});
}

TEST_F(ContainersOptional, CopiesMovesAndDestroys) {
    Optional<Counted> a{InPlaceInit, 3};
    EXPECT_EQ(Counted::alive, 1);
    Optional<Counted> b = a;
    EXPECT_EQ(Counted::alive, 2);
    EXPECT_EQ(Counted::copies, 1);
    const Optional<Counted> c = std::move(a);
    EXPECT_TRUE(a);
    EXPECT_EQ(a->value, -1);
    EXPECT_EQ(c->value, 3);
    b = NullOpt;
    EXPECT_EQ(Counted::alive, 2);
    b = c;
    EXPECT_EQ(b->value, 3);
    EXPECT_EQ(Counted::alive, 3);
    b = Optional<Counted>{};
    EXPECT_FALSE(b);
    EXPECT_EQ(Counted::alive, 2);
    b.emplace(7).value++;
    b.emplace(8);
    EXPECT_EQ(b->value, 8);
    EXPECT_EQ(Counted::alive, 3);
    a = b;
    EXPECT_EQ(a->value, 8);
    EXPECT_EQ(Counted::alive, 3);
}

TEST_F(ContainersOptional, HoldsWhatCannotBeCopied) {
    Optional<Pointer<Counted>> a{InPlaceInit, InPlaceInit, 5};
    Optional<Pointer<Counted>> b = std::move(a);
    EXPECT_EQ((*b)->value, 5);
    const Pointer<Counted> taken = *std::move(b);
    EXPECT_EQ(taken->value, 5);
    EXPECT_TRUE(*b == nullptr);
}

TEST_F(ContainersOptional, Asserts) {
    Optional<std::string> empty;
    const Optional<std::string> constant;
    EXPECT_ASSERT(*empty = "", "Containers::Optional: the optional is empty\n");
    EXPECT_ASSERT(static_cast<void>(*constant), "Containers::Optional: the optional is empty\n");
    EXPECT_ASSERT(static_cast<void>(empty->size()), "Containers::Optional: the optional is empty\n");
    EXPECT_ASSERT(static_cast<void>(*Optional<int>{}), "Containers::Optional: the optional is empty\n");
}

struct Base {
    virtual ~Base() = default;
    int base = 1;
};
struct Derived: Base {
    explicit Derived(int value): counted{value} {}
    Counted counted;
};

TEST_F(ContainersPointer, Owns) {
    EXPECT_FALSE(Pointer<int>{});
    const Pointer<int> null = nullptr;
    EXPECT_TRUE(null == nullptr);
    EXPECT_TRUE(nullptr == null);
    EXPECT_EQ(null.get(), nullptr);
    {
        const Pointer<Counted> a{new Counted{3}};
        EXPECT_TRUE(a);
        EXPECT_TRUE(a != nullptr);
        EXPECT_EQ(a->value, 3);
        EXPECT_EQ((*a).value, 3);
        const Pointer<Counted> b{InPlaceInit, 4};
        EXPECT_EQ(Counted::alive, 2);
    }
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_EQ(*pointer<int>(5), 5);
    EXPECT_EQ(*pointer(new int{6}), 6);
    static_assert(!std::is_convertible<int*, Pointer<int>>::value, "");
    static_assert(!std::is_convertible<Pointer<int>, bool>::value, "");
    static_assert(!std::is_copy_constructible<Pointer<int>>::value, "");
    static_assert(sizeof(Pointer<int>) == sizeof(void*), "");
}

TEST_F(ContainersPointer, ReplacesAndReleases) {
    Pointer<Counted> a{InPlaceInit, 1};
    a.emplace(2);
    EXPECT_EQ(Counted::alive, 1);
    a.reset(new Counted{3});
    EXPECT_EQ(Counted::alive, 1);
    Counted* const released = a.release();
    EXPECT_EQ(released->value, 3);
    EXPECT_FALSE(a);
    EXPECT_EQ(Counted::alive, 1);
    a.reset(released);
    a.reset();
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(ContainersPointer, ConstructsWithBraces) {
    EXPECT_EQ((pointer<std::vector<int>>(3, 7)->size()), 2);
    Pointer<Aggregate> aggregate{InPlaceInit, 1, 2};
    EXPECT_EQ(aggregate->b, 2);
    EXPECT_EQ(aggregate.emplace(3, 4).b, 4);
}

TEST_F(ContainersPointer, Moves) {
    Pointer<Counted> a{InPlaceInit, 1};
    const Counted* const object = a.get();
    Pointer<Counted> b = std::move(a);
    EXPECT_FALSE(a);
    EXPECT_EQ(b.get(), object);
    Pointer<Counted> c;
    c = std::move(b);
    EXPECT_EQ(c.get(), object);
    c = nullptr;
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(ContainersPointer, ConvertsToTheBase) {
    Pointer<Base> base = pointer<Derived>(7);
    EXPECT_EQ(Counted::alive, 1);
    static_assert(!std::is_convertible<Pointer<Base>, Pointer<Derived>>::value, "");
    const Pointer<Derived> derived = pointerCast<Derived>(std::move(base));
    EXPECT_EQ(derived->counted.value, 7);
    EXPECT_FALSE(base);
    base.emplace<Derived>(9).counted.value++;
    EXPECT_EQ(Counted::alive, 2);
    EXPECT_EQ(base->base, 1);
}

TEST_F(ContainersPointer, Asserts) {
    const Pointer<std::string> null;
    EXPECT_ASSERT(static_cast<void>(*null), "Containers::Pointer: the pointer is null\n");
    EXPECT_ASSERT(static_cast<void>(null->size()), "Containers::Pointer: the pointer is null\n");
}

TEST(ContainersPair, HoldsTwo) {
    Pair<int, std::string> a{3, "a"};
    a.first() = 4;
    a.second() += "b";
    EXPECT_EQ(a.first(), 4);
    EXPECT_EQ(a.second(), "ab");
    EXPECT_EQ((Pair<int, float>{}.first()), 0);
    EXPECT_TRUE(pair(1, 2) == pair(1, 2));
    EXPECT_TRUE(pair(1, 2) != pair(1, 3));
    EXPECT_TRUE(pair(1, 2) != pair(2, 2));
    static_assert(std::is_same<decltype(pair("a", 2.0f)), Pair<const char*, float>>::value, "");
    static_assert(std::is_trivially_copyable<Pair<int, float>>::value, "");
    constexpr Pair<int, int> constant{1, 2};
    static_assert(constant.second() == 2, "");
}

TEST(ContainersPair, MovesOut) {
    Pair<int, Pointer<int>> a{1, pointer<int>(2)};
    Pair<int, Pointer<int>> b = std::move(a);
    const Pointer<int> taken = std::move(b).second();
    EXPECT_EQ(*taken, 2);
    EXPECT_TRUE(b.second() == nullptr);
    Array<Pair<int, Pointer<int>>> list;
    arrayAppend(list, InPlaceInit, 3, pointer<int>(4));
    EXPECT_EQ(*list[0].second(), 4);
}

TEST(ContainersTriple, HoldsThree) {
    Triple<int, float, std::string> a{1, 2.0f, "c"};
    a.third() = "d";
    EXPECT_EQ(a.first(), 1);
    EXPECT_EQ(a.second(), 2.0f);
    EXPECT_EQ(a.third(), "d");
    EXPECT_TRUE(triple(1, 2, 3) == triple(1, 2, 3));
    EXPECT_TRUE(triple(1, 2, 3) != triple(1, 2, 4));
    EXPECT_TRUE(triple(1, 2, 3) != triple(1, 0, 3));
    EXPECT_TRUE(triple(1, 2, 3) != triple(0, 2, 3));
    static_assert(std::is_same<decltype(triple(1, 2.0f, 'c')), Triple<int, float, char>>::value, "");
}

TEST(ContainersStructuredBindings, TakeApart) {
    const auto [first, second] = pair(1, std::string{"b"});
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, "b");

    Triple<int, int, int> numbers{1, 2, 3};
    auto& [a, b, c] = numbers;
    b = 20;
    EXPECT_EQ(numbers.second(), 20);
    EXPECT_EQ(a + c, 4);

    auto [i, owned] = pair(5, pointer<int>(6));
    EXPECT_EQ(i, 5);
    EXPECT_EQ(*owned, 6);

    const auto [key, separator, value] = "key=value"_s.partition('=');
    EXPECT_EQ(text(key), "key");
    EXPECT_EQ(text(separator), "=");
    EXPECT_EQ(text(value), "value");
}

TEST(ContainersReference, RefersToAnother) {
    int a = 1;
    int b = 2;
    Reference<int> reference = a;
    reference.get() = 10;
    *reference += 1;
    EXPECT_EQ(a, 11);
    reference = b;
    int& converted = reference;
    EXPECT_EQ(&converted, &b);
    const Reference<const int> constant = reference;
    EXPECT_EQ(&constant.get(), &b);
    Derived derived{3};
    const Reference<Base> base = Reference<Derived>{derived};
    EXPECT_EQ(base->base, 1);
    static_assert(!std::is_convertible<int&&, Reference<int>>::value, "");
    static_assert(!std::is_default_constructible<Reference<int>>::value, "");
    static_assert(!std::is_convertible<Reference<const int>, Reference<int>>::value, "");
}

}
