#pragma once

#include <atomic>
#include <set>
#include <string>
#include <vector>

namespace VantrelEngine {

// Puts files into a folder, all of them or none: what was written goes again with the object unless it is kept. A file
// that is there already with the same bytes is left as it is, and one with others, too, which is an error. A file has its
// name only when it is whole and on the disk.
class PlacedFiles {
public:
    explicit PlacedFiles(std::string folder): _folder{std::move(folder)} {}
    ~PlacedFiles();
    PlacedFiles(const PlacedFiles&) = delete;
    PlacedFiles& operator=(const PlacedFiles&) = delete;

    // Given: nobody changes the file any more, and its folder goes. It only gets another name where that is possible, which
    // costs no copy.
    enum class Source { Copied, Given };

    // Puts a regular file there. The name is relative to the folder, with "/", and leads out of it by no means; folders on
    // the way are made. Returns an empty text, or one line with the name in front.
    std::string add(const std::string& source, const std::string& name, Source kind = Source::Copied);
    // From another thread: adding ends soon, with an error.
    void cancel() { _isCancelled = true; }
    // Names of files are on the disk, too, afterwards. Once, after the last one.
    void flush();
    void keep();

private:
    std::string place(int source, const std::string& name, Source kind);
    std::string makeFolders(const std::string& name, std::string& folder);
    std::string write(int source, const std::string& path);

    std::string _folder;
    // In the order in which they were made.
    std::vector<std::string> _files, _folders;
    std::set<std::string> _toFlush;
    std::atomic<bool> _isCancelled{false};
};

// The path without symbolic links of a file below a folder; empty where there is none, or where it leads out of it.
std::string pathInside(const std::string& folder, const std::string& name);

} // namespace VantrelEngine
