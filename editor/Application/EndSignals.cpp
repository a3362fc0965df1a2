#include "Application/EndSignals.h"

#include <utility>

namespace VantrelEngine {

namespace {

bool isIgnored(int signal) {
    struct sigaction action {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

void endBy(int number, const sigset_t& signals) {
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    signal(number, SIG_DFL);
    raise(number);
}

} // namespace

EndSignals::EndSignals(std::function<void()> wake): _wake{std::move(wake)} {
    sigemptyset(&_signals);
    for(const int signal: {SIGTERM, SIGHUP, SIGINT})
        if(!isIgnored(signal)) sigaddset(&_signals, signal);
    // By which the thread is told to end.
    sigaddset(&_signals, SIGUSR1);
    pthread_sigmask(SIG_BLOCK, &_signals, &_before);
    _pipeBefore = signal(SIGPIPE, SIG_IGN);
    _thread = std::thread{[this] { listen(); }};
}

EndSignals::~EndSignals() {
    _isOver = true;
    pthread_kill(_thread.native_handle(), SIGUSR1);
    _thread.join();
    if(_received) endBy(_received, _signals);
    pthread_sigmask(SIG_SETMASK, &_before, nullptr);
    signal(SIGPIPE, _pipeBefore);
}

void EndSignals::listen() {
    int signal = 0;
    while(sigwait(&_signals, &signal) == 0 && !_isOver) {
        if(signal == SIGUSR1) continue;
        if(_received) endBy(signal, _signals);
        _received = signal;
        if(_wake) _wake();
    }
}

} // namespace VantrelEngine
