#pragma once

#include <string>
#include <string_view>
#include <vector>

// Who may include whom, read from the tables of a Markdown page.
//
// Two tables are recognised by the first words of their header rows. "| Name | Headers |" gives names to sets of
// headers; "| Folder | May include |" says for each folder what its files may include besides the folder itself, the
// C++ standard library and Corrade. Cells hold items separated by commas:
//
//   - in back quotes, a folder or file as a path from the top of the project (`module/Utils`), or headers of another
//     project as they are written between angle brackets: all below a folder (`Magnum/GL/`) or one (`imgui.h`);
//   - a name from the first table;
//   - "anything", or "nothing" alone.
//
// A folder means the files in and below it, without the folders below it that have a row of their own. A component `*`
// of a folder stands for any one name; in the first column each folder that it matches is one of its own.
namespace VantrelTools {

struct IncludeRule {
    std::string folder;                // `module/Views/SceneView/*`
    std::vector<std::string> prefixes; // names resolved
    bool anything = false;
};

struct IncludeTable {
    std::vector<IncludeRule> rules;
    std::vector<std::string> errors; // "line 12: unknown name 'Magnum'"
};

IncludeTable parseIncludeTable(std::string_view markdown);

// The folder that the rule means for this file ("module/Views/SceneView/Camera" for the example above), empty where the
// file is not below it.
std::string matchedFolder(const IncludeRule& rule, std::string_view file);

// The rule with the most components that covers the file, or null.
const IncludeRule* ruleFor(const IncludeTable& table, std::string_view file);

// Whether a file may include a header: header is a path from the top of the project when the header is the project's
// own (isOwn), else what stands between the brackets.
bool mayInclude(const IncludeTable& table, std::string_view file, std::string_view header, bool isOwn);

}
