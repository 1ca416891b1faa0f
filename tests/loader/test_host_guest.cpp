// The library as a guest of its host: it leaves standard input alone, never
// ends the process, loads on any thread, gives memory back with the scene,
// and tells the host how a load went as data.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "csGroup.h"
#include "csRefPtr.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "test_support.h"
#include "wrlLoader.h"

using testing::HasSubstr;

namespace {

struct Collected {
    std::vector<wrlReport> reports;
    std::vector<std::string> texts, files;
};

void collect(const wrlReport* report, void* data) {
    auto* c = static_cast<Collected*>(data);
    c->reports.push_back(*report);
    c->texts.emplace_back(report->text);
    c->files.emplace_back(report->file);
}

// Options that keep the load quiet and hand its reports to `c`.
wrlLoadOptions quiet(Collected& c) {
    wrlLoadOptions options;
    options.banner = false;
    options.report = collect;
    options.reportData = &c;
    return options;
}

int childCount(csNode* scene) { return scene != nullptr ? static_cast<csGroup*>(scene)->getChildCount() : -1; }

// Loads under the shipped Node Support file, quietly, with the reports in `c`.
class HostGuest : public testing::Test {
protected:
    wrltest::ScopedEnv builtins{"ZNBUILTINS", wrltest::nodeSupportFile().c_str()};
    Collected c;
    wrlLoadOptions options = quiet(c);
};

class WorldLifetime : public HostGuest {};

bool anyHas(const std::vector<std::string>& texts, const std::string& part) {
    for (const std::string& t : texts)
        if (t.find(part) != std::string::npos) return true;
    return false;
}

}  // namespace

// A program fed lines on standard input keeps every one of them, whatever
// the world asks.
TEST_F(HostGuest, StandardInputThatIsNoTerminalIsLeftToTheHost) {
    wrltest::TempDir dir;
    const std::string path = dir.write("asks.wrl", "#VRML V2.0 utf8\nGizmo { } Transform { wobble 3 } Group { }\n");
    wrltest::ScopedStdin input("first\nsecond\nthird\n");
    char line[32];
    ASSERT_NE(std::fgets(line, sizeof line, stdin), nullptr);
    EXPECT_STREQ(line, "first\n");
    wrlLoadResult result;
    csRefPtr<csNode> scene(wrlLoadWith(path.c_str(), &options, &result));
    EXPECT_EQ(result.status, WRL_LOADED);
    EXPECT_EQ(childCount(scene.get()), 2);
    for (const char* expected : {"second\n", "third\n"}) {
        ASSERT_NE(std::fgets(line, sizeof line, stdin), nullptr);
        EXPECT_STREQ(line, expected);
    }
    int questions = 0;
    for (const wrlReport& r : c.reports) questions += r.kind == WRL_QUESTION ? 1 : 0;
    EXPECT_EQ(questions, 2);
}

TEST_F(HostGuest, WhatDoesNotLoadSaysWhy) {
    wrltest::ScopedEnv path("OPTPATH", nullptr);
    wrltest::TempDir dir;
    const struct {
        std::string name;
        wrlLoadStatus status;
        const char* reason;
    } cases[] = {
        {dir.path(), WRL_NOT_FOUND, "a directory, not a file"},
        {dir.path() + "/absent.wrl", WRL_NOT_FOUND, "not found"},
        {dir.write("old.wrl", "#VRML V1.0 ascii\nSeparator { }\n"), WRL_REFUSED, "a VRML 1.0 file"},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.name);
        wrlLoadResult result;
        wrltest::stderrOf([&] { EXPECT_EQ(wrlLoadWith(k.name.c_str(), &options, &result), nullptr); });
        EXPECT_EQ(result.status, k.status);
        EXPECT_EQ(result.reason, k.reason);
    }
    wrlLoadResult none;
    EXPECT_EQ(wrlLoadWith(nullptr, nullptr, &none), nullptr);
    EXPECT_EQ(none.status, WRL_NOT_FOUND);
}

// The report callback has every report with its file and line; the result
// has the syntax error that stopped the parse, and the scene what came
// before it.
TEST_F(HostGuest, ReportsAndTheResultCarryFileAndLine) {
    wrltest::TempDir dir;
    const std::string path = dir.write("broken.wrl",
                                       "#VRML V2.0 utf8\n"
                                       "Group { }\n"
                                       "Transform { wobble 3 }\n"
                                       "Group { children [ Box { ] }\n");
    wrlLoadResult result;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    csRefPtr<csNode> scene(wrlLoadWith(path.c_str(), &options, &result));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "reports go to the host only";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "no banner";
    EXPECT_EQ(result.status, WRL_PARSE_ERROR);
    EXPECT_EQ(result.errorFile, path);
    EXPECT_EQ(result.errorLine, 4);
    EXPECT_EQ(result.errorMessage, "parse error");
    EXPECT_EQ(result.errorText, "]");
    EXPECT_EQ(result.reason, "a syntax error stopped the parse");
    EXPECT_GE(result.warnings, 2);
    EXPECT_EQ(childCount(scene.get()), 2);
    bool sawError = false;
    for (std::size_t i = 0; i < c.reports.size(); ++i) {
        if (c.reports[i].kind == WRL_ALERT && c.texts[i].find("parse error") != std::string::npos) {
            sawError = true;
            EXPECT_EQ(c.reports[i].line, 4);
            EXPECT_EQ(c.files[i], path);
        }
    }
    EXPECT_TRUE(sawError);
    EXPECT_TRUE(anyHas(c.texts, "Unknown field 'wobble' of Transform"));
}

