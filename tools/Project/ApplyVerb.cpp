#include <cstdio>
#include <fstream>

#include <VantrelHost/DocumentWriter.h>

#include "Data/ProjectSession.h"
#include "Project/Script.h"
#include "Project/Text.h"
#include "Project/Verbs.h"

namespace VantrelTools {

using namespace VantrelEngine;

int applyScript(const std::string& file, const std::string& scriptFile) {
    std::ifstream lines{scriptFile};
    if(!lines) return fail(scriptFile + ": the script cannot be read");
    ProjectSession session;
    const OpenedProject opened = session.open(file);
    if(!opened.error.empty()) return fail(opened.error);

    Script script{session};
    std::size_t number = 0;
    for(std::string line; std::getline(lines, line);) {
        ++number;
        const std::string error = script.run(line);
        if(!error.empty()) return fail(scriptFile + ": line " + std::to_string(number) + ": " + error);
    }
    const std::string unfinished = script.end();
    if(!unfinished.empty()) return fail(scriptFile + ": " + unfinished);

    std::string text;
    const std::string error = writeDocument(session.data().project().projectFile(), text);
    if(!error.empty()) return fail(file + ": " + error);
    std::fwrite(text.data(), 1, text.size(), stdout);
    return std::fflush(stdout) == 0 ? int(Success) : fail("the standard output cannot be written");
}

}
