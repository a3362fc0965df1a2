#pragma once

#include <string>
#include <string_view>

#include <Corrade/Containers/StringView.h>
#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {
class ProjectSession;
}

namespace VantrelTools {

// Runs edits of a project, a command a line:
//
//     record POINTER JSON    records one change; parents that are missing are made
//     merge POINTER JSON     the same with the merge flag
//     remove POINTER         records the removal of what stands there
//     begin [KEY]            opens a group; with a key, a number above 0, the gesture's group again
//     commit                 closes it
//     undo, redo
//     update                 compiles what changed
//     save PATH              writes the project to a file
//
// A pointer with blanks in it is written as a JSON string, between quotes. Blank lines and what follows a "#" at the
// begin of a line are passed over.
class Script {
public:
    explicit Script(VantrelEngine::ProjectSession& session): _session{session} {}

    // Empty, or why the line was not run; then nothing of it happened.
    std::string run(std::string_view line);
    // Empty, or why the script must not end here.
    std::string end() const;

private:
    struct Command;

    std::string record(std::string_view arguments);
    std::string merge(std::string_view arguments);
    std::string remove(std::string_view arguments);
    std::string begin(std::string_view arguments);
    std::string commit(std::string_view arguments);
    std::string undo(std::string_view arguments);
    std::string redo(std::string_view arguments);
    std::string update(std::string_view arguments);
    std::string save(std::string_view arguments);

    std::string recordValue(std::string_view arguments, bool merge);
    std::string whyNotWritable(Corrade::Containers::StringView pointer) const;
    bool wasRecorded(Corrade::Containers::StringView pointer, const VantrelEngine::JsonValue& value) const;
    bool isInGroup() const;

    VantrelEngine::ProjectSession& _session;
};

}
