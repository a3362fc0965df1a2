#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <new>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/landlock.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Import/Converter/CallFilter.h"
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
        const Confined confined = confineFiles(folder.path("in"), folder.path("out"));
        if(!canOpen(folder.path("in/a"), O_RDONLY) || !canOpen(folder.path("out/b"), O_WRONLY | O_CREAT)) return 1;
        // A kernel that does not know how leaves them within reach, and says so.
        if(confined == Confined::Failed) return 6;
        const bool isConfined = confined == Confined::Yes;
        if(canOpen(folder.path("other/a"), O_RDONLY) == isConfined) return 2;
        if(canOpen(folder.path("in/b"), O_WRONLY | O_CREAT) == isConfined) return 3;
        if(canOpen(folder.path("other/b"), O_WRONLY | O_CREAT) == isConfined) return 4;
        return canOpen("/etc/passwd", O_RDONLY) == isConfined ? 5 : 0;
    });
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

// What the first version of Landlock could not forbid.
TEST(ConfinementTest, WhatTheKernelKnowsBesidesIsForbidden) {
    const VantrelTest::TestFolder folder;
    for(const char* const name: {"in", "out"}) std::filesystem::create_directory(folder.path(name));
    VantrelTest::writeFile(folder.path("in/a"), "contents");
    const long version = syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    const int status = inChild([&] {
        const int tcp = socket(AF_INET, SOCK_STREAM, 0);
        confineFiles(folder.path("in"), folder.path("out"));
        if((truncate(folder.path("in/a").data(), 1) != 0) != (version >= 3)) return 1;
        if(version >= 3 && errno != EACCES) return 2;
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(9);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        connect(tcp, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        if((errno == EACCES) != (version >= 4)) return 3;
        return (kill(getppid(), 0) != 0) == (version >= 6) ? 0 : 4;
    });
    EXPECT_EQ(status, 0);
}

TEST(ConfinementTest, AFolderThatIsGoneIsAFailure) {
    const VantrelTest::TestFolder folder;
    const int status = inChild([&] {
        const Confined confined = confineFiles(folder.path().string(), folder.path("missing"));
        return confined == Confined::Failed || confined == Confined::NotKnown ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
}

bool isDenied(long result) { return result == -1 && errno == EPERM; }

TEST(CallFilterTest, NoProgramsSocketsAndSignals) {
    const VantrelTest::TestFolder folder;
    VantrelTest::writeFile(folder.path("a"), "a");
    const int status = inChild([&] {
        if(confineCalls() != Confined::Yes) return 1;
        char* const words[]{const_cast<char*>("/bin/true"), nullptr};
        if(!isDenied(execv(words[0], words))) return 2;
        if(!isDenied(socket(AF_UNIX, SOCK_STREAM, 0)) || !isDenied(socket(AF_INET, SOCK_DGRAM, 0))) return 3;
        if(!isDenied(kill(getppid(), 0))) return 4;
        if(!isDenied(syscall(SYS_tgkill, getppid(), getppid(), 0))) return 5;
        if(!isDenied(chmod(folder.path("a").data(), 0777))) return 6;
        const rlimit unlimited{RLIM_INFINITY, RLIM_INFINITY};
        if(!isDenied(prlimit(getppid(), RLIMIT_CORE, &unlimited, nullptr))) return 7;
#if !defined(__SANITIZE_ADDRESS__)
        if(!isDenied(fork())) return 8;
        if(!isDenied(ptrace(PTRACE_ATTACH, getppid(), nullptr, nullptr))) return 9;
#endif
        return canOpen(folder.path("a"), O_RDWR) ? 0 : 10;
    });
    EXPECT_TRUE(WIFEXITED(status)) << status;
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST(CallFilterTest, ThreadsAndOnesOwnEndStay) {
    const int status = inChild([] {
        confineCalls();
        bool hasRun = false;
        std::thread{[&] { hasRun = true; }}.join();
        if(hasRun) std::abort();
        return 1;
    });
    EXPECT_TRUE(WIFSIGNALED(status)) << status;
    EXPECT_EQ(WTERMSIG(status), SIGABRT);
}

TEST(ParentTest, WithWhoeverStartedItItEnds) {
    int alive[2];
    ASSERT_EQ(pipe(alive), 0);
    // A child that ends, and one of its own that would wait for ever.
    const int status = inChild([&] {
        int ready[2];
        if(pipe(ready) != 0) return 2;
        if(fork() == 0) {
            // Should it not be ended, it does not stay for ever.
            alarm(20);
            endWithParent(alive[1]);
            write(ready[1], "", 1);
            while(true) pause();
        }
        char byte;
        return read(ready[0], &byte, 1) == 1 ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    close(alive[1]);
    pollfd end{alive[0], POLLIN, 0};
    EXPECT_EQ(poll(&end, 1, 5000), 1) << "it still holds the pipe";
    close(alive[0]);
}

// A pipe that takes no more bytes: whoever writes waits, until it is read.
class FullPipe {
public:
    FullPipe() {
        EXPECT_EQ(pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
        while(write(ends[1], "", 1) == 1) {
        }
        fcntl(ends[1], F_SETFL, 0);
    }
    ~FullPipe() {
        close(ends[0]);
        close(ends[1]);
    }
    FullPipe(const FullPipe&) = delete;
    FullPipe& operator=(const FullPipe&) = delete;

    int ends[2];
};

// In a child: starts the program, says its number, and waits. The program inherits all that is not closed then.
[[noreturn]] void startProgram(const std::string& source, const std::string& output, int standardOutput, int number) {
    const int program = fork();
    if(program == 0) {
        alarm(20);
        dup2(standardOutput, STDOUT_FILENO);
        execl(VANTREL_IMPORT_PROGRAM, "vantrel-import", "--source", source.data(), "--output", output.data(), nullptr);
        _exit(127);
    }
    if(write(number, &program, sizeof program) != sizeof program) _exit(1);
    while(true) pause();
}

// Looks until it is so, for some seconds.
bool comesTrue(const std::function<bool()>& condition) {
    for(int i = 0; i != 1000; ++i) {
        if(condition()) return true;
        usleep(10000);
    }
    return false;
}

TEST(ParentTest, TheProgramIsConfinedBeforeItReadsAndGoesWithItsParent) {
    const VantrelTest::TestFolder folder;
    std::filesystem::create_directory(folder.path("out"));
    VantrelTest::writeFile(folder.path("a.glb"), "");
    const FullPipe messages;
    int number[2], alive[2];
    ASSERT_TRUE(pipe2(number, O_CLOEXEC) == 0 && pipe(alive) == 0);
    const int starter = fork();
    if(starter == 0) startProgram(folder.path("a.glb"), folder.path("out"), messages.ends[1], number[1]);
    close(alive[1]);
    int program = 0;
    ASSERT_EQ(read(number[0], &program, sizeof program), ssize_t(sizeof program));
    // It waits to say that it begins to read.
    const std::string status = "/proc/" + std::to_string(program) + "/status";
    EXPECT_TRUE(comesTrue([&] {
        const std::string text = VantrelTest::readFile(status);
        return text.find("\nSeccomp:\t2") != text.npos && text.find("\nNoNewPrivs:\t1") != text.npos;
    }));
    kill(starter, SIGKILL);
    EXPECT_EQ(waitpid(starter, nullptr, 0), starter);
    pollfd end{alive[0], POLLIN, 0};
    EXPECT_EQ(poll(&end, 1, 5000), 1) << "it goes on";
    for(const int file: {number[0], number[1], alive[0]}) close(file);
}

TEST(ParentTest, NobodyReadsWhatItSays) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const auto goesOn = [&] { return inChild([&] { return endWithParent(ends[1]) ? 1 : 0; }); };
    EXPECT_EQ(WEXITSTATUS(goesOn()), 1);
    close(ends[0]);
    EXPECT_EQ(WEXITSTATUS(goesOn()), 0);
    close(ends[1]);
}

} // namespace

} // namespace VantrelImport::Test
