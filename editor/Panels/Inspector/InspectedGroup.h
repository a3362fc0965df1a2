#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <Vantrel/EngineData/Json.h>

#include "Panels/Inspector/CommonValue.h"
#include "Panels/Schema/MaterialSchema.h"
#include "Panels/Schema/SchemaKey.h"

namespace VantrelEngine {

// Places of the document that are shown and edited together: the selected objects, a component that all of them have, a
// resource, a part of the settings. With a row for each key of the schema, and for what else stands there.
class InspectedGroup {
public:
    enum class Kind { Objects, Components, Element, Resource, Settings };

    // The places by their pointers and values, at least one; a value is null where nothing stands. The values have to
    // stay until the group goes.
    explicit InspectedGroup(
        Kind kind, std::string title, std::vector<std::string> bases, std::vector<const JsonValue*> values):
        kind{kind},
        title{std::move(title)}, bases{std::move(bases)}, values{std::move(values)} {}

    void addKeys(SchemaKeys keys) { rows.insert(rows.end(), keys.begin(), keys.end()); }
    // The keys of a material's shader; nothing for other resources.
    void addMaterialKeys(MaterialSchema schema);
    // Adds a row for each key that the others do not show; the hidden ones are shown elsewhere.
    void addUnknownKeys(std::vector<const char*> hidden = {});

    // What the places have in common. Looks at each place the first time.
    const CommonValue& common(std::size_t row, const TypedAngles& angles) const;
    // Whether the row counts, as others stand.
    bool isShown(std::size_t row) const;

    Kind kind;
    std::string title;
    std::vector<std::string> bases;
    std::vector<const JsonValue*> values;
    std::vector<SchemaKey> rows;
    // Of a component.
    std::string type;
    std::string tip;

private:
    // What rows that were made here point into.
    std::deque<std::string> _texts;
    std::unique_ptr<MaterialSchema> _material;
    mutable std::vector<std::optional<CommonValue>> _common;
};

} // namespace VantrelEngine
