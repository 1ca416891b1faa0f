// Colours as a scene-graph colour set, kept equal to the node's field.
#ifndef OPTCOLOR_H
#define OPTCOLOR_H

#include "csDataSets.h"
#include "csRefPtr.h"
#include "vrmlnodes/Color.h"

class optColor : public Color {
public:
    explicit optColor(znInternal* pair);
    ~optColor() override = default;
    // The colour set, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;
    void set_color(MFColor& value, double time) override;

private:
    void fill(MFColor& value);

    csRefPtr<csColorSet4f> set;
};

#endif
