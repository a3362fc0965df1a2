#include "Project/Script.h"

#include <charconv>
#include <cstdint>

#include <VantrelHost/DocumentReader.h>

#include "Data/ProjectSession.h"
#include "JsonEdit.h"
#include "Project/Text.h"

namespace VantrelTools {

using namespace Corrade;
using namespace VantrelEngine;

namespace {

constexpr std::string_view Blanks = " \t\r";

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(Blanks);
    if(begin == text.npos) return {};
    return text.substr(begin, text.find_last_not_of(Blanks) + 1 - begin);
}

struct Split {
    std::string_view first, rest;
};

Split splitAt(std::string_view text, std::size_t position) {
    return {text.substr(0, position), position < text.size() ? trimmed(text.substr(position)) : std::string_view{}};
}

Split splitWord(std::string_view text) { return splitAt(text, text.find_first_of(Blanks)); }

// Behind the closing quote of a text that begins with one.
std::size_t endOfQuoted(std::string_view text) {
    for(std::size_t i = 1; i < text.size(); ++i) {
        if(text[i] == '\\')
            ++i;
        else if(text[i] == '"')
            return i + 1;
    }
    return text.size();
}

// The one member of the document.
std::string parseValue(std::string_view text, JsonDocument& document) {
    if(text.empty()) return "a value is missing";
    const std::string error = parseDocument("{\"\":" + std::string{text} + "}", document);
    // The place is one in the text above.
    if(!error.empty()) return "the value is not JSON: " + error.substr(error.find(": ") + 2);
    return document.MemberCount() == 1 ? std::string{} : "the value is not JSON: there is more than one";
}

struct Pointer {
    std::string text;
    std::string_view rest;
    std::string error;
};

Pointer parsePointer(std::string_view arguments) {
    const bool isQuoted = !arguments.empty() && arguments.front() == '"';
    const Split split = isQuoted ? splitAt(arguments, endOfQuoted(arguments)) : splitWord(arguments);
    Pointer pointer{std::string{split.first}, split.rest, {}};
    if(isQuoted) {
        JsonDocument parsed;
        pointer.error = parseValue(split.first, parsed);
        if(!pointer.error.empty()) return pointer;
        const JsonValue& value = parsed.MemberBegin()->value;
        pointer.text.assign(value.GetString(), value.GetStringLength());
    }
    if(pointer.text.empty() || pointer.text.front() != '/')
        pointer.error = "a pointer begins with \"/\": \"" + pointer.text + "\"";
    return pointer;
}

std::string inGroup(const char* command) { return command + std::string{" inside a group; commit is missing"}; }

}

struct Script::Command {
    std::string_view name;
    bool hasArguments;
    std::string (Script::*run)(std::string_view arguments);
};

std::string Script::run(std::string_view line) {
    static constexpr Command commands[]{{"record", true, &Script::record}, {"merge", true, &Script::merge},
        {"remove", true, &Script::remove}, {"begin", true, &Script::begin}, {"commit", false, &Script::commit},
        {"undo", false, &Script::undo}, {"redo", false, &Script::redo}, {"update", false, &Script::update},
        {"save", true, &Script::save}};
    line = trimmed(line);
    if(line.empty() || line.front() == '#') return {};
    const Split split = splitWord(line);
    for(const Command& command: commands) {
        if(command.name != split.first) continue;
        if(!command.hasArguments && !split.rest.empty()) return std::string{command.name} + " takes no arguments";
        return (this->*command.run)(split.rest);
    }
    return "unknown command \"" + std::string{split.first} + "\"";
}

std::string Script::end() const { return isInGroup() ? "the last group is not committed" : std::string{}; }

std::string Script::record(std::string_view arguments) { return recordValue(arguments, false); }

std::string Script::merge(std::string_view arguments) { return recordValue(arguments, true); }

std::string Script::recordValue(std::string_view arguments, bool merge) {
    const Pointer pointer = parsePointer(arguments);
    if(!pointer.error.empty()) return pointer.error;
    JsonDocument parsed;
    std::string error = parseValue(pointer.rest, parsed);
    if(error.empty()) error = whyNotWritable(view(pointer.text));
    if(!error.empty()) return error;
    const JsonValue& value = parsed.MemberBegin()->value;
    _session.changes().recordWithParents(view(pointer.text), value, merge);
    return wasRecorded(view(pointer.text), value) ? std::string{} : "the change was refused";
}

// What the log takes for a mistake of its caller.
std::string Script::whyNotWritable(Containers::StringView pointer) const {
    const ProjectFile& project = _session.data().project();
    if(project.valueByPointer(pointer)) return {};
    if(const char* const reason = project.whyNotCreatable(pointer)) return reason;
    SplitPath split = splitLast(pointer);
    const JsonValue* parent = project.valueByPointer(split.parent);
    while(!parent && !split.parent.isEmpty()) {
        split = splitLast(split.parent);
        parent = project.valueByPointer(split.parent);
    }
    const bool takesMember = parent && parent->IsObject();
    const bool takesElement = parent && parent->IsArray() && isIndexToken(split.token) && split.token[0] != '-';
    if(takesMember || takesElement) return {};
    return "what stands at \"" + std::string{split.parent.data(), split.parent.size()} + "\" takes no such member";
}

// The log says on the error output why it refuses a change.
bool Script::wasRecorded(Containers::StringView pointer, const JsonValue& value) const {
    const JsonValue* const written = _session.data().project().valueByPointer(pointer);
    return written && *written == value;
}

std::string Script::remove(std::string_view arguments) {
    const Pointer pointer = parsePointer(arguments);
    if(!pointer.error.empty()) return pointer.error;
    if(!pointer.rest.empty()) return "remove takes one pointer";
    const auto stands = [&] { return _session.data().project().valueByPointer(view(pointer.text)); };
    if(!stands()) return "nothing stands at \"" + pointer.text + "\"";
    const std::int32_t before = _session.changes().lastChange();
    _session.changes().recordChange(view(pointer.text), nullptr, false);
    return _session.changes().lastChange() != before ? std::string{} : "the change was refused";
}

std::string Script::begin(std::string_view arguments) {
    if(isInGroup()) return inGroup("begin");
    if(arguments.empty()) {
        _session.changes().beginGroup();
        return {};
    }
    std::uint64_t key = 0;
    const char* const end = arguments.data() + arguments.size();
    const std::from_chars_result read = std::from_chars(arguments.data(), end, key);
    if(read.ec != std::errc{} || read.ptr != end || key == 0)
        return "the key of a group is a number above 0: \"" + std::string{arguments} + "\"";
    _session.changes().beginGroup(key, true);
    return {};
}

std::string Script::commit(std::string_view) {
    if(!isInGroup()) return "there is no group to commit";
    _session.changes().commit();
    return {};
}

std::string Script::undo(std::string_view) {
    if(isInGroup()) return inGroup("undo");
    _session.changes().undoLast();
    return {};
}

std::string Script::redo(std::string_view) {
    if(isInGroup()) return inGroup("redo");
    _session.changes().redoLast();
    return {};
}

std::string Script::update(std::string_view) {
    _session.update();
    return {};
}

std::string Script::save(std::string_view arguments) {
    if(arguments.empty()) return "save takes the path of a file";
    return _session.save(std::string{arguments});
}

bool Script::isInGroup() const { return _session.changes().group() >= 0; }

}
