// Every text that the scene database prints.
#ifndef DATABASE_MESSAGES_H
#define DATABASE_MESSAGES_H

// PROTO instances inside PROTO bodies deeper than the limit.
inline constexpr const char* kExpansionTooDeep =
    "PROTO instances nested more than %d deep (in %.80s): the deeper ones build nothing.\n";

#endif
