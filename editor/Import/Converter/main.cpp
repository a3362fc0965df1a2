#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>

#include <CLI/CLI.hpp>
#include <unistd.h>

#include "Import/Converter/CallFilter.h"
#include "Import/Converter/Confinement.h"
#include "Import/Converter/Import.h"
#include "Import/Converter/Messages.h"
#include "Import/Converter/Text.h"

namespace {

// Without symbolic links: whoever chose one means what it leads to, and what lies beside that.
std::string realPath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real{realpath(path.data(), nullptr), std::free};
    if(!real) throw VantrelImport::Unusable{std::string{"the file cannot be opened: "} + std::strerror(errno)};
    return real.get();
}

// What a kernel cannot do is only told to whoever reads the error output: the user could not help it.
void require(VantrelImport::Confined confined, const char* what) {
    if(confined == VantrelImport::Confined::Failed)
        throw VantrelImport::Unusable{std::string{"the system refuses to confine its "} + what};
    if(confined == VantrelImport::Confined::NotKnown)
        std::fprintf(stderr, "vantrel-import: this system cannot confine its %s\n", what);
}

int run(const std::string& chosen, const std::string& output, const VantrelImport::ResourceLimits& limits,
    std::uint64_t maximumOutput) {
    VantrelImport::Messages messages{stdout};
    try {
        const std::string source = realPath(chosen);
        if(!VantrelImport::limitResources(limits)) throw VantrelImport::Unusable{"the system grants no limits"};
        require(VantrelImport::confineFiles(VantrelImport::folderOf(source), output), "files");
        require(VantrelImport::confineCalls(), "calls");
        VantrelImport::importFile(source, output, maximumOutput, messages);
        messages.done();
        return 0;
    } catch(const std::bad_alloc&) {
        messages.error("there is not enough memory for it");
    } catch(const std::exception& problem) {
        messages.error(problem.what());
    }
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app{"Reads a model (glTF, OBJ, FBX, PLY, STL, Collada) or an image and writes it as files that a project "
                 "can take. Prints progress, warnings, and at the end \"done\" or \"error\"."};
    std::string source, output;
    VantrelImport::ResourceLimits limits;
    app.add_option("--source", source, "The model or image; only files of its folder are read")->required();
    app.add_option("--output", output, "An empty folder")->required()->check(CLI::ExistingDirectory);
    app.add_option("--seconds", limits.seconds, "Time on the processor before it is ended")
        ->check(CLI::Range(1, 86400))
        ->capture_default_str();
    app.add_option("--memory", limits.memory, "Bytes that it may use")->capture_default_str();
    std::uint64_t maximumOutput = std::uint64_t{2} << 30;
    app.add_option("--output-bytes", maximumOutput, "Bytes that all that it writes may have")->capture_default_str();
    CLI11_PARSE(app, argc, argv);
    if(!VantrelImport::endWithParent(STDOUT_FILENO)) return 1;
    return run(source, output, limits, maximumOutput);
}
