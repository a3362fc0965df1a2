#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "../../Data/Test/SessionFixture.h"
#include "Import/ImportQueue.h"
#include "Support/TestFolder.h"

namespace VantrelTest {

// A project in a folder, and files whose converter does what they say, see FakeConverter.cpp.
class ImportFixture: public SessionFixture {
protected:
    ImportFixture() {
        setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
        EXPECT_EQ(session.save(folder.path("project.json")), "");
    }
    ~ImportFixture() override { unsetenv("XDG_DATA_HOME"); }

    std::string source(const std::string& name, const std::string& contents) {
        folder.write("sources/" + name, contents);
        return folder.path("sources/" + name);
    }

    VantrelEngine::InsertedImport import(const std::string& contents, const std::string& name = "a.glb") {
        return queue.importNow(source(name, contents));
    }

    const VantrelEngine::JsonValue* at(const std::string& pointer) {
        return session.data().project().valueByPointer(pointer.c_str());
    }
    std::string textAt(const std::string& pointer) {
        const VantrelEngine::JsonValue* const value = at(pointer);
        return value && value->IsString() ? value->GetString() : "";
    }
    std::size_t countOf(const char* section) {
        const VantrelEngine::JsonValue* const value = session.data().project().section(section);
        return value ? value->MemberCount() : 0;
    }
    static std::size_t filesIn(const std::string& path) {
        std::error_code error;
        std::size_t count = 0;
        for(std::filesystem::recursive_directory_iterator entry{path, error}; entry != decltype(entry){}; ++entry)
            count += entry->is_regular_file();
        return count;
    }
    // Of imports that are under way.
    std::size_t importFolders() const {
        std::size_t count = 0;
        std::error_code error;
        for(std::filesystem::directory_iterator entry{folder.path("data/vantrel"), error}; entry != decltype(entry){};
            ++entry)
            count += entry->path().filename().string().compare(0, 7, "import-") == 0;
        return count;
    }
    std::size_t importedFiles() const { return filesIn(folder.path("imported")); }

    TestFolder folder;
    VantrelEngine::ImportQueue queue{session, FAKE_CONVERTER, {2, 1u << 30}};
};

} // namespace VantrelTest
