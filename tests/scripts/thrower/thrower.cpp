// A compiled Script for the tests whose making throws, as faulty code of a
// host's own may.
#include <stdexcept>

#include "nodes/zn_vrml.h"

extern "C" Script* throwerInitialize(znInternal*) { throw std::runtime_error("a script that throws"); }
