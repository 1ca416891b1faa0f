// How the viewer moves through the scene: the avatar's collision distance,
// eye height and step height, the navigation types in order of preference
// ("WALK", "EXAMINE", "FLY", "NONE", "ANY"), the speed in units per second,
// whether the headlight is on, and the farthest distance worth drawing
// (0: no limit).
#ifndef CS_NAVIGATION_INFO_H
#define CS_NAVIGATION_INFO_H

#include <string>
#include <vector>

#include "csNode.h"

class csNavigationInfo : public csNode {
    CS_DECLARE_CLASS_TYPE;

    csNavigationInfo() = default;

    void setAvatarSize(const std::vector<float>& size) { _avatarSize = size; }
    const std::vector<float>& getAvatarSize() const { return _avatarSize; }
    void setHeadlight(bool on) { _headlight = on; }
    bool getHeadlight() const { return _headlight; }
    void setSpeed(float speed) { _speed = speed; }
    float getSpeed() const { return _speed; }
    void setTypes(const std::vector<std::string>& types) { _types = types; }
    const std::vector<std::string>& getTypes() const { return _types; }
    void setVisibilityLimit(float limit) { _visibilityLimit = limit; }
    float getVisibilityLimit() const { return _visibilityLimit; }

protected:
    ~csNavigationInfo() override = default;

private:
    std::vector<float> _avatarSize{0.25f, 1.6f, 0.75f};
    bool _headlight = true;
    float _speed = 1.0f;
    std::vector<std::string> _types{"WALK", "ANY"};
    float _visibilityLimit = 0.0f;
};

#endif
