#pragma once

#include <Corrade/Utility/Debug.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <sstream>
#include <string>

/** What one of the output classes prints while the function runs. */
template<class Channel, class Function> std::string captured(Function&& function) {
    std::ostringstream out;
    {
        Channel redirect{&out};
        function();
    }
    return out.str();
}

/** Everything that is printed to Debug. */
#define EXPECT_PRINTS(expected, ...) EXPECT_EQ(captured<Corrade::Utility::Debug>([&] { __VA_ARGS__; }), expected)

/** Everything that is printed to Error. */
#define EXPECT_REPORTS(expected, ...) EXPECT_EQ(captured<Corrade::Utility::Error>([&] { __VA_ARGS__; }), expected)

/** The process aborts after printing exactly one line to stderr. */
#define EXPECT_ABORTS(line, ...)                                                                                       \
    EXPECT_EXIT(__VA_ARGS__, testing::KilledBySignal(SIGABRT), testing::Eq(std::string{line} + "\n"))
