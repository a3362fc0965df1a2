#include <algorithm>
#include <cctype>
#include <fstream>
#include <limits>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "AssetCompiler/ComponentHandlers.h"
#include "Data/Project/DefaultSettings.h"
#include "Data/Project/KnownKeys.h"
#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Inspector/Refusal.h"
#include "Panels/Schema/MaterialSchema.h"
#include "Panels/Schema/Schema.h"
#include <Vantrel/EngineData/ProjectFile.h>

namespace VantrelEngine {

namespace {

using Known = Corrade::Containers::ArrayView<const KnownKey>;

// Whether a widget of the kind writes what is read as the type.
bool fits(const SchemaKey& row, KeyType type) {
    switch(type) {
    case KeyType::Text:
        return row.kind == KeyKind::Text || row.kind == KeyKind::LongText || row.kind == KeyKind::Choice ||
            row.kind == KeyKind::Reference;
    case KeyType::Truth: return row.kind == KeyKind::Truth;
    case KeyType::Number: return row.kind == KeyKind::Number;
    case KeyType::NumberOrInfinity: return row.kind == KeyKind::NumberOrInfinity;
    case KeyType::WholeNumber: return row.kind == KeyKind::WholeNumber;
    case KeyType::UnsignedNumber: return row.kind == KeyKind::Flags;
    case KeyType::Vector2i: return row.kind == KeyKind::WholeVector && row.size == 2;
    case KeyType::Vector3: return (row.kind == KeyKind::Vector || row.kind == KeyKind::Color) && row.size == 3;
    case KeyType::Vector4: return row.kind == KeyKind::ScreenColor && row.size == 4;
    case KeyType::Rotation: return row.kind == KeyKind::Rotation;
    case KeyType::Array: return row.kind == KeyKind::Group;
    case KeyType::Object: return false;
    }
    return false;
}

const SchemaKey* rowOf(const std::vector<SchemaKey>& rows, const std::string& key) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const SchemaKey& row) { return key == row.key; });
    return found == rows.end() ? nullptr : &*found;
}

void expectSame(const std::vector<SchemaKey>& rows, Known known, const std::string& whose) {
    for(const KnownKey& key: known) {
        // It holds others; whether a component is active stands in its header.
        if(key.type == KeyType::Object || std::string{"active"} == key.key) continue;
        const SchemaKey* const row = rowOf(rows, key.key);
        ASSERT_TRUE(row) << whose << ' ' << key.key;
        EXPECT_TRUE(fits(*row, key.type)) << whose << ' ' << key.key;
    }
    for(const SchemaKey& row: rows)
        EXPECT_TRUE(std::any_of(known.begin(), known.end(),
            [&](const KnownKey& key) { return std::string{key.key} == row.key && key.type != KeyType::Object; }))
            << whose << ' ' << row.key;
}

std::vector<SchemaKey> rowsOf(SchemaKeys keys) { return {keys.begin(), keys.end()}; }

std::vector<SchemaKey> settingsRows() {
    std::vector<SchemaKey> rows;
    for(const SettingsSchema& schema: settingsSchema()) rows.insert(rows.end(), schema.keys.begin(), schema.keys.end());
    return rows;
}

constexpr const char* Sections[]{
    "images", "textures", "shaders", "pipelines", "materials", "meshes", "skins", "animations", "fonts"};

std::vector<SchemaKey> allRows() {
    std::vector<SchemaKey> rows = rowsOf(objectSchema());
    const auto add = [&](SchemaKeys keys) { rows.insert(rows.end(), keys.begin(), keys.end()); };
    for(const ComponentSchema& schema: componentSchemas()) add(schema.keys);
    for(const SettingsSchema& schema: settingsSchema()) add(schema.keys);
    for(const char* const section: Sections) add(resourceSchema(section));
    add(shaderParameterSchema());
    return rows;
}

TEST(SchemaTest, HasEveryKeyThatTheEngineReads) {
    expectSame(rowsOf(objectSchema()), objectKeys(), "object");
    for(const ComponentSchema& schema: componentSchemas()) {
        ASSERT_FALSE(componentKeys(schema.type).isEmpty()) << schema.type;
        expectSame(rowsOf(schema.keys), componentKeys(schema.type), schema.type);
    }
    expectSame(settingsRows(), settingsKeys(), "settings");
}

TEST(SchemaTest, HasEveryComponentTypeThatTheCompilerKnows) {
    for(const ComponentSchema& schema: componentSchemas()) EXPECT_TRUE(componentType(schema.type)) << schema.type;
    for(const char* const type: {"collision", "physx", "input", "view", "animation", "text", "light", "mesh"}) {
        ASSERT_TRUE(componentType(type)) << type;
        EXPECT_TRUE(componentSchema(type)) << type;
    }
    EXPECT_FALSE(componentSchema("banana"));
}

