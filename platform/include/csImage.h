// Pixels of a texture: width x height x components bytes, components in the
// order grey, grey+alpha, RGB or RGBA.
//
// Which way up an image runs, for everything in the toolkit and everything
// that fills or reads an image:
// - Rows run from the top of the picture down, as image files store them:
//   the first row in memory is the picture's top edge.
// - Texture coordinates run the other way up, as VRML's do: s from the
//   left edge (0) to the right edge (1), t from the bottom edge (0) to the
//   top edge (1). Coordinate (0, 0) falls on the first pixel of the last
//   row, (0, 1) on the first pixel of the first row.
// Whatever fills an image turns its pixels this way up: files are read as
// they are stored; a PixelTexture, whose world lists its rows from the
// bottom, is turned over. Whatever reads an image takes it this way: an
// exporter to a format whose vertical coordinate runs down from the top
// (glTF) writes the rows as they are and takes 1 - t; a renderer that hands
// rows to OpenGL, which takes the first row for t = 0, turns them over or
// takes 1 - t. texelAt is where a texture coordinate meets a pixel.
#ifndef CS_IMAGE_H
#define CS_IMAGE_H

#include <cstdint>

#include "csContainer.h"

class csImage : public csContainer {
    CS_DECLARE_CLASS_TYPE;

    // Field numbers of an image.
    enum { PIXELS = 5 };
    enum MemoryTypeEnum { EXTERNAL_MEMORY = 0, UNSIGNED_BYTE = 1 };
    // The number of components less one.
    enum MemoryFormatEnum { LUMINANCE = 0, LUMINANCE_ALPHA = 1, RGB = 2, RGBA = 3 };

    csImage() = default;

    void setWidth(int width) { _width = width > 0 ? width : 0; }
    int getWidth() const { return _width; }
    void setHeight(int height) { _height = height > 0 ? height : 0; }
    int getHeight() const { return _height; }
    void setMemoryType(MemoryTypeEnum type) { _memoryType = type; }
    MemoryTypeEnum getMemoryType() const { return _memoryType; }
    void setMemoryFormat(MemoryFormatEnum format) { _memoryFormat = format; }
    MemoryFormatEnum getMemoryFormat() const { return _memoryFormat; }
    int getComponents() const { return static_cast<int>(_memoryFormat) + 1; }

    csMFByte& pixels() { return _pixels; }
    const csMFByte& pixels() const { return _pixels; }

    // Whether every pixel is there: a size of at least one pixel and all
    // of its bytes.
    bool isComplete() const;
    // The pixel that texture coordinate (s, t) falls on, nearest pixel:
    // its column and its row, counted in memory order (from the top). A
    // coordinate outside [0, 1] is held to it; 1 falls on the last column
    // or the top row. False, with nothing set, for an incomplete image.
    bool texelAt(float s, float t, int& column, int& row) const;
    // The first byte of that pixel, or null for an incomplete image.
    const std::uint8_t* texel(float s, float t) const;

    csField* getField(short number) override;

protected:
    ~csImage() override = default;

private:
    int _width = 0;
    int _height = 0;
    MemoryTypeEnum _memoryType = UNSIGNED_BYTE;
    MemoryFormatEnum _memoryFormat = RGB;
    csMFByte _pixels;
};

#endif
