#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <type_traits>
#include <vector>

/** The statement has to abort with the given text in its error output. */
#define EXPECT_ASSERT(statement, text)                                                                                 \
    EXPECT_EXIT(                                                                                                       \
        {                                                                                                              \
            statement;                                                                                                 \
            std::_Exit(0);                                                                                             \
        },                                                                                                             \
        testing::KilledBySignal(SIGABRT), testing::HasSubstr(text))

namespace ContainersTesting {

/** Copy of a list whose items are printable and comparable. */
template<class List> auto items(const List& list) {
    std::vector<std::decay_t<decltype(*list.begin())>> out;
    for(auto&& item: list) out.push_back(item);
    return out;
}

/** The same for a list of strings. */
template<class List> std::vector<std::string> strings(const List& list) {
    std::vector<std::string> out;
    for(auto&& item: list) out.emplace_back(item.data() ? item.data() : "", item.size());
    return out;
}

template<class View> std::string text(const View& view) { return {view.data() ? view.data() : "", view.size()}; }

/** Counts the objects of its kind. Differs from plain data in everything that a container could get wrong. */
struct Counted {
    static inline int alive = 0;
    static inline int copies = 0;
    static inline int moves = 0;

    static void reset() { alive = copies = moves = 0; }

    Counted(int value = 0): value{value}, self{this} { ++alive; }
    Counted(const Counted& other): value{other.value}, self{this} {
        ++alive;
        ++copies;
    }
    Counted(Counted&& other) noexcept: value{other.value}, self{this} {
        ++alive;
        ++moves;
        other.value = -1;
    }
    Counted& operator=(const Counted& other) {
        value = other.value;
        ++copies;
        return *this;
    }
    Counted& operator=(Counted&& other) noexcept {
        value = other.value;
        other.value = -1;
        ++moves;
        return *this;
    }
    ~Counted() {
        EXPECT_EQ(self, this) << "an object was moved without its constructor or destroyed twice";
        self = nullptr;
        --alive;
    }

    int value;
    const void* self;
};

template<class List> std::vector<int> values(const List& list) {
    std::vector<int> out;
    for(const auto& item: list) out.push_back(item.value);
    return out;
}

/** For tests that count: starts from zero and finds leaks. */
struct CountedTest: testing::Test {
    CountedTest() { Counted::reset(); }
    ~CountedTest() override { EXPECT_EQ(Counted::alive, 0); }
};

}
