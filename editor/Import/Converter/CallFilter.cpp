#include "Import/Converter/CallFilter.h"

#include <cerrno>
#include <cstddef>
#include <vector>

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace VantrelImport {

namespace {

#if defined(__x86_64__)
constexpr std::uint32_t Processor = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t Processor = AUDIT_ARCH_AARCH64;
#else
constexpr std::uint32_t Processor = 0;
#endif

// The search for leaks of the address sanitizer looks at this process from another one.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool IsObserved = true;
#else
constexpr bool IsObserved = false;
#endif

constexpr std::uint32_t Allowed = SECCOMP_RET_ALLOW, Denied = SECCOMP_RET_ERRNO | EPERM;

constexpr unsigned Forbidden[] {
    // Programs and processes.
    SYS_execve, SYS_execveat, SYS_unshare, SYS_setns,
#if defined(SYS_fork)
        SYS_fork, SYS_vfork,
#endif
        // The network, and what other processes share.
        SYS_socket, SYS_socketpair, SYS_shmget, SYS_shmat, SYS_semget, SYS_msgget, SYS_mq_open,
        // Other processes.
        SYS_kill, SYS_tkill, SYS_rt_sigqueueinfo, SYS_rt_tgsigqueueinfo, SYS_pidfd_open, SYS_pidfd_send_signal,
        SYS_pidfd_getfd, SYS_process_vm_readv, SYS_process_vm_writev, SYS_process_madvise, SYS_kcmp, SYS_setpriority,
        SYS_sched_setscheduler, SYS_sched_setparam, SYS_sched_setattr, SYS_ioprio_set,
        // What files are besides their contents.
        SYS_fchmod, SYS_fchmodat, SYS_fchown, SYS_fchownat, SYS_utimensat, SYS_setxattr, SYS_lsetxattr, SYS_fsetxattr,
        SYS_removexattr, SYS_lremovexattr, SYS_fremovexattr, SYS_open_by_handle_at,
#if defined(SYS_chmod)
        SYS_chmod, SYS_chown, SYS_lchown, SYS_utime, SYS_utimes, SYS_futimesat,
#endif
        // The system, and ways to ask the kernel for more than calls do.
        SYS_mount, SYS_umount2, SYS_pivot_root, SYS_chroot, SYS_bpf, SYS_perf_event_open, SYS_io_uring_setup,
        SYS_userfaultfd, SYS_keyctl, SYS_add_key, SYS_request_key
};

class Filter {
public:
    Filter() {
        load(offsetof(seccomp_data, arch));
        // Calls of another processor's have other numbers.
        add(BPF_JMP | BPF_JEQ | BPF_K, Processor, 1, 0);
        end(SECCOMP_RET_KILL_PROCESS);
        load(offsetof(seccomp_data, nr));
#if defined(__x86_64__)
        // With this bit the same calls have other numbers, too.
        constexpr std::uint32_t ShortPointers = 0x40000000;
        add(BPF_JMP | BPF_JGE | BPF_K, ShortPointers, 0, 1);
        end(Denied);
#endif
    }

    void answer(unsigned call, std::uint32_t answer) {
        add(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1);
        end(answer);
    }
    // The comparison is of the lower half of an argument.
    void answerUnless(unsigned call, std::size_t argument, std::uint16_t comparison, std::uint32_t value) {
        add(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 4);
        load(offsetof(seccomp_data, args) + sizeof(std::uint64_t) * argument);
        add(std::uint16_t(BPF_JMP | comparison | BPF_K), value, 1, 0);
        end(Denied);
        end(Allowed);
    }
    bool install() {
        end(Allowed);
        sock_fprog program{static_cast<unsigned short>(_steps.size()), _steps.data()};
        return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
            syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, 0, &program) == 0;
    }

private:
    void add(std::uint16_t code, std::uint32_t value, std::uint8_t ifTrue, std::uint8_t ifFalse) {
        _steps.push_back({code, ifTrue, ifFalse, value});
    }
    void load(std::size_t offset) { add(BPF_LD | BPF_W | BPF_ABS, std::uint32_t(offset), 0, 0); }
    void end(std::uint32_t answer) { add(BPF_RET | BPF_K, answer, 0, 0); }

    std::vector<sock_filter> _steps;
};

} // namespace

Confined confineCalls() {
    if(!Processor) return Confined::NotKnown;
    Filter filter;
    for(const unsigned call: Forbidden) filter.answer(call, Denied);
    if(!IsObserved) {
        filter.answer(SYS_ptrace, Denied);
        // Its flags lie in memory, where they cannot be looked at. Without it the library uses clone().
        filter.answer(SYS_clone3, SECCOMP_RET_ERRNO | ENOSYS);
        filter.answerUnless(SYS_clone, 0, BPF_JSET, CLONE_THREAD);
    }
    // Aborting is a signal to oneself.
    filter.answerUnless(SYS_tgkill, 0, BPF_JEQ, std::uint32_t(getpid()));
    filter.answerUnless(SYS_prlimit64, 0, BPF_JEQ, 0);
    if(filter.install()) return Confined::Yes;
    return errno == EINVAL || errno == ENOSYS ? Confined::NotKnown : Confined::Failed;
}

} // namespace VantrelImport