TEST(SchemaTest, InitialValuesAreTakenByTheirOwnRows) {
    for(const SchemaKey& row: allRows()) {
        EXPECT_TRUE(*row.label) << row.key;
        if(!row.initial) continue;
        JsonDocument initial;
        ASSERT_EQ(parseJson(row.initial, initial), "") << row.key;
        EXPECT_EQ(whyRefused(row, initial), "") << row.key;
    }
}

TEST(SchemaTest, NewComponentsHaveOnlyKeysThatTheirRowsTake) {
    for(const ComponentSchema& schema: componentSchemas()) {
        JsonDocument initial;
        ASSERT_EQ(parseJson(schema.initial, initial), "") << schema.type;
        const std::vector<SchemaKey> rows = rowsOf(schema.keys);
        for(auto member = initial.MemberBegin(); member != initial.MemberEnd(); ++member) {
            if(member->value.IsObject()) continue;
            const std::string key = std::string{schema.type} + '/' + member->name.GetString();
            const SchemaKey* const row = rowOf(rows, key);
            ASSERT_TRUE(row) << key;
            EXPECT_EQ(whyRefused(*row, member->value), "") << key;
        }
    }
}

TEST(SchemaTest, SettingsWithoutAValueShowTheEnginesDefaults) {
    const JsonDocument defaults = defaultProject();
    for(const SchemaKey& row: settingsRows()) {
        const JsonValue* const value = valueBelow(valueBelow(&defaults, "settings"), row.key);
        ASSERT_TRUE(value) << row.key;
        JsonDocument initial;
        initial.Parse(row.initial);
        EXPECT_TRUE(initial == *value) << row.key << ' ' << jsonText(*value);
    }
}

// The keys in the first column of the table below a heading of the project's format, by heading.
std::map<std::string, std::set<std::string>> documentedKeys() {
    std::map<std::string, std::set<std::string>> keys;
    std::ifstream file{PROJECT_FORMAT};
    std::string heading, line;
    bool isFirstTable = true, isInTable = false;
    while(std::getline(file, line)) {
        if(line.rfind("### `", 0) == 0) {
            heading = line.substr(5, line.rfind('`') - 5);
            isFirstTable = true;
        } else if(line.rfind("#", 0) == 0) {
            heading.clear();
        }
        const bool isRow = line.rfind("| `", 0) == 0;
        if(isInTable && !isRow && line.rfind("|", 0) != 0) isFirstTable = false;
        isInTable = line.rfind("|", 0) == 0;
        if(heading.empty() || !isRow || !isFirstTable) continue;
        std::istringstream cell{line.substr(1, line.find('|', 1) - 1)};
        for(std::string text; std::getline(cell, text, '`') && std::getline(cell, text, '`');)
            keys[heading].insert(text);
    }
    return keys;
}

TEST(SchemaTest, HasEveryKeyOfAResourceThatTheFormatLists) {
    const std::map<std::string, std::set<std::string>> documented = documentedKeys();
    for(const char* const section: Sections) {
        ASSERT_TRUE(documented.count(section)) << section;
        std::set<std::string> rows{};
        for(const SchemaKey& row: resourceSchema(section)) rows.insert(row.key);
        // Of every resource, and said once for all.
        EXPECT_EQ(rows.erase("name"), 1u) << section;
        EXPECT_EQ(rows, documented.at(section)) << section;
    }
    EXPECT_TRUE(resourceSchema("objects").isEmpty());
}

TEST(SchemaTest, ReferencesLeadToSectionsAndChoicesHaveTexts) {
    for(const SchemaKey& row: allRows()) {
        const bool isReference = row.kind == KeyKind::Reference || row.kind == KeyKind::References;
        EXPECT_EQ(isReference, isSection(row.section)) << row.key;
        const bool hasChoices = row.kind == KeyKind::Choice || row.kind == KeyKind::Flags;
        EXPECT_EQ(hasChoices, splitChoices(row.choiceTexts).size() > 1) << row.key;
        EXPECT_LE(row.min, row.max) << row.key;
    }
}

