#include "csImage.h"

CS_DEFINE_CLASS_TYPE(csImage, csContainer)

namespace {

// The cell of `count` equal cells across [0, 1] that `f` falls on; NaN
// counts as 0.
int cellOf(float f, int count) {
    if (!(f > 0.0f)) return 0;
    if (f >= 1.0f) return count - 1;
    const int cell = static_cast<int>(f * static_cast<float>(count));
    return cell < count ? cell : count - 1;
}

}  // namespace

csField* csImage::getField(short number) {
    if (number == PIXELS) return &_pixels;
    return csContainer::getField(number);
}

bool csImage::isComplete() const {
    if (_width <= 0 || _height <= 0) return false;
    const long long bytes = static_cast<long long>(_width) * _height * getComponents();
    return _pixels.getCount() >= bytes;
}

bool csImage::texelAt(float s, float t, int& column, int& row) const {
    if (!isComplete()) return false;
    column = cellOf(s, _width);
    // t counts rows from the bottom; memory from the top.
    row = _height - 1 - cellOf(t, _height);
    return true;
}

const std::uint8_t* csImage::texel(float s, float t) const {
    int column = 0, row = 0;
    if (!texelAt(s, t, column, row)) return nullptr;
    const long long at = (static_cast<long long>(row) * _width + column) * getComponents();
    return _pixels.getData() + at;
}
