#include "Corrade/Utility/Path.h"

#include "Corrade/Containers/Array.h"
#include "Corrade/Containers/GrowableArray.h"
#include "Corrade/Containers/Optional.h"
#include "Corrade/Containers/Pair.h"
#include "Corrade/Containers/String.h"
#include "Corrade/Containers/StringIterable.h"
#include "Corrade/Containers/StringView.h"
#include "Corrade/Utility/Debug.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Corrade::Utility::Path {

using Containers::StringView;
using namespace Containers::Literals;

namespace {

/* Takes the reason from errno. */
void printError(const char* const function, const char* const action, const StringView filename) {
    const int error = errno;
    Error{} << "Utility::Path::" << Debug::nospace << function << Debug::nospace << "(): can't" << action << filename
            << Debug::nospace << ": error" << error << "(" << Debug::nospace << std::strerror(error) << Debug::nospace
            << ")";
}

class File {
public:
    explicit File(const StringView filename, const int flags):
        _descriptor{::open(Containers::String::nullTerminatedView(filename).data(), flags | O_CLOEXEC, 0666)} {}
    File(const File&) = delete;
    ~File() {
        if(_descriptor != -1) ::close(_descriptor);
    }
    File& operator=(const File&) = delete;

    explicit operator bool() const { return _descriptor != -1; }
    int descriptor() const { return _descriptor; }

private:
    int _descriptor;
};

/* Like ::read(), but less than asked for only at the end of the file. */
ssize_t readFully(const int descriptor, char* const data, const std::size_t size) {
    std::size_t done = 0;
    while(done < size) {
        const ssize_t count = ::read(descriptor, data + done, size - done);
        if(count == -1 && errno == EINTR) continue;
        if(count == -1) return -1;
        if(count == 0) break;
        done += std::size_t(count);
    }
    return ssize_t(done);
}

bool writeFully(const int descriptor, const char* data, std::size_t size) {
    while(size) {
        const ssize_t count = ::write(descriptor, data, size);
        if(count == -1 && errno == EINTR) continue;
        if(count == -1) return false;
        data += count;
        size -= std::size_t(count);
    }
    return true;
}

/* The size is that of a regular file; others have zero and are read to the end all the same. */
bool readContents(const int descriptor, const std::size_t size, Containers::Array<char>& contents) {
    contents = Containers::Array<char>{NoInit, size};
    const ssize_t count = readFully(descriptor, contents.data(), size);
    if(count == -1) return false;
    if(std::size_t(count) < size) {
        arrayRemoveSuffix(contents, size - std::size_t(count));
        return true;
    }

    char more[4096];
    for(;;) {
        const ssize_t moreCount = readFully(descriptor, more, sizeof(more));
        if(moreCount == -1) return false;
        if(moreCount == 0) return true;
        arrayAppend(contents, Containers::ArrayView<const char>{more, std::size_t(moreCount)});
    }
}

bool isDotOrDotDot(const StringView name) { return name == "."_s || name == ".."_s; }

bool isSkipped(DIR* const directory, const dirent& entry, const ListFlags flags) {
    if(flags & ListFlag::SkipDotAndDotDot && isDotOrDotDot(entry.d_name)) return true;
    if(!(flags & (ListFlag::SkipFiles | ListFlag::SkipDirectories | ListFlag::SkipSpecial))) return false;

    struct stat status;
    if(fstatat(dirfd(directory), entry.d_name, &status, 0) != 0) return false;
    if(S_ISREG(status.st_mode)) return bool(flags & ListFlag::SkipFiles);
    if(S_ISDIR(status.st_mode)) return bool(flags & ListFlag::SkipDirectories);
    return bool(flags & ListFlag::SkipSpecial);
}

/* Two slashes at the beginning may mean something else than one, three again don't: not to be taken apart. */
std::size_t rootSize(const StringView path) { return path.hasPrefix("//"_s) ? 2 : path.hasPrefix('/') ? 1 : 0; }

/* Of the file name, the end of the directory, slash included. */
StringView afterLastSlash(const StringView path) {
    const StringView slash = path.findLast('/');
    return slash ? path.suffix(slash.end()) : path;
}

}

Containers::Pair<StringView, StringView> split(const StringView path) {
    const StringView name = afterLastSlash(path);
    const std::size_t nameBegin = path.size() - name.size();
    return {path.prefix(std::max(rootSize(path), nameBegin ? nameBegin - 1 : 0)), name};
}

