// A leaf node that draws its geometry list with one appearance.
#ifndef CS_SHAPE_H
#define CS_SHAPE_H

#include "csNode.h"
#include "csRefPtr.h"

class csAppearance;
class csGeometry;

class csShape : public csNode {
    CS_DECLARE_CLASS_TYPE;

    // Field numbers of a shape.
    enum { GEOMETRY = 3 };

    csShape();

    // Refs the geometry; a null geometry is refused.
    void addGeometry(csGeometry* geometry);
    // Unrefs and removes geometry `index`; false when out of range.
    bool removeGeometry(int index);
    bool removeGeometry(csGeometry* geometry);
    int getGeometryCount() const { return _geometry.getCount(); }
    csGeometry* getGeometry(int index) const;

    // Refs the new appearance before it unrefs the old one; null clears it.
    void setAppearance(csAppearance* appearance);
    csAppearance* getAppearance() const { return _appearance.get(); }

    csField* getField(short number) override;

protected:
    ~csShape() override;  // out of line: the appearance type is only declared here

private:
    csMFRef _geometry;
    csRefPtr<csAppearance> _appearance;
};

#endif
