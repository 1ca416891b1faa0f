// The 32-bit handles that `action` answers. A back-end object is a pointer,
// which does not fit the handle on a 64-bit host, so each object that an
// `action` hands out has a number, and the caller turns the number back into
// the object. 0 stands for null. A scene-graph object's handle is its own
// and finds nothing once the object is gone; a matrix keeps its number for
// the life of the process. A handle keeps nothing alive.
#ifndef OPT_HANDLE_TABLE_H
#define OPT_HANDLE_TABLE_H

#include "csObject.h"

class csMatrix4f;

class optHandleTable {
public:
    // The handle of a scene-graph object or of a matrix; 0 for null.
    static int handleOf(csObject* object);
    static int handleOf(csMatrix4f* matrix);

    // What a handle stands for. Null for 0, for a number never handed out,
    // and for a handle of the other kind: a matrix is never taken for a
    // scene-graph object, nor the other way round.
    static csObject* objectOf(int handle);
    static csMatrix4f* matrixOf(int handle);

    // The object of a handle when it is of class T (subclasses included),
    // else null.
    template <class T>
    static T* objectOf(int handle) {
        csObject* object = objectOf(handle);
        return object && object->isOfType(T::getClassType()) ? static_cast<T*>(object) : nullptr;
    }
};

#endif
