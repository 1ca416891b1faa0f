#include "csImageFile.h"

#include <cstdio>

#include <gif_lib.h>
#include <jpeglib.h>
#include <jerror.h>
#include <png.h>

#include <csetjmp>
#include <cstring>
#include <memory>

#include "csMessages.h"

namespace {

struct FileCloser {
    void operator()(FILE* f) const {
        if (f) std::fclose(f);
    }
};
using FilePtr = std::unique_ptr<FILE, FileCloser>;

bool sizeAcceptable(long width, long height) {
    return width > 0 && height > 0 && width <= kCsMaxImageSide && height <= kCsMaxImageSide &&
           width * height <= kCsMaxImagePixels;
}

// ---- PNG

void pngError(png_structp png, png_const_charp) { png_longjmp(png, 1); }
void pngWarning(png_structp, png_const_charp) {}

const char* readPng(FILE* file, csImageData& out) {
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, pngError, pngWarning);
    if (png == nullptr) return kCsImageCorrupt;
    png_infop info = png_create_info_struct(png);
    if (info == nullptr) {
        png_destroy_read_struct(&png, nullptr, nullptr);
        return kCsImageCorrupt;
    }
    // Everything that must survive a jump back here lives outside the
    // libpng calls: the image and the row table.
    csImageData image;
    std::vector<png_bytep> rows;
    const char* volatile result = kCsImageCorrupt;
    if (setjmp(png_jmpbuf(png)) == 0) {
        png_init_io(png, file);
        png_read_info(png, info);
        png_uint_32 width = png_get_image_width(png, info);
        png_uint_32 height = png_get_image_height(png, info);
        if (!sizeAcceptable(static_cast<long>(width), static_cast<long>(height))) {
            result = kCsImageTooLarge;
        } else {
            // Palettes, low bit depths and transparency keys become plain
            // 8-bit grey, grey+alpha, RGB or RGBA.
            png_set_expand(png);
            png_set_strip_16(png);
            png_set_interlace_handling(png);
            png_read_update_info(png, info);
            int channels = png_get_channels(png, info);
            size_t rowBytes = png_get_rowbytes(png, info);
            if (channels < 1 || channels > 4 || rowBytes != static_cast<size_t>(width) * static_cast<size_t>(channels)) {
                result = kCsImageUnsupported;
            } else {
                image.width = static_cast<int>(width);
                image.height = static_cast<int>(height);
                image.components = channels;
                image.pixels.resize(rowBytes * height);
                rows.resize(height);
                for (png_uint_32 y = 0; y < height; ++y) rows[y] = image.pixels.data() + rowBytes * y;
                png_read_image(png, rows.data());
                png_read_end(png, nullptr);
                result = nullptr;
            }
        }
    }
    png_destroy_read_struct(&png, &info, nullptr);
    if (result == nullptr) out = std::move(image);
    return result;
}

// ---- JPEG

struct JpegError {
    jpeg_error_mgr mgr;
    std::jmp_buf jump;
    bool truncated = false;
};

void jpegErrorExit(j_common_ptr info) { std::longjmp(reinterpret_cast<JpegError*>(info->err)->jump, 1); }

// Warnings are silent, but a premature end of the data makes the picture
// partly invented, which counts as unreadable.
void jpegMessage(j_common_ptr info, int level) {
    auto* err = reinterpret_cast<JpegError*>(info->err);
    if (level < 0 && err->mgr.msg_code == JWRN_JPEG_EOF) err->truncated = true;
}

