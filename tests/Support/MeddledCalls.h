#pragma once

#include <functional>
#include <utility>

#include "Support/FailingCalls.h"

namespace VantrelTest {

// Another program does something just before new contents come to their place, once.
struct MeddledCalls: FailingCalls {
    using FailingCalls::rename;
    int rename(const char* from, const char* to, unsigned flags) override {
        if(const auto now = std::exchange(meddle, {})) now();
        return FailingCalls::rename(from, to, flags);
    }
    std::function<void()> meddle;
};

}
