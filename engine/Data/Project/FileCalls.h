#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace VantrelEngine {

// The calls of the operating system that replacing a file and keeping a journal take, each as the system has it (-1 and errno on failure). A
// test puts its own in place to make any of them fail.
class FileCalls {
public:
    virtual ~FileCalls() = default;
    virtual int open(const char* path, int flags, mode_t mode);
    virtual ssize_t write(int file, const void* data, std::size_t size);
    virtual int fsync(int file);
    virtual int fdatasync(int file);
    virtual int ftruncate(int file, off_t size);
    virtual int flock(int file, int operation);
    virtual int close(int file);
    virtual int fchmod(int file, mode_t mode);
    virtual int link(const char* from, const char* to);
    virtual int rename(const char* from, const char* to);
    // With RENAME_EXCHANGE or RENAME_NOREPLACE, which not all file systems know: see lacksRename().
    virtual int rename(const char* from, const char* to, unsigned flags);
    virtual int unlink(const char* path);
};

// Those of the system, for whoever has none of their own.
FileCalls& systemFileCalls();

// Whether the file system does not have what rename() was asked for, by errno.
bool lacksRename(int code);

// As many bytes as there are, up to so many; negative where they cannot be read.
ssize_t readBlock(int file, char* data, std::size_t size);
// False where not all of it can be written; errno says why.
bool writeAll(FileCalls& calls, int file, std::string_view text);

}