const char* readJpeg(FILE* file, csImageData& out) {
    jpeg_decompress_struct cinfo;
    JpegError err;
    cinfo.err = jpeg_std_error(&err.mgr);
    err.mgr.error_exit = jpegErrorExit;
    err.mgr.emit_message = jpegMessage;
    csImageData image;
    const char* volatile result = kCsImageCorrupt;
    if (setjmp(err.jump) == 0) {
        jpeg_create_decompress(&cinfo);
        jpeg_stdio_src(&cinfo, file);
        jpeg_read_header(&cinfo, TRUE);
        if (!sizeAcceptable(static_cast<long>(cinfo.image_width), static_cast<long>(cinfo.image_height))) {
            result = kCsImageTooLarge;
        } else if (cinfo.jpeg_color_space == JCS_CMYK || cinfo.jpeg_color_space == JCS_YCCK) {
            result = kCsImageUnsupported;
        } else {
            cinfo.out_color_space = cinfo.num_components == 1 ? JCS_GRAYSCALE : JCS_RGB;
            jpeg_start_decompress(&cinfo);
            size_t rowBytes = static_cast<size_t>(cinfo.output_width) * static_cast<size_t>(cinfo.output_components);
            image.width = static_cast<int>(cinfo.output_width);
            image.height = static_cast<int>(cinfo.output_height);
            image.components = cinfo.output_components;
            image.pixels.resize(rowBytes * cinfo.output_height);
            while (cinfo.output_scanline < cinfo.output_height) {
                JSAMPROW row = image.pixels.data() + rowBytes * cinfo.output_scanline;
                jpeg_read_scanlines(&cinfo, &row, 1);
            }
            jpeg_finish_decompress(&cinfo);
            result = err.truncated ? kCsImageCorrupt : nullptr;
        }
    }
    jpeg_destroy_decompress(&cinfo);
    if (result == nullptr) out = std::move(image);
    return result;
}

// ---- GIF

int gifRead(GifFileType* gif, GifByteType* bytes, int count) {
    return static_cast<int>(std::fread(bytes, 1, static_cast<size_t>(count), static_cast<FILE*>(gif->UserData)));
}

// The first picture of the file, as RGB, or RGBA when it has a transparent
// colour.
const char* readGif(FILE* file, csImageData& out) {
    int error = 0;
    GifFileType* gif = DGifOpen(file, gifRead, &error);
    if (gif == nullptr) return kCsImageCorrupt;
    struct Closer {
        GifFileType* gif;
        ~Closer() {
            int ignored = 0;
            DGifCloseFile(gif, &ignored);
        }
    } closer{gif};

    if (DGifSlurp(gif) != GIF_OK || gif->ImageCount < 1) return kCsImageCorrupt;
    const SavedImage& frame = gif->SavedImages[0];
    long width = frame.ImageDesc.Width, height = frame.ImageDesc.Height;
    if (!sizeAcceptable(width, height)) return kCsImageTooLarge;
    const ColorMapObject* map = frame.ImageDesc.ColorMap ? frame.ImageDesc.ColorMap : gif->SColorMap;
    if (map == nullptr || frame.RasterBits == nullptr) return kCsImageCorrupt;

    int transparent = NO_TRANSPARENT_COLOR;
    GraphicsControlBlock gcb;
    if (DGifSavedExtensionToGCB(gif, 0, &gcb) == GIF_OK) transparent = gcb.TransparentColor;

    csImageData image;
    image.width = static_cast<int>(width);
    image.height = static_cast<int>(height);
    image.components = transparent == NO_TRANSPARENT_COLOR ? 3 : 4;
    image.pixels.resize(static_cast<size_t>(width * height * image.components));
    std::uint8_t* p = image.pixels.data();
    for (long i = 0; i < width * height; ++i) {
        int index = frame.RasterBits[i];
        // An index beyond the palette is damage; it shows as black.
        GifColorType c = index < map->ColorCount ? map->Colors[index] : GifColorType{0, 0, 0};
        *p++ = c.Red;
        *p++ = c.Green;
        *p++ = c.Blue;
        if (image.components == 4) *p++ = index == transparent ? 0 : 255;
    }
    out = std::move(image);
    return nullptr;
}

}  // namespace

const char* csReadImageFile(const char* path, csImageData& out) {
    if (path == nullptr) return kCsImageCannotOpen;
    FilePtr file(std::fopen(path, "rb"));
    if (!file) return kCsImageCannotOpen;
    return csReadImage(file.get(), out);
}

const char* csReadImage(FILE* file, csImageData& out) {
    unsigned char magic[8] = {0};
    size_t n = std::fread(magic, 1, sizeof magic, file);
    std::rewind(file);
    if (n >= 8 && png_sig_cmp(magic, 0, 8) == 0) return readPng(file, out);
    if (n >= 3 && magic[0] == 0xFF && magic[1] == 0xD8 && magic[2] == 0xFF) return readJpeg(file, out);
    if (n >= 6 && std::memcmp(magic, "GIF8", 4) == 0) return readGif(file, out);
    return kCsImageUnknownFormat;
}
