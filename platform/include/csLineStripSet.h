// Polylines: the strip length list gives the points of each line in turn.
#ifndef CS_LINE_STRIP_SET_H
#define CS_LINE_STRIP_SET_H

#include "csGeoSet.h"

class csLineStripSet : public csGeoSet {
    CS_DECLARE_CLASS_TYPE;

    csLineStripSet() = default;

    csMFInt& stripLength() { return _stripLength; }
    const csMFInt& stripLength() const { return _stripLength; }
    // Line width in pixels.
    void setWidth(float width) { _width = width; }
    float getWidth() const { return _width; }

protected:
    ~csLineStripSet() override = default;

private:
    csMFInt _stripLength;
    float _width = 1.0f;
};

#endif
