#include <csignal>
#include <functional>
#include <new>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Import/Converter/Confinement.h"
#include "Support/TestFolder.h"

namespace VantrelImport::Test {

namespace {

// How a child ends that does this, as waitpid() has it.
int inChild(const std::function<int()>& work) {
    const int child = fork();
    if(child == 0) _exit(work());
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

bool canOpen(const std::string& path, int flags) {
    const int file = open(path.data(), flags, 0600);
    if(file >= 0) close(file);
    return file >= 0;
}

TEST(ConfinementTest, TimeEnds) {
    const int status = inChild([] {
        if(!limitResources({1, std::uint64_t{4} << 30})) return 1;
        for(volatile unsigned i = 0;; i = i + 1) {
        }
    });
    EXPECT_TRUE(WIFSIGNALED(status)) << status;
    EXPECT_TRUE(WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGKILL) << WTERMSIG(status);
}

TEST(ConfinementTest, OfMemoryThereIsWhatWasSaid) {
    const int status = inChild([] {
        limitResources({100, std::uint64_t{300} << 20});
        rlimit limit{};
        getrlimit(RLIMIT_AS, &limit);
#if defined(__SANITIZE_ADDRESS__)
        return limit.rlim_cur == RLIM_INFINITY ? 0 : 1;
#else
        void* const block = ::operator new(std::size_t{400} << 20, std::nothrow);
        return limit.rlim_cur == std::uint64_t{300} << 20 && !block ? 0 : 1;
#endif
    });
    EXPECT_EQ(status, 0);
}

TEST(ConfinementTest, StricterLimitsStay) {
    EXPECT_EQ(inChild([] {
        const rlimit little{10, 20};
        setrlimit(RLIMIT_NOFILE, &little);
        if(!limitResources({})) return 1;
        rlimit limit{};
        getrlimit(RLIMIT_NOFILE, &limit);
        return limit.rlim_cur == 10 && limit.rlim_max == 20 ? 0 : 2;
    }),
        0);
}

TEST(ConfinementTest, FilesElsewhereAreOutOfReach) {
    const VantrelTest::TestFolder folder;
    for(const char* const name: {"in", "out", "other"}) std::filesystem::create_directory(folder.path(name));
    VantrelTest::writeFile(folder.path("in/a"), "a");
    VantrelTest::writeFile(folder.path("other/a"), "a");
    const int status = inChild([&] {
        const bool isConfined = confineFiles(folder.path("in"), folder.path("out"));
        if(!canOpen(folder.path("in/a"), O_RDONLY) || !canOpen(folder.path("out/b"), O_WRONLY | O_CREAT)) return 1;
        // A kernel that does not know how leaves them within reach, and says so.
        if(canOpen(folder.path("other/a"), O_RDONLY) == isConfined) return 2;
        if(canOpen(folder.path("in/b"), O_WRONLY | O_CREAT) == isConfined) return 3;
        if(canOpen(folder.path("other/b"), O_WRONLY | O_CREAT) == isConfined) return 4;
        return canOpen("/etc/passwd", O_RDONLY) == isConfined ? 5 : 0;
    });
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

} // namespace

} // namespace VantrelImport::Test
