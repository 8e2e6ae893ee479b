// A second unit with a static object that prints.
#include "says.h"

static says of_other("other");
