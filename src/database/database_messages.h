// Every text that the scene database prints.
#ifndef DATABASE_MESSAGES_H
#define DATABASE_MESSAGES_H

// PROTO instances inside PROTO bodies deeper than the limit.
inline constexpr const char* kExpansionTooDeep =
    "PROTO instances nested more than %d deep (in %.80s): the deeper ones build nothing.\n";

// What the memory limit refuses: a node read from a file (its type), and
// the nodes of a PROTO instance's body (the PROTO's name).
inline constexpr const char* kNodeOverLimit = "A node of type %.80s";
inline constexpr const char* kInstanceOverLimit = "An instance of PROTO %.80s";

#endif
