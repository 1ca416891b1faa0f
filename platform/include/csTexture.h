// An image applied to surfaces. setFileName reads a PNG, JPEG or GIF file
// into the image list (field 1, element 0). Which way up the image runs
// against texture coordinates: see csImage.h.
#ifndef CS_TEXTURE_H
#define CS_TEXTURE_H

#include <cstdint>
#include <string>

#include "csContainer.h"

class csImage;
class csString;

class csTexture : public csContainer {
    CS_DECLARE_CLASS_TYPE;

    // Field numbers of a texture.
    enum { IMAGE = 1 };
    enum RepeatEnum { CLAMP = 0, REPEAT = 1 };
    // The number of image components less one.
    enum FormatEnum { LUMINANCE = 0, LUMINANCE_ALPHA = 1, RGB = 2, RGBA = 3 };
    enum MinFilterEnum { NEAREST = 0, LINEAR = 1, MIPMAP_LINEAR = 2 };

    csTexture() = default;

    // Reads the file and makes its image element 0 of field 1, with the
    // format of its components. A file that cannot be read leaves the
    // texture without an image and reports why on standard error; false then.
    bool setFileName(const csString& name);
    bool setFileName(const char* name);
    const char* getFileName() const { return _fileName.c_str(); }

    // Element 0 of the image list, or null.
    csImage* getImage() const;
    void setImage(csImage* image);
    // Whether there is a picture to show: an image with all its pixels. A
    // texture without one (a file that could not be read, a movie, which
    // the toolkit does not decode) shows nothing; the format says nothing
    // then.
    bool hasImage() const;
    // The first byte of the pixel that texture coordinate (s, t) shows,
    // nearest pixel: a repeating direction takes the coordinate less its
    // whole part, a clamped one holds it to [0, 1]. Null without an image.
    const std::uint8_t* texel(float s, float t) const;

    void setRepeatS(RepeatEnum repeat) { _repeatS = repeat; }
    RepeatEnum getRepeatS() const { return _repeatS; }
    void setRepeatT(RepeatEnum repeat) { _repeatT = repeat; }
    RepeatEnum getRepeatT() const { return _repeatT; }
    void setFormat(FormatEnum format) { _format = format; }
    FormatEnum getFormat() const { return _format; }
    void setMinFilter(MinFilterEnum filter) { _minFilter = filter; }
    MinFilterEnum getMinFilter() const { return _minFilter; }

    csField* getField(short number) override;

protected:
    ~csTexture() override = default;

private:
    std::string _fileName;
    csMFRef _images;
    RepeatEnum _repeatS = REPEAT;
    RepeatEnum _repeatT = REPEAT;
    FormatEnum _format = RGB;
    MinFilterEnum _minFilter = LINEAR;
};

#endif
