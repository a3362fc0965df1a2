#include "Import/Converter/Confinement.h"

#include <csignal>

#include <fcntl.h>
#include <linux/landlock.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace VantrelImport {

namespace {

constexpr std::uint64_t MaximumFileSize = std::uint64_t{1} << 30;
constexpr std::uint64_t MaximumOpenFiles = 32;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool IsMemoryLimited = false;
#else
constexpr bool IsMemoryLimited = true;
#endif

// Limits that are stricter already stay.
bool limit(decltype(RLIMIT_CPU) resource, std::uint64_t soft, std::uint64_t hard) {
    rlimit current{};
    if(getrlimit(resource, &current) != 0) return false;
    if(hard < current.rlim_max) current.rlim_max = hard;
    if(soft < current.rlim_cur) current.rlim_cur = soft;
    if(current.rlim_cur > current.rlim_max) current.rlim_cur = current.rlim_max;
    return setrlimit(resource, &current) == 0;
}

constexpr std::uint64_t Reading = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr std::uint64_t Writing = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_MAKE_REG |
    LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_REMOVE_FILE;

// What the kernel is asked to forbid: the header may be older than the kernel and lack its later members.
struct Rights {
    // Each right is a bit.
    std::uint64_t files, network, scopes;
};

constexpr std::uint64_t bits(unsigned count) { return (std::uint64_t{1} << count) - 1; }

// All that a version has. The second one has links and renaming across folders, the third cutting files, the fifth
// commands to devices; the fourth connections, the sixth signals and sockets without a file.
Rights rightsOf(int version) {
    const unsigned files = version == 1 ? 13 : version == 2 ? 14 : version < 5 ? 15 : 16;
    return {bits(files), version < 4 ? 0 : bits(2), version < 6 ? 0 : bits(2)};
}

// Of the members that a version knows.
std::size_t sizeOf(int version) { return sizeof(std::uint64_t) * (version < 4 ? 1 : version < 6 ? 2 : 3); }

// 0: there is no Landlock.
int landlockVersion() {
    const long version = syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    return version < 0 ? 0 : int(version);
}

bool allow(int rules, const std::string& folder, std::uint64_t access) {
    landlock_path_beneath_attr rule{};
    rule.allowed_access = access;
    rule.parent_fd = open(folder.data(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if(rule.parent_fd < 0) return false;
    const bool isAllowed = syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
    close(rule.parent_fd);
    return isAllowed;
}

} // namespace

bool limitResources(const ResourceLimits& limits) {
    // A second later the signal cannot be held off any more.
    return limit(RLIMIT_CPU, limits.seconds, limits.seconds + 1) &&
        limit(RLIMIT_FSIZE, MaximumFileSize, MaximumFileSize) &&
        limit(RLIMIT_NOFILE, MaximumOpenFiles, MaximumOpenFiles) && limit(RLIMIT_CORE, 0, 0) &&
        (!IsMemoryLimited || limit(RLIMIT_AS, limits.memory, limits.memory));
}

Confined confineFiles(const std::string& readableFolder, const std::string& writableFolder) {
    const int version = landlockVersion();
    if(!version) return Confined::NotKnown;
    const Rights forbidden = rightsOf(version);
    const auto rules = int(syscall(SYS_landlock_create_ruleset, &forbidden, sizeOf(version), 0));
    if(rules < 0) return Confined::Failed;
#if defined(__SANITIZE_ADDRESS__)
    // The search for leaks at the end looks at the process from outside.
    const bool canBeSearched = allow(rules, "/proc", Reading);
#else
    constexpr bool canBeSearched = true;
#endif
    const bool isConfined = canBeSearched && allow(rules, readableFolder, Reading) &&
        allow(rules, writableFolder, Reading | Writing) && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
        syscall(SYS_landlock_restrict_self, rules, 0) == 0;
    close(rules);
    return isConfined ? Confined::Yes : Confined::Failed;
}

// Whoever started it may have ended before it asked to be told. Its number would not say so: it may be anyone's by now.
bool endWithParent(int output) {
    if(prctl(PR_SET_PDEATHSIG, SIGKILL) != 0) return false;
    pollfd reader{output, 0, 0};
    return poll(&reader, 1, 0) == 0 || !(reader.revents & POLLERR);
}

} // namespace VantrelImport
