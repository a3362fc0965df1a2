#include "Data/JournalEntry.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace VantrelEngine {

namespace {

constexpr int Version = 1;

// What is not finite is none of JSON, but a step is written as it is.
using Writer = rapidjson::Writer<rapidjson::StringBuffer, rapidjson::UTF8<>, rapidjson::UTF8<>, rapidjson::CrtAllocator,
    rapidjson::kWriteNanAndInfFlag>;
constexpr unsigned ParseFlags =
    rapidjson::kParseFullPrecisionFlag | rapidjson::kParseNanAndInfFlag | rapidjson::kParseIterativeFlag;

void writeText(Writer& writer, std::string_view text) {
    writer.String(text.data() ? text.data() : "", rapidjson::SizeType(text.size()));
}

template<class Write> std::string entry(const char* kind, Write&& write) {
    rapidjson::StringBuffer buffer;
    Writer writer{buffer};
    writer.StartObject();
    writer.Key(kind);
    const bool isWritten = write(writer);
    writer.EndObject();
    return isWritten ? std::string{buffer.GetString(), buffer.GetSize()} : std::string{};
}

void writeIds(Writer& writer, const char* key, const std::vector<std::string>& ids) {
    writer.Key(key);
    writer.StartArray();
    for(const std::string& id: ids) writeText(writer, id);
    writer.EndArray();
}

bool writeFile(Writer& writer, const FileFingerprint& file) {
    writer.StartObject();
    writer.Key("size");
    writer.Uint64(file.size);
    writer.Key("checksum");
    writer.Uint64(file.checksum);
    return writer.EndObject();
}

bool writeChange(Writer& writer, const Change& change) {
    writer.StartObject();
    writer.Key("path");
    writeText(writer, {change.path.data(), change.path.size()});
    bool isWritten = true;
    if(change.oldValue) {
        writer.Key("old");
        isWritten &= change.oldValue->Accept(writer);
    }
    if(change.newValue) {
        writer.Key("new");
        isWritten &= change.newValue->Accept(writer);
    }
    if(change.pruned) {
        writer.Key("around");
        writeText(writer, {change.pruned->path.data(), change.pruned->path.size()});
        writer.Key("with");
        isWritten &= change.pruned->value.Accept(writer);
    }
    writer.EndObject();
    return isWritten;
}

JsonValue* find(JsonValue& object, const char* key) {
    const auto member = object.FindMember(key);
    return member == object.MemberEnd() ? nullptr : &member->value;
}

std::optional<JsonValue> take(JsonValue& object, const char* key) {
    JsonValue* const value = find(object, key);
    return value ? std::optional<JsonValue>{std::move(*value)} : std::nullopt;
}

std::optional<std::string> textOf(JsonValue& object, const char* key) {
    JsonValue* const value = find(object, key);
    if(!value || !value->IsString()) return {};
    return std::string{value->GetString(), value->GetStringLength()};
}

std::optional<std::uint64_t> numberOf(JsonValue& object, const char* key) {
    JsonValue* const value = find(object, key);
    return value && value->IsUint64() ? std::optional<std::uint64_t>{value->GetUint64()} : std::nullopt;
}

std::optional<std::vector<std::string>> idsOf(JsonValue& object, const char* key) {
    JsonValue* const value = find(object, key);
    if(!value || !value->IsArray()) return {};
    std::vector<std::string> ids;
    for(const JsonValue& id: value->GetArray())
        if(id.IsString()) ids.emplace_back(id.GetString(), id.GetStringLength());
    return ids;
}

bool readChange(JsonValue& value, Change& change) {
    const std::optional<std::string> path = value.IsObject() ? textOf(value, "path") : std::nullopt;
    if(!path) return false;
    change.path = Corrade::Containers::String{path->data(), path->size()};
    change.oldValue = take(value, "old");
    change.newValue = take(value, "new");
    const std::optional<std::string> around = textOf(value, "around");
    JsonValue* const with = find(value, "with");
    if(bool(around) != bool(with)) return false;
    if(around)
        change.pruned.reset(
            new Change::Pruned{Corrade::Containers::String{around->data(), around->size()}, std::move(*with)});
    return true;
}

bool readStep(JsonValue& value, ReadStep& step) {
    JsonValue* const changes = find(value, "changes");
    const std::optional<std::string> name = textOf(value, "name");
    const std::optional<std::uint64_t> time = numberOf(value, "time");
    const std::optional<std::uint64_t> isGroup = numberOf(value, "group");
    if(!name || !time || !isGroup || !changes || !changes->IsArray() || changes->Empty()) return false;
    step.name = *name;
    step.time = std::int64_t(*time);
    step.before = idsOf(value, "before");
    step.after = idsOf(value, "after");
    for(JsonValue& each: changes->GetArray()) {
        step.changes.emplace_back();
        step.changes.back().group = *isGroup ? 1 : -1;
        if(!readChange(each, step.changes.back())) return false;
    }
    return *isGroup || step.changes.size() == 1;
}

bool readFile(JsonValue& value, JournalEntry& entry) {
    if(value.IsNull()) return true;
    if(!value.IsObject()) return false;
    const std::optional<std::uint64_t> size = numberOf(value, "size"), checksum = numberOf(value, "checksum");
    if(!size || !checksum) return false;
    entry.file = FileFingerprint{*size, *checksum};
    return true;
}

bool readKind(JsonValue& object, JournalEntry& entry) {
    using Kind = JournalEntry::Kind;
    JsonValue& value = object.MemberBegin()->value;
    const std::string_view key = object.MemberBegin()->name.GetString();
    if(key == "journal") {
        entry.kind = Kind::Begin;
        return value.IsInt() && value.GetInt() == Version;
    }
    if(key == "file") {
        entry.kind = Kind::File;
        return readFile(value, entry);
    }
    if(key == "base") {
        entry.kind = Kind::Base;
        return value.IsObject() && readFile(value, entry);
    }
    if(key == "position") {
        entry.kind = Kind::Position;
        entry.position = value.IsUint64() ? std::size_t(value.GetUint64()) : 0;
        return value.IsUint64();
    }
    entry.kind = Kind::Step;
    return key == "step" && value.IsObject() && readStep(value, entry.step);
}

} // namespace

