// A Box as a fixed csIndexedFaceSet: eight corners, six square faces with
// a normal each, and the whole image on every face.
#ifndef OPTBOX_H
#define OPTBOX_H

#include "csIndexedFaceSet.h"
#include "csRefPtr.h"
#include "vrmlnodes/Box.h"

class optBox : public Box {
public:
    explicit optBox(znInternal* pair);
    ~optBox() override = default;
    // The face set, made at the first call, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;

    // Null until the first action.
    csIndexedFaceSet* getGeometry() const { return geometry.get(); }

private:
    void build();

    csRefPtr<csIndexedFaceSet> geometry;
};

#endif
