// std::nothrow (1998, 18.4.1). A program that brings its own nothrow operator new needs it all the same.

#include <new>

const std::nothrow_t std::nothrow = {};
