#include "loader/zn.h"

int debuglevel = 0;
