#include "Data/WorkingFolder.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace VantrelEngine {

namespace fs = std::filesystem;

namespace {

constexpr const char* ProjectPrefix = "untitled-";
constexpr const char* ImportPrefix = "import-";
constexpr const char* LockName = "lock";
constexpr std::chrono::hours KeptFor{30 * 24};

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    // A relative one does not count.
    return value && value[0] == '/' ? value : "";
}

std::string parentFolder() {
    std::string folder = variable("XDG_DATA_HOME");
    if(folder.empty() && !variable("HOME").empty()) folder = variable("HOME") + "/.local/share";
    std::error_code error;
    if(folder.empty()) folder = fs::temp_directory_path(error).string();
    return folder + "/vantrel";
}

int openLocked(const std::string& path, int flags) {
    const int file = open(path.data(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | flags, 0600);
    if(file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0) return file;
    if(file >= 0) close(file);
    return -1;
}

bool isRecent(const fs::path& folder) {
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(folder, error);
    return !error && fs::file_time_type::clock::now() - time < KeptFor;
}

// A journal, of whatever age and by whatever clock: only the user gives up its steps. Or for a while a folder of what was
// imported, and what of a damaged journal could not be brought back.
bool hasWork(const fs::path& folder) {
    std::error_code error;
    for(fs::directory_iterator entry{folder, error}; !error && entry != fs::directory_iterator{};
        entry.increment(error)) {
        std::error_code ignored;
        if(entry->path().extension() == ".journal") return true;
        const bool isKeptJournal = entry->path().stem().extension() == ".journal";
        if(isKeptJournal && isRecent(entry->path())) return true;
        if(entry->is_directory(ignored) && isRecent(entry->path())) return true;
    }
    return false;
}

bool startsWith(const fs::path& folder, const std::string& prefix) {
    return folder.filename().string().compare(0, prefix.size(), prefix) == 0;
}

void removeIfAbandoned(const fs::path& folder) {
    // Without a lock it is being made just now, or is not ours.
    const int lock = openLocked((folder / LockName).string(), 0);
    if(lock < 0) return;
    std::error_code error;
    if(startsWith(folder, ImportPrefix) || !hasWork(folder)) fs::remove_all(folder, error);
    close(lock);
}

} // namespace

WorkingFolder::WorkingFolder(Purpose purpose) {
    std::error_code error;
    fs::create_directories(parentFolder(), error);
    // The last six characters are replaced.
    std::string name = parentFolder() + '/' + (purpose == Purpose::Project ? ProjectPrefix : ImportPrefix);
    name.append(6, 'X');
    if(!mkdtemp(name.data())) return;
    // Locked before it has its name.
    const std::string lock = name + '/' + LockName;
    _lock = openLocked(lock + ".new", O_CREAT | O_EXCL);
    if(_lock >= 0) fs::rename(lock + ".new", lock, error);
    if(_lock >= 0 && !error)
        _path = name;
    else
        fs::remove_all(name, error);
}

WorkingFolder::WorkingFolder(const std::string& abandoned): _lock{openLocked(abandoned + '/' + LockName, 0)} {
    if(_lock >= 0) _path = abandoned;
}

WorkingFolder::~WorkingFolder() {
    std::error_code error;
    if(!_path.empty() && !_isLeft) fs::remove_all(_path, error);
    if(_lock >= 0) close(_lock);
}

void WorkingFolder::removeAbandoned() {
    std::error_code error;
    for(fs::directory_iterator entry{parentFolder(), error}; !error && entry != fs::directory_iterator{};
        entry.increment(error)) {
        std::error_code ignored;
        if((startsWith(entry->path(), ProjectPrefix) || startsWith(entry->path(), ImportPrefix)) &&
            entry->is_directory(ignored) && !entry->is_symlink(ignored))
            removeIfAbandoned(entry->path());
    }
}

void WorkingFolder::discard(const std::string& abandoned) { WorkingFolder{abandoned}; }

std::vector<std::string> WorkingFolder::abandonedProjects() {
    std::vector<std::pair<fs::file_time_type, std::string>> found;
    std::error_code error;
    for(fs::directory_iterator entry{parentFolder(), error}; !error && entry != fs::directory_iterator{};
        entry.increment(error)) {
        if(!startsWith(entry->path(), ProjectPrefix)) continue;
        const int lock = openLocked((entry->path() / LockName).string(), 0);
        if(lock < 0) continue;
        close(lock);
        std::error_code ignored;
        found.emplace_back(fs::last_write_time(entry->path(), ignored), entry->path().string());
    }
    std::sort(found.rbegin(), found.rend());
    std::vector<std::string> folders;
    for(auto& each: found) folders.push_back(std::move(each.second));
    return folders;
}

} // namespace VantrelEngine
