#include "IncludeTable/SourceTree.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

namespace VantrelTools {

namespace {

namespace fs = std::filesystem;

constexpr const char* TopFolders[]{"module", "engine", "editor", "embedded", "tools", "benchmarks", "tests"};

// The folders that the build puts on include paths, by what they begin with; the first that holds a header wins.
constexpr const char* IncludeRoots[]{"module", "module/Interfaces", "engine", "engine/Public", "editor", "tools",
    "benchmarks", "tests", "embedded/Corrade/src", "embedded/Magnum/src", "embedded/ImGuizmo/src",
    "embedded/PhysX/src"};

bool isSource(const fs::path& path) {
    static const std::set<std::string> extensions{".h", ".hpp", ".cpp", ".c", ".in"};
    return extensions.count(path.extension().string());
}

bool isTestFile(std::string_view file) { return file.find("/Test/") != file.npos; }

std::string readFile(const fs::path& path) {
    std::ifstream stream{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{stream}, {}};
}

// Block comments blanked out, line breaks kept.
std::string withoutBlockComments(std::string_view source) {
    std::string result{source};
    for(std::size_t begin = 0; (begin = result.find("/*", begin)) != result.npos;) {
        const std::size_t end = std::min(result.find("*/", begin + 2), result.size() - 2) + 2;
        for(; begin != end; ++begin)
            if(result[begin] != '\n') result[begin] = ' ';
    }
    return result;
}

// The path from the top of the project of a header that is the project's own, empty for any other.
std::string ownHeader(const fs::path& project, const fs::path& file, const IncludeLine& include) {
    std::vector<fs::path> candidates;
    if(include.quoted) candidates.push_back(file.parent_path() / include.header);
    for(const char* root: IncludeRoots) candidates.push_back(fs::path{root} / include.header);
    for(const fs::path& candidate: candidates)
        if(fs::is_regular_file(project / candidate)) return candidate.lexically_normal().generic_string();
    return {};
}

// The folder of headers of a library that is embedded, where a file outside of it includes one: the table names them as
// they are included, as if the library were installed.
std::string_view standInOf(std::string_view header, std::string_view file) {
    for(const std::string_view folder: {"embedded/Magnum/", "embedded/ImGuizmo/"})
        if(header.substr(0, folder.size()) == folder && file.substr(0, folder.size()) != folder)
            return header.substr(0, folder.size() + std::string_view{"src/"}.size());
    return {};
}

std::vector<std::string> brokenIncludesOf(const IncludeTable& table, const fs::path& project, const std::string& file) {
    if(isTestFile(file)) return {};
    if(!ruleFor(table, file)) return {file + ":1: no folder of the table holds this file"};
    std::vector<std::string> broken;
    for(const IncludeLine& include: includesOf(readFile(project / file))) {
        const std::string own = ownHeader(project, file, include);
        const std::string& header = own.empty() ? include.header : own;
        const bool isFree = own.empty() ? isStandardHeader(header) || header.rfind("Corrade/", 0) == 0
                                        : own.rfind("embedded/Corrade/src/", 0) == 0;
        const std::string_view library = standInOf(own, file);
        const bool allowed = library.empty() ? mayInclude(table, file, header, !own.empty())
                                             : mayInclude(table, file, own.substr(library.size()), false);
        if((isFree || allowed) && !isTestFile(own)) continue;
        const std::string folder = matchedFolder(*ruleFor(table, file), file);
        broken.push_back(file + ":" + std::to_string(include.line) + ": " + folder + " may not include " + header);
    }
    return broken;
}

}

std::vector<IncludeLine> includesOf(std::string_view source) {
    static const std::regex pattern{R"(^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"])"};
    std::vector<IncludeLine> includes;
    const std::string text = withoutBlockComments(source);
    int line = 0;
    for(std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        ++line;
        std::match_results<std::string::const_iterator> match;
        if(std::regex_search(text.begin() + std::ptrdiff_t(begin), text.begin() + std::ptrdiff_t(end), match, pattern))
            includes.push_back({line, match[2].str(), match[1] == "\""});
        begin = end + 1;
    }
    return includes;
}

bool isStandardHeader(std::string_view header) { return header.find_first_of("./") == header.npos; }

std::vector<std::string> brokenIncludes(const IncludeTable& table, const fs::path& project) {
    std::vector<std::string> files;
    for(const char* folder: TopFolders) {
        if(!fs::is_directory(project / folder)) continue;
        for(const auto& entry: fs::recursive_directory_iterator{project / folder})
            if(entry.is_regular_file() && isSource(entry.path()))
                files.push_back(entry.path().lexically_relative(project).generic_string());
    }
    std::sort(files.begin(), files.end());
    std::vector<std::string> broken;
    for(const std::string& file: files) {
        const std::vector<std::string> of = brokenIncludesOf(table, project, file);
        broken.insert(broken.end(), of.begin(), of.end());
    }
    return broken;
}

}
