// Work measured in a child process of its own, so that its peak memory is
// its own and the world a load leaves alive does not weigh on the next run.
#ifndef WRL_BENCH_CHILD_PROCESS_H
#define WRL_BENCH_CHILD_PROCESS_H

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <type_traits>

namespace wrlbench {

// Runs `work` in a child with standard output on /dev/null (the loader's
// banner) and answers the figures it returned; value-initialised figures
// when the child did not get them back.
template <class Figures, class Work>
Figures inChild(Work work) {
    static_assert(std::is_trivially_copyable<Figures>::value, "figures travel through a pipe");
    int fds[2];
    if (pipe(fds) != 0) return Figures{};
    pid_t pid = fork();
    if (pid == 0) {
        close(fds[0]);
        int devnull = open("/dev/null", O_WRONLY);
        if (devnull >= 0) dup2(devnull, STDOUT_FILENO);
        Figures figures = work();
        ssize_t ignored = write(fds[1], &figures, sizeof figures);
        (void)ignored;
        _exit(0);
    }
    close(fds[1]);
    Figures figures{};
    if (read(fds[0], &figures, sizeof figures) != static_cast<ssize_t>(sizeof figures)) figures = Figures{};
    close(fds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    return figures;
}

// The peak resident size of this process so far, in bytes.
inline double peakResidentBytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024.0;
}

}  // namespace wrlbench

#endif
