// A group whose light list scopes lights to its children. The loader's root.
#ifndef CS_ENVIRONMENT_H
#define CS_ENVIRONMENT_H

#include "csGroup.h"

class csEnvironment : public csGroup {
    CS_DECLARE_CLASS_TYPE;

    enum { LIGHTS = 3 };

    csEnvironment() = default;

    csMFRef& lights() { return _lights; }
    const csMFRef& lights() const { return _lights; }

    csField* getField(short number) override;

protected:
    ~csEnvironment() override = default;

private:
    csMFRef _lights;
};

#endif
