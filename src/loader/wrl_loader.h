// The load entry: wrlLoad and the one-shot driver behind it.
#ifndef WRL_LOADER_H
#define WRL_LOADER_H

#include <memory>
#include <string>

#include "wrlLoader.h"

class csEnvironment;
class ZN;

// The root of the scene being built; the back-end adds top-level nodes to it.
extern csEnvironment* topSceneNode;
// The system object of the latest load.
extern ZN* _ZNmain;

class wrlLoader {
public:
    struct World;
    // How a load went, and what it made.
    struct Outcome {
        bool banner = true;  // in: the banner is printed
        bool remote = true;  // in: remote files are read
        // in: a local file that the name is read from (a world given as text)
        std::string standIn;
        wrlLoadStatus status = WRL_FAILED;
        std::string reason;
        // The world of the load, to end with its scene.
        std::shared_ptr<World> world;
    };

    wrlLoader() = default;
    // The scene of `filename`, or null when the file is missing or VRML 1.0.
    csNode* actualLoad(char* filename);
    csNode* actualLoad(const char* filename, Outcome& outcome);
};

void printHeader();

// Looks for `name` along the colon-separated `path`. Answers a process-wide
// buffer that the next call overwrites, or null. The colons of `path` are
// overwritten with terminators on the way.
char* getFullPath(char* name, char* path);

#endif
