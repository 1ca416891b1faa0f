// The wrlload tool as a user runs it: what it says and its exit status.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "run_program.h"
#include "test_support.h"

namespace {

// Runs wrlload on the build's Node Support file, streams apart.
wrltest::ProgramRun wrlloadRun(const std::vector<std::string>& arguments) {
    wrltest::ScopedEnv builtins("ZNBUILTINS", wrltest::nodeSupportFile().c_str());
    return wrltest::runProgram(WRLLOAD, arguments);
}

}  // namespace

TEST(Wrlload, ExitStatusSaysHowTheLoadWentAndWhyNot) {
    wrltest::TempDir dir;
    const std::string old = dir.write("old.wrl", "#VRML V1.0 ascii\nSeparator { }\n");
    wrltest::ProgramRun run = wrlloadRun({old});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out + run.err, testing::HasSubstr(old + " is a VRML 1.0 file."));
    EXPECT_THAT(run.err, testing::HasSubstr("wrlload: " + old + ": not loaded (a VRML 1.0 file)\n"));

    // The loader's banner, then the tool's own line: wrlLoad says nothing.
    const struct {
        std::string name;
        const char* why;
    } missing[] = {{dir.path() + "/none.wrl", "not found"}, {dir.path(), "a directory, not a file"}};
    for (const auto& m : missing) {
        run = wrlloadRun({m.name});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err.substr(run.err.find('\n') + 1), "wrlload: " + m.name + ": not loaded (" + m.why + ")\n");
    }

    // A syntax error: the scene of what came before it, and status 3.
    const std::string broken = dir.write("broken.wrl", "#VRML V2.0 utf8\nGroup { }\nGroup { children [ ] ] }\n");
    run = wrlloadRun({broken});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.out, testing::HasSubstr("csGroup"));
    EXPECT_THAT(run.err,
                testing::HasSubstr("wrlload: " + broken + ": loaded with a parse error at " + broken + " line 3"));
}

TEST(Wrlload, HelpAndVersionGoToStandardOutput) {
    for (const char* help : {"--help", "-h"}) {
        const wrltest::ProgramRun run = wrlloadRun({help});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.out.rfind("usage: wrlload [OPTION]... FILE\n", 0), 0u) << run.out;
        EXPECT_THAT(run.out, testing::HasSubstr("--gltf OUT"));
        EXPECT_EQ(run.err, "");
    }
    const wrltest::ProgramRun version = wrlloadRun({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_THAT(version.out, testing::MatchesRegex("wrlload [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(Wrlload, AWrongCommandLineEndsWithStatusTwoAndPrintsNothing) {
    wrltest::TempDir dir;
    const std::string world = dir.write("w.wrl", "#VRML V2.0 utf8\n");
    const std::vector<std::vector<std::string>> wrong = {
        {},
        {world, world},
        {"--frobnicate", world},
        {"--gltf", dir.path() + "/scene.obj", world},
        {world, "--gltf"},
        {"--vrml", "--json", world},
        {"--vrml", "--stats", world},
    };
    for (const auto& arguments : wrong) {
        const wrltest::ProgramRun run = wrlloadRun(arguments);
        EXPECT_EQ(run.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, testing::HasSubstr("Try 'wrlload --help'"));
    }
}

// Options stand before or after the file; -q leaves the banner and the
// loader's reports out, but not the scene.
TEST(Wrlload, QuietLeavesOnlyTheScene) {
    wrltest::TempDir dir;
    const std::string world = dir.write("w.wrl", "#VRML V2.0 utf8\nGizmo { }\nGroup { }\n");
    const wrltest::ProgramRun loud = wrlloadRun({world});
    EXPECT_EQ(loud.status, 0);
    EXPECT_THAT(loud.err, testing::HasSubstr("Unknown node type 'Gizmo'"));
    for (const auto& arguments : {std::vector<std::string>{"-q", world}, std::vector<std::string>{world, "--quiet"}}) {
        const wrltest::ProgramRun quiet = wrlloadRun(arguments);
        EXPECT_EQ(quiet.status, 0);
        EXPECT_EQ(quiet.err, "");
        EXPECT_EQ(quiet.out, loud.out);
        EXPECT_EQ(quiet.out.rfind("csEnvironment\n", 0), 0u);
    }
}

// The bound is that of the scene's points in the root's space; a Switch
// that shows nothing adds nothing to it, though its nodes are counted.
TEST(Wrlload, StatsCountTheSceneAndBoundIt) {
    wrltest::TempDir dir;
    const std::string world = dir.write("w.wrl",
                                        "#VRML V2.0 utf8\n"
                                        "Transform { translation 1 2 3 scale 2 1 1 children Shape { geometry Box { size 2 4 6 } } }\n"
                                        "Switch { choice Shape { geometry Box { size 100 100 100 } } }\n");
    const wrltest::ProgramRun text = wrlloadRun({"--stats", "-q", world});
    EXPECT_EQ(text.status, 0);
    EXPECT_THAT(text.out, testing::HasSubstr("  csSwitch: 1\n"));
    EXPECT_THAT(text.out, testing::HasSubstr("  csIndexedFaceSet: 2\n"));
    EXPECT_THAT(text.out, testing::HasSubstr("shapes: 1\ntriangles: 12\nvertices: 8\n"
                                             "boundMin: -1 0 0\nboundMax: 3 4 6\nloadTime: "));
    const wrltest::ProgramRun json = wrlloadRun({world, "--json", "--stats", "-q"});
    EXPECT_EQ(json.status, 0);
    EXPECT_EQ(json.out.rfind("{\"formatVersion\": 1, \"stats\": {\"nodes\": {", 0), 0u) << json.out;
    EXPECT_THAT(json.out, testing::HasSubstr("\"shapes\": 1, \"triangles\": 12, \"vertices\": 8, "
                                             "\"boundMin\": [-1, 0, 0], \"boundMax\": [3, 4, 6], \"loadTimeMs\": "));
}

TEST(Wrlload, GltfGoesToItsFileAndAFileNotWrittenIsAFailure) {
    wrltest::TempDir dir;
    const std::string world = dir.write("w.wrl", "#VRML V2.0 utf8\nShape { geometry Text { string \"x\" } }\n");
    const std::string out = dir.path() + "/scene.glb";
    const wrltest::ProgramRun run = wrlloadRun({"--gltf", out, "-q", world});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(wrltest::readFile(out).substr(0, 4), "glTF");
    // Without -q the export says what it left out.
    const wrltest::ProgramRun noted = wrlloadRun({world, "--gltf", out});
    EXPECT_THAT(noted.err, testing::HasSubstr("wrlload: " + out + ": csScreenAlignedText: glTF has no text"));

    const std::string nowhere = dir.path() + "/none/scene.gltf";
    const wrltest::ProgramRun failed = wrlloadRun({"-q", "--gltf", nowhere, world});
    EXPECT_EQ(failed.status, 1);
    EXPECT_THAT(failed.err, testing::HasSubstr("wrlload: " + nowhere + ": not written ("));
}
