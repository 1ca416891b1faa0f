// Single points, one per coordinate.
#ifndef CS_POINT_SET_H
#define CS_POINT_SET_H

#include "csGeoSet.h"

class csPointSet : public csGeoSet {
    CS_DECLARE_CLASS_TYPE;

    csPointSet() = default;

protected:
    ~csPointSet() override = default;
};

#endif
