// Throwing an object of one of the library's own classes, written once for all throw helpers: storage from the runtime,
// the object built in it, then the throw. What building needs is protected as eh_local, since unwinding starts below.
#pragma once

#include <stdlib.h>

#include <new>
#include <string>

#include <plx/runtime.h>

#include "../libC/eh_tools.h"

namespace __zor {

template <class T> void destroy_thrown(void *object, int) { static_cast<T *>(object)->T::~T(); }

template <class T> void *thrown_storage(const a_type_info_impl &type) {
  return __throw_setup_dtor(&type, sizeof(T), 0, destroy_thrown<T>);
}

// T's constructor must not throw anything but what may replace the intended exception.
template <class T, class... Arguments>
[[noreturn]] void throw_object(const a_type_info_impl &type, const Arguments &...arguments) {
  new (thrown_storage<T>(type)) T(arguments...);
  __throw();
  abort();
}

// The message is gone before the throw, which then finds nothing to unwind here. Inline: one frame less to cross.
template <class T> [[noreturn]] PLX_ALWAYS_INLINE void throw_with_text(const a_type_info_impl &type, const char *text) {
  void *storage = thrown_storage<T>(type);
  {
    eh_local<std::string> message(text);
    new (storage) T(message.get());
  }
  __throw();
  abort();
}

}  // namespace __zor
