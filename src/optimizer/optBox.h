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
    // The face set, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;

    csIndexedFaceSet* getGeometry() const { return geometry.get(); }

private:
    csRefPtr<csIndexedFaceSet> geometry;
};

#endif
