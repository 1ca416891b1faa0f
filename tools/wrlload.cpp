// wrlload [--json | --vrml] FILE: loads a VRML 97 file through the loader
// and prints the scene graph that came back, as a tree or as one JSON
// document, or writes the loaded runtime world back as VRML text. Exit
// status 0: loaded; 1: not loaded (why, on standard error); 2: a wrong
// command line; 3: loaded, but a syntax error stopped the parse.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "csNode.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "scene_printer.h"
#include "wrlLoader.h"

namespace {

constexpr const char* kNodeSupportFile = "znbuiltins.wrl";

bool isReadable(const std::string& path) { return access(path.c_str(), R_OK) == 0; }

std::string executableDir() {
    std::vector<char> buffer(4096);
    ssize_t n = readlink("/proc/self/exe", buffer.data(), buffer.size() - 1);
    if (n <= 0) return std::string();
    std::string path(buffer.data(), static_cast<size_t>(n));
    size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

// A user needs no set-up: without ZNBUILTINS the tool names the Node Support
// file of its own install, or of the source tree it was built from.
void defaultNodeSupportFile() {
    if (std::getenv("ZNBUILTINS") != nullptr) return;
    std::vector<std::string> candidates;
    std::string exeDir = executableDir();
    if (!exeDir.empty()) candidates.push_back(exeDir + "/../share/wrlLoader/" + kNodeSupportFile);
    candidates.push_back(std::string(WRL_INSTALLED_DATA_DIR) + "/" + kNodeSupportFile);
    candidates.push_back(std::string(WRL_SOURCE_DATA_DIR) + "/" + kNodeSupportFile);
    for (const std::string& path : candidates) {
        if (isReadable(path)) {
            setenv("ZNBUILTINS", path.c_str(), 1);
            return;
        }
    }
}

// The loader writes its banner to standard output. While it runs, standard
// output goes to standard error, so that what this tool prints on standard
// output is the scene alone and can be read by programs.
class StdoutToStderr {
public:
    StdoutToStderr() {
        std::fflush(stdout);
        saved_ = dup(STDOUT_FILENO);
        if (saved_ >= 0) dup2(STDERR_FILENO, STDOUT_FILENO);
    }
    ~StdoutToStderr() {
        std::fflush(stdout);
        if (saved_ >= 0) {
            dup2(saved_, STDOUT_FILENO);
            close(saved_);
        }
    }
    StdoutToStderr(const StdoutToStderr&) = delete;
    StdoutToStderr& operator=(const StdoutToStderr&) = delete;

private:
    int saved_ = -1;
};

int usage() {
    std::cerr << "usage: wrlload [--json | --vrml] FILE\n";
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    bool json = argc == 3 && std::string(argv[1]) == "--json";
    bool vrml = argc == 3 && std::string(argv[1]) == "--vrml";
    if (argc != 2 && !json && !vrml) return usage();
    std::string name = argv[argc - 1];
    defaultNodeSupportFile();

    csNode* scene = nullptr;
    wrlLoadResult result;
    {
        StdoutToStderr quiet;
        scene = wrlLoadWith(name.c_str(), nullptr, &result);
    }
    if (scene == nullptr) {
        std::cerr << "wrlload: " << name << ": not loaded";
        if (!result.reason.empty()) std::cerr << " (" << result.reason << ")";
        std::cerr << "\n";
        return 1;
    }
    // The scene is held to the end, and with it the world that built it.
    scene->ref();
    if (vrml) {
        if (_ZNmain == nullptr || _ZNmain->browser == nullptr) return 1;
        _ZNmain->browser->writeURL(nullptr);
        std::cout.flush();
    } else if (json)
        printSceneJson(std::cout, scene);
    else
        printSceneTree(std::cout, scene);
    if (result.status == WRL_PARSE_ERROR) {
        std::cerr << "wrlload: " << name << ": loaded with a parse error at " << result.errorFile << " line "
                  << result.errorLine << "\n";
        return 3;
    }
    return 0;
}
