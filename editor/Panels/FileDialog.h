#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Panels/FolderListing.h"

namespace VantrelEngine {

// Lets the user choose a file: a project to open or to save, or something to import.
class FileDialog {
public:
    enum class Purpose { Open, Save, Import };

    // The name stands in the field at first; it may be empty. Files that end in one of the suffixes are listed.
    void show(Purpose purpose, const std::string& folder, const std::string& name,
        std::vector<std::string> suffixes = {".json"});
    bool isOpen() const { return _isOpen; }
    // The absolute path, in the frame in which it is chosen. Of a file that is there, but to save.
    std::optional<std::string> draw();

private:
    void enter(const std::string& folder);
    void drawFolder();
    void drawFiles(bool& isChosen);
    std::optional<std::string> choose();
    std::string path() const;

    Purpose _purpose = Purpose::Open;
    std::vector<std::string> _suffixes;
    bool _isOpen = false;
    // The file that the user was told is there already.
    std::string _replaced;
    std::string _complaint;
    std::string _folder;
    FolderListing _listing;
    char _folderField[4096]{};
    char _nameField[256]{};
};

} // namespace VantrelEngine
