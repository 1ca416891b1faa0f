// What the back-ends of IndexedLineSet and PointSet share: one geometry
// object of class `Geometry`, drawn unlit, with coordinates and colours
// taken from child nodes. It is built at the first fetch by a shape, which
// hands down its appearance, and refreshed on every pass after that.
#ifndef OPT_UNLIT_GEOMETRY_H
#define OPT_UNLIT_GEOMETRY_H

#include "csAppearance.h"
#include "csDataSets.h"
#include "csRefPtr.h"
#include "fields/zn_array.h"
#include "optimizer/optActionGuard.h"
#include "optimizer/optSceneName.h"
#include "optimizer/opt_geometry.h"
#include "vrmlnodes/Color.h"
#include "vrmlnodes/Coordinate.h"

template <class Node, class Geometry>
class optUnlitGeometry : public Node {
public:
    // Builds at the first fetch (mode 4) with a shape's state, then
    // refreshes what changed; answers the geometry's handle.
    int action(SFTime& time, int mode, void* state) override {
        optActionGuard acting(this);
        if (!acting.entered()) return 0;
        const auto* record = static_cast<const ActionState*>(state);
        // A shape hands down its present appearance on every pass.
        if (record && record->appearance) appearanceHandle = record->appearance->getHandle();
        if (mode == kActionFetch && record && !this->built) {
            build(time);
            this->built = 1;
            this->coordDirty = this->colorDirty = 0;
            if (Coordinate* node = coordNode()) optClean(node->getPoint());
            if (Color* node = colorNode()) optClean(node->getColor());
        }
        if (this->built) {
            refresh(time);
            optDrawUnlit(*geometry.get(), csObject::fromHandleAs<csAppearance>(appearanceHandle), colors.get() != nullptr);
        }
        return geometry->getHandle();
    }

    Geometry* getGeometry() const { return geometry.get(); }

protected:
    // `unnamedName` is the geometry's name when the node has no DEF name.
    optUnlitGeometry(znInternal* pair, const char* unnamedName) : BaseNode(pair), Node(pair), unnamed(unnamedName) {
        geometry.reset(new Geometry());
        nameInScene(geometry.get(), *this, unnamed);
    }
    ~optUnlitGeometry() override = default;

    // The first build; the children's fields count as seen after it.
    virtual void build(SFTime& time) = 0;
    // Every pass once built.
    virtual void refresh(SFTime& time) = 0;
    // Called once a new coordinate set is in place.
    virtual void coordsTaken() {}

    // Null gives the alert for missing coordinates and keeps the old set.
    void takeCoords(csCoordSet3f* set) {
        if (!set) {
            optAlertNoCoordinates(objectName());
            return;
        }
        coords.reset(set);
        geometry->setCoordSet(set);
        coordsTaken();
    }
    // The Color node's set; null leaves the geometry without colours of its
    // own, so that it shows the material's.
    void takeColours(csColorSet4f* set) {
        colors.reset(set);
        if (!set) {
            geometry->setColorBind(csGeoSet::OFF);
            return;
        }
        geometry->setColorSet(set);
    }
    // Takes the coordinates again when the node or its points changed.
    // Whether there are colours enough depends on the points, so a Color
    // node is then looked at again too.
    void refreshCoords(SFTime& time) {
        Coordinate* coordinate = coordNode();
        MFVec3f* points = coordinate ? coordinate->getPoint() : nullptr;
        if (!this->coordDirty && !optDirty(points)) return;
        takeCoords(optFetch<csCoordSet3f>(this->coordObject, time));
        this->coordDirty = 0;
        optClean(points);
        if (this->colorObject) this->colorDirty = 1;
    }

    const char* objectName() { return this->sceneName(unnamed); }
    Coordinate* coordNode() const { return optNodeBehind<Coordinate>(this->coordObject); }
    Color* colorNode() const { return optNodeBehind<Color>(this->colorObject); }

    csRefPtr<Geometry> geometry;
    csRefPtr<csCoordSet3f> coords;
    csRefPtr<csColorSet4f> colors;  // the Color node's set; null while the geometry has none

private:
    const char* unnamed;  // borrowed: a string literal
    // The enclosing shape's appearance, held by handle: the shape may
    // replace it, and a stale handle finds nothing.
    int appearanceHandle = 0;
};

#endif
