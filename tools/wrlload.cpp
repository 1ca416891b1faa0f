// wrlload: loads a VRML 97 world through the loader and prints the scene
// graph that came back, as a tree or as JSON, writes the loaded world back
// as VRML text, measures it, or exports it as glTF. See usage() for the
// options and the exit statuses.
#include <getopt.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>

#include "browser/zn_browser_intern.h"
#include "csNode.h"
#include "gltf_export.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "scene_printer.h"
#include "scene_stats.h"
#include "wrlLoader.h"

namespace {

enum ExitStatus { kLoaded = 0, kNotLoaded = 1, kUsage = 2, kParseError = 3 };

const char kUsageText[] =
    "usage: wrlload [OPTION]... FILE\n"
    "Loads a VRML 97 world (a file name or an http URL) and prints its scene graph.\n"
    "\n"
    "  -h, --help       show this help and exit\n"
    "      --version    show the version and exit\n"
    "  -q, --quiet      no banner and no reports from the loader\n"
    "      --json       print the scene, or the --stats, as one JSON document\n"
    "      --vrml       write the loaded world back as VRML text\n"
    "      --stats      print the nodes by type, the shapes, triangles and vertices\n"
    "                   that show, the scene's bounding box and the load time\n"
    "      --gltf OUT   export the scene as glTF 2.0: binary for a name ending in\n"
    "                   .glb, JSON with its buffers embedded for .gltf; nothing\n"
    "                   else is printed unless asked for\n"
    "\n"
    "Exit status: 0 loaded, 1 not loaded (or the glTF not written), 2 a wrong\n"
    "command line, 3 loaded up to a syntax error.\n";

struct Options {
    bool quiet = false;
    bool json = false;
    bool vrml = false;
    bool stats = false;
    bool gltf = false;
    std::string gltfPath;
    GltfForm gltfForm = GltfForm::Binary;
    std::string file;
};

int usageError(const std::string& why) {
    if (!why.empty()) std::cerr << "wrlload: " << why << '\n';
    std::cerr << "Try 'wrlload --help' for more information.\n";
    return kUsage;
}

// Reads the command line into `options`; answers -1 to go on, or the exit
// status to end with at once.
int parseCommandLine(int argc, char** argv, Options& options) {
    enum { kVersion = 256, kJson, kVrml, kStats, kGltf };
    static const option longOptions[] = {{"help", no_argument, nullptr, 'h'},
                                         {"version", no_argument, nullptr, kVersion},
                                         {"quiet", no_argument, nullptr, 'q'},
                                         {"json", no_argument, nullptr, kJson},
                                         {"vrml", no_argument, nullptr, kVrml},
                                         {"stats", no_argument, nullptr, kStats},
                                         {"gltf", required_argument, nullptr, kGltf},
                                         {nullptr, 0, nullptr, 0}};
    optind = 1;
    for (int c; (c = getopt_long(argc, argv, "hq", longOptions, nullptr)) != -1;) {
        switch (c) {
            case 'h':
                std::cout << kUsageText;
                return kLoaded;
            case kVersion:
                std::cout << "wrlload " WRL_VERSION "\n";
                return kLoaded;
            case 'q':
                options.quiet = true;
                break;
            case kJson:
                options.json = true;
                break;
            case kVrml:
                options.vrml = true;
                break;
            case kStats:
                options.stats = true;
                break;
            case kGltf:
                options.gltf = true;
                options.gltfPath = optarg;
                if (!gltfFormOf(options.gltfPath, options.gltfForm))
                    return usageError("--gltf " + options.gltfPath + ": the name must end in .glb or .gltf");
                break;
            default:  // getopt_long has said what was wrong
                return usageError("");
        }
    }
    if (optind == argc) return usageError("no FILE to load");
    if (argc - optind > 1) return usageError(std::string("one FILE only, not also ") + argv[optind + 1]);
    if (options.vrml && (options.json || options.stats))
        return usageError("--vrml writes the world as VRML, with neither --json nor --stats");
    options.file = argv[optind];
    return -1;
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

void ignoreReport(const wrlReport*, void*) {}

bool exportScene(csNode* scene, const Options& options) {
    GltfNotes notes;
    const tinygltf::Model model = sceneToGltf(scene, notes);
    if (!options.quiet)
        for (const std::string& note : notes) std::cerr << "wrlload: " << options.gltfPath << ": " << note << '\n';
    std::string error;
    if (writeGltf(model, options.gltfPath, options.gltfForm, error)) return true;
    std::cerr << "wrlload: " << options.gltfPath << ": not written (" << error << ")\n";
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (const int status = parseCommandLine(argc, argv, options); status >= 0) return status;

    wrlLoadOptions loadOptions;
    if (options.quiet) {
        loadOptions.banner = false;
        loadOptions.report = ignoreReport;
    }
    csNode* scene = nullptr;
    wrlLoadResult result;
    const auto start = std::chrono::steady_clock::now();
    {
        StdoutToStderr quiet;
        scene = wrlLoadWith(options.file.c_str(), &loadOptions, &result);
    }
    const std::chrono::duration<double, std::milli> loadTime = std::chrono::steady_clock::now() - start;
    if (scene == nullptr) {
        std::cerr << "wrlload: " << options.file << ": not loaded";
        if (!result.reason.empty()) std::cerr << " (" << result.reason << ")";
        std::cerr << "\n";
        return kNotLoaded;
    }
    // The scene is held to the end, and with it the world that built it.
    scene->ref();
    int status = result.status == WRL_PARSE_ERROR ? kParseError : kLoaded;
    if (options.vrml) {
        if (_ZNmain == nullptr || _ZNmain->browser == nullptr) return kNotLoaded;
        _ZNmain->browser->writeURL(nullptr);
        std::cout.flush();
    } else if (options.stats) {
        SceneStats stats = measureScene(scene);
        stats.loadMilliseconds = loadTime.count();
        if (options.json)
            printStatsJson(std::cout, stats);
        else
            printStatsText(std::cout, stats);
    } else if (options.json) {
        printSceneJson(std::cout, scene);
    } else if (!options.gltf) {
        printSceneTree(std::cout, scene);
    }
    if (options.gltf && !exportScene(scene, options)) status = kNotLoaded;
    if (result.status == WRL_PARSE_ERROR)
        std::cerr << "wrlload: " << options.file << ": loaded with a parse error at " << result.errorFile << " line "
                  << result.errorLine << "\n";
    return status;
}
