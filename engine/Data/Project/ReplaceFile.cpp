#include "Data/Project/ReplaceFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Data/Project/FileCalls.h"

namespace VantrelEngine {

namespace {

// Where a link leads to, or the path itself where nothing is there yet. A link to nothing leads to what it names.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real{realpath(path.data(), nullptr), std::free};
    if(real) return real.get();
    char target[4096];
    const ssize_t size = readlink(path.data(), target, sizeof(target));
    if(size <= 0 || std::size_t(size) == sizeof(target)) return path;
    const std::string link{target, std::size_t(size)};
    return link[0] == '/' ? link : path.substr(0, path.rfind('/') + 1) + link;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == path.npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

// False where it cannot be read.
bool readWhole(const std::string& path, std::string& text) {
    const int file = open(path.data(), O_RDONLY | O_CLOEXEC);
    if(file < 0) return false;
    struct stat status;
    ssize_t size = -1;
    if(fstat(file, &status) == 0) {
        text.resize(std::size_t(status.st_size));
        size = readBlock(file, text.data(), text.size());
    }
    close(file);
    return size == ssize_t(text.size());
}

class Replacement {
public:
    Replacement(const std::string& path, const ExpectedFile& expected, FileCalls& calls):
        _calls{calls}, _path{resolved(path)}, _expected{expected} {
        struct stat status;
        _exists = stat(_path.data(), &status) == 0;
        if(_exists) _mode = status.st_mode & 07777;
        // It would change places with a file like any other.
        if(_exists && !S_ISREG(status.st_mode)) _error = "cannot replace " + _path + ": it is no regular file";
    }

    std::string run(std::string_view contents) {
        if(!_error.empty() || !create(".new", _new, contents)) return _error;
        _newStamp = stampOf(_new);
        if(!putInPlace()) {
            _calls.unlink(_new.data());
            return _error;
        }
        if(!isOldExpected() || !flushFolder() || !keepBackup()) takeBack();
        return _error;
    }

private:
    // A file with a free name, on the disk.
    bool create(const char* suffix, std::string& name, std::string_view contents) {
        int file = -1;
        const bool created = withFreeName(suffix, name, [&] {
            file = _calls.open(name.data(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            return file >= 0;
        });
        if(!created) return failed("create", name);
        const bool written = (!_exists || _calls.fchmod(file, _mode) == 0 || failed("set the mode of", name)) &&
            (writeAll(_calls, file, contents) || failed("write", name)) &&
            (_calls.fsync(file) == 0 || failed("flush", name));
        const bool closed = _calls.close(file) == 0 || (written && failed("close", name));
        if(written && closed) return true;
        _calls.unlink(name.data());
        return false;
    }

    // Tries names beside the file until one is free: what stands there already may be somebody's. The first is the one
    // that a person would look for.
    template<class Attempt> bool withFreeName(const char* suffix, std::string& name, Attempt&& attempt) {
        for(int i = 0; i != 100; ++i) {
            name = _path + (i ? "." + std::to_string(i) : std::string{}) + suffix;
            if(attempt()) return true;
            if(errno != EEXIST) return false;
        }
        return false;
    }

    // In one step, after which what stood there has the name of the new file: nobody can put something there between a
    // look at it and that.
    bool putInPlace() {
        bool exchanges = _exists;
        for(int i = 0; i != Attempts; ++i, exchanges = !exchanges) {
            if(_calls.rename(_new.data(), _path.data(), exchanges ? RENAME_EXCHANGE : RENAME_NOREPLACE) == 0) {
                if(exchanges) _old = _new;
                return true;
            }
            if(lacksRename(errno)) return putInPlaceByLinks();
            if(errno != (exchanges ? ENOENT : EEXIST)) return failed("put the new contents in the place of", _path);
            // Somebody has made it meanwhile.
            if(!exchanges && !_expected.is(stampOf(_path))) return refused();
        }
        return failed("put the new contents in the place of", _path);
    }

    bool isExchanged() const { return _old == _new; }
    // Without an exchange it was looked at before.
    bool isOldExpected() { return !isExchanged() || _expected.is(stampOf(_old)) || refused(); }

    // Where the file system cannot exchange files.
    bool putInPlaceByLinks() {
        const std::optional<FileStamp> stamp = stampOf(_path);
        _exists = stamp.has_value();
        if(_exists && !_expected.is(stamp)) return refused();
        if(_exists && !keepOld()) return false;
        if(_calls.rename(_new.data(), _path.data()) == 0) return true;
        failed("put the new contents in the place of", _path);
        if(_exists) _calls.unlink(_old.data());
        return false;
    }

    // A second name for the old contents, or a copy of them where a file has but one, which becomes the backup once the
    // new ones are in place.
    bool keepOld() {
        if(withFreeName(".old", _old, [&] { return _calls.link(_path.data(), _old.data()) == 0; })) return true;
        std::string contents;
        if((errno == EPERM || errno == EOPNOTSUPP) && readWhole(_path, contents)) return create(".old", _old, contents);
        return failed("keep the old contents as", _old);
    }

    bool keepBackup() {
        return _old.empty() || _calls.rename(_old.data(), (_path + ".bak").data()) == 0 ||
            failed("keep the backup", _path + ".bak");
    }

    // Back to the old contents, under the name that they still have.
    void takeBack() {
        if(_old.empty()) {
            _calls.unlink(_path.data());
            return;
        }
        if(!isExchanged()) {
            _calls.rename(_old.data(), _path.data());
            return;
        }
        const bool isBack = _calls.rename(_old.data(), _path.data(), RENAME_EXCHANGE) == 0;
        // What came there in the meantime is not ours either.
        if(!isBack || stampOf(_new) != _newStamp)
            _error += "; what was there meanwhile is kept as " + _new;
        else
            _calls.unlink(_new.data());
    }

    bool flushFolder() {
        const std::string folder = folderOf(_path);
        const int file = _calls.open(folder.data(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
        if(file < 0) return failed("open the folder", folder);
        const bool flushed = _calls.fsync(file) == 0 || failed("flush the folder", folder);
        _calls.close(file);
        return flushed;
    }

    bool failed(const char* action, const std::string& path) {
        const int code = errno;
        _error = std::string{"cannot "} + action + " " + path + ": " + std::strerror(code);
        return false;
    }
    bool refused() {
        _error = "the file was changed by somebody else just now, the file is kept as it is";
        return false;
    }

    static constexpr int Attempts = 10;

    FileCalls& _calls;
    std::string _path, _new, _old, _error;
    ExpectedFile _expected;
    std::optional<FileStamp> _newStamp;
    bool _exists = false;
    mode_t _mode = 0;
};

}

std::string replaceFile(
    const std::string& path, std::string_view contents, const ExpectedFile& expected, FileCalls& calls) {
    return Replacement{path, expected, calls}.run(contents);
}

std::string replaceFile(const std::string& path, std::string_view contents, FileCalls& calls) {
    return replaceFile(path, contents, ExpectedFile{}, calls);
}

std::string replaceFile(const std::string& path, std::string_view contents) {
    return replaceFile(path, contents, systemFileCalls());
}

}
