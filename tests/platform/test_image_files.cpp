#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include <gif_lib.h>
#include <jpeglib.h>

#include <string>
#include <vector>

#include "csImage.h"
#include "csMessages.h"
#include "csString.h"
#include "csTexture.h"
#include "png_files.h"
#include "test_support.h"

using wrltest::pattern;
using wrltest::writePng;

namespace {

void writeJpegBytes(const std::string& path, int width, int height, int components,
                    std::vector<unsigned char> bytes) {
    FILE* f = std::fopen(path.c_str(), "wb");
    ASSERT_NE(f, nullptr);
    jpeg_compress_struct cinfo;
    jpeg_error_mgr err;
    cinfo.err = jpeg_std_error(&err);
    jpeg_create_compress(&cinfo);
    jpeg_stdio_dest(&cinfo, f);
    cinfo.image_width = static_cast<JDIMENSION>(width);
    cinfo.image_height = static_cast<JDIMENSION>(height);
    cinfo.input_components = components;
    cinfo.in_color_space = components == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&cinfo);
    jpeg_start_compress(&cinfo, TRUE);
    while (cinfo.next_scanline < cinfo.image_height) {
        JSAMPROW row = bytes.data() + cinfo.next_scanline * static_cast<JDIMENSION>(width * components);
        jpeg_write_scanlines(&cinfo, &row, 1);
    }
    jpeg_finish_compress(&cinfo);
    jpeg_destroy_compress(&cinfo);
    std::fclose(f);
}

void writeJpeg(const std::string& path, int width, int height, int components) {
    writeJpegBytes(path, width, height, components, pattern(width, height, components));
}

// Pixel (x, y), counted from the top left, takes colour index
// `index(x, y)` of red, green, blue and white.
template <class Index>
void writeGifIndexes(const std::string& path, int width, int height, bool transparent, Index index) {
    int error = 0;
    GifFileType* gif = EGifOpenFileName(path.c_str(), false, &error);
    ASSERT_NE(gif, nullptr);
    GifColorType colors[4] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}};
    ColorMapObject* map = GifMakeMapObject(4, colors);
    EGifPutScreenDesc(gif, width, height, 2, 0, map);
    if (transparent) {
        GraphicsControlBlock gcb{};
        gcb.TransparentColor = 3;
        gcb.DisposalMode = DISPOSAL_UNSPECIFIED;
        GifByteType ext[4];
        size_t n = EGifGCBToExtension(&gcb, ext);
        EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, static_cast<int>(n), ext);
    }
    EGifPutImageDesc(gif, 0, 0, width, height, false, nullptr);
    std::vector<GifPixelType> row(static_cast<size_t>(width));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) row[static_cast<size_t>(x)] = static_cast<GifPixelType>(index(x, y));
        EGifPutLine(gif, row.data(), width);
    }
    EGifCloseFile(gif, &error);
    GifFreeMapObject(map);
}

void writeGif(const std::string& path, int width, int height, bool transparent) {
    writeGifIndexes(path, width, height, transparent, [](int x, int y) { return (x + y) % 4; });
}

struct Loaded {
    csTexture* texture = new csTexture();
    bool ok = false;
    std::string err;
    explicit Loaded(const std::string& path) {
        texture->ref();
        err = wrltest::stderrOf([&] { ok = texture->setFileName(csString(path.c_str())); });
    }
    ~Loaded() { texture->unref(); }
    csImage* image() const { return texture->getImage(); }
};

void expectImage(const Loaded& l, int width, int height, int components) {
    ASSERT_TRUE(l.ok) << l.err;
    ASSERT_NE(l.image(), nullptr);
    EXPECT_EQ(l.image()->getWidth(), width);
    EXPECT_EQ(l.image()->getHeight(), height);
    EXPECT_EQ(l.image()->getComponents(), components);
    EXPECT_EQ(l.image()->getMemoryFormat(), components - 1);
    EXPECT_EQ(l.texture->getFormat(), components - 1);
    auto* bytes = static_cast<csMFByte*>(l.image()->getField(csImage::PIXELS));
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(bytes->getCount(), width * height * components);
    EXPECT_EQ(l.err, "");
}

}  // namespace

