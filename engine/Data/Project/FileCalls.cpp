#include "Data/Project/FileCalls.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VantrelEngine {

int FileCalls::open(const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); }
ssize_t FileCalls::write(int file, const void* data, std::size_t size) { return ::write(file, data, size); }
int FileCalls::fsync(int file) { return ::fsync(file); }
int FileCalls::fdatasync(int file) { return ::fdatasync(file); }
int FileCalls::ftruncate(int file, off_t size) { return ::ftruncate(file, size); }
int FileCalls::flock(int file, int operation) { return ::flock(file, operation); }
int FileCalls::close(int file) { return ::close(file); }
int FileCalls::fchmod(int file, mode_t mode) { return ::fchmod(file, mode); }
int FileCalls::link(const char* from, const char* to) { return ::link(from, to); }
int FileCalls::rename(const char* from, const char* to) { return std::rename(from, to); }
int FileCalls::rename(const char* from, const char* to, unsigned flags) {
    return ::renameat2(AT_FDCWD, from, AT_FDCWD, to, flags);
}
int FileCalls::unlink(const char* path) { return ::unlink(path); }

FileCalls& systemFileCalls() {
    static FileCalls calls;
    return calls;
}

bool lacksRename(int code) { return code == EINVAL || code == ENOSYS || code == EOPNOTSUPP; }

ssize_t readBlock(int file, char* data, std::size_t size) {
    std::size_t done = 0;
    while(done != size) {
        const ssize_t count = ::read(file, data + done, size - done);
        if(count < 0 && errno == EINTR) continue;
        if(count < 0) return -1;
        if(!count) break;
        done += std::size_t(count);
    }
    return ssize_t(done);
}

bool writeAll(FileCalls& calls, int file, std::string_view text) {
    while(!text.empty()) {
        const ssize_t count = calls.write(file, text.data(), text.size());
        if(count < 0 && errno == EINTR) continue;
        if(!count) errno = EIO;
        if(count <= 0) return false;
        text.remove_prefix(std::size_t(count));
    }
    return true;
}

}
