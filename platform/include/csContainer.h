// A scene-graph object with numbered fields.
#ifndef CS_CONTAINER_H
#define CS_CONTAINER_H

#include "csFields.h"
#include "csObject.h"

class csContainer : public csObject {
    CS_DECLARE_CLASS_TYPE;

    // The field with this number, or null when the class has none such.
    virtual csField* getField(short number);
    // Brings a lazily kept field up to date before it is read. Fields of the
    // classes here are always current, so the base does nothing.
    virtual void validateField(short number);

protected:
    csContainer() = default;
    ~csContainer() override = default;
};

#endif
