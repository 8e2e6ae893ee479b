// std::bad_alloc, and the default new handler that throws it. Nothing here allocates.
//
// All objects answer with one text, bad_alloc::alloc_msg. It is a string whose representation is static and keeps a
// reference of its own, so what() works before any static object was made and after all were destroyed.

#include <new>

#include <string>

#include <plx/runtime.h>

#include "../libC/above.h"
#include "throw_object.h"

namespace {

char text[33] = "Allocation Failure";
__zor::b_str_ref representation = {{}, 2, text, 18, 32, sizeof text, 0};

void destroy_message(void *message, int) { static_cast<std::string *>(message)->~basic_string(); }

}  // namespace

// A string is one pointer to its representation: so it needs no code to be made.
extern "C" PLX_API __zor::b_str_ref *bad_alloc_message __asm__("_ZNSt9bad_alloc9alloc_msgE");
__zor::b_str_ref *bad_alloc_message = &representation;

namespace {

static_assert(sizeof(std::string) == sizeof bad_alloc_message, "a string is one pointer");

}  // namespace

a_needed_destruction __zor::oldest_needed_destruction = {PLX_END_OF_DESTRUCTIONS, &bad_alloc_message, destroy_message};

namespace std {

bad_alloc::bad_alloc() PLX_NOTHROW {}
bad_alloc::bad_alloc(const bad_alloc &) PLX_NOTHROW : exception() {}
bad_alloc &bad_alloc::operator=(const bad_alloc &) PLX_NOTHROW { return *this; }
bad_alloc::~bad_alloc() PLX_NOTHROW {}
const char *bad_alloc::what() const PLX_NOTHROW { return representation.data; }

}  // namespace std

void __default_new_handler() { __zor::throw_object<std::bad_alloc>(__TI_St9bad_alloc); }
