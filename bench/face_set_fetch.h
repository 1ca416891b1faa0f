// What the face set benchmarks measure in their child process: a world
// loaded through wrlLoad, then the face set DEF'd as F fetched as a shape
// would fetch it, which builds it.
#ifndef WRL_BENCH_FACE_SET_FETCH_H
#define WRL_BENCH_FACE_SET_FETCH_H

#include <string>

class csIndexedFaceSet;

namespace wrlbench {

struct FaceSetFetch {
    double loadSeconds = 0;
    double buildSeconds = 0;
    double peakBytes = 0;                // the process's peak resident size after the build
    csIndexedFaceSet* faces = nullptr;   // null when the load or the fetch gave none
};

FaceSetFetch loadAndFetchFaceSet(std::string path);

}  // namespace wrlbench

#endif
