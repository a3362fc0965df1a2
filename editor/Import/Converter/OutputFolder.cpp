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

OutputFolder::OutputFolder(std::string path, std::uint64_t maximum):
    _path{std::move(path)}, _maximum{maximum}, _space{maximum} {
    if(mkdir((_path + "/files").data(), 0755) != 0) fail("files");
}

std::string OutputFolder::add(const char* data, std::size_t size, const std::string& extension) {
    const std::string name = "files/" + sha256(data, size) + '.' + extension;
    if(access((_path + '/' + name).data(), F_OK) != 0) write(name, data, size);
    return name;
}

void OutputFolder::write(const std::string& name, const char* data, std::size_t size) {
    if(size > _space) throw Unusable{"it becomes larger than " + std::to_string(_maximum) + " bytes"};
    if(!writeFile(_path + '/' + name, data, size)) fail(name);
    _space -= size;
}

void OutputFolder::finish(std::string_view json) {
    const std::string name = "import.json", unfinished = name + ".part";
    write(unfinished, json.data(), json.size());
    if(std::rename((_path + '/' + unfinished).data(), (_path + '/' + name).data()) != 0) fail(name);
}

} // namespace VantrelImport
