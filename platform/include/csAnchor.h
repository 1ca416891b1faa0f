// A group whose children lead somewhere when picked: the URLs of the
// target, in order of preference, a description to show the user, and
// parameters for whoever opens the target. URLs are kept as the world
// wrote them; a relative one is relative to the world's file.
#ifndef CS_ANCHOR_H
#define CS_ANCHOR_H

#include <string>
#include <vector>

#include "csGroup.h"

class csAnchor : public csGroup {
    CS_DECLARE_CLASS_TYPE;

    csAnchor() = default;

    void setUrl(const std::vector<std::string>& url) { _url = url; }
    const std::vector<std::string>& getUrl() const { return _url; }
    void setDescription(const std::string& description) { _description = description; }
    const std::string& getDescription() const { return _description; }
    void setParameter(const std::vector<std::string>& parameter) { _parameter = parameter; }
    const std::vector<std::string>& getParameter() const { return _parameter; }

protected:
    ~csAnchor() override = default;

private:
    std::vector<std::string> _url;
    std::string _description;
    std::vector<std::string> _parameter;
};

#endif
