#include "Data/Project/FileStamp.h"

namespace VantrelEngine {

std::optional<FileStamp> stampOf(const std::string& path) {
    struct stat status;
    if(stat(path.data(), &status) != 0) return {};
    return FileStamp{{status.st_dev, status.st_ino}, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

}
