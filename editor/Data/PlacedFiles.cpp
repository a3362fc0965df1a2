#include "Data/PlacedFiles.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Data/Project/FileCalls.h"
#include "Data/Resources/FolderResource.h"

namespace VantrelEngine {

namespace {

constexpr std::size_t BlockSize = 1 << 16;

std::string systemError(const char* action) { return std::string{"cannot be "} + action + ": " + std::strerror(errno); }

class File {
public:
    explicit File(const std::string& path, int flags): _file{open(path.data(), flags | O_CLOEXEC, 0666)} {}
    ~File() {
        if(_file >= 0) ::close(_file);
    }
    File(File&& other) noexcept: _file{std::exchange(other._file, -1)} {}
    File& operator=(File&&) = delete;

    int get() const { return _file; }
    bool isOpen() const { return _file >= 0; }
    bool close() {
        const int file = _file;
        _file = -1;
        return ::close(file) == 0;
    }

private:
    int _file;
};

// A name that nobody has: a process that ended in the middle of a copy leaves its own behind.
File openFresh(const std::string& path, std::string& fresh) {
    constexpr int Attempts = 1000;
    for(int i = 0;; ++i) {
        fresh = path + '.' + std::to_string(i) + ".new";
        File file{fresh, O_WRONLY | O_CREAT | O_EXCL};
        if(file.isOpen() || errno != EEXIST || i == Attempts) return file;
    }
}

bool isRegular(int file) {
    struct stat status;
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

// From the beginning of both, whose places change.
bool hasSameBytes(int a, int b) {
    const std::unique_ptr<char[]> blocks{new char[2 * BlockSize]};
    lseek(a, 0, SEEK_SET);
    while(true) {
        const ssize_t size = readBlock(a, blocks.get(), BlockSize);
        if(size < 0 || readBlock(b, blocks.get() + BlockSize, BlockSize) != size) return false;
        if(!size) return true;
        if(std::memcmp(blocks.get(), blocks.get() + BlockSize, std::size_t(size)) != 0) return false;
    }
}

void flushFolder(const std::string& folder) {
    const File file{folder, O_RDONLY | O_DIRECTORY};
    if(file.isOpen()) fsync(file.get());
}

// One more name for a file whose only name is in a folder that goes, on the disk before it has it. False where that is not
// possible: on another file system, or one without such names.
bool link(int source, const std::string& path) {
    struct stat status;
    if(fstat(source, &status) != 0 || status.st_nlink != 1 || fsync(source) != 0) return false;
    const std::string file = "/proc/self/fd/" + std::to_string(source);
    return linkat(AT_FDCWD, file.data(), AT_FDCWD, path.data(), AT_SYMLINK_FOLLOW) == 0;
}

} // namespace

std::string pathInside(const std::string& folder, const std::string& name) {
    using Path = std::unique_ptr<char, void (*)(void*)>;
    const Path outer{realpath(folder.data(), nullptr), std::free};
    const Path inner{realpath((folder + '/' + name).data(), nullptr), std::free};
    if(!outer || !inner) return {};
    const std::string path = inner.get();
    const std::string prefix = std::strcmp(outer.get(), "/") == 0 ? "/" : outer.get() + std::string{"/"};
    return path == outer.get() || path.compare(0, prefix.size(), prefix) == 0 ? path : std::string{};
}

PlacedFiles::~PlacedFiles() {
    for(const std::string& file: _files) unlink(file.data());
    while(!_folders.empty()) {
        rmdir(_folders.back().data());
        _folders.pop_back();
    }
}

void PlacedFiles::keep() {
    _files.clear();
    _folders.clear();
}

void PlacedFiles::flush() {
    for(const std::string& folder: _toFlush) flushFolder(folder);
    _toFlush.clear();
}

std::string PlacedFiles::add(const std::string& source, const std::string& name, Source kind) {
    if(const char* const reason = whyNoFileName({name.data(), name.size()})) return name + ": " + reason;
    const File file{source, O_RDONLY | O_NOFOLLOW | O_NONBLOCK};
    if(!file.isOpen()) return name + ": the file " + systemError("opened");
    if(!isRegular(file.get())) return name + ": this is not a regular file";
    const std::string error = place(file.get(), name, kind);
    return error.empty() ? error : name + ": " + error;
}

std::string PlacedFiles::place(int source, const std::string& name, Source kind) {
    std::string folder;
    std::string error = makeFolders(name, folder);
    if(!error.empty()) return error;
    const std::string path = folder + '/' + name.substr(name.rfind('/') + 1);
    const File old{path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK};
    if(!old.isOpen() && errno == ENOENT) {
        if(kind == Source::Copied || !link(source, path)) error = write(source, path);
        if(!error.empty()) return error;
        _files.push_back(path);
        _toFlush.insert(folder);
        return {};
    }
    const bool isSame = old.isOpen() && isRegular(old.get()) && hasSameBytes(source, old.get());
    return isSame ? std::string{} : "another file is there already in " + folder;
}

std::string PlacedFiles::makeFolders(const std::string& name, std::string& folder) {
    for(std::size_t slash = name.find('/'); slash != name.npos; slash = name.find('/', slash + 1)) {
        const std::string path = _folder + '/' + name.substr(0, slash);
        if(mkdir(path.data(), 0777) == 0) {
            _folders.push_back(path);
            _toFlush.insert(path.substr(0, path.rfind('/')));
        } else if(errno != EEXIST)
            return "the folder " + path + ' ' + systemError("made");
    }
    const std::size_t slash = name.rfind('/');
    folder = pathInside(_folder, slash == name.npos ? "." : name.substr(0, slash));
    return File{folder, O_RDONLY | O_DIRECTORY}.isOpen() ? std::string{} : "it cannot be put below " + _folder;
}

std::string PlacedFiles::write(int source, const std::string& path) {
    std::string fresh;
    File file = openFresh(path, fresh);
    if(!file.isOpen()) return fresh + ' ' + systemError("made");
    const std::unique_ptr<char[]> block{new char[BlockSize]};
    lseek(source, 0, SEEK_SET);
    ssize_t size = 0;
    bool isWritten = true;
    while(isWritten && !_isCancelled && (size = readBlock(source, block.get(), BlockSize)) > 0)
        isWritten = writeAll(systemFileCalls(), file.get(), {block.get(), std::size_t(size)});
    isWritten = isWritten && size == 0 && !_isCancelled && fsync(file.get()) == 0 && file.close();
    // The name is free, and stays so for whoever else looks.
    if(isWritten &&
        (renameat2(AT_FDCWD, fresh.data(), AT_FDCWD, path.data(), RENAME_NOREPLACE) == 0 ||
            (lacksRename(errno) && rename(fresh.data(), path.data()) == 0)))
        return {};
    std::string error = _isCancelled ? "cancelled" : "the file " + systemError("written");
    unlink(fresh.data());
    return error;
}

} // namespace VantrelEngine
