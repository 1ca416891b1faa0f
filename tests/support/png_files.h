// PNG files written by the tests that read images, in a pattern whose every
// byte differs from its neighbours, so that a copy that shifts, swaps or
// drops bytes shows. Programs that include this link libpng themselves.
#ifndef WRL_PNG_FILES_H
#define WRL_PNG_FILES_H

#include <gtest/gtest.h>
#include <png.h>

#include <cstdio>
#include <string>
#include <vector>

namespace wrltest {

inline std::vector<unsigned char> pattern(int width, int height, int components, int seed = 3) {
    std::vector<unsigned char> bytes(static_cast<size_t>(width * height * components));
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i * 7 + seed);
    return bytes;
}

// An 8-bit grey (1 component), RGB (3) or RGBA (4) PNG of `bytes`, rows
// from the top of the picture down, as the file stores them.
inline void writePngBytes(const std::string& path, int width, int height, int components,
                          const std::vector<unsigned char>& bytes) {
    ASSERT_EQ(bytes.size(), static_cast<size_t>(width * height * components));
    FILE* file = std::fopen(path.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_init_io(png, file);
    const int type = components == 1 ? PNG_COLOR_TYPE_GRAY : components == 4 ? PNG_COLOR_TYPE_RGBA : PNG_COLOR_TYPE_RGB;
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), 8, type,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (int y = 0; y < height; ++y) png_write_row(png, bytes.data() + y * width * components);
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    std::fclose(file);
}

// The same of pattern(..., seed).
inline void writePng(const std::string& path, int width, int height, int components, int seed = 3) {
    writePngBytes(path, width, height, components, pattern(width, height, components, seed));
}

}  // namespace wrltest

#endif
