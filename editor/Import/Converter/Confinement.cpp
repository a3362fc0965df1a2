#include "Import/Converter/Confinement.h"

#include <fcntl.h>
#include <linux/landlock.h>
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
// Everything that the first version of Landlock can forbid.
constexpr std::uint64_t All = (std::uint64_t{LANDLOCK_ACCESS_FS_MAKE_SYM} << 1) - 1;

void allow(int rules, const std::string& folder, std::uint64_t access) {
    landlock_path_beneath_attr rule{};
    rule.allowed_access = access;
    rule.parent_fd = open(folder.data(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if(rule.parent_fd < 0) return;
    syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
    close(rule.parent_fd);
}

} // namespace

bool limitResources(const ResourceLimits& limits) {
    // A second later the signal cannot be held off any more.
    return limit(RLIMIT_CPU, limits.seconds, limits.seconds + 1) &&
        limit(RLIMIT_FSIZE, MaximumFileSize, MaximumFileSize) &&
        limit(RLIMIT_NOFILE, MaximumOpenFiles, MaximumOpenFiles) && limit(RLIMIT_CORE, 0, 0) &&
        (!IsMemoryLimited || limit(RLIMIT_AS, limits.memory, limits.memory));
}

bool confineFiles(const std::string& readableFolder, const std::string& writableFolder) {
    landlock_ruleset_attr handled{};
    handled.handled_access_fs = All;
    const auto rules = int(syscall(SYS_landlock_create_ruleset, &handled, sizeof(handled.handled_access_fs), 0));
    if(rules < 0) return false;
    allow(rules, readableFolder, Reading);
#if defined(__SANITIZE_ADDRESS__)
    // The search for leaks at the end looks at the process from outside.
    allow(rules, "/proc", Reading);
#endif
    allow(rules, writableFolder, Reading | Writing);
    const bool isConfined =
        prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && syscall(SYS_landlock_restrict_self, rules, 0) == 0;
    close(rules);
    return isConfined;
}

} // namespace VantrelImport
