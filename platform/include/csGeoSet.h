// Geometry drawn from data sets: coordinates, normals, colours and texture
// coordinates, each with an optional index set and a binding.
#ifndef CS_GEO_SET_H
#define CS_GEO_SET_H

#include "csDataSets.h"
#include "csGeometry.h"
#include "csRefPtr.h"

class csGeoSet : public csGeometry {
    CS_DECLARE_CLASS_TYPE;

    // How colours and normals are spread over the geometry.
    enum BindEnum { OFF = 0, OVERALL = 1, PER_PRIM = 2, PER_VERTEX = 3 };
    enum TexCoordBindEnum { TEX_COORD_OFF = 0, TEX_COORD_PER_VERTEX = 1 };

    // Every setter refs the new set before it unrefs the old; null clears.
    void setCoordSet(csCoordSet3f* set) { _coords.reset(set); }
    csCoordSet3f* getCoordSet() const { return _coords.get(); }
    void setNormalSet(csNormalSet3f* set) { _normals.reset(set); }
    csNormalSet3f* getNormalSet() const { return _normals.get(); }
    void setColorSet(csColorSet4f* set) { _colors.reset(set); }
    csColorSet4f* getColorSet() const { return _colors.get(); }
    void setTexCoordSet(csTexCoordSet2f* set) { _texCoords.reset(set); }
    csTexCoordSet2f* getTexCoordSet() const { return _texCoords.get(); }

    void setCoordIndexSet(csIndexSet* set) { _coordIndex.reset(set); }
    csIndexSet* getCoordIndexSet() const { return _coordIndex.get(); }
    void setNormalIndexSet(csIndexSet* set) { _normalIndex.reset(set); }
    csIndexSet* getNormalIndexSet() const { return _normalIndex.get(); }
    void setColorIndexSet(csIndexSet* set) { _colorIndex.reset(set); }
    csIndexSet* getColorIndexSet() const { return _colorIndex.get(); }
    void setTexCoordIndexSet(csIndexSet* set) { _texCoordIndex.reset(set); }
    csIndexSet* getTexCoordIndexSet() const { return _texCoordIndex.get(); }

    void setColorBind(BindEnum bind) { _colorBind = bind; }
    BindEnum getColorBind() const { return _colorBind; }
    void setNormalBind(BindEnum bind) { _normalBind = bind; }
    BindEnum getNormalBind() const { return _normalBind; }
    void setTexCoordBind(TexCoordBindEnum bind) { _texCoordBind = bind; }
    TexCoordBindEnum getTexCoordBind() const { return _texCoordBind; }

    // Number of primitives: faces, lines or points.
    void setPrimCount(int count) { _primCount = count > 0 ? count : 0; }
    int getPrimCount() const { return _primCount; }

    // The bound of every point of the coordinate set, used or not.
    void getBoxBound(csBoxBound* bound) const override;

protected:
    csGeoSet() = default;
    ~csGeoSet() override = default;

private:
    csRefPtr<csCoordSet3f> _coords;
    csRefPtr<csNormalSet3f> _normals;
    csRefPtr<csColorSet4f> _colors;
    csRefPtr<csTexCoordSet2f> _texCoords;
    csRefPtr<csIndexSet> _coordIndex;
    csRefPtr<csIndexSet> _normalIndex;
    csRefPtr<csIndexSet> _colorIndex;
    csRefPtr<csIndexSet> _texCoordIndex;
    BindEnum _colorBind = OFF;
    // Per vertex, so that generated normals show without a binding call.
    BindEnum _normalBind = PER_VERTEX;
    TexCoordBindEnum _texCoordBind = TEX_COORD_OFF;
    int _primCount = 0;
};

#endif
