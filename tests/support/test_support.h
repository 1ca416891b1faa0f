// Shared helpers of the test programs.
#ifndef WRL_TEST_SUPPORT_H
#define WRL_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <string>

class csNode;

namespace wrltest {

// A fresh directory under the system's temporary directory, removed with
// everything in it when the object goes.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return path_; }
    // Writes `contents` to `name` inside the directory and answers its path.
    std::string write(const std::string& name, const std::string& contents) const;

private:
    std::string path_;
};

// Sets an environment variable for the life of the object, then restores it.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value);  // null value unsets
    ~ScopedEnv();
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    std::string name_;
    std::string old_;
    bool hadOld_;
};

// Standard input reads `text` for the life of the object (empty text: at end
// of input at once).
class ScopedStdin {
public:
    explicit ScopedStdin(const std::string& text);
    ~ScopedStdin();
    ScopedStdin(const ScopedStdin&) = delete;
    ScopedStdin& operator=(const ScopedStdin&) = delete;

private:
    int saved_;
};

// Standard input is a terminal that reads `text` for the life of the
// object, and then the end of input: the loader puts its questions only to
// a terminal. ok() is false where the system has no terminals to lend.
class ScopedTerminalInput {
public:
    explicit ScopedTerminalInput(const std::string& text);
    ~ScopedTerminalInput();
    ScopedTerminalInput(const ScopedTerminalInput&) = delete;
    ScopedTerminalInput& operator=(const ScopedTerminalInput&) = delete;
    bool ok() const { return saved_ >= 0; }

private:
    int saved_ = -1;
    int master_ = -1;
};

// Works in `path` for the life of the object, then goes back.
class ScopedDirectory {
public:
    explicit ScopedDirectory(const std::string& path);
    ~ScopedDirectory();
    ScopedDirectory(const ScopedDirectory&) = delete;
    ScopedDirectory& operator=(const ScopedDirectory&) = delete;

private:
    std::string previous_;
};

std::string readFile(const std::string& path);

// How many times `part` stands in `text`, not overlapping.
int occurrences(const std::string& text, const std::string& part);

// Three components of a point, vector or colour, each within `tolerance`.
template <class V>
void expectNear(const V& v, float x, float y, float z, float tolerance = 1e-5f) {
    EXPECT_NEAR(v[0], x, tolerance);
    EXPECT_NEAR(v[1], y, tolerance);
    EXPECT_NEAR(v[2], z, tolerance);
}

// Runs `f` and answers what it wrote on the error stream.
template <class F>
std::string stderrOf(F&& f) {
    testing::internal::CaptureStderr();
    f();
    return testing::internal::GetCapturedStderr();
}

// The Node Support file shipped in data/.
std::string nodeSupportFile();

// A whole load through wrlLoad and what it printed on each stream. It
// holds a reference to the scene, and so keeps the world behind it (which
// _ZNmain names while it is the latest) alive as long as it lives.
struct WorldLoad {
    WorldLoad(csNode* loaded, std::string printed, std::string errors);
    WorldLoad(WorldLoad&& other) noexcept;
    WorldLoad& operator=(WorldLoad&& other) noexcept;
    ~WorldLoad();

    csNode* scene;
    std::string out, err;
};
// Loads `path` under the Node Support file `builtins` (empty: ZNBUILTINS as
// it stands), with both streams captured.
WorldLoad loadWorld(const std::string& path, const std::string& builtins = nodeSupportFile());

// The scene as `wrlload` prints it, and the runtime world of the latest load
// as `wrlload --vrml` writes it.
std::string sceneText(csNode* scene);
std::string writtenWorld();
// Loads `path`, writes its world back as VRML text beside it, loads that
// text and answers both scenes; they are equal when the written text holds
// the whole of what the file built.
struct RoundTrip {
    std::string first, second;
};
RoundTrip roundTrip(const std::string& path);

}  // namespace wrltest

#endif