int answerGroup(const char* question, char* name, std::size_t size, void* asked) {
    ++*static_cast<int*>(asked);
    if (name == nullptr || std::string(question).find("Gruop") == std::string::npos) return 0;
    std::snprintf(name, size, "Group");
    return 1;
}

TEST_F(HostGuest, TheHostMayAnswerTheQuestions) {
    wrltest::TempDir dir;
    const std::string path = dir.write("typo.wrl", "#VRML V2.0 utf8\nGruop { } Gizmo { }\n");
    int asked = 0;
    options.answer = answerGroup;
    options.answerData = &asked;
    csRefPtr<csNode> scene(wrlLoadWith(path.c_str(), &options, nullptr));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(childCount(scene.get()), 1);
}

TEST_F(HostGuest, LoadsFromTwoThreadsAtOnce) {
    const std::string path = std::string(WRL_SOURCE_DIR) + "/data/examples/transform_hierarchy.wrl";
    int expected = -1;
    {
        csRefPtr<csNode> scene(wrlLoadWith(path.c_str(), &options, nullptr));
        expected = childCount(scene.get());
    }
    ASSERT_GT(expected, 0);
    int good[2] = {0, 0};
    // Each thread has reports of its own.
    auto work = [&](int which) {
        Collected mine;
        wrlLoadOptions own = quiet(mine);
        for (int i = 0; i < 50; ++i) {
            wrlLoadResult result;
            csRefPtr<csNode> scene(wrlLoadWith(path.c_str(), &own, &result));
            if (result.status == WRL_LOADED && childCount(scene.get()) == expected) ++good[which];
        }
    };
    std::thread a(work, 0), b(work, 1);
    a.join();
    b.join();
    EXPECT_EQ(good[0], 50);
    EXPECT_EQ(good[1], 50);
}

// A world given as text reads the files it names from the place it stands
// for, leaves no file behind, and reports under that name.
TEST_F(HostGuest, AWorldFromMemoryStandsForItsBaseUrl) {
    wrltest::TempDir tmp;
    wrltest::ScopedEnv tmpPath("ZN_TMP_PATH", tmp.path().c_str());
    wrltest::TempDir dir;
    dir.write("parts/room.wrl", "#VRML V2.0 utf8\nShape { geometry Sphere { radius 4 } }\n");
    const std::string text =
        "#VRML V2.0 utf8\nInline { url \"parts/room.wrl\" }\nGroup { children [ Box { ] }\n";
    wrlLoadResult result;
    const std::string base = dir.path() + "/world.wrl";
    csRefPtr<csNode> scene(wrlLoadFromMemory(text.data(), text.size(), base.c_str(), &options, &result));
    ASSERT_NE(scene.get(), nullptr);
    EXPECT_THAT(wrltest::sceneText(scene.get()), HasSubstr("radius: 4"));
    EXPECT_EQ(result.status, WRL_PARSE_ERROR);
    EXPECT_EQ(result.errorFile, base);
    EXPECT_EQ(result.errorLine, 3);
    EXPECT_TRUE(std::filesystem::is_empty(tmp.path())) << "the text's own file is gone";

    // Without a base, the text stands for a file in the working directory.
    wrltest::ScopedDirectory here(dir.path());
    const std::string plain = "#VRML V2.0 utf8\nInline { url \"parts/room.wrl\" }\n";
    scene.reset(wrlLoadFromMemory(plain.data(), plain.size(), nullptr, &options, &result));
    EXPECT_EQ(result.status, WRL_LOADED);
    EXPECT_THAT(wrltest::sceneText(scene.get()), HasSubstr("radius: 4"));
}

// The runtime world ends with its scene, unless the host keeps it; the
// leak-checked run of these tests sees that nothing stays behind.
TEST_F(WorldLifetime, TheWorldEndsWithItsSceneUnlessKept) {
    const std::string path = std::string(WRL_SOURCE_DIR) + "/data/examples/proto_posts.wrl";
    wrlLoadResult result;
    csNode* scene = wrlLoadWith(path.c_str(), &options, &result);
    ASSERT_NE(scene, nullptr);
    ASSERT_NE(result.world, nullptr);
    EXPECT_EQ(_ZNmain, result.world);
    scene->unref();
    EXPECT_EQ(_ZNmain, nullptr) << "the world of the scene is gone";

    options.keepWorld = true;
    scene = wrlLoadWith(path.c_str(), &options, &result);
    ASSERT_NE(scene, nullptr);
    ZN* kept = result.world;
    scene->unref();
    ASSERT_EQ(_ZNmain, kept);
    EXPECT_GT(kept->browser->getTopLevel().size(), 0u) << "the kept world is whole";
    wrlReleaseWorld(kept);
    EXPECT_EQ(_ZNmain, nullptr);
}

// The host's terminate handler is its own before and after a load.
TEST_F(HostGuest, TheHostsTerminateHandlerIsLeftAlone) {
    const std::terminate_handler mine = [] { std::abort(); };
    const std::terminate_handler before = std::set_terminate(mine);
    const std::string path = std::string(WRL_SOURCE_DIR) + "/data/examples/hello.wrl";
    csRefPtr<csNode> scene(wrlLoadWith(path.c_str(), &options, nullptr));
    EXPECT_EQ(std::get_terminate(), mine);
    std::set_terminate(before);
}
