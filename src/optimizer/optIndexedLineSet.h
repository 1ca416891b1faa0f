// Compiles an IndexedLineSet into one csIndexedLineSet: a packed index set
// and one strip length per -1 terminated line, colours per line or per
// vertex, drawn unlit; later changes rebuild only what depends on them.
#ifndef OPTINDEXEDLINESET_H
#define OPTINDEXEDLINESET_H

#include <vector>

#include "csIndexedLineSet.h"
#include "optimizer/optUnlitGeometry.h"
#include "vrmlnodes/IndexedLineSet.h"

class optIndexedLineSet : public optUnlitGeometry<IndexedLineSet, csIndexedLineSet> {
public:
    explicit optIndexedLineSet(znInternal* pair);
    ~optIndexedLineSet() override = default;

    void recalcColor(csColorSet4f* set) override;
    void recalcCoord(csCoordSet3f* set) override;
    void recalcColorIndex(std::vector<int>* list) override;
    void recalcCoordIndex(std::vector<int>* list) override;

private:
    void build(SFTime& time) override;
    void refresh(SFTime& time) override;
    void refreshColor(SFTime& time);
    void bindColours();

    csRefPtr<csIndexSet> coordIndexSet;
    csRefPtr<csIndexSet> colorIndexSet;
};

#endif
