// What later dialects bring to exceptions: noexcept, move construction of the exception object, nullptr and the new
// characters as exceptions, destructors that are noexcept by themselves, alignment, thread_local.
// prints: 8 lines
// test-variants: -O0 -std=gnu++11 | -O2 -std=gnu++17 | -O1 -std=gnu++20
#include <exception>
#include <new>
#include <stdio.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <typeinfo>
#include <unistd.h>

struct noisy {
  int n;
  explicit noisy(int k) : n(k) {}
  ~noisy() { printf("~%d ", n); }
};
static void thrower(int n) {
  noisy local(n);
  if (n) throw n;
}
static void (*volatile hidden)(int) = thrower;

// ---- each of these ends the program when n is not 0

static void never(int n) noexcept { hidden(n); }
struct quiet_destructor {
  int n;
  ~quiet_destructor() { hidden(n); }
};
static void destructor(int n) { quiet_destructor d{n}; }
static void from_handler(int n) noexcept {
  try {
    throw n;
  } catch (int) {
    if (n) throw;
  }
}
static void with_cleanup(int n) noexcept {
  noisy outer(7);
  hidden(n);
}
static void handles_inside(int n) noexcept {
  try {
    hidden(n);
  } catch (int k) { printf("in%d ", k); }
}
static void may(int n) noexcept(false) { hidden(n); }
static void (*const functions[])(int) = {never, destructor, from_handler, with_cleanup, handles_inside, may};
static void terminate() {
  printf("terminate%d", 1);
  fflush(stdout);
  _exit(3);
}
static void ends() {
  for (auto function : functions) {
    fflush(stdout);
    int status = 0;
    if (fork() == 0) {
      try {
        function(0);
        function(4);
      } catch (int n) { printf("caught%d", n); }
      fflush(stdout);
      _exit(0);
    }
    wait(&status);
    printf(" %d\n", status >> 8);
  }
}

// ---- the exception object

struct movable {
  int n;
  explicit movable(int k) : n(k) {}
  movable(const movable &o) : n(o.n + 100) {}
  movable(movable &&o) noexcept : n(o.n + 1000) { o.n = 0; }
};
struct move_only {
  int n;
  explicit move_only(int k) : n(k) {}
  move_only(move_only &&o) noexcept : n(o.n + 1000) {}
};
enum class scoped : short { a = 3 };
struct incomplete;
template <class First, class Second, class T> static const char *which(T value) {
  try {
    throw value;
  } catch (First) { return "first "; } catch (Second) {
    return "second ";
  } catch (...) { return "- "; }
}
template <class T> static void moved() {
  try {
    T local(5);
    throw local;
  } catch (T &m) { printf("%d ", m.n); }
}
#ifndef __cpp_char8_t
typedef char char8_t;
#endif
static void quiet_function() noexcept {}
static void plain_function() {}
static void objects() {
  moved<movable>();
  moved<move_only>();
  try {
    throw nullptr;
  } catch (int movable::*p) { printf("%d ", p == nullptr); }
  printf("%s", which<int, decltype(nullptr)>(nullptr));
  printf("%s", which<int, const char *>(nullptr));
  printf("%s", which<int *const &, void *>(nullptr));
  printf("%s", which<int, int movable::*>(nullptr));
  printf("%s", which<int, void (movable::*)()>(nullptr));
  printf("%s", which<unsigned short, char16_t>(char16_t('x')));
  printf("%s", which<unsigned, char32_t>(char32_t('x')));
  printf("%s", which<short, scoped>(scoped::a));
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
template <class T> struct throws_at_end {
  ~throws_at_end() { throw_and_check<T>(); }
};
template <class T> static bool no_memory(T allocate) {
  try {
    return allocate() == nullptr;
  } catch (std::bad_alloc &) { return true; }
}
static volatile size_t too_much = 0xF0000000u;
template <class T> static void all_aligned() {
  try {
    throws_at_end<T> at_end;
    throw T();
  } catch (T &outer) {
    throw_and_check<T>();
    putchar('0' + fits(&outer));
  }
#if __cplusplus >= 201703L
  T *volatile kept[4][9];  // volatile: compilers take allocations away
  for (int i = 0; i < 9; ++i) {
    kept[0][i] = new T;
    kept[1][i] = new T[3];
    kept[2][i] = new (std::nothrow) T;
    kept[3][i] = new (std::nothrow) T[3];
    for (int form = 0; form < 4; ++form)
      if (!fits(kept[form][i])) printf("wrong%d ", form);
  }
  for (int i = 0; i < 9; ++i) {
    delete kept[0][i];
    delete[] kept[1][i];
    delete kept[2][i];
    delete[] kept[3][i];
  }
  constexpr std::align_val_t alignment{alignof(T)};
  if (!no_memory([=] { return ::operator new(too_much, alignment); })) printf("got it ");
  if (!no_memory([=] { return ::operator new(too_much, alignment, std::nothrow); })) printf("got it ");
#endif
}
struct large {
  char bytes[1 << 20];
};
extern "C" void __cxa_throw_bad_array_new_length();  // some compilers call it, others ask for too much
static thread_local noisy thread_object(77);

int main() {
  std::set_terminate(terminate);
  ends();
  objects();
  all_aligned<aligned<16> >();
  all_aligned<aligned<32> >();
  all_aligned<aligned<128> >();
  const auto fail = [] {
    __cxa_throw_bad_array_new_length();
    return static_cast<void *>(&thread_object);
  };
  volatile unsigned many = 0x10000;
  const auto ask_for_much = [&] {
    large *volatile taken = new large[many];
    return taken;
  };
  if (!no_memory(fail) || !no_memory(ask_for_much)) printf("got it");
  printf(" %d %d\n", typeid(int) == typeid(const int), thread_object.n);
  return noexcept(never(1)) + noexcept(may(1)) + noexcept(quiet_destructor()) - 2;
}
