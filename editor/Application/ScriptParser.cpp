#include "Application/ScriptParser.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <optional>

#include <Vantrel/EditorUtilities/PayloadTypes.h>
#include <Vantrel/EngineData/ResourceMaps.h>
#include <Vantrel/Module/InputEvents.h>

#include "Application/CommandLine.h"
#include "Application/KeyNames.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

using Words = std::vector<std::string>;

struct Line {
    ScriptCommand& command;
    Words words;
    // All behind the verb.
    std::string rest;
};

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

std::optional<Double> numberOf(const std::string& word) {
    char* end = nullptr;
    const Double number = std::strtod(word.data(), &end);
    if(word.empty() || *end || !std::isfinite(number)) return {};
    return number;
}

std::string readNumber(const std::string& word, Double min, Double max, ScriptCommand& command) {
    const std::optional<Double> number = numberOf(word);
    if(!number) return quoted(word) + " is no number";
    if(*number < min || *number > max)
        return quoted(word) + " is not between " + std::to_string(int(min)) + " and " + std::to_string(int(max));
    command.numbers.push_back(*number);
    return {};
}

std::string readNatural(const std::string& word, Double min, Double max, ScriptCommand& command) {
    std::string error = readNumber(word, min, max, command);
    if(error.empty() && command.numbers.back() != std::floor(command.numbers.back()))
        error = quoted(word) + " is no whole number";
    return error;
}

constexpr Double MaxCoordinate = 100000.0;
constexpr Double MaxSteps = 1000.0;

std::string parsePosition(Line& line) {
    std::string error = readNumber(line.words[0], -MaxCoordinate, MaxCoordinate, line.command);
    return error.empty() ? readNumber(line.words[1], -MaxCoordinate, MaxCoordinate, line.command) : error;
}

std::string parseWait(Line& line) {
    const bool isImport = line.words[0] == "import";
    if(!isImport && line.words[0] != "pictures") return readNatural(line.words[0], 1, MaxFrameCount, line.command);
    line.command.verb = isImport ? ScriptVerb::WaitForImport : ScriptVerb::WaitForPictures;
    return {};
}

// A number of the field where one is given, from 0.
std::string parseField(Line& line) {
    line.command.words = {line.words[0]};
    if(line.words.size() == 2) return readNatural(line.words[1], 0, 32, line.command);
    line.command.numbers.push_back(-1);
    return {};
}

std::string parseSizeWords(Line& line) {
    std::string error = readNatural(line.words[0], 1, MaxWindowSize, line.command);
    return error.empty() ? readNatural(line.words[1], 1, MaxWindowSize, line.command) : error;
}

std::string parseScale(Line& line) { return readNumber(line.words[0], 0.25, 4, line.command); }

std::string parseFontSize(Line& line) { return readNumber(line.words[0], 1, 3, line.command); }

std::string parseModifiers(Line& line, std::size_t first) {
    for(std::size_t i = first; i != line.words.size(); ++i) {
        const std::string& word = line.words[i];
        const unsigned modifier = word == "shift" ? ModifierShift
            : word == "ctrl"                      ? ModifierControl
            : word == "alt"                       ? ModifierAlt
            : word == "super"                     ? ModifierSuper
                                                  : 0u;
        if(!modifier) return quoted(word) + " is none of shift, ctrl, alt, super";
        line.command.modifiers |= modifier;
    }
    return {};
}

std::string parseButton(Line& line) {
    const std::string& word = line.words[0];
    const int button = word == "left" ? 0 : word == "right" ? 1 : word == "middle" ? 2 : -1;
    if(button < 0) return quoted(word) + " is none of left, right, middle";
    line.command.numbers.push_back(button);
    return parseModifiers(line, 1);
}

std::string parseScroll(Line& line) {
    std::string error = readNumber(line.words[0], -MaxSteps, MaxSteps, line.command);
    return error.empty() ? parseModifiers(line, 1) : error;
}

std::string parseKey(Line& line) {
    const std::optional<int> key = keyOf(line.words[0]);
    if(!key) return quoted(line.words[0]) + " is no key";
    line.command.numbers.push_back(*key);
    return {};
}

std::string parseKeyPress(Line& line) {
    const bool isRepeated = line.words.size() == 2;
    if(isRepeated && line.words[1] != "repeat") return quoted(line.words[1]) + " is not repeat";
    std::string error = parseKey(line);
    line.command.numbers.push_back(isRepeated);
    return error;
}

