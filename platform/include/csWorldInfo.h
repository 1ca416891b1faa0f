// What a world says about itself: a title and lines of information.
// Nothing to draw.
#ifndef CS_WORLD_INFO_H
#define CS_WORLD_INFO_H

#include <string>
#include <vector>

#include "csNode.h"

class csWorldInfo : public csNode {
    CS_DECLARE_CLASS_TYPE;

    csWorldInfo() = default;

    void setTitle(const std::string& title) { _title = title; }
    const std::string& getTitle() const { return _title; }
    void setInfo(const std::vector<std::string>& info) { _info = info; }
    const std::vector<std::string>& getInfo() const { return _info; }

protected:
    ~csWorldInfo() override = default;

private:
    std::string _title;
    std::vector<std::string> _info;
};

#endif
