#include "Command.h"

#include <cstdio>

#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

CommandResult run(const std::string& command) {
    FILE* const pipe = popen(("( " + command + " ) 2>&1").data(), "r");
    CommandResult result{-1, {}};
    if(!pipe) return result;
    for(int c; (c = std::fgetc(pipe)) != EOF;) result.output += char(c);
    const int status = pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return result;
}

FolderTest::FolderTest():
    _folder{fs::temp_directory_path() /
        ("vantrel-proof-" + std::to_string(getpid()) + "-" +
            std::to_string(testing::UnitTest::GetInstance()->random_seed()) + "-" +
            fs::path{testing::UnitTest::GetInstance()->current_test_info()->name()}.filename().string())} {
    fs::create_directories(_folder);
}

FolderTest::~FolderTest() { fs::remove_all(_folder); }
