#include "IncludeTable/IncludeTable.h"

#include <algorithm>
#include <map>

namespace VantrelTools {

namespace {

std::string_view trimmed(std::string_view text) {
    const auto begin = text.find_first_not_of(" \t\r");
    if(begin == text.npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for(;;) {
        const auto end = text.find(separator);
        parts.push_back(trimmed(text.substr(0, end)));
        if(end == text.npos) return parts;
        text.remove_prefix(end + 1);
    }
}

// The cells of "| a | b |", none for any other line.
std::vector<std::string_view> cells(std::string_view line) {
    line = trimmed(line);
    if(line.size() < 2 || line.front() != '|' || line.back() != '|') return {};
    return split(line.substr(1, line.size() - 2), '|');
}

bool isRuler(const std::vector<std::string_view>& row) {
    return std::all_of(row.begin(), row.end(),
        [](std::string_view cell) { return !cell.empty() && cell.find_first_not_of("-:") == cell.npos; });
}

bool isQuoted(std::string_view item) { return item.size() > 2 && item.front() == '`' && item.back() == '`'; }

std::string unquoted(std::string_view item) { return std::string{item.substr(1, item.size() - 2)}; }

class Parser {
public:
    IncludeTable parse(std::string_view markdown) {
        for(const std::string_view line: split(markdown, '\n')) {
            ++_line;
            parseRow(cells(line));
        }
        if(_table.rules.empty()) error("no table of folders");
        return std::move(_table);
    }

private:
    enum class Kind { None, Names, Rules };

    void parseRow(const std::vector<std::string_view>& row) {
        if(row.size() < 2) {
            _kind = Kind::None;
        } else if(row[0] == "Name" && row[1] == "Headers") {
            _kind = Kind::Names;
        } else if(row[0] == "Folder" && row[1] == "May include") {
            _kind = Kind::Rules;
        } else if(!isRuler(row) && _kind == Kind::Names) {
            addItems(row[1], _names[std::string{row[0]}], nullptr);
        } else if(!isRuler(row) && _kind == Kind::Rules) {
            addRules(row);
        }
    }

    void addRules(const std::vector<std::string_view>& row) {
        for(const std::string_view folder: split(row[0], ',')) {
            if(!isQuoted(folder)) {
                error("folder '" + std::string{folder} + "' is not in back quotes");
                continue;
            }
            IncludeRule rule;
            rule.folder = unquoted(folder);
            while(!rule.folder.empty() && rule.folder.back() == '/') rule.folder.pop_back();
            addItems(row[1], rule.prefixes, &rule.anything);
            _table.rules.push_back(std::move(rule));
        }
    }

    void addItems(std::string_view cell, std::vector<std::string>& prefixes, bool* anything) {
        if(cell == "nothing") return;
        for(const std::string_view item: split(cell, ',')) {
            const auto name = _names.find(item);
            if(isQuoted(item))
                prefixes.push_back(unquoted(item));
            else if(anything && item == "anything")
                *anything = true;
            else if(name != _names.end())
                prefixes.insert(prefixes.end(), name->second.begin(), name->second.end());
            else
                error("unknown name '" + std::string{item} + "'");
        }
    }

    void error(const std::string& text) { _table.errors.push_back("line " + std::to_string(_line) + ": " + text); }

    IncludeTable _table;
    std::map<std::string, std::vector<std::string>, std::less<>> _names;
    Kind _kind = Kind::None;
    int _line = 0;
};

// A header of another project, or everything below a folder of it.
bool hasHeaderPrefix(std::string_view header, std::string_view prefix) {
    return prefix.back() == '/' ? header.substr(0, prefix.size()) == prefix : header == prefix;
}

std::size_t componentCount(std::string_view folder) {
    return std::size_t(std::count(folder.begin(), folder.end(), '/')) + 1;
}

}

IncludeTable parseIncludeTable(std::string_view markdown) { return Parser{}.parse(markdown); }

std::string matchedFolder(const IncludeRule& rule, std::string_view file) {
    const std::vector<std::string_view> pattern = split(rule.folder, '/');
    const std::vector<std::string_view> path = split(file, '/');
    // The last component of the path is the file itself.
    if(path.size() <= pattern.size()) return {};
    std::string folder;
    for(std::size_t i = 0; i != pattern.size(); ++i) {
        if(pattern[i] != "*" && pattern[i] != path[i]) return {};
        folder += (i ? "/" : "") + std::string{path[i]};
    }
    return folder;
}

const IncludeRule* ruleFor(const IncludeTable& table, std::string_view file) {
    const IncludeRule* best = nullptr;
    for(const IncludeRule& rule: table.rules)
        if(!matchedFolder(rule, file).empty() && (!best || componentCount(rule.folder) > componentCount(best->folder)))
            best = &rule;
    return best;
}

bool mayInclude(const IncludeTable& table, std::string_view file, std::string_view header, bool isOwn) {
    const IncludeRule* const rule = ruleFor(table, file);
    if(!rule) return false;
    if(rule->anything) return true;
    if(!isOwn)
        return std::any_of(rule->prefixes.begin(), rule->prefixes.end(),
            [&](const std::string& prefix) { return hasHeaderPrefix(header, prefix); });
    const IncludeRule* const owner = ruleFor(table, header);
    if(owner == rule && matchedFolder(*owner, header) == matchedFolder(*rule, file)) return true;
    return std::any_of(rule->prefixes.begin(), rule->prefixes.end(), [&](const std::string& prefix) {
        if(header == prefix) return true;
        // A folder is named without those below it that have a rule of their own.
        return !matchedFolder({prefix, {}, false}, header).empty() &&
            (!owner || componentCount(owner->folder) <= componentCount(prefix));
    });
}

}
