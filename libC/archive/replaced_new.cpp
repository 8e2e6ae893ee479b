// In programs that libplx.a is linked into: the library's own functions are there only where the program has none.

#include "../replaced_new.h"

#include <new>

namespace __zor {

extern const char own_operator_new __attribute__((__weak__));
extern const char own_operator_delete __attribute__((__weak__));
extern const char own_operator_new_array __attribute__((__weak__));
extern const char own_operator_delete_array __attribute__((__weak__));

// Weak references take nothing in: these do, where nothing else in the program asks for the functions.
__attribute__((__used__)) void *(*const allocate[])(size_t) = {operator new, operator new[] };
__attribute__((__used__)) void (*const deallocate[])(void *) = {operator delete, operator delete[] };

bool finds_replaced_new() { return !&own_operator_new || !&own_operator_delete; }

bool finds_replaced_array_new() { return !&own_operator_new_array || !&own_operator_delete_array; }

}  // namespace __zor
