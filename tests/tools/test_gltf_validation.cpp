// Every shipped example, exported by wrlload in both forms, passes the glTF
// reference validator with no error. The validator is the npm package that
// the build installs from tests/tools/gltf_validator/package-lock.json.
#include <dirent.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "run_program.h"
#include "test_support.h"

namespace {

std::vector<std::string> exampleWorlds() {
    const std::string folder = std::string(WRL_SOURCE_DIR) + "/data/examples/";
    std::vector<std::string> worlds;
    if (DIR* dir = opendir(folder.c_str())) {
        while (dirent* entry = readdir(dir)) {
            const std::string name = entry->d_name;
            if (name.size() > 4 && name.compare(name.size() - 4, 4, ".wrl") == 0) worlds.push_back(folder + name);
        }
        closedir(dir);
    }
    std::sort(worlds.begin(), worlds.end());
    return worlds;
}

}  // namespace

TEST(GltfValidator, AcceptsEveryExampleInBothForms) {
    wrltest::TempDir dir;
    wrltest::ScopedEnv builtins("ZNBUILTINS", wrltest::nodeSupportFile().c_str());
    std::vector<std::string> files;
    const std::vector<std::string> worlds = exampleWorlds();
    ASSERT_GE(worlds.size(), 7u);
    for (const std::string& world : worlds) {
        const std::string stem = dir.path() + world.substr(world.rfind('/'), world.size() - world.rfind('/') - 4);
        for (const char* form : {".glb", ".gltf"}) {
            files.push_back(stem + form);
            const wrltest::ProgramRun run = wrltest::runProgram(WRLLOAD, {"-q", "--gltf", files.back(), world});
            EXPECT_EQ(run.status, 0) << world << "\n" << run.err;
        }
    }
    wrltest::ScopedEnv modules("NODE_PATH", WRL_GLTF_VALIDATOR_MODULES);
    std::vector<std::string> arguments{WRL_GLTF_VALIDATOR};
    arguments.insert(arguments.end(), files.begin(), files.end());
    const wrltest::ProgramRun validation = wrltest::runProgram(WRL_NODE, arguments);
    ASSERT_EQ(validation.status, 0) << validation.out << validation.err;
    // One summary line per file, each with no error.
    std::istringstream lines(validation.out);
    std::size_t validated = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("  ", 0) == 0) continue;  // the errors themselves, under their file
        ++validated;
        EXPECT_THAT(line, testing::HasSubstr(": 0 errors, ")) << validation.out;
    }
    EXPECT_EQ(validated, files.size()) << validation.out;
}
