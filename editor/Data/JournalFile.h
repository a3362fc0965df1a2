#pragma once

#include <cstdint>
#include <future>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

class FileCalls;

// The file of a journal, which is only ever added to. It is locked for as long as the object has it open, so that there is
// one writer, and stays when the object or the process goes.
class CORRADE_VISIBILITY_EXPORT JournalFile {
public:
    // The calls outlive the object.
    explicit JournalFile(FileCalls& calls): _calls{&calls} {}
    ~JournalFile() { close(); }
    JournalFile(const JournalFile&) = delete;
    JournalFile& operator=(const JournalFile&) = delete;

    // Each returns an empty text, or why it could not be done.

    // Opens and locks what is there at a path, or makes it. isInUse() tells whether somebody else has it, or may have it.
    std::string open(const std::string& path);
    // The same, only where it is there.
    std::string openExisting(const std::string& path);
    bool isOpen() const { return _file >= 0; }
    // It is open, and still what stands at its path.
    bool isThere() const { return isOpen() && isAt(_path); }
    bool isInUse() const { return _isInUse; }

    // All of it.
    std::string read(std::string& text) const;
    // Goes on behind so many bytes, whose last line has the checksum; what is behind them goes.
    std::string continueAt(std::size_t size, std::uint64_t checksum);
    // All of them or none, and they are on their way to the disk: they outlive this process at once, and the machine as
    // soon as the disk has them, which takes at most two flushes and waits for nothing else.
    std::string add(const std::vector<std::string>& lines);
    // Why the disk did not take what was added since the last call; empty for none. What is in the file is not to be
    // trusted then, and replace() helps.
    std::string takeFlushError();
    // Puts another file with only these lines in its place, at one moment.
    std::string replace(const std::vector<std::string>& lines);
    // The file gets another name, or goes.
    std::string rename(const std::string& path);
    void remove();
    void close();

    const std::string& path() const { return _path; }
    std::size_t size() const { return _size; }

private:
    std::string open(const std::string& path, int flags);
    std::string whyNotOpened(const std::string& path);
    bool isAt(const std::string& path) const;
    std::string cutTail();
    void flush(bool isNameNew);
    void flushAll(int file, const std::string& path);

    FileCalls* _calls;
    std::string _path;
    int _file = -1;
    bool _isInUse = false;
    // Of the lines that are whole.
    std::size_t _size = 0;
    std::uint64_t _checksum = 0;
    // Something may stand behind them.
    bool _hasTail = false;
    std::future<void> _flushing;
    // Guards what follows, of which the thread that flushes knows, too.
    std::mutex _mutex;
    // Something was added since the last flush began, or the file came to its name; there is a thread.
    bool _isFlushWanted = false, _isNameNew = false, _isFlushing = false;
    int _flushError = 0;
};

// What links lead to; the path itself where nothing is there.
std::string realPath(const std::string& path);
// ".scene.json.journal" beside "scene.json", or beside what that leads to.
std::string journalPath(const std::string& project);
// Beside a journal: the project as a file, for its steps to belong to where somebody else has written over the project's.
std::string basePath(const std::string& journal);

} // namespace VantrelEngine
