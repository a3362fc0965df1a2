#pragma once

#include <optional>
#include <string>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector4.h>
#include <Vantrel/EngineData/FileLink.h>
#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

// An object of the document that describes a resource or a part of one, and where to say what is wrong with it.
//
// Each function reads a member. One that is of a wrong type, or that is missing and has no value for that case, is
// reported by its key, and the reader gets a default. What is no object is reported once, and all of its members are
// missing without a word.
class ResourceEntry {
public:
    explicit ResourceEntry(const JsonValue& value, std::vector<std::string>& reasons);

    bool has(Corrade::Containers::StringView key) const { return find(key); }

    // Empty by default. Valid as long as the document is not changed.
    Corrade::Containers::StringView text(Corrade::Containers::StringView key) const;
    Corrade::Containers::StringView text(
        Corrade::Containers::StringView key, Corrade::Containers::StringView missing) const;
    // Empty for elements that are no texts.
    std::vector<std::string> texts(Corrade::Containers::StringView key) const;
    // Position of a text in a list; none for a text that is not in it.
    std::optional<std::size_t> choice(Corrade::Containers::StringView key,
        Corrade::Containers::ArrayView<const Corrade::Containers::StringView> names) const;
    std::size_t choice(Corrade::Containers::StringView key,
        Corrade::Containers::ArrayView<const Corrade::Containers::StringView> names, std::size_t missing) const;
    bool boolean(Corrade::Containers::StringView key, bool missing) const;
    // A whole number from 0 to the maximum.
    unsigned number(Corrade::Containers::StringView key, unsigned maximum, unsigned missing) const;
    // A number, in the first component.
    Magnum::Vector4 scalar(Corrade::Containers::StringView key, const Magnum::Vector4& missing) const;
    // Three or four numbers; the fourth is 1 where there are three.
    Magnum::Vector4 vector(Corrade::Containers::StringView key, const Magnum::Vector4& missing) const;
    // A file name that is not empty, with "asset" beside it.
    std::optional<FileLink> link(
        Corrade::Containers::StringView key, Corrade::Containers::StringView missingAsset) const;
    // An object; one without members where it is missing.
    ResourceEntry member(Corrade::Containers::StringView key) const;
    // None where the list is missing.
    std::vector<ResourceEntry> elements(Corrade::Containers::StringView key) const;

    void report(std::string reason) const { _reasons->push_back(std::move(reason)); }
    // A reason that begins with the key.
    void report(Corrade::Containers::StringView key, const std::string& problem) const;

private:
    explicit ResourceEntry(const JsonValue* value, std::string path, std::vector<std::string>& reasons);

    const JsonValue* find(Corrade::Containers::StringView key) const;
    // Null, and a report, where it is missing.
    const JsonValue* require(Corrade::Containers::StringView key) const;
    // The value as a text, or a report.
    std::optional<Corrade::Containers::StringView> asText(
        Corrade::Containers::StringView key, const JsonValue& value) const;
    std::optional<float> asFloat(Corrade::Containers::StringView key, const JsonValue& value) const;
    std::optional<std::size_t> asChoice(Corrade::Containers::StringView key, const JsonValue& value,
        Corrade::Containers::ArrayView<const Corrade::Containers::StringView> names) const;
    std::string pathOf(Corrade::Containers::StringView key) const;

    // Null for what is no object.
    const JsonValue* _value;
    // In front of keys, with a "/" at the end if it is not empty.
    std::string _path;
    std::vector<std::string>* _reasons;
};

} // namespace VantrelEngine
