/* The cases of generated.c in a program of C++: each throw then looks at frames too. */
#define WORLD "generated C in a program of C++"
#include "generated.c"
