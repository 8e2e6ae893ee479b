// Identity objects of descriptors in objects that were loaded apart.
#pragma once

namespace __zor {

// Whether both addresses are of one symbol, exported by two objects.
bool are_exported_alike(const char *left, const char *right);

}  // namespace __zor