TEST(csTexture, ReadsPngJpegAndGifWithTheirSizesAndComponents) {
    wrltest::TempDir dir;
    writePng(dir.path() + "/grey.png", 5, 3, 1);
    writePng(dir.path() + "/rgb.png", 4, 2, 3);
    writePng(dir.path() + "/rgba.png", 3, 7, 4);
    writeJpeg(dir.path() + "/c.jpg", 16, 8, 3);
    writeJpeg(dir.path() + "/g.jpg", 9, 9, 1);
    writeGif(dir.path() + "/plain.gif", 6, 4, false);
    writeGif(dir.path() + "/clear.gif", 6, 4, true);
    const struct {
        const char* name;
        int width, height, components;
    } files[] = {{"grey.png", 5, 3, 1}, {"rgb.png", 4, 2, 3}, {"rgba.png", 3, 7, 4}, {"c.jpg", 16, 8, 3},
                 {"g.jpg", 9, 9, 1},    {"plain.gif", 6, 4, 3}, {"clear.gif", 6, 4, 4}};
    for (const auto& f : files) {
        SCOPED_TRACE(f.name);
        Loaded l(dir.path() + "/" + f.name);
        expectImage(l, f.width, f.height, f.components);
    }

    // Where each picture lands, byte for byte, the image texture tests and
    // the quadrants below see; here the clear colour of a GIF, index 3.
    Loaded clear(dir.path() + "/clear.gif");
    EXPECT_EQ(clear.image()->pixels().get(3 * 4 + 3), 0);
    EXPECT_EQ(clear.image()->pixels().get(3), 255);
}

// ---- Files that cannot be read leave no image, a message, and no crash.

TEST(csTextureFaults, TruncatedFilesGiveNoImage) {
    wrltest::TempDir dir;
    writePng(dir.path() + "/a.png", 64, 64, 3);
    writeJpeg(dir.path() + "/a.jpg", 64, 64, 3);
    writeGif(dir.path() + "/a.gif", 64, 64, false);
    for (const char* name : {"a.png", "a.jpg", "a.gif"}) {
        std::string whole = wrltest::readFile(dir.path() + "/" + name);
        for (size_t keep : {whole.size() / 2, size_t{20}, size_t{9}}) {
            std::string path = dir.write(std::string("cut-") + name, whole.substr(0, keep));
            Loaded l(path);
            EXPECT_FALSE(l.ok) << name << " cut to " << keep;
            EXPECT_EQ(l.image(), nullptr) << name << " cut to " << keep;
            char want[512];
            std::snprintf(want, sizeof want, kCsImageUnreadable, path.c_str(), kCsImageCorrupt);
            EXPECT_EQ(l.err, want) << name << " cut to " << keep;
        }
    }
}

TEST(csTextureFaults, MissingForeignAndAbsurdFilesAreNamedAndDropAnEarlierImage) {
    wrltest::TempDir dir;
    std::string missing = dir.path() + "/none.png";
    Loaded a(missing);
    EXPECT_EQ(a.image(), nullptr);
    char want[512];
    std::snprintf(want, sizeof want, kCsImageUnreadable, missing.c_str(), kCsImageCannotOpen);
    EXPECT_EQ(a.err, want);

    std::string text = dir.write("notes.png", "#VRML V2.0 utf8\n");
    Loaded b(text);
    EXPECT_EQ(b.image(), nullptr);
    std::snprintf(want, sizeof want, kCsImageUnreadable, text.c_str(), kCsImageUnknownFormat);
    EXPECT_EQ(b.err, want);

    // Width and height stand at bytes 16..23 of the IHDR chunk; the CRC no
    // longer fits, so the size test or the CRC test must refuse it.
    writePng(dir.path() + "/big.png", 2, 2, 1);
    std::string bytes = wrltest::readFile(dir.path() + "/big.png");
    bytes[16] = 0x00;
    bytes[17] = 0x10;
    bytes[18] = 0x00;
    bytes[19] = 0x00;
    Loaded huge(dir.write("huge.png", bytes));
    EXPECT_EQ(huge.image(), nullptr);
    EXPECT_FALSE(huge.err.empty());

    Loaded l(dir.path() + "/big.png");
    ASSERT_NE(l.image(), nullptr);
    wrltest::stderrOf([&] { EXPECT_FALSE(l.texture->setFileName(dir.path() + "/gone.png")); });
    EXPECT_EQ(l.image(), nullptr);
}

// ---- Which way up: texture coordinate (0, 0) is the picture's bottom left.

namespace {

// A square picture of four quadrants, in GIF palette order: red at the top
// left, green at the top right, blue at the bottom left, white at the
// bottom right, as one sees the picture.
enum Quadrant { kTopLeft = 0, kTopRight = 1, kBottomLeft = 2, kBottomRight = 3 };
const unsigned char kQuadrantRgb[4][3] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}};

