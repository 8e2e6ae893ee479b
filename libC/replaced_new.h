// Whether the program brought its own operator new or operator delete (1998, 17.4.3.4). Then every allocation of the
// library goes through them, and no block may come from anywhere else.
#pragma once

namespace __zor {

bool operator_new_is_replaced();

// One of those, or of operator new[] and operator delete[].
bool array_operator_new_is_replaced();

}  // namespace __zor
