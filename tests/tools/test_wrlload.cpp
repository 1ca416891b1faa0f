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

TEST(Wrlload, ExitStatusSaysHowTheLoadWentAndWhyNot) {
    wrltest::TempDir dir;
    const std::string old = dir.write("old.wrl", "#VRML V1.0 ascii\nSeparator { }\n");
    std::string output;
    EXPECT_EQ(wrlload(old, output), 1);
    EXPECT_THAT(output, testing::HasSubstr(old + " is a VRML 1.0 file."));
    EXPECT_THAT(output, testing::HasSubstr("wrlload: " + old + ": not loaded (a VRML 1.0 file)\n"));

    // The loader's banner, then the tool's own line: wrlLoad says nothing.
    const struct {
        std::string name;
        const char* why;
    } missing[] = {{dir.path() + "/none.wrl", "not found"}, {dir.path(), "a directory, not a file"}};
    for (const auto& m : missing) {
        output.clear();
        EXPECT_EQ(wrlload(m.name, output), 1);
        EXPECT_EQ(output.substr(output.find('\n') + 1), "wrlload: " + m.name + ": not loaded (" + m.why + ")\n");
    }

    // A syntax error: the scene of what came before it, and status 3.
    const std::string broken = dir.write("broken.wrl", "#VRML V2.0 utf8\nGroup { }\nGroup { children [ ] ] }\n");
    output.clear();
    EXPECT_EQ(wrlload(broken, output), 3);
    EXPECT_THAT(output, testing::HasSubstr("csGroup"));
    EXPECT_THAT(output, testing::HasSubstr("wrlload: " + broken + ": loaded with a parse error at " + broken + " line 3"));
}