std::string parseFocus(Line& line) {
    if(line.words[0] != "on" && line.words[0] != "off") return quoted(line.words[0]) + " is none of on, off";
    line.command.numbers.push_back(line.words[0] == "on");
    return {};
}

std::string parseWords(Line& line) {
    line.command.words = line.words;
    return {};
}

std::string parseRest(Line& line) {
    if(!line.rest.empty()) line.command.words = {line.rest};
    return {};
}

// Runs as it stands; whoever runs it looks closer.
std::string parseEdit(Line& line) {
    line.command.words = {line.command.text};
    return {};
}

std::string parseDump(Line& line) {
    for(const char* const kind: {"document", "selection", "marks", "undo", "history", "log", "statistics", "clipboard"})
        if(line.words[0] == kind) {
            line.command.words = {
                line.words[0], line.rest.substr(line.rest.find_first_not_of(" \t", line.words[0].size()))};
            return {};
        }
    return quoted(line.words[0]) + " is none of document, selection, marks, undo, history, log, statistics, clipboard";
}

// The kind as its number, the id, and the file.
std::string parseThumbnail(Line& line) {
    const Words& words = line.words;
    const char* const kinds[]{"mesh", "material", "image"};
    constexpr ResourceKind values[]{ResourceKind::Mesh, ResourceKind::Material, ResourceKind::Image};
    const auto* const found = std::find(std::begin(kinds), std::end(kinds), words[0]);
    if(found == std::end(kinds)) return quoted(words[0]) + " is none of mesh, material, image";
    line.command.numbers.push_back(Double(values[found - std::begin(kinds)]));
    const std::size_t id = line.rest.find_first_not_of(" \t", words[0].size());
    line.command.words = {words[1], line.rest.substr(line.rest.find_first_not_of(" \t", id + words[1].size()))};
    return {};
}

// A file whose name may have blanks in it, then the place.
std::string parseDrop(Line& line) {
    const Words& words = line.words;
    Line place{line.command, {words[words.size() - 2], words[words.size() - 1]}, {}};
    std::string error = parsePosition(place);
    if(!error.empty()) return error;
    std::string file = line.rest;
    for(int i = 0; i != 2; ++i) {
        file.erase(file.find_last_of(" \t"));
        file.erase(file.find_last_not_of(" \t") + 1);
    }
    line.command.words = {file};
    return {};
}

// A section of the document, or a file; then its id, or its path, which may have blanks in it.
std::string parseDrag(Line& line) {
    const std::string& kind = line.words[0];
    const bool isFile = kind == "file";
    const auto isKind = [&kind](const PayloadType& payload) { return kind == payload.kind; };
    if(!isFile && std::none_of(std::begin(PayloadTypes), std::end(PayloadTypes), isKind))
        return quoted(kind) + " is none of file, materials, textures, meshes, ...";
    line.command.words = {isFile ? FilePayloadType : payloadTypeOf({kind.data(), kind.size()}),
        line.rest.substr(line.rest.find_first_not_of(" \t", kind.size()))};
    return {};
}

constexpr std::size_t Any = 1000000;

struct Syntax {
    std::string_view name;
    ScriptVerb verb;
    // Words behind the name.
    std::size_t min, max;
    const char* usage;
    std::string (*parse)(Line& line);
};

