// The back-end of ElevationGrid: one csIndexedFaceSet of a quadrilateral
// for each square of the grid, with colours and normals per point or per
// square, given or generated normals, and given or default texture
// coordinates. Built at the first fetch, and built anew after any change.
#ifndef OPT_ELEVATION_GRID_H
#define OPT_ELEVATION_GRID_H

#include "csIndexedFaceSet.h"
#include "csRefPtr.h"
#include "vrmlnodes/ElevationGrid.h"

class optFaceBuilder;

class optElevationGrid : public ElevationGrid {
public:
    explicit optElevationGrid(znInternal* pair);
    ~optElevationGrid() override = default;
    // Answers the geometry's handle.
    int action(SFTime& time, int mode, void* state) override;

    csIndexedFaceSet* getGeometry() const { return geometry.get(); }

private:
    void build(SFTime& time);
    // Number of points along x and of whole rows of them along z.
    void measure(int& columns, int& rows);
    void bindColours(SFTime& time, const optFaceBuilder& faces, int points);
    void bindNormals(SFTime& time, const optFaceBuilder& faces, int points);
    void bindTexCoords(SFTime& time, int columns, int rows);
    // Whether a node that the grid draws from has changed since the build.
    bool childChanged();
    void cleanChildren();
    void reportShort(const char* what, int have, int need);

    csRefPtr<csIndexedFaceSet> geometry;
    // The enclosing shape's appearance, held by handle: the shape may
    // replace it, and a stale handle finds nothing.
    int appearanceHandle = 0;
};

#endif