std::string beginEntry() {
    return entry("journal", [](Writer& writer) { return writer.Int(Version); });
}

std::string fileEntry(const std::optional<FileFingerprint>& file) {
    return entry("file", [&](Writer& writer) { return file ? writeFile(writer, *file) : writer.Null(); });
}

std::string baseEntry(const FileFingerprint& base) {
    return entry("base", [&](Writer& writer) { return writeFile(writer, base); });
}

std::string positionEntry(std::size_t position) {
    return entry("position", [&](Writer& writer) { return writer.Uint64(position); });
}

std::string stepEntry(const WrittenStep& step) {
    return entry("step", [&](Writer& writer) {
        writer.StartObject();
        writer.Key("name");
        writeText(writer, step.name);
        writer.Key("time");
        writer.Uint64(std::uint64_t(step.time));
        writer.Key("group");
        writer.Uint(step.changes.size() && step.changes[0].group >= 0);
        if(step.before != step.last) writeIds(writer, "before", step.before);
        if(step.after != step.before) writeIds(writer, "after", step.after);
        writer.Key("changes");
        writer.StartArray();
        bool isWritten = true;
        for(const Change& change: step.changes) isWritten &= writeChange(writer, change);
        writer.EndArray();
        writer.EndObject();
        return isWritten;
    });
}

std::optional<JournalEntry> readEntry(std::string_view line) {
    JsonDocument document;
    document.Parse<ParseFlags>(line.data(), line.size());
    if(document.HasParseError() || !document.IsObject() || document.MemberCount() != 1) return {};
    JournalEntry entry;
    if(!readKind(document, entry)) return {};
    return entry;
}

} // namespace VantrelEngine
