#pragma once

#include <algorithm>
#include <cerrno>
#include <limits>

#include "Data/Project/FileCalls.h"

namespace VantrelTest {

// Counts the calls; the one with the number failAt fails (the first is 1). Not those that a thread of its own makes, whose
// place among the others is chance.
struct FailingCalls: VantrelEngine::FileCalls {
    using Calls = VantrelEngine::FileCalls;

    bool fails() {
        if(++count != failAt) return false;
        errno = ENOSPC;
        return true;
    }
    int open(const char* path, int flags, mode_t mode) override {
        return fails() ? -1 : Calls::open(path, flags, mode);
    }
    ssize_t write(int file, const void* data, std::size_t size) override {
        return fails() ? -1 : Calls::write(file, data, std::min(size, writeSize));
    }
    int fsync(int file) override { return fails() ? -1 : Calls::fsync(file); }
    int ftruncate(int file, off_t size) override { return fails() ? -1 : Calls::ftruncate(file, size); }
    int flock(int file, int operation) override { return fails() ? -1 : Calls::flock(file, operation); }
    int close(int file) override {
        // The file is closed also when that fails.
        const int result = Calls::close(file);
        return fails() ? -1 : result;
    }
    int fchmod(int file, mode_t mode) override { return fails() ? -1 : Calls::fchmod(file, mode); }
    int link(const char* from, const char* to) override { return fails() ? -1 : Calls::link(from, to); }
    int rename(const char* from, const char* to) override { return fails() ? -1 : Calls::rename(from, to); }
    int rename(const char* from, const char* to, unsigned flags) override {
        if(fails()) return -1;
        errno = lack;
        return lack ? -1 : Calls::rename(from, to, flags);
    }
    int unlink(const char* path) override { return fails() ? -1 : Calls::unlink(path); }

    int count = 0, failAt = 0;
    // No more than so much is written at once, as into a full pipe or where a signal comes.
    std::size_t writeSize = std::numeric_limits<std::size_t>::max();
    // Why the file system cannot exchange files; 0 where it can.
    int lack = 0;
};

}
