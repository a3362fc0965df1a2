#include "Data/Resources/FolderResource.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

bool hasScheme(std::string_view file) {
    const std::size_t colon = file.find(':');
    if(colon == file.npos || colon == 0 || !std::isalpha(static_cast<unsigned char>(file[0]))) return false;
    for(const char c: file.substr(0, colon))
        if(!std::isalnum(static_cast<unsigned char>(c)) && c != '+' && c != '-' && c != '.') return false;
    return true;
}

bool hasParentComponent(std::string_view file) {
    while(true) {
        const std::size_t slash = file.find('/');
        if(file.substr(0, slash) == "..") return true;
        if(slash == file.npos) return false;
        file.remove_prefix(slash + 1);
    }
}

std::string realPath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real{realpath(path.data(), nullptr), std::free};
    return real ? real.get() : std::string{};
}

std::string systemError(const char* action) { return std::string{"cannot be "} + action + ": " + std::strerror(errno); }

// An open file, closed at the end.
class OpenFile {
public:
    // Does not wait for the other end of a pipe.
    explicit OpenFile(const std::string& path):
        _file{open(path.data(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)} {}
    ~OpenFile() {
        if(_file >= 0) close(_file);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    // False, and a reason, where it is not a regular file of at most that many bytes.
    bool findSize(std::size_t limit, std::size_t& size, std::string& reason) const {
        struct stat status;
        if(_file < 0 || fstat(_file, &status) != 0) {
            reason = systemError("opened");
            return false;
        }
        if(!S_ISREG(status.st_mode)) {
            reason = "this is not a regular file";
            return false;
        }
        size = std::size_t(status.st_size);
        if(size <= limit) return true;
        reason = "the file has " + std::to_string(size) + " bytes, more than " + std::to_string(limit);
        return false;
    }

    bool read(Containers::Array<char>& data, std::string& reason) const {
        for(std::size_t done = 0; done != data.size();) {
            const ssize_t count = ::read(_file, data.data() + done, data.size() - done);
            if(count < 0 && errno == EINTR) continue;
            if(count <= 0) {
                reason = count ? systemError("read") : "the file became shorter while it was read";
                return false;
            }
            done += std::size_t(count);
        }
        return true;
    }

private:
    const int _file;
};

} // namespace

const char* whyNoFileName(Containers::StringView file) {
    const std::string_view text{file.data(), file.size()};
    if(text.empty()) return "there is no file name";
    if(text.find('\0') != text.npos) return "the file name has a zero byte";
    if(text.find('\\') != text.npos) return "the file name has a backslash";
    if(text[0] == '/') return "the file name is absolute";
    if(hasScheme(text)) return "the file name has a scheme";
    if(hasParentComponent(text)) return "the file name leads upwards";
    return nullptr;
}

std::string FolderResource::resolve(const std::string& file, std::string& reason) const {
    const std::string folder = realPath(_folder);
    if(folder.empty()) {
        reason = "the folder " + _folder + " cannot be found";
        return {};
    }
    const std::string path = realPath(folder + '/' + file);
    if(path.empty()) {
        reason = systemError("opened");
        return {};
    }
    const std::string inside = folder == "/" ? folder : folder + '/';
    if(path == folder || path.compare(0, inside.size(), inside) == 0) return path;
    reason = "a symbolic link leads out of the folder";
    return {};
}

std::optional<Containers::Array<char>> FolderResource::get(
    Containers::StringView file, std::size_t limit, std::string& reason) const {
    if(const char* const problem = whyNoFileName(file)) {
        reason = problem;
        return {};
    }
    const std::string path = resolve({file.data(), file.size()}, reason);
    if(path.empty()) return {};
    const OpenFile open{path};
    std::size_t size = 0;
    if(!open.findSize(limit, size, reason)) return {};
    Containers::Array<char> data{NoInit, size};
    if(!open.read(data, reason)) return {};
    return std::optional<Containers::Array<char>>{std::move(data)};
}

} // namespace VantrelEngine