StringView path(const StringView path) { return split(path).first(); }

StringView filename(const StringView path) { return split(path).second(); }

Containers::Pair<StringView, StringView> splitExtension(const StringView path) {
    const StringView name = afterLastSlash(path);
    const StringView dot = name.trimmedPrefix("."_s).findLast('.');
    const StringView extension = dot ? path.suffix(dot.begin()) : path.exceptPrefix(path.size());
    return {path.exceptSuffix(extension.size()), extension};
}

Containers::String join(const StringView path, const StringView filename) {
    if(path.isEmpty() || filename.hasPrefix('/')) return filename;
    return path.hasSuffix('/') ? path + filename : "/"_s.join({path, filename});
}

Containers::String join(const Containers::StringIterable& paths) {
    Containers::String result;
    for(const StringView path: paths) result = join(result, path);
    return result;
}

Containers::String join(const std::initializer_list<StringView> paths) {
    return join(Containers::StringIterable{paths});
}

bool exists(const StringView filename) {
    return ::access(Containers::String::nullTerminatedView(filename).data(), F_OK) == 0;
}

bool isDirectory(const StringView path) {
    struct stat status;
    return ::stat(Containers::String::nullTerminatedView(path).data(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool make(const StringView path) {
    if(path.isEmpty()) return true;
    if(path.hasSuffix('/') && path.size() > rootSize(path)) return make(path.exceptSuffix(1));
    if(isDirectory(path)) return true;

    const StringView parent = Path::path(path);
    if(!exists(parent) && !make(parent)) return false;
    if(::mkdir(Containers::String::nullTerminatedView(path).data(), 0777) == 0) return true;
    if(errno != EEXIST) {
        printError("make", "create", path);
        return false;
    }
    /* Another process may have been faster. */
    if(isDirectory(path)) return true;
    Error{} << "Utility::Path::make():" << path << "exists but is not a directory";
    return false;
}

bool remove(const StringView path) {
    if(::remove(Containers::String::nullTerminatedView(path).data()) == 0) return true;
    printError("remove", "remove", path);
    return false;
}

Containers::Optional<Containers::Array<char>> read(const StringView filename) {
    const File file{filename, O_RDONLY};
    struct stat status;
    if(!file || ::fstat(file.descriptor(), &status) != 0) {
        printError("read", "open", filename);
        return {};
    }
    if(S_ISDIR(status.st_mode)) {
        Error{} << "Utility::Path::read():" << filename << "is a directory";
        return {};
    }

    Containers::Array<char> contents;
    if(!readContents(file.descriptor(), std::size_t(status.st_size), contents)) {
        printError("read", "read", filename);
        return {};
    }
    return contents;
}

Containers::Optional<Containers::String> readString(const StringView filename) {
    const Containers::Optional<Containers::Array<char>> contents = read(filename);
    if(!contents) return {};
    return Containers::String{contents->data(), contents->size()};
}

bool write(const StringView filename, const Containers::ArrayView<const void> data) {
    const File file{filename, O_WRONLY | O_CREAT | O_TRUNC};
    if(!file) {
        printError("write", "open", filename);
        return false;
    }
    if(!writeFully(file.descriptor(), static_cast<const char*>(data.data()), data.size())) {
        printError("write", "write", filename);
        return false;
    }
    return true;
}

Containers::Optional<Containers::Array<Containers::String>> list(const StringView path, const ListFlags flags) {
    DIR* const directory = ::opendir(Containers::String::nullTerminatedView(path).data());
    if(!directory) {
        printError("list", "list", path);
        return {};
    }

    Containers::Array<Containers::String> names;
    while(const dirent* const entry = ::readdir(directory))
        if(!isSkipped(directory, *entry, flags)) arrayAppend(names, InPlaceInit, entry->d_name);
    ::closedir(directory);

    if(flags >= ListFlag::SortAscending)
        std::sort(names.begin(), names.end());
    else if(flags >= ListFlag::SortDescending)
        std::sort(
            names.begin(), names.end(), [](const Containers::String& a, const Containers::String& b) { return b < a; });
    return names;
}

Containers::Optional<Containers::String> executableLocation() {
    char buffer[PATH_MAX];
    const ssize_t size = ::readlink("/proc/self/exe", buffer, sizeof(buffer));
    if(size == -1) {
        printError("executableLocation", "read", "/proc/self/exe");
        return {};
    }
    return Containers::String{buffer, std::size_t(size)};
}

}
