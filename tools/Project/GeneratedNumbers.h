#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>

namespace VantrelTools {

// Random numbers that are the same everywhere: those of the standard's distributions are not.
class GeneratedNumbers {
public:
    explicit GeneratedNumbers(std::uint32_t seed): _engine{seed} {}

    // Less than the limit, which is above 0. So small a limit makes no number visibly more frequent.
    std::size_t below(std::size_t limit) { return std::size_t(_engine() % limit); }

    // With three digits behind the point, as people write them.
    double between(double min, double max) {
        const double fraction = double(_engine() >> 11) * 0x1.0p-53;
        return std::round((min + fraction * (max - min)) * 1000.0) / 1000.0;
    }

private:
    std::mt19937_64 _engine;
};

}
