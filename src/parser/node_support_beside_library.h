// Where an installed loader keeps its Node Support file: in the data folder
// that the install puts beside the library's own folder, so that a program
// linked against an install reads it with no environment set.
#ifndef ZN_NODE_SUPPORT_BESIDE_LIBRARY_H
#define ZN_NODE_SUPPORT_BESIDE_LIBRARY_H

// The path of that file when it can be read, else null. Found once, from
// where this library was loaded from, and kept for the life of the process.
const char* nodeSupportBesideLibrary();

#endif
