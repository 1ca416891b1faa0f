// Polylines whose points are named by index sets.
#ifndef CS_INDEXED_LINE_SET_H
#define CS_INDEXED_LINE_SET_H

#include <cstdint>

#include "csLineStripSet.h"

class csIndexedLineSet : public csLineStripSet {
    CS_DECLARE_CLASS_TYPE;

    csIndexedLineSet() = default;

    void setColorPerVertex(std::uint8_t on) { _colorPerVertex = on != 0; }
    bool getColorPerVertex() const { return _colorPerVertex; }

protected:
    ~csIndexedLineSet() override = default;

private:
    bool _colorPerVertex = true;
};

#endif
