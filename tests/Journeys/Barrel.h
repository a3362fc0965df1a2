#pragma once

namespace VantrelTest {

// A model: a cube of 2 with its middle in the origin.
constexpr const char* Barrel = R"(o Barrel
v -1 -1 -1
v 1 -1 -1
v 1 1 -1
v -1 1 -1
v -1 -1 1
v 1 -1 1
v 1 1 1
v -1 1 1
f 1 4 3 2
f 5 6 7 8
f 1 2 6 5
f 3 4 8 7
f 2 3 7 6
f 1 5 8 4
)";

}
