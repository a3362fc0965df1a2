#pragma once

#include <csignal>
#include <cstddef>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>

// The statement prints the text to the standard error output and aborts. Runs it in a child process.
#define EXPECT_ABORT(statement, text) EXPECT_EXIT(statement, testing::KilledBySignal(SIGABRT), testing::HasSubstr(text))

namespace SceneTest {

// What Debug makes of a value.
template<class T> std::string printed(const T& value) {
    Corrade::Containers::String out;
    Corrade::Utility::Debug{&out, Corrade::Utility::Debug::Flag::NoNewlineAtTheEnd} << value;
    return {out.data(), out.size()};
}

// A copy of anything with size() and operator[].
template<class T, class View> std::vector<T> items(const View& view) {
    std::vector<T> out;
    for(std::size_t i = 0; i != view.size(); ++i) out.push_back(T(view[i]));
    return out;
}

// The components of vectors, one after the other.
template<class View> std::vector<float> floats(const View& vectors) {
    std::vector<float> out;
    for(std::size_t i = 0; i != vectors.size(); ++i) {
        const auto vector = vectors[i];
        out.insert(out.end(), vector.data(), vector.data() + sizeof(vector) / sizeof(float));
    }
    return out;
}

}
