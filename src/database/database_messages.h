// Every text that the scene database prints.
#ifndef DATABASE_MESSAGES_H
#define DATABASE_MESSAGES_H

// A name that does not fit a record's fixed name field is refused.
inline constexpr const char* kNameTooLongForRecord = "Name longer than %d characters refused: %.80s...";

#endif
