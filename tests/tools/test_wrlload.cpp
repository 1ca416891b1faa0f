// The wrlload tool as a user runs it: what it says and its exit status.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "test_support.h"

namespace {

// Runs wrlload on `file` with both streams joined; answers the exit status.
// The file name goes to the program as its argument, not through a shell.
int wrlload(const std::string& file, std::string& output) {
    wrltest::ScopedEnv builtins("ZNBUILTINS", wrltest::nodeSupportFile().c_str());
    int fds[2];
    if (pipe(fds) != 0) return -1;
    const pid_t pid = fork();
    if (pid == 0) {
        dup2(fds[1], 1);
        dup2(fds[1], 2);
        close(fds[0]);
        close(fds[1]);
        execl(WRLLOAD, WRLLOAD, file.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    close(fds[1]);
    char block[256];
    for (ssize_t n; (n = read(fds[0], block, sizeof block)) > 0;) output.append(block, static_cast<size_t>(n));
    close(fds[0]);
    int status = 0;
    if (pid < 0 || waitpid(pid, &status, 0) != pid) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

TEST(Wrlload, RefusesAVrml10FileAndAMissingFileWithStatusOne) {
    wrltest::TempDir dir;
    const std::string old = dir.write("old.wrl", "#VRML V1.0 ascii\nSeparator { }\n");
    std::string output;
    EXPECT_EQ(wrlload(old, output), 1);
    EXPECT_THAT(output, testing::HasSubstr(old + " is a VRML 1.0 file."));

    // The loader's banner, then the tool's own line: wrlLoad says nothing.
    const std::string missing = dir.path() + "/none.wrl";
    output.clear();
    EXPECT_EQ(wrlload(missing, output), 1);
    EXPECT_EQ(output.substr(output.find('\n') + 1), "wrlload: " + missing + ": not loaded\n");
}
