#pragma once

#include <memory>
#include <string>

namespace VantrelEngine {

// An OpenGL 3.3 core context without a window, a display or a framebuffer of its own; current while it lives.
class HeadlessContext {
public:
    // Null, and one line, where this machine has none.
    static std::unique_ptr<HeadlessContext> create(std::string& error);

    ~HeadlessContext();
    HeadlessContext(const HeadlessContext&) = delete;
    HeadlessContext& operator=(const HeadlessContext&) = delete;

private:
    struct State;

    explicit HeadlessContext(std::unique_ptr<State> state);

    std::unique_ptr<State> _state;
};

} // namespace VantrelEngine
