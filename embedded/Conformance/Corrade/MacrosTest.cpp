#include "Capture.h"

#include <Corrade/Tags.h>
#include <Corrade/Utility/Macros.h>
#include <Corrade/Utility/Move.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <type_traits>
#include <utility>

using namespace Corrade;

namespace {

int initialized = 0;

int initialize() { return initialized = 7; }

bool announcesFinalizers = false;

int announce(const char* name) { return announcesFinalizers ? std::fputs(name, stderr) : 0; }
int finalizeFirst() { return announce("first\n"); }
int finalizeSecond() { return announce("second\n"); }

}

CORRADE_AUTOMATIC_INITIALIZER(initialize)
CORRADE_AUTOMATIC_FINALIZER(finalizeFirst)
CORRADE_AUTOMATIC_FINALIZER(finalizeSecond)

namespace Values {

/* Looked up through its argument, besides what the caller sees. */
struct Value {
    int number;
};

}

namespace Corrade {
namespace Utility {

struct Local {
    int number;
};

}
}

namespace {

TEST(Macros, automaticInitializerRunsBeforeMain) { EXPECT_EQ(initialized, 7); }

TEST(Macros, automaticFinalizersRunAtExitInReverseOrder) {
    EXPECT_EXIT(
        {
            announcesFinalizers = true;
            std::exit(0);
        },
        testing::ExitedWithCode(0), testing::Eq("second\nfirst\n"));
}

TEST(Macros, lineString) { EXPECT_EQ(std::string{"line " CORRADE_LINE_STRING}, "line " + std::to_string(__LINE__)); }

int fallThrough(const int from) {
    int passed = 0;
    switch(from) {
    case 0: ++passed; CORRADE_FALLTHROUGH
    case 1: ++passed;
    }
    return passed;
}

TEST(Macros, attributes) {
    CORRADE_UNUSED const int unused = 3;
    EXPECT_EQ(fallThrough(0), 2);
}

struct Tagged {
    explicit Tagged(ValueInitT, int = 0): tag{"ValueInit"} {}
    explicit Tagged(NoInitT, int = 0): tag{"NoInit"} {}
    explicit Tagged(DirectInitT, int = 0): tag{"DirectInit"} {}
    explicit Tagged(InPlaceInitT, int = 0): tag{"InPlaceInit"} {}
    explicit Tagged(DefaultInitT, int = 0): tag{"DefaultInit"} {}
    explicit Tagged(NoCreateT, int = 0): tag{"NoCreate"} {}
    explicit Tagged(std::nullptr_t, int = 0): tag{"none"} {}

    std::string tag;
};

TEST(Tags, chooseAConstructor) {
    EXPECT_EQ((Tagged{ValueInit, 1}.tag), "ValueInit");
    EXPECT_EQ((Tagged{NoInit, 1}.tag), "NoInit");
    EXPECT_EQ((Tagged{DirectInit, 1}.tag), "DirectInit");
    EXPECT_EQ((Tagged{InPlaceInit, 1}.tag), "InPlaceInit");
    EXPECT_EQ((Tagged{DefaultInit, 1}.tag), "DefaultInit");
    EXPECT_EQ((Tagged{NoCreate, 1}.tag), "NoCreate");
}

TEST(Tags, areNotMadeFromNothing) {
    EXPECT_EQ((Tagged{{}, 1}.tag), "none");
    EXPECT_FALSE(std::is_default_constructible<ValueInitT>::value);
    EXPECT_FALSE(std::is_default_constructible<NoInitT>::value);
    EXPECT_FALSE(std::is_default_constructible<DirectInitT>::value);
    EXPECT_FALSE(std::is_default_constructible<InPlaceInitT>::value);
    EXPECT_FALSE(std::is_default_constructible<DefaultInitT>::value);
    EXPECT_FALSE(std::is_default_constructible<NoCreateT>::value);
}

TEST(Move, move) {
    std::unique_ptr<int> a = std::make_unique<int>(3);
    const std::unique_ptr<int> b = Utility::move(a);
    EXPECT_EQ(a, nullptr);
    EXPECT_EQ(*b, 3);
}

std::string category(int&) { return "lvalue"; }
std::string category(const int&) { return "const lvalue"; }
std::string category(int&&) { return "rvalue"; }
template<class T> std::string forwarded(T&& value) { return category(Utility::forward<T>(value)); }

TEST(Move, forward) {
    int a = 3;
    const int b = 5;
    EXPECT_EQ(forwarded(a), "lvalue");
    EXPECT_EQ(forwarded(b), "const lvalue");
    EXPECT_EQ(forwarded(7), "rvalue");
}

TEST(Move, swap) {
    std::unique_ptr<int> a = std::make_unique<int>(3);
    std::unique_ptr<int> b = std::make_unique<int>(5);
    Utility::swap(a, b);
    EXPECT_EQ(*a, 5);
    EXPECT_EQ(*b, 3);
}

TEST(Move, swapNextToTheStandardOne) {
    using std::swap;
    Utility::Local a{3}, b{5};
    swap(a, b);
    EXPECT_EQ(a.number, 5);

    using Utility::swap;
    Values::Value c{3}, d{5};
    swap(c, d);
    EXPECT_EQ(c.number, 5);
    EXPECT_EQ(d.number, 3);
}

}
