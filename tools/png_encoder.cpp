#include "png_encoder.h"

#include <png.h>

#include "csImage.h"

namespace {

void appendBytes(png_structp png, png_bytep data, png_size_t length) {
    auto* out = static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(png));
    out->insert(out->end(), data, data + length);
}

void flushNothing(png_structp) {}

void failed(png_structp png, png_const_charp) { png_longjmp(png, 1); }

void ignoreWarning(png_structp, png_const_charp) {}

int colourTypeOf(int components) {
    switch (components) {
        case 1:
            return PNG_COLOR_TYPE_GRAY;
        case 2:
            return PNG_COLOR_TYPE_GRAY_ALPHA;
        case 3:
            return PNG_COLOR_TYPE_RGB;
        default:
            return PNG_COLOR_TYPE_RGBA;
    }
}

// Only plain data lives across the jump: the rows and the output belong
// to the caller.
bool writePng(const csImage& image, png_bytep* rows, std::vector<std::uint8_t>* out) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, failed, ignoreWarning);
    if (png == nullptr) return false;
    png_infop info = png_create_info_struct(png);
    bool written = false;
    if (info != nullptr && setjmp(png_jmpbuf(png)) == 0) {
        png_set_write_fn(png, out, appendBytes, flushNothing);
        png_set_IHDR(png, info, static_cast<png_uint_32>(image.getWidth()), static_cast<png_uint_32>(image.getHeight()),
                     8, colourTypeOf(image.getComponents()), PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                     PNG_FILTER_TYPE_DEFAULT);
        png_write_info(png, info);
        png_write_image(png, rows);
        png_write_end(png, nullptr);
        written = true;
    }
    png_destroy_write_struct(&png, info != nullptr ? &info : nullptr);
    return written;
}

}  // namespace

bool encodePng(const csImage& image, std::vector<std::uint8_t>& png) {
    png.clear();
    if (!image.isComplete()) return false;
    const std::size_t rowBytes = static_cast<std::size_t>(image.getWidth()) * static_cast<std::size_t>(image.getComponents());
    // libpng takes rows as writable pointers, though it only reads them.
    auto* pixels = const_cast<std::uint8_t*>(image.pixels().getData());
    std::vector<png_bytep> rows(static_cast<std::size_t>(image.getHeight()));
    for (std::size_t y = 0; y < rows.size(); ++y) rows[y] = pixels + rowBytes * y;
    if (writePng(image, rows.data(), &png)) return true;
    png.clear();
    return false;
}
