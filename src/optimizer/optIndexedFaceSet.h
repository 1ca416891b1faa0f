// Compiles an IndexedFaceSet into one csIndexedFaceSet: packed index sets
// and face lengths from the -1 terminated lists, winding by reversal,
// bindings, crease-angle normals and texture coordinates from the bound;
// later changes rebuild only what depends on them.
#ifndef OPTINDEXEDFACESET_H
#define OPTINDEXEDFACESET_H

#include <vector>

#include "csDataSets.h"
#include "csIndexedFaceSet.h"
#include "csRefPtr.h"
#include "vrmlnodes/IndexedFaceSet.h"

class csAppearance;
class Color;
class Coordinate;
class Normal;
class TextureCoordinate;

class optIndexedFaceSet : public IndexedFaceSet {
public:
    explicit optIndexedFaceSet(znInternal* pair);
    // For a face set that no file declares (see IndexedFaceSet).
    explicit optIndexedFaceSet(int);
    ~optIndexedFaceSet() override = default;

    void recalcColor(csColorSet4f* set) override;
    void recalcCoord(csCoordSet3f* set) override;
    // Builds at the first fetch (mode 4), then refreshes what changed;
    // answers the geometry's handle.
    int action(SFTime& time, int mode, void* state) override;
    void recalcColorIndex(std::vector<int>* list) override;
    void recalcCoordIndex(std::vector<int>* list) override;
    void recalcTexCoord(csTexCoordSet2f* set) override;
    void recalcNormal(csNormalSet3f* set) override;
    void recalcTexCoordIndex(std::vector<int>* list) override;
    void recalcNormalIndex(std::vector<int>* list) override;

    csIndexedFaceSet* getGeometry() const { return geometry.get(); }

private:
    // The two index lists that bind per face or per vertex.
    enum class Bound { color, normal };

    void makeGeometry();
    void build(SFTime& time, const ActionState* state);
    void refresh(SFTime& time);
    void refreshColor(SFTime& time);
    void recalcBoundIndex(std::vector<int>* list, Bound which);
    void recalcFromIndexField(MFInt32* field, bool perVertex, Bound which);
    // The field's list, or the coordinate list when the field is empty.
    std::vector<int> listOrCorners(MFInt32* field) const;
    template <class Set, class IndexStep>
    void refreshSet(unsigned char& setDirty, Field* values, Builtin* child, void (optIndexedFaceSet::*recalc)(Set*),
                    IndexStep indexStep, SFTime& time);
    void generateNormals();
    void generateTexCoords();
    void replaceColorsWithGrey();

    bool counterClockwise() const;
    bool hasRGBTexture() const;
    const char* objectName();
    Coordinate* coordNode() const;
    Color* colorNode() const;
    TextureCoordinate* texCoordNode() const;
    Normal* normalNode() const;
    // Points that the coordinate node holds, no more than the set has.
    int pointCount() const;

    csRefPtr<csIndexedFaceSet> geometry;
    // The enclosing shape's appearance, held by handle: the shape may
    // replace it, and a stale handle finds nothing.
    int appearanceHandle = 0;
    csRefPtr<csCoordSet3f> coords;
    csRefPtr<csTexCoordSet2f> texCoords;
    csRefPtr<csColorSet4f> colors;
    csRefPtr<csNormalSet3f> normals;
    csRefPtr<csIndexSet> coordIndexSet;
    csRefPtr<csIndexSet> texCoordIndexSet;
    csRefPtr<csIndexSet> colorIndexSet;
    csRefPtr<csIndexSet> normalIndexSet;
};

#endif
