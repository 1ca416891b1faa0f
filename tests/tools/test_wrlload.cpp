// The wrlload tool as a user runs it: what it says and its exit status.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "test_support.h"

namespace {

// Runs wrlload on `file` with both streams joined; answers the exit status.
int wrlload(const std::string& file, std::string& output) {
    wrltest::ScopedEnv builtins("ZNBUILTINS", wrltest::nodeSupportFile().c_str());
    FILE* pipe = popen((std::string(WRLLOAD) + " '" + file + "' 2>&1").c_str(), "r");
    if (pipe == nullptr) return -1;
    char block[256];
    for (size_t n; (n = std::fread(block, 1, sizeof block, pipe)) > 0;) output.append(block, n);
    const int status = pclose(pipe);
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
