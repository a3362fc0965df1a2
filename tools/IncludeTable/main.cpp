#include <cstdio>
#include <fstream>
#include <iterator>

#include "IncludeTable/SourceTree.h"

int main(int argc, char** argv) {
    if(argc != 3) {
        std::fprintf(stderr, "usage: %s TABLE.md PROJECT\n", argv[0]);
        return 2;
    }
    std::ifstream page{argv[1]};
    if(!page) {
        std::fprintf(stderr, "%s: cannot be read\n", argv[1]);
        return 2;
    }
    const VantrelTools::IncludeTable table =
        VantrelTools::parseIncludeTable(std::string{std::istreambuf_iterator<char>{page}, {}});
    for(const std::string& error: table.errors) std::fprintf(stderr, "%s: %s\n", argv[1], error.data());
    const std::vector<std::string> broken = VantrelTools::brokenIncludes(table, argv[2]);
    for(const std::string& line: broken) std::fprintf(stderr, "%s\n", line.data());
    return table.errors.empty() && broken.empty() ? 0 : 1;
}
