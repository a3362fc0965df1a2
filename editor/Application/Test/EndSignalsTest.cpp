#include "Application/EndSignals.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <gtest/gtest.h>
#include <unistd.h>

namespace VantrelEngine {

namespace {

using testing::ExitedWithCode;
using testing::KilledBySignal;

bool waitFor(const EndSignals& signals) {
    for(int i = 0; i != 5000 && !signals.isEnding(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds{1});
    return signals.isEnding();
}

class EndSignalsDeathTest: public testing::Test {
protected:
    void SetUp() override { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(EndSignalsDeathTest, WorkIsLeftInOrderAndThenTheSignalEndsTheProcess) {
    for(const int signal: {SIGTERM, SIGHUP, SIGINT})
        EXPECT_EXIT(
            {
                const EndSignals signals{[] { std::fputs("woken", stderr); }};
                kill(getpid(), signal);
                if(waitFor(signals)) std::fputs(", in order", stderr);
            },
            KilledBySignal(signal), "woken, in order");
}

TEST_F(EndSignalsDeathTest, ASecondSignalEndsItAtOnce) {
    EXPECT_EXIT(
        {
            const EndSignals signals;
            kill(getpid(), SIGTERM);
            waitFor(signals);
            kill(getpid(), SIGINT);
            std::this_thread::sleep_for(std::chrono::seconds{20});
        },
        KilledBySignal(SIGINT), "");
}

TEST_F(EndSignalsDeathTest, WhatIsIgnoredStaysSo) {
    EXPECT_EXIT(
        {
            std::signal(SIGHUP, SIG_IGN);
            {
                const EndSignals signals;
                kill(getpid(), SIGHUP);
                kill(getpid(), SIGPIPE);
                std::this_thread::sleep_for(std::chrono::milliseconds{50});
                if(signals.isEnding()) std::exit(1);
            }
            kill(getpid(), SIGHUP);
            std::exit(3);
        },
        ExitedWithCode(3), "");
}

} // namespace

} // namespace VantrelEngine
