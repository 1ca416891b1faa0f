#include "csBackground.h"

CS_DEFINE_CLASS_TYPE(csBackground, csNode)

void csBackground::setUrl(Side side, const std::vector<std::string>& url) {
    if (side >= 0 && side < SIDES) _urls[side] = url;
}

const std::vector<std::string>& csBackground::getUrl(Side side) const {
    static const std::vector<std::string> none;
    return side >= 0 && side < SIDES ? _urls[side] : none;
}