constexpr Syntax Commands[]{{"wait", ScriptVerb::Wait, 1, 1, "wait FRAMES|import|pictures", parseWait},
    {"mouse", ScriptVerb::Mouse, 2, 2, "mouse X Y", parsePosition},
    {"field", ScriptVerb::Field, 1, 2, "field KEY [NUMBER]", parseField},
    {"move", ScriptVerb::Move, 2, 2, "move DX DY", parsePosition},
    {"press", ScriptVerb::Press, 1, 5, "press left|right|middle [shift] [ctrl] [alt] [super]", parseButton},
    {"release", ScriptVerb::Release, 1, 5, "release left|right|middle [shift] [ctrl] [alt] [super]", parseButton},
    {"scroll", ScriptVerb::Scroll, 1, 5, "scroll STEPS [shift] [ctrl] [alt] [super]", parseScroll},
    {"key", ScriptVerb::Key, 1, 2, "key NAME [repeat]", parseKeyPress},
    {"keyup", ScriptVerb::KeyUp, 1, 1, "keyup NAME", parseKey},
    {"type", ScriptVerb::Type, 1, Any, "type TEXT", parseRest},
    {"clipboard", ScriptVerb::Clipboard, 0, Any, "clipboard [TEXT]", parseRest},
    {"resize", ScriptVerb::Resize, 2, 2, "resize WIDTH HEIGHT", parseSizeWords},
    {"scale", ScriptVerb::Scale, 1, 1, "scale FACTOR", parseScale},
    {"fontsize", ScriptVerb::FontSize, 1, 1, "fontsize FACTOR", parseFontSize},
    {"focus", ScriptVerb::Focus, 1, 1, "focus on|off", parseFocus},
    {"close", ScriptVerb::Close, 0, 0, "close", parseRest},
    {"select", ScriptVerb::Select, 0, Any, "select [ID...]", parseWords},
    {"hide", ScriptVerb::Hide, 1, Any, "hide ID...", parseWords},
    {"show", ScriptVerb::Show, 1, Any, "show ID...", parseWords},
    {"lock", ScriptVerb::Lock, 1, Any, "lock ID...", parseWords},
    {"unlock", ScriptVerb::Unlock, 1, Any, "unlock ID...", parseWords},
    {"reload", ScriptVerb::Reload, 0, Any, "reload [FILE]", parseRest},
    {"open", ScriptVerb::Open, 1, Any, "open FILE", parseRest},
    {"save", ScriptVerb::Save, 1, Any, "save FILE", parseRest}, {"new", ScriptVerb::New, 0, 0, "new", parseRest},
    {"record", ScriptVerb::Edit, 2, Any, "record POINTER JSON", parseEdit},
    {"remove", ScriptVerb::Edit, 1, Any, "remove POINTER", parseEdit},
    {"undo", ScriptVerb::Undo, 0, 0, "undo", parseRest}, {"redo", ScriptVerb::Redo, 0, 0, "redo", parseRest},
    {"import", ScriptVerb::Import, 1, Any, "import FILE", parseRest},
    {"drag", ScriptVerb::Drag, 2, Any, "drag KIND|file ID|PATH", parseDrag},
    {"drop", ScriptVerb::Drop, 3, Any, "drop FILE X Y", parseDrop},
    {"screenshot", ScriptVerb::Screenshot, 1, Any, "screenshot FILE", parseRest},
    {"idimage", ScriptVerb::IdImage, 1, Any, "idimage FILE", parseRest},
    {"thumbnail", ScriptVerb::Thumbnail, 3, Any, "thumbnail mesh|material|image ID FILE", parseThumbnail},
    {"dump", ScriptVerb::Dump, 2, Any, "dump document|selection|marks|undo|history|log|statistics|clipboard FILE",
        parseDump},
    {"quit", ScriptVerb::Quit, 0, 0, "quit", parseRest}};

bool isBlank(char character) { return std::isspace(static_cast<unsigned char>(character)); }

std::string_view trimmed(std::string_view text) {
    while(!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while(!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

Words wordsOf(std::string_view text) {
    Words words;
    for(text = trimmed(text); !text.empty(); text = trimmed(text)) {
        std::size_t end = 0;
        while(end != text.size() && !isBlank(text[end])) ++end;
        words.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return words;
}

std::string parseLine(std::string_view text, ScriptCommand& command) {
    Words words = wordsOf(text);
    const std::string name = words.front();
    words.erase(words.begin());
    for(const Syntax& syntax: Commands) {
        if(syntax.name != name) continue;
        if(words.size() < syntax.min || words.size() > syntax.max) return std::string{"expected: "} + syntax.usage;
        command.verb = syntax.verb;
        Line line{command, std::move(words), std::string{trimmed(text.substr(name.size()))}};
        return syntax.parse(line);
    }
    return "there is no such command";
}

} // namespace

std::string mistakeIn(const ScriptCommand& command, const std::string& reason) {
    return "line " + std::to_string(command.line) + ": " + quoted(command.text) + ": " + reason;
}

ParsedScript parseScript(std::string_view text) {
    ParsedScript script;
    for(std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if(line.empty() || line.front() == '#') continue;
        ScriptCommand command{};
        command.line = number;
        command.text = std::string{line};
        const std::string mistake = parseLine(line, command);
        if(!mistake.empty()) {
            script.error = mistakeIn(command, mistake);
            script.commands.clear();
            return script;
        }
        script.commands.push_back(std::move(command));
    }
    return script;
}

} // namespace VantrelEngine
