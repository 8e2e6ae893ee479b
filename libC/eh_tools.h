// The library's own part in the eh-stack protocol. Library code has no try, catch or throw; it uses these four tools,
// and nothing else in the library touches an an_eh_stack_entry:
//
//   eh_local<T>           a local with a destructor that is alive across anything that may throw
//   eh_specification      a function with an exception specification
//   eh_guard(body)        a body whose exceptions are discarded
//   eh_try(list, body, handler)   a body and one handler for the clauses of a list
//
// The bodies are lambdas. They run behind a function that is never inlined and holds the only setjmp, so no local of
// the caller lives in a register across it.
#pragma once

#include <new>

#include <plx/runtime.h>

namespace __zor {

// A T that unwinding destroys. It must live in the frame of a function, innermost last.
template <class T> class eh_local {
public:
  template <class... Arguments> explicit eh_local(const Arguments &...arguments) {
    new (storage_) T(arguments...);
    address_ = storage_;
    entry_.kind = PLX_EH_FUNCTION;
    entry_.body.function.region_table = &region;
    entry_.body.function.object_addresses = &address_;
    entry_.body.function.array_table = nullptr;
    entry_.body.function.saved_region = __eh_curr_region;
    entry_.next = __curr_eh_stack_entry;
    __curr_eh_stack_entry = &entry_;
    __eh_curr_region = 0;
  }
  ~eh_local() {
    __curr_eh_stack_entry = entry_.next;
    __eh_curr_region = entry_.body.function.saved_region;
    get().~T();
  }
  eh_local(const eh_local &) = delete;
  eh_local &operator=(const eh_local &) = delete;

  T &get() { return *reinterpret_cast<T *>(storage_); }
  T &operator*() { return get(); }
  T *operator->() { return &get(); }

private:
  static void destroy(void *object, int) { static_cast<T *>(object)->~T(); }
  static const a_region_record region;

  an_eh_stack_entry entry_;
  void *address_;
  alignas(T) char storage_[sizeof(T)];
};

template <class T>
const a_region_record eh_local<T>::region = {reinterpret_cast<a_routine>(destroy), 0, PLX_NO_REGION, 0};

// While it lives, only the listed types may leave; null: none.
class eh_specification {
public:
  explicit eh_specification(const an_exception_type_specification *allowed) {
    entry_.kind = PLX_EH_SPECIFICATION;
    entry_.body.specification.allowed_list = allowed;
    entry_.next = __curr_eh_stack_entry;
    __curr_eh_stack_entry = &entry_;
  }
  ~eh_specification() { __curr_eh_stack_entry = entry_.next; }
  eh_specification(const eh_specification &) = delete;
  eh_specification &operator=(const eh_specification &) = delete;

private:
  an_eh_stack_entry entry_;
};

// Runs body(body_data). When it throws what the list names, runs handler(handler_data, object), ends the exception and
// returns the clause's number; returns 0 when nothing was thrown.
int eh_try_erased(const an_exception_type_specification *list, void (*body)(void *), void *body_data,
                  void (*handler)(void *, void *), void *handler_data);

extern const an_exception_type_specification eh_catch_all;

template <class Body, class Handler>
int eh_try(const an_exception_type_specification *list, Body body, Handler handler) {
  return eh_try_erased(
      list, [](void *data) { (*static_cast<Body *>(data))(); }, &body,
      [](void *data, void *object) { (*static_cast<Handler *>(data))(object); }, &handler);
}

// Returns whether an exception was thrown; it is discarded.
template <class Body> bool eh_guard(Body body) {
  return eh_try(&eh_catch_all, body, [](void *) {}) != 0;
}

}  // namespace __zor