int quadrantOf(int x, int y, int side) { return (y < side / 2 ? 0 : 2) + (x < side / 2 ? 0 : 1); }

// Its bytes as a file stores them: the top row first.
std::vector<unsigned char> quadrantBytes(int side) {
    std::vector<unsigned char> bytes;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            for (unsigned char c : kQuadrantRgb[quadrantOf(x, y, side)]) bytes.push_back(c);
    return bytes;
}

// Which quadrant the RGB bytes at `texel` are nearest to; -1 for none.
int quadrantAt(const std::uint8_t* texel) {
    if (texel == nullptr) return -1;
    for (int q = 0; q < 4; ++q) {
        int off = 0;
        for (int k = 0; k < 3; ++k) off += std::abs(texel[k] - kQuadrantRgb[q][k]);
        if (off < 96) return q;  // a JPEG moves colours a little
    }
    return -1;
}

}  // namespace

TEST(csImage, EveryFileLandsWithItsTopRowAtTheTopOfTextureSpace) {
    wrltest::TempDir dir;
    const int side = 16;  // quadrants of whole JPEG blocks
    wrltest::writePngBytes(dir.path() + "/q.png", side, side, 3, quadrantBytes(side));
    writeJpegBytes(dir.path() + "/q.jpg", side, side, 3, quadrantBytes(side));
    writeGifIndexes(dir.path() + "/q.gif", side, side, false,
                    [side](int x, int y) { return quadrantOf(x, y, side); });
    for (const char* name : {"q.png", "q.jpg", "q.gif"}) {
        SCOPED_TRACE(name);
        Loaded l(dir.path() + "/" + name);
        ASSERT_TRUE(l.texture->hasImage()) << l.err;
        EXPECT_EQ(quadrantAt(l.texture->texel(0.25f, 0.25f)), kBottomLeft);
        EXPECT_EQ(quadrantAt(l.texture->texel(0.75f, 0.25f)), kBottomRight);
        EXPECT_EQ(quadrantAt(l.texture->texel(0.25f, 0.75f)), kTopLeft);
        EXPECT_EQ(quadrantAt(l.texture->texel(0.75f, 0.75f)), kTopRight);
        // (0, 0) and (1, 1) are the corners, on the first pixel of the last
        // row and the last pixel of the first.
        int column = -1, row = -1;
        ASSERT_TRUE(l.image()->texelAt(0.0f, 0.0f, column, row));
        EXPECT_EQ(column, 0);
        EXPECT_EQ(row, side - 1);
        ASSERT_TRUE(l.image()->texelAt(1.0f, 1.0f, column, row));
        EXPECT_EQ(column, side - 1);
        EXPECT_EQ(row, 0);
    }
}

TEST(csTexture, RepeatingCoordinatesWrapAndClampedOnesStopAtTheEdge) {
    auto* texture = new csTexture();
    texture->ref();
    auto* image = new csImage();
    image->setWidth(2);
    image->setHeight(2);
    image->setMemoryFormat(csImage::RGB);
    const std::vector<unsigned char> bytes = quadrantBytes(2);
    image->pixels().setRange(0, static_cast<int>(bytes.size()), bytes.data());
    texture->setImage(image);

    // Repeating: 1.25 is 0.25 again, -0.25 is 0.75.
    EXPECT_EQ(quadrantAt(texture->texel(1.25f, -0.25f)), kTopLeft);
    EXPECT_EQ(quadrantAt(texture->texel(1.0f, 1.0f)), kBottomLeft) << "1 repeats as 0";
    texture->setRepeatS(csTexture::CLAMP);
    texture->setRepeatT(csTexture::CLAMP);
    EXPECT_EQ(quadrantAt(texture->texel(1.25f, -0.25f)), kBottomRight);
    EXPECT_EQ(quadrantAt(texture->texel(1.0f, 1.0f)), kTopRight);
    EXPECT_EQ(quadrantAt(texture->texel(std::nanf(""), std::nanf(""))), kBottomLeft);

    // An image short of its bytes has nothing to show.
    EXPECT_TRUE(texture->hasImage());
    image->pixels().setCount(11);
    EXPECT_FALSE(texture->hasImage());
    EXPECT_EQ(texture->texel(0.5f, 0.5f), nullptr);
    texture->setImage(nullptr);
    EXPECT_FALSE(texture->hasImage());
    EXPECT_EQ(texture->texel(0.5f, 0.5f), nullptr);
    texture->unref();
}
