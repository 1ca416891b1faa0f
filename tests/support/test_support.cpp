#include "test_support.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <stdio_ext.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "csNode.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "scene_printer.h"

namespace wrltest {

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "wrltest.XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
    path_ = pattern;
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TempDir::write(const std::string& name, const std::string& contents) const {
    std::string full = path_ + "/" + name;
    std::filesystem::create_directories(std::filesystem::path(full).parent_path());
    std::ofstream out(full, std::ios::binary);
    out << contents;
    return full;
}

ScopedEnv::ScopedEnv(const char* name, const char* value) : name_(name) {
    const char* old = std::getenv(name);
    hadOld_ = old != nullptr;
    if (hadOld_) old_ = old;
    if (value)
        setenv(name, value, 1);
    else
        unsetenv(name);
}

ScopedEnv::~ScopedEnv() {
    if (hadOld_)
        setenv(name_.c_str(), old_.c_str(), 1);
    else
        unsetenv(name_.c_str());
}

ScopedStdin::ScopedStdin(const std::string& text) {
    __fpurge(stdin);
    saved_ = dup(STDIN_FILENO);
    int fds[2];
    if (pipe(fds) != 0) throw std::runtime_error("pipe failed");
    // Small answers fit the pipe's buffer, so writing before reading is safe.
    if (!text.empty() && write(fds[1], text.data(), text.size()) < 0) throw std::runtime_error("write failed");
    close(fds[1]);
    dup2(fds[0], STDIN_FILENO);
    close(fds[0]);
    clearerr(stdin);
}

ScopedStdin::~ScopedStdin() {
    // Input that the stream read ahead belongs to this object's text.
    __fpurge(stdin);
    dup2(saved_, STDIN_FILENO);
    close(saved_);
    clearerr(stdin);
}

ScopedTerminalInput::ScopedTerminalInput(const std::string& text) {
    master_ = posix_openpt(O_RDWR | O_NOCTTY);
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) return;
    const char* name = ptsname(master_);
    const int terminal = name != nullptr ? open(name, O_RDWR | O_NOCTTY) : -1;
    if (terminal < 0) return;
    termios mode;
    if (tcgetattr(terminal, &mode) == 0) {
        mode.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(terminal, TCSANOW, &mode);
    }
    // The text, then two end-of-input characters: the first ends a last line
    // without a line feed, the second is the end of input itself.
    const std::string typed = text + "\x04\x04";
    if (write(master_, typed.data(), typed.size()) < 0) {
        close(terminal);
        return;
    }
    __fpurge(stdin);
    saved_ = dup(STDIN_FILENO);
    dup2(terminal, STDIN_FILENO);
    close(terminal);
    clearerr(stdin);
}

ScopedTerminalInput::~ScopedTerminalInput() {
    if (saved_ >= 0) {
        __fpurge(stdin);
        dup2(saved_, STDIN_FILENO);
        close(saved_);
        clearerr(stdin);
    }
    if (master_ >= 0) close(master_);
}

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

int occurrences(const std::string& text, const std::string& part) {
    int n = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++n;
    return n;
}

std::string nodeSupportFile() { return std::string(WRL_SOURCE_DIR) + "/data/znbuiltins.wrl"; }

WorldLoad::WorldLoad(csNode* loaded, std::string printed, std::string errors)
    : scene(loaded), out(std::move(printed)), err(std::move(errors)) {
    if (scene != nullptr) scene->ref();
}

WorldLoad::WorldLoad(WorldLoad&& other) noexcept
    : scene(std::exchange(other.scene, nullptr)), out(std::move(other.out)), err(std::move(other.err)) {}

WorldLoad& WorldLoad::operator=(WorldLoad&& other) noexcept {
    if (this != &other) {
        if (scene != nullptr) scene->unref();
        scene = std::exchange(other.scene, nullptr);
        out = std::move(other.out);
        err = std::move(other.err);
    }
    return *this;
}

WorldLoad::~WorldLoad() {
    if (scene != nullptr) scene->unref();
}

WorldLoad loadWorld(const std::string& path, const std::string& builtins) {
    const char* chosen = builtins.empty() ? std::getenv("ZNBUILTINS") : builtins.c_str();
    ScopedEnv support("ZNBUILTINS", chosen);
    std::vector<char> name(path.begin(), path.end());
    name.push_back('\0');
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    csNode* scene = wrlLoad(name.data());
    std::string err = testing::internal::GetCapturedStderr();
    return WorldLoad{scene, testing::internal::GetCapturedStdout(), err};
}

std::string sceneText(csNode* scene) {
    std::ostringstream text;
    printSceneTree(text, scene);
    return text.str();
}

std::string writtenWorld() {
    testing::internal::CaptureStdout();
    _ZNmain->browser->writeURL(nullptr);
    return testing::internal::GetCapturedStdout();
}

RoundTrip roundTrip(const std::string& path) {
    RoundTrip trip;
    WorldLoad first = loadWorld(path);
    if (first.scene == nullptr) return trip;
    trip.first = sceneText(first.scene);
    std::ofstream(path + ".again.wrl", std::ios::binary) << writtenWorld();
    WorldLoad second = loadWorld(path + ".again.wrl");
    if (second.scene != nullptr) trip.second = sceneText(second.scene);
    return trip;
}

ScopedDirectory::ScopedDirectory(const std::string& path) {
    char buffer[4096];
    previous_ = getcwd(buffer, sizeof buffer) != nullptr ? buffer : "/";
    if (chdir(path.c_str()) != 0) ADD_FAILURE() << "cannot enter " << path;
}

ScopedDirectory::~ScopedDirectory() {
    if (chdir(previous_.c_str()) != 0) ADD_FAILURE() << "cannot go back to " << previous_;
}

}  // namespace wrltest
