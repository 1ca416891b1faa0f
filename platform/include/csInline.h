// A group whose children were read from another world file: the URLs it
// was told to read, as the world wrote them, and the bounding box that the
// world gave for its contents (a size of -1 -1 -1: none given).
#ifndef CS_INLINE_H
#define CS_INLINE_H

#include <string>
#include <vector>

#include "csGroup.h"
#include "csVec.h"

class csInline : public csGroup {
    CS_DECLARE_CLASS_TYPE;

    csInline() = default;

    void setUrl(const std::vector<std::string>& url) { _url = url; }
    const std::vector<std::string>& getUrl() const { return _url; }
    void setBboxCenter(float x, float y, float z) { _bboxCenter.set(x, y, z); }
    const csVec3f& getBboxCenter() const { return _bboxCenter; }
    void setBboxSize(float x, float y, float z) { _bboxSize.set(x, y, z); }
    const csVec3f& getBboxSize() const { return _bboxSize; }

protected:
    ~csInline() override = default;

private:
    std::vector<std::string> _url;
    csVec3f _bboxCenter;
    csVec3f _bboxSize{-1.0f, -1.0f, -1.0f};
};

#endif
