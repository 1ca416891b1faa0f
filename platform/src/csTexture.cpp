#include "csTexture.h"

#include <cmath>
#include <cstdio>

#include "csImage.h"
#include "csImageFile.h"
#include "csMessages.h"
#include "csString.h"

CS_DEFINE_CLASS_TYPE(csTexture, csContainer)

bool csTexture::setFileName(const csString& name) { return setFileName(name.getString()); }

bool csTexture::setFileName(const char* name) {
    _fileName = name ? name : "";
    csImageData data;
    const char* failure = csReadImageFile(name, data);
    if (failure != nullptr) {
        std::fprintf(stderr, kCsImageUnreadable, _fileName.c_str(), failure);
        _images.clear();
        return false;
    }
    csImage* image = new csImage();
    image->setWidth(data.width);
    image->setHeight(data.height);
    image->setMemoryType(csImage::UNSIGNED_BYTE);
    image->setMemoryFormat(static_cast<csImage::MemoryFormatEnum>(data.components - 1));
    image->pixels().setRange(0, static_cast<int>(data.pixels.size()), data.pixels.data());
    setImage(image);
    _format = static_cast<FormatEnum>(data.components - 1);
    return true;
}

csImage* csTexture::getImage() const { return static_cast<csImage*>(_images.get(0)); }

void csTexture::setImage(csImage* image) { _images.set(0, image); }

bool csTexture::hasImage() const {
    const csImage* image = getImage();
    return image != nullptr && image->isComplete();
}

namespace {
float wrapped(float f, csTexture::RepeatEnum repeat) {
    return repeat == csTexture::REPEAT && std::isfinite(f) ? f - std::floor(f) : f;
}
}  // namespace

const std::uint8_t* csTexture::texel(float s, float t) const {
    const csImage* image = getImage();
    return image ? image->texel(wrapped(s, _repeatS), wrapped(t, _repeatT)) : nullptr;
}

csField* csTexture::getField(short number) {
    if (number == IMAGE) return &_images;
    return csContainer::getField(number);
}