// What a cell says of the range of numbers: "from 0 on", "from 0 to 1", "above 0", "between 0 and 180"; as rangeText().
std::string rangeIn(const std::string& cell) {
    static const std::regex expressions[]{std::regex{R"(from (-?[0-9.]+) to (-?[0-9.]+))"},
        std::regex{R"(between (-?[0-9.]+) and (-?[0-9.]+))"}, std::regex{R"(from (-?[0-9.]+) on)"},
        std::regex{R"(above (-?[0-9.]+))"}};
    std::smatch match;
    if(std::regex_search(cell, match, expressions[0])) return "from " + match.str(1) + " to " + match.str(2);
    if(std::regex_search(cell, match, expressions[1])) return "between " + match.str(1) + " and " + match.str(2);
    if(std::regex_search(cell, match, expressions[2])) return match.str(1) + " or more";
    if(std::regex_search(cell, match, expressions[3])) return "above " + match.str(1);
    return {};
}

// Of each key that a table of the format lists: its heading and itself, and what the range of its value is.
std::map<std::string, std::string> documentedRanges() {
    std::map<std::string, std::string> ranges;
    std::ifstream file{PROJECT_FORMAT};
    std::string heading;
    for(std::string line; std::getline(file, line);) {
        if(line[0] == '#') heading = line.substr(line.find(' ') + 1);
        heading.erase(std::remove(heading.begin(), heading.end(), '`'), heading.end());
        if(line.rfind("| `", 0) != 0) continue;
        const std::size_t end = line.find('|', 1);
        std::istringstream keys{line.substr(1, end - 1)};
        for(std::string text; std::getline(keys, text, '`') && std::getline(keys, text, '`');)
            ranges[heading + ": " + text] = rangeIn(line.substr(end + 1, line.find('|', end + 1) - end));
    }
    return ranges;
}

// What is more than any computer counts is no end.
std::string shownRange(SchemaKey row) {
    if(row.max == 2147483647.0) row.max = std::numeric_limits<double>::infinity();
    return rangeText(row);
}

TEST(SchemaTest, RangesAreThoseOfTheFormat) {
    const std::map<std::string, std::string> documented = documentedRanges();
    std::size_t count = 0;
    const auto expectSameRange = [&](const SchemaKey& row, const std::string& place) {
        ASSERT_TRUE(documented.count(place)) << place;
        // Of bits only so many count; a choice may tell of how large something is.
        if(row.kind == KeyKind::Flags || row.kind == KeyKind::Choice) return;
        EXPECT_EQ(shownRange(row), documented.at(place)) << place;
        count += !shownRange(row).empty();
    };
    for(const SchemaKey& row: objectSchema()) expectSameRange(row, std::string{"Objects: "} + row.key);
    for(const ComponentSchema& schema: componentSchemas())
        for(const SchemaKey& row: schema.keys) {
            const std::string type = schema.type;
            expectSameRange(row, type + ": " + (row.key + type.size() + 1));
        }
    for(const SchemaKey& row: settingsRows()) expectSameRange(row, std::string{"Settings: "} + row.key);
    for(const char* const section: Sections)
        for(const SchemaKey& row: resourceSchema(section))
            if(std::string{"name"} != row.key) expectSameRange(row, std::string{section} + ": " + row.key);
    EXPECT_GE(count, 40u);
}

TEST(MaterialSchemaTest, HasARowForEachParameterOfItsShader) {
    ProjectFile file;
    file.projectFile().Parse(R"({"shaders": {"s": {"name": "A/b", "stage": "text", "parameters": [
        {"name": "tint", "type": "color", "default": [1, 0, 0]}, {"name": "gloss", "type": "float", "default": 0.3},
        {"name": "wallTexture", "type": "texture"}, {"name": "tint", "type": "float"}, {"type": "float"}, 5,
        {"name": "odd", "type": "banana"}, {"name": "way", "type": "vector", "default": "x"}]}},
        "pipelines": {"p": {"shader": "s"}}, "materials": {"m": {"pipeline": "p"}, "n": {}, "o": 5}})");
    file.membersChanged();
    const MaterialSchema schema{file, "m"};
    std::vector<std::string> keys;
    for(const SchemaKey& key: schema.keys()) keys.emplace_back(key.key);
    EXPECT_EQ(keys, (std::vector<std::string>{"A~1b/font", "A~1b/tint", "A~1b/gloss", "A~1b/wallTexture", "A~1b/way"}));
    EXPECT_STREQ(schema.keys()[1].initial, "[1,0,0]");
    EXPECT_STREQ(schema.keys()[3].label, "Wall texture");
    EXPECT_STREQ(schema.keys()[4].initial, "[0, 0, 0, 1]");
    for(const char* const other: {"n", "o", "missing"})
        EXPECT_TRUE((MaterialSchema{file, other}.keys().isEmpty())) << other;
}

} // namespace

} // namespace VantrelEngine
