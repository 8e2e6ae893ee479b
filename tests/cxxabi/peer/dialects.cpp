// What later dialects bring to exceptions: nullptr and the new characters as exceptions, pointers to noexcept
// functions, alignment, thread_local. Ends by noexcept, cxxabi/terminate has.
// prints: 2 lines
// test-variants: -O0 -std=gnu++11 | -O2 -std=gnu++17 | -O1 -std=gnu++20
#include <exception>
#include <new>
#include <stdio.h>
#include <typeinfo>

struct part;
template <class First, class Second, class T> static const char *which(T value) {
  try {
    throw value;
  } catch (First) { return "first "; } catch (Second) {
    return "second ";
  } catch (...) { return "- "; }
}
#ifndef __cpp_char8_t
typedef char char8_t;
#endif
static void quiet_function() noexcept {}
static void plain_function() {}
static void objects() {
  try {
    throw nullptr;
  } catch (int part::*p) { printf("%d ", p == nullptr); }
  printf("%s", which<int, decltype(nullptr)>(nullptr));
  printf("%s", which<int *const &, const char *>(nullptr));
  printf("%s", which<int, int part::*>(nullptr));
  printf("%s", which<int, void (part::*)()>(nullptr));
  printf("%s", which<unsigned short, char16_t>(char16_t('x')));
  printf("%s", which<unsigned, char32_t>(char32_t('x')));
  printf("%s", which<unsigned char, char8_t>(char8_t('z')));
  printf("%s", which<void (*)(), int>(quiet_function));
  printf("%s", which<void (*)() noexcept, void (*)()>(plain_function));
  printf("%s\n", which<void (*)(int) noexcept, void (*)() noexcept>(&quiet_function));
}

// ---- alignment of what is allocated, and of exceptions

template <int To> struct alignas(To) aligned {
  char bytes[To];
  ~aligned() {}
};
#ifdef PLX_CONFIG_H
const unsigned most_alignment = 4096;
#else
const unsigned most_alignment = 16;  // of the host's exceptions
#endif
template <class T> static bool fits(T *p) {
  return p && (alignof(T) > most_alignment || reinterpret_cast<unsigned long>(p) % alignof(T) == 0);
}
template <class T> static void throw_and_check() {
  try {
    throw T();
  } catch (T &t) { putchar('0' + fits(&t)); }
}
template <class T> static bool no_memory(T allocate) {
  try {
    return allocate() == nullptr;
  } catch (std::bad_alloc &) { return true; }
}
static volatile size_t too_much = 0xF0000000u;
template <class T> static void all_aligned() {
  try {
    throw 'c';  // eight bytes, which shift the next
  } catch (char) {
    throw_and_check<T>();
    try {
      throw 'd';
    } catch (char &c) { putchar('0' + (reinterpret_cast<unsigned long>(&c) % 16 == 0)); }
  }
  try {
    throw T();
  } catch (T &outer) {
    throw_and_check<T>();
    putchar('0' + fits(&outer));
  }
#if __cplusplus >= 201703L
  T *volatile kept[2][9];  // volatile: compilers take allocations away
  for (int i = 0; i < 9; ++i) {
    kept[0][i] = new T;
    kept[1][i] = new (std::nothrow) T[3];
    for (int form = 0; form < 2; ++form)
      if (!fits(kept[form][i])) printf("wrong%d ", form);
  }
  for (int i = 0; i < 9; ++i) {
    delete kept[0][i];
    delete[] kept[1][i];
  }
  constexpr std::align_val_t alignment{alignof(T)};
  if (!no_memory([=] { return ::operator new(too_much, alignment); })) printf("got it ");
  if (!no_memory([=] { return ::operator new(too_much, alignment, std::nothrow); })) printf("got it ");
#endif
}
extern "C" void __cxa_throw_bad_array_new_length();  // some compilers call it
struct noisy {
  int n = 77;
  ~noisy() { printf("~%d ", n); }
};
static thread_local noisy thread_object;
struct unknown;
struct as_unknown;

int main() {
  objects();
  all_aligned<aligned<16> >();
  all_aligned<aligned<32> >();
  all_aligned<aligned<128> >();
  if (!no_memory([] { return __cxa_throw_bad_array_new_length(), nullptr; })) printf("got it");
  printf(" %d %d ", typeid(int) == typeid(const int), thread_object.n);
  printf("%d %d\n", typeid(unknown *) == typeid(unknown *), typeid(unknown *) == typeid(as_unknown *));
  return 0;
}
