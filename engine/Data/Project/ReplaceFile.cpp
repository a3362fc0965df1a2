#include "Data/Project/ReplaceFile.h"

#include <cerrno>
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

class Replacement {
public:
    Replacement(const std::string& path, FileCalls& calls): _calls{calls}, _path{resolved(path)} {
        struct stat status;
        _exists = stat(_path.data(), &status) == 0;
        if(_exists) _mode = status.st_mode & 07777;
    }

    std::string run(std::string_view contents) {
        if(writeNew(contents) && keepOld() && putInPlace()) return {};
        return _error;
    }

private:
    bool writeNew(std::string_view contents) {
        int file = -1;
        const bool created = withFreeName(".new", _new, [&] {
            file = _calls.open(_new.data(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            return file >= 0;
        });
        if(!created) return failed("create", _new);
        const bool written = (!_exists || _calls.fchmod(file, _mode) == 0 || failed("set the mode of", _new)) &&
            writeAll(file, contents) && (_calls.fsync(file) == 0 || failed("flush", _new));
        const bool closed = _calls.close(file) == 0 || (written && failed("close", _new));
        if(written && closed) return true;
        _calls.unlink(_new.data());
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

    bool writeAll(int file, std::string_view contents) {
        while(!contents.empty()) {
            const ssize_t size = _calls.write(file, contents.data(), contents.size());
            if(size < 0 && errno == EINTR) continue;
            if(size <= 0) return failed("write", _new);
            contents.remove_prefix(std::size_t(size));
        }
        return true;
    }

    // A second name for the old contents, which becomes the backup once the new ones are in place.
    bool keepOld() {
        if(!_exists) return true;
        if(withFreeName(".old", _old, [&] { return _calls.link(_path.data(), _old.data()) == 0; })) return true;
        failed("keep the old contents as", _old);
        _calls.unlink(_new.data());
        return false;
    }

    bool putInPlace() {
        if(_calls.rename(_new.data(), _path.data()) != 0) {
            failed("put the new contents in the place of", _path);
            _calls.unlink(_new.data());
            if(_exists) _calls.unlink(_old.data());
            return false;
        }
        if(flushFolder() &&
            (!_exists || _calls.rename(_old.data(), (_path + ".bak").data()) == 0 ||
                failed("keep the backup", _path + ".bak")))
            return true;
        // Back to the old contents, under the name that they still have.
        if(_exists)
            _calls.rename(_old.data(), _path.data());
        else
            _calls.unlink(_path.data());
        return false;
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

    FileCalls& _calls;
    std::string _path, _new, _old, _error;
    bool _exists = false;
    mode_t _mode = 0;
};

}

std::string replaceFile(const std::string& path, std::string_view contents, FileCalls& calls) {
    return Replacement{path, calls}.run(contents);
}

std::string replaceFile(const std::string& path, std::string_view contents) {
    return replaceFile(path, contents, systemFileCalls());
}

}
