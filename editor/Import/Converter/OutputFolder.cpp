#include "Import/Converter/OutputFolder.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Import/Converter/Messages.h"
#include "Import/Converter/Sha256.h"

namespace VantrelImport {

namespace {

[[noreturn]] void fail(const std::string& name) {
    throw Unusable{"\"" + name + "\" cannot be written: " + std::strerror(errno)};
}

bool writeAll(int file, const char* data, std::size_t size) {
    while(size) {
        const ssize_t written = write(file, data, size);
        if(written < 0 && errno == EINTR) continue;
        if(written <= 0) return false;
        data += written;
        size -= std::size_t(written);
    }
    return true;
}

// False, and errno, where that fails. Expects that there is no such file.
bool writeFile(const std::string& path, const char* data, std::size_t size) {
    const int file = open(path.data(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0644);
    if(file < 0) return false;
    const bool isWritten = writeAll(file, data, size);
    return (close(file) == 0) & isWritten;
}

} // namespace

OutputFolder::OutputFolder(std::string path): _path{std::move(path)} {
    if(mkdir((_path + "/files").data(), 0755) != 0) fail("files");
}

std::string OutputFolder::add(const char* data, std::size_t size, const std::string& extension) {
    const std::string name = "files/" + sha256(data, size) + '.' + extension;
    const std::string path = _path + '/' + name;
    if(access(path.data(), F_OK) != 0 && !writeFile(path, data, size)) fail(name);
    return name;
}

void OutputFolder::finish(std::string_view json) {
    const std::string path = _path + "/import.json", unfinished = path + ".part";
    if(!writeFile(unfinished, json.data(), json.size()) || std::rename(unfinished.data(), path.data()) != 0)
        fail("import.json");
}

} // namespace VantrelImport
