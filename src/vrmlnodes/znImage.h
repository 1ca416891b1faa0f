// One decoded picture in the image cache of ImageTexture: what a texture
// needs to rebuild its image without reading the file again.
#ifndef ZNIMAGE_H
#define ZNIMAGE_H

#include <cstdint>
#include <vector>

struct znImage {
    std::vector<std::uint8_t> bytes;  // height x width x components, top row first as in csImage
    int height = 0;
    int width = 0;
    int components = 0;  // 1 grey, 2 grey and alpha, 3 RGB, 4 RGBA
    int hits = 0;        // retrievals from the cache since it was added
};

#endif
