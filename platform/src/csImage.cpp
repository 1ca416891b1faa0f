#include "csImage.h"

CS_DEFINE_CLASS_TYPE(csImage, csContainer)

csField* csImage::getField(short number) {
    if (number == PIXELS) return &_pixels;
    return csContainer::getField(number);
}
