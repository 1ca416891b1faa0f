#include "run_program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "test_support.h"

namespace wrltest {

ProgramRun runProgram(const std::string& program, const std::vector<std::string>& arguments) {
    TempDir dir;
    const std::string out = dir.path() + "/out", err = dir.path() + "/err";
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& a : arguments) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    ProgramRun run;
    const pid_t pid = fork();
    if (pid == 0) {
        const int in = open("/dev/null", O_RDONLY);
        const int o = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const int e = open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        if (in < 0 || o < 0 || e < 0) _exit(127);
        dup2(in, 0);
        dup2(o, 1);
        dup2(e, 2);
        execv(program.c_str(), argv.data());
        _exit(127);
    }
    int status = 0;
    if (pid < 0 || waitpid(pid, &status, 0) != pid) return run;
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.out = readFile(out);
    run.err = readFile(err);
    return run;
}

}  // namespace wrltest
