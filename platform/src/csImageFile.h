// Decoding of the image files that textures read.
#ifndef CS_IMAGE_FILE_H
#define CS_IMAGE_FILE_H

#include <cstdint>
#include <cstdio>
#include <vector>

// Refuses pictures above this many pixels, or above this side length, so
// that a damaged header cannot ask for an absurd amount of memory.
constexpr long kCsMaxImagePixels = 64L * 1024 * 1024;
constexpr int kCsMaxImageSide = 32768;

struct csImageData {
    int width = 0;
    int height = 0;
    int components = 0;                // 1 grey, 2 grey+alpha, 3 RGB, 4 RGBA
    std::vector<std::uint8_t> pixels;  // top row first, as csImage keeps them
};

// Reads a PNG, JPEG or GIF file, chosen by its first bytes. Null on success,
// otherwise one of the reason texts of csMessages.h, with `out` unchanged.
const char* csReadImageFile(const char* path, csImageData& out);
// The same for a file open for reading at its start, which stays open.
const char* csReadImage(FILE* file, csImageData& out);

#endif
