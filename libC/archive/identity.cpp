// A static program has one identity object for a type.

#include "../identity.h"

bool __zor::are_exported_alike(const char *, const char *) { return false; }
