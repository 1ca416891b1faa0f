// Pixels to a PNG file's bytes, for exporters that embed pictures.
#ifndef WRL_PNG_ENCODER_H
#define WRL_PNG_ENCODER_H

#include <cstdint>
#include <vector>

class csImage;

// The image as PNG, rows in the order they lie in memory (the first row is
// the picture's top), grey, grey and alpha, RGB or RGBA by its components.
// False, with `png` emptied, for an image without all of its pixels.
bool encodePng(const csImage& image, std::vector<std::uint8_t>& png);

#endif
