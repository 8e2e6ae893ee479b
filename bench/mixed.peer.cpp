// The peers' side of mixed.c.
#define WORLD "generated C in a program of C++"
#include "generated.peer.cpp"
