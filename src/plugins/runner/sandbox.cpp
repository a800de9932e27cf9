#include "plugins/runner/sandbox.h"

#include <fcntl.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>

namespace ledra {

namespace {

/// What computing, collecting garbage and talking over open pipes need. Everything else fails with EPERM.
constexpr std::array allowedCalls = {
    SCMP_SYS(read),
    SCMP_SYS(write),
    SCMP_SYS(readv),
    SCMP_SYS(writev),
    SCMP_SYS(pread64),
    SCMP_SYS(close),
    SCMP_SYS(poll),
    SCMP_SYS(ppoll),
    SCMP_SYS(futex),
    SCMP_SYS(munmap),
    SCMP_SYS(mremap),
    SCMP_SYS(madvise),
    SCMP_SYS(brk),
    SCMP_SYS(membarrier),
    SCMP_SYS(rt_sigaction),
    SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack),
    SCMP_SYS(clock_gettime),
    SCMP_SYS(clock_getres),
    SCMP_SYS(clock_nanosleep),
    SCMP_SYS(nanosleep),
    SCMP_SYS(gettimeofday),
    SCMP_SYS(getpid),
    SCMP_SYS(gettid),
    SCMP_SYS(sched_yield),
    SCMP_SYS(getrandom),
    SCMP_SYS(sched_getaffinity),
    SCMP_SYS(getrusage),
    SCMP_SYS(exit),
    SCMP_SYS(exit_group),
    SCMP_SYS(restart_syscall),
    SCMP_SYS(rseq),
    SCMP_SYS(set_robust_list),
    SCMP_SYS(sysinfo),
};

/// A call that is allowed if one of its arguments is as it should be.
struct ConditionalCall
{
    int call;
    unsigned argument;
    scmp_compare comparison;
    scmp_datum_t mask;
    scmp_datum_t value;
};

bool addRules(scmp_filter_ctx filter)
{
    for (const int call : allowedCalls) {
        if (seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 0) != 0)
            return false;
    }
    const std::array conditional = {
        // Memory never becomes code: the interpreter needs none.
        ConditionalCall{SCMP_SYS(mmap), 2, SCMP_CMP_MASKED_EQ, PROT_EXEC, 0},
        ConditionalCall{SCMP_SYS(mprotect), 2, SCMP_CMP_MASKED_EQ, PROT_EXEC, 0},
        // Threads of its own, which the garbage collector starts and stops, but no processes.
        ConditionalCall{SCMP_SYS(clone), 0, SCMP_CMP_MASKED_EQ, CLONE_THREAD, CLONE_THREAD},
        ConditionalCall{SCMP_SYS(tgkill), 0, SCMP_CMP_EQ, static_cast<scmp_datum_t>(::getpid()), 0},
        ConditionalCall{SCMP_SYS(prctl), 0, SCMP_CMP_EQ, PR_SET_NAME, 0},
    };
    for (const ConditionalCall& row : conditional) {
        const scmp_arg_cmp condition = {row.argument, row.comparison, row.mask, row.value};
        if (seccomp_rule_add_array(filter, SCMP_ACT_ALLOW, row.call, 1, &condition) != 0)
            return false;
    }
    // The C library then takes the older call, whose flags can be looked at.
    return seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0) == 0;
}

bool setLimit(__rlimit_resource which, rlim_t value)
{
    const rlimit limit = {value, value};
    return ::setrlimit(which, &limit) == 0;
}

/// What counts against RLIMIT_DATA already, in bytes (proc(5), "VmData"): far more than is used where tools
/// such as AddressSanitizer have laid out their shadow.
std::size_t dataInUse()
{
    const std::unique_ptr<FILE, int (*)(FILE*)> status(std::fopen("/proc/self/status", "re"), std::fclose);
    std::array<char, 256> line{};
    std::size_t kilobytes = 0;
    while (status && std::fgets(line.data(), line.size(), status.get())) {
        if (std::sscanf(line.data(), "VmData: %zu kB", &kilobytes) == 1)
            break;
    }
    return kilobytes * 1024;
}

struct Attempt
{
    const char* what;
    long (*make)(); ///< -1 when it fails
};

constexpr std::array attempts = {
    Attempt{"open a file", [] { return long{::open("/etc/passwd", O_RDONLY)}; }},
    Attempt{"make a file", [] { return long{::creat("/tmp/ledra-plugin-runner-check", 0600)}; }},
    Attempt{"remove a file", [] { return long{::unlink("/tmp/ledra-plugin-runner-none")}; }},
    Attempt{"make a socket", [] { return long{::socket(AF_INET, SOCK_STREAM, 0)}; }},
    Attempt{"start a process", [] { return long{::fork()}; }},
    Attempt{"run a program", [] { return long{::execl("/bin/true", "true", nullptr)}; }},
    Attempt{"send a signal", [] { return long{::kill(::getppid(), 0)}; }},
    Attempt{"trace a process", [] { return ::ptrace(PTRACE_ATTACH, ::getppid(), nullptr, nullptr); }},
    Attempt{"make memory executable",
            [] {
                void* page = ::mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
                return page == MAP_FAILED ? -1L : 0L;
            }},
};

} // namespace

void bindToParent()
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
}

bool enterSandbox(std::size_t memory)
{
    if (!setLimit(RLIMIT_CORE, 0) || !setLimit(RLIMIT_DATA, dataInUse() + memory))
        return false;
    const std::unique_ptr<void, void (*)(scmp_filter_ctx)> filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)),
                                                                  seccomp_release);
    return filter && seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_TSYNC, 1) == 0 && // all threads at once
           addRules(filter.get()) && seccomp_load(filter.get()) == 0;                 // sets NO_NEW_PRIVS too
}

int checkSandbox()
{
    int leaks = 0;
    for (const Attempt& attempt : attempts) {
        errno = 0;
        const bool isForbidden = attempt.make() == -1 && errno == EPERM;
        leaks += !isForbidden;
        std::printf("%s: %s\n", attempt.what, isForbidden ? "forbidden" : "POSSIBLE");
    }
    std::fflush(stdout);
    return leaks;
}

} // namespace ledra
