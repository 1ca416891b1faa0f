// What the geometry back-ends share: reading their fields, fetching data
// sets from child nodes, packing -1 terminated index lists, the colour of
// geometry that is drawn unlit, and the fields of primitive solids.
#ifndef OPT_GEOMETRY_H
#define OPT_GEOMETRY_H

#include <vector>

#include "csDataSets.h"
#include "csObject.h"
#include "fields/zn_values.h"
#include "nodes/zn_node.h"
#include "vrmlnodes/VRMLNodebase.h"

class csAppearance;
class csGeoSet;
class Coordinate;

// Ends a face or a line in an index list.
inline constexpr int kOptTerminator = -1;

// The length of a list as an int, held at INT_MAX.
int optCountOf(const std::vector<int>& list);

// Copies `list` into `out` from the front, walking it backwards when
// `reverse`; terminators are skipped unless `keepTerminators`. No more
// than `out` has room for is written.
void optCopyIndexes(const std::vector<int>& list, csMFInt& out, bool reverse, bool keepTerminators);

// Packs a terminated list into `indexes` (its entries less terminators)
// and `lengths` (one entry per terminator: the entries before it since the
// last one), walking it backwards when `reverse`. `indexes` must have room
// for the whole list; `lengths` is emptied first.
void optPackIndexes(const std::vector<int>& list, bool reverse, csMFInt& indexes, csMFInt& lengths);

// A new index set of `count` entries, entry i holding i.
csIndexSet* optIdentityIndexSet(int count);

// Hands a field's value to a setter of a scene-graph object. A field that
// the node's type lacks leaves the object's default, which is VRML's.
template <class Object, class Value, class F>
void optCopyField(Object& object, void (Object::*setter)(Value), F* field) {
    if (field) (object.*setter)(static_cast<Value>(field->getValue()));
}
template <class Object, class Value, class F>
void optCopyField(Object& object, void (Object::*setter)(Value), const NodeField<F>& field) {
    optCopyField(object, setter, field.get());
}

// A field's flag, or `fallback` when the node's type lacks the field.
inline bool optFlag(SFBool* field, bool fallback) { return field ? field->getValue() != 0 : fallback; }
inline bool optFlag(const NodeField<SFBool>& field, bool fallback) { return optFlag(field.get(), fallback); }

// The values of an index field, read in place; an absent field reads empty.
const std::vector<int>& optValuesOf(MFInt32* field);
inline std::vector<int> optListOf(MFInt32* field) { return optValuesOf(field); }

inline bool optDirty(Field* field) { return field && field->isDirty(); }
inline void optClean(Field* field) {
    if (field) field->makeClean();
}

// Hands `recalc` the list that binds colours or normals by an index field:
// the field's own entries; for an empty field the coordinate index list
// when they bind per vertex, else no list at all (null), so that each face
// or line takes an entry of its own.
template <class Recalc>
void optBindByIndexField(MFInt32* field, MFInt32* coordIndex, bool perVertex, Recalc recalc) {
    std::vector<int> list = optListOf(field);
    if (list.empty() && !perVertex) {
        recalc(nullptr);
        return;
    }
    if (list.empty()) list = optListOf(coordIndex);
    recalc(&list);
}

// PROTO instances stand in front of their first body node; no sane world
// nests them deeper than this.
inline constexpr int kOptMaxProtoChain = 256;

// The class behind a child node: its own compiled object, or for a PROTO
// instance that of the first node of its body.
template <class T>
T* optNodeBehind(Builtin* child) {
    auto* node = dynamic_cast<znNode*>(child);
    for (int hops = 0; node && hops < kOptMaxProtoChain; ++hops) {
        if (Builtin* script = node->getCPPScript()) return dynamic_cast<T*>(script);
        node = node->getFirstNode();
    }
    return dynamic_cast<T*>(child);
}

// The set that a child answers to a fetch, or null when there is no child
// or it answers something else.
template <class Set>
Set* optFetch(Builtin* child, SFTime& time) {
    if (!child) return nullptr;
    return csObject::fromHandleAs<Set>(child->action(time, kActionFetch, nullptr));
}

// Whether a Color node's `values` are too few for the binding: fewer than
// the coordinate node's points per vertex, fewer than the `primitives`
// (faces or lines) otherwise.
bool optTooFewColours(MFColor* values, Coordinate* coordinate, bool perVertex, int primitives);

// Points that the coordinate node holds, no more than its set has: the set
// is never cut when the node's field shrinks.
int optPointCount(const csCoordSet3f* set, Coordinate* node);

// Whether the appearance behind `appearanceHandle` (0: none) shows a
// texture of three components. Such a texture takes over from a geometry's own
// colours, which give way to one grey for the whole geometry.
bool optHasRGBTexture(int appearanceHandle);
// A new colour set of that one grey.
csColorSet4f* optTexturedGrey();

// The alert for a geometry without a coordinate set, with its name.
void optAlertNoCoordinates(const char* name);

// Lines and points are never lit or textured. Without colours of their own
// (`ownColours` false) they take one colour, for the whole geometry, from
// the appearance's material: its emissive colour, or its diffuse colour
// when the emissive one is black. The colour set is renewed only when the
// material's colour changed. Nothing happens without an appearance.
void optDrawUnlit(csGeoSet& geometry, csAppearance* appearance, bool ownColours);

#endif
