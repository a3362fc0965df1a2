#pragma once

#include <atomic>
#include <csignal>
#include <functional>
#include <thread>

namespace VantrelEngine {

// Notices that the process is to end (SIGTERM, SIGHUP, SIGINT), so that it can leave its work in order. A second signal
// ends it at once. Those that whoever started the process had ignored stay so. That nobody reads what is printed any more
// (SIGPIPE) is no reason to end.
//
// To be made before any other thread, which would be ended by them; other processes must not inherit what is blocked here.
class EndSignals {
public:
    // The function is called in another thread.
    explicit EndSignals(std::function<void()> wake = {});
    // Where one came, ends the process by it.
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    bool isEnding() const { return _received != 0; }

private:
    void listen();

    std::function<void()> _wake;
    sigset_t _signals, _before;
    void (*_pipeBefore)(int);
    std::atomic<int> _received{0};
    std::atomic<bool> _isOver{false};
    std::thread _thread;
};

} // namespace VantrelEngine
