// An application interface of class "ui": told of every route that a world
// or a script adds.
#ifndef ZN_UI_INTERFACE_H
#define ZN_UI_INTERFACE_H

#include "base/zn_app_interfaces.h"

class znUIInterface : public znAppInterface {
public:
    virtual void routeAdded(int routeID, const char* fromType, const char* fromName, const char* eventOut,
                            const char* toType, const char* toName, const char* eventIn) = 0;
};

#endif
