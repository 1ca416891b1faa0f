// Pixels of a texture: width x height x components bytes, rows from the
// top of the picture down, components in the order grey, grey+alpha, RGB or
// RGBA.
#ifndef CS_IMAGE_H
#define CS_IMAGE_H

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
