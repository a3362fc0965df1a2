#include "Data/JournalFile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Data/JournalLines.h"
#include "Data/Project/FileCalls.h"

namespace VantrelEngine {

namespace {

std::string reason() { return std::strerror(errno); }

std::string textOf(const std::vector<std::string>& lines, std::uint64_t& checksum) {
    std::string text;
    for(const std::string& line: lines) addJournalLine(text, line, checksum);
    return text;
}

// A name of a file is in its folder. Where that cannot be flushed, the file system does so in its own time.
void flushFolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == path.npos ? "." : path.substr(0, slash + 1);
    const int file = ::open(folder.data(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if(file < 0) return;
    fsync(file);
    ::close(file);
}

} // namespace

std::string realPath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real{realpath(path.data(), nullptr), std::free};
    return real ? real.get() : path;
}

std::string basePath(const std::string& journal) { return journal + ".base"; }

std::string journalPath(const std::string& project) {
    // By whichever link it was opened, there is one journal.
    const std::string path = realPath(project);
    const std::size_t name = path.rfind('/') + 1;
    return path.substr(0, name) + '.' + path.substr(name) + ".journal";
}

std::string JournalFile::open(const std::string& path) { return open(path, O_CREAT); }

std::string JournalFile::openExisting(const std::string& path) { return open(path, 0); }

std::string JournalFile::open(const std::string& path, int flags) {
    // Whoever has it may put another one in its place, or remove it, while we wait for nobody.
    constexpr int Attempts = 10;
    close();
    for(int i = 0; i != Attempts; ++i) {
        _file = _calls->open(path.data(), O_RDWR | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | flags, 0600);
        if(_file < 0) return whyNotOpened(path);
        _path = path;
        // A file system without locks has none to wait for.
        const bool isLocked = _calls->flock(_file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
        if(isLocked && isAt(path)) return {};
        close();
        _isInUse = !isLocked;
        if(_isInUse) return "it is open in another editor";
    }
    return "it is replaced all the time";
}

std::string JournalFile::whyNotOpened(const std::string& path) {
    const std::string error = reason();
    struct stat status;
    // Whether they have it open cannot be asked.
    _isInUse = (errno == EACCES || errno == EPERM) && stat(path.data(), &status) == 0;
    return _isInUse ? "it may be open in the editor of another user, whose journal is there" : error;
}

bool JournalFile::isAt(const std::string& path) const {
    struct stat ours, there;
    return fstat(_file, &ours) == 0 && S_ISREG(ours.st_mode) && stat(path.data(), &there) == 0 &&
        ours.st_dev == there.st_dev && ours.st_ino == there.st_ino;
}

void JournalFile::close() {
    if(_flushing.valid()) _flushing.wait();
    if(_file >= 0) _calls->close(_file);
    _file = -1;
    _isInUse = false;
    _size = 0;
    _checksum = 0;
    _hasTail = false;
    takeFlushError();
}

std::string JournalFile::read(std::string& text) const {
    struct stat status;
    if(fstat(_file, &status) != 0) return reason();
    text.resize(std::size_t(status.st_size));
    for(std::size_t done = 0; done != text.size();) {
        const ssize_t count = pread(_file, &text[done], text.size() - done, off_t(done));
        if(count < 0 && errno == EINTR) continue;
        if(count < 0) return reason();
        if(!count) text.resize(done);
        done += std::size_t(count);
    }
    return {};
}

std::string JournalFile::continueAt(std::size_t size, std::uint64_t checksum) {
    _size = size;
    _checksum = checksum;
    _hasTail = true;
    return cutTail();
}

std::string JournalFile::cutTail() {
    if(!_hasTail) return {};
    if(_calls->ftruncate(_file, off_t(_size)) != 0) return reason();
    _hasTail = false;
    return {};
}

std::string JournalFile::add(const std::vector<std::string>& lines) {
    if(!isThere()) return "the file is gone";
    std::string error = cutTail();
    if(!error.empty()) return error;
    std::uint64_t checksum = _checksum;
    const std::string text = textOf(lines, checksum);
    // What a failure leaves is cut off before the next attempt; whoever reads before that passes over it.
    _hasTail = true;
    if(!writeAll(*_calls, _file, text)) return reason();
    _hasTail = false;
    _size += text.size();
    _checksum = checksum;
    flush(false);
    return {};
}

// Nobody waits for the disk, and no two flushes for each other: what the one under way may not reach, the next one does,
// which begins as soon as that is over.
void JournalFile::flush(bool isNameNew) {
    const std::lock_guard<std::mutex> lock{_mutex};
    _isFlushWanted = true;
    _isNameNew |= isNameNew;
    if(std::exchange(_isFlushing, true)) return;
    _flushing = std::async(std::launch::async, [this, file = _file, path = _path] { flushAll(file, path); });
}

void JournalFile::flushAll(int file, const std::string& path) {
    std::unique_lock<std::mutex> lock{_mutex};
    while(std::exchange(_isFlushWanted, false)) {
        const bool isNameNew = std::exchange(_isNameNew, false);
        lock.unlock();
        const int error = _calls->fdatasync(file) == 0 ? 0 : errno;
        if(isNameNew) flushFolderOf(path);
        lock.lock();
        if(error) _flushError = error;
    }
    _isFlushing = false;
}

std::string JournalFile::takeFlushError() {
    const std::lock_guard<std::mutex> lock{_mutex};
    const int error = std::exchange(_flushError, 0);
    return error ? std::strerror(error) : std::string{};
}

std::string JournalFile::replace(const std::vector<std::string>& lines) {
    const std::string fresh = _path + ".new";
    std::uint64_t checksum = 0;
    const std::string text = textOf(lines, checksum);
    const int file = _calls->open(fresh.data(), O_RDWR | O_APPEND | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600);
    if(file < 0) return reason();
    std::string error = _calls->flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK ? reason() : std::string{};
    if(error.empty() && !writeAll(*_calls, file, text)) error = reason();
    // On the disk before it takes the place of what is there, which a power failure would else leave empty.
    if(error.empty() && _calls->fdatasync(file) != 0) error = reason();
    if(error.empty() && _calls->rename(fresh.data(), _path.data()) != 0) error = reason();
    if(!error.empty()) {
        _calls->close(file);
        _calls->unlink(fresh.data());
        return error;
    }
    close();
    _file = file;
    _size = text.size();
    _checksum = checksum;
    flush(true);
    return {};
}

std::string JournalFile::rename(const std::string& path) {
    if(_calls->rename(_path.data(), path.data()) != 0) return reason();
    _path = path;
    return {};
}

void JournalFile::remove() {
    // Only what is still ours.
    if(isThere()) _calls->unlink(_path.data());
    close();
}

} // namespace VantrelEngine
