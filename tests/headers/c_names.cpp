// The C headers as C++ wants them: names in std are functions, const-correct forms, forms for each arithmetic type;
// jumps leave try blocks, functions and static objects end in one order, <cassert> follows NDEBUG at each inclusion.
// What a header promises by types is checked by types.
// test-variants: -O0 -std=gnu++98 | -O2 -std=c++98 -D_FORTIFY_SOURCE=2 | -O1 -std=gnu++11 | -O2 -std=gnu++20
#undef NDEBUG
#include <cassert>
#include <cctype>
#include <cerrno>
#include <cfloat>
#include <ciso646>
#include <climits>
#include <clocale>
#include <cmath>
#include <csetjmp>
#include <csignal>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <cwchar>
#include <cwctype>

#include "harness.h"

static void fails() { assert(test_checks < 0); }
#define NDEBUG
#include <cassert>
static void passes() { assert(test_checks < 0); }

// What an expression's type is, as a letter.
static char type_of(int) { return 'i'; }
static char type_of(long) { return 'l'; }
static char type_of(float) { return 'f'; }
static char type_of(double) { return 'd'; }
static char type_of(long double) { return 'e'; }
static char type_of(char *) { return 'p'; }
static char type_of(const char *) { return 'c'; }
static char type_of(void *) { return 'v'; }
static char type_of(const void *) { return 'w'; }
static char type_of(div_t) { return '2'; }
static char type_of(ldiv_t) { return '3'; }

static const char *joined(const char *format, ...) {
  static char text[32];
  std::va_list arguments;
  va_start(arguments, format);
  std::vsprintf(text, format, arguments);
  va_end(arguments);
  return text;
}

// A macro in place of any of these would not compile.
static void functions() {
  int (*classify)(int) = &std::isalpha, (*lower)(int) = std::tolower;
  int (*get)(std::FILE *) = &std::getc;
  int (*put)(int, std::FILE *) = &std::putc;
  double (*root)(double) = &std::sqrt;
  float (*root_of_float)(float) = &std::sqrt;
  void (*leave)(int) = &std::exit;
  int (*at)(void (*)()) = &std::atexit;
  void (*jump)(std::jmp_buf, int) = &std::longjmp;
  std::size_t (*length)(const char *) = &std::strlen;
  CHECK(classify('a') && lower('Q') == 'q' && root(4.0) == 2.0 && root_of_float(9.0f) == 3.0f && length("four") == 4);
  CHECK(get != 0 && put != 0 && leave != 0 && at != 0 && jump != 0);

  errno = 0;
  CHECK(std::strtol("99999999999", 0, 10) == LONG_MAX and errno == ERANGE);
  std::time_t start = 0;
  CHECK(std::gmtime(&start)->tm_year == 70 && CHAR_BIT == 8 && DBL_DIG == 15 && sizeof(std::ptrdiff_t) == 4);
  CHECK(strcmp(joined("%d-%s", 3, "x"), "3-x") == 0 && std::wcslen(L"wide") == 4 && std::iswalpha(L'w'));
  CHECK(strcmp(std::setlocale(LC_ALL, 0), "C") == 0 && strcmp(std::localeconv()->decimal_point, ".") == 0);
  CHECK(std::signal(SIGUSR1, SIG_IGN) == SIG_DFL && std::raise(SIGUSR1) == 0);
}

static void forms() {
  char text[] = "abc";
  const char *fixed = text;
  void *block = text;
  const void *fixed_block = text;
  const char found[] = {
      type_of(std::strchr(text, 'b')),           type_of(std::strchr(fixed, 'b')), type_of(std::strrchr(text, 'b')),
      type_of(std::strrchr(fixed, 'b')),         type_of(std::strpbrk(text, "b")), type_of(std::strpbrk(fixed, "b")),
      type_of(std::strstr(text, "b")),           type_of(std::strstr(fixed, "b")), type_of(std::memchr(block, 'b', 3)),
      type_of(std::memchr(fixed_block, 'b', 3)), type_of(strchr(fixed, 'b')),      0};
  CHECK_TEXT(found, "pcpcpcpcvwc");
  const float f = 2.25f;
  const double d = 2.25;
  const long double e = 2.25L;
  float whole = 0;
  const char types[] = {
      type_of(std::sqrt(f)),   type_of(std::sqrt(d)),     type_of(std::sqrt(e)),         type_of(std::sqrt(4)),
      type_of(sqrt(4L)),       type_of(std::pow(f, f)),   type_of(std::pow(d, 2)),       type_of(std::pow(e, 2)),
      type_of(std::pow(f, d)), type_of(std::pow(2, f)),   type_of(std::pow(2, e)),       type_of(std::pow(2, 10)),
      type_of(pow(2, 0.5)),    type_of(std::fmod(e, d)),  type_of(std::abs(-f)),         type_of(std::abs(-d)),
      type_of(std::abs(-e)),   type_of(std::abs(-2)),     type_of(std::abs(-2L)),        type_of(abs(-2.5)),
      type_of(std::div(7, 2)), type_of(std::div(7L, 2L)), type_of(std::modf(f, &whole)), 0};
  CHECK_TEXT(types, "fdeddfdeddeddefdeild23f");
  CHECK(std::sqrt(4u) == 2.0 && std::sqrt(f) == 1.5f && std::sqrt(e) == 1.5L && std::floor(short(3)) == 3.0);
  CHECK(type_of(std::pow(f, 2)) == (__cplusplus < 201103L ? 'f' : 'd'));
  CHECK(std::pow(2, 10) == 1024.0 && std::pow(f, 2) == 5.0625f && std::pow(10.0, -2) == 0.01);
  CHECK(std::fmod(7, 4) == 3.0 && std::atan2(0.0f, f) == 0.0f && std::div(-7L, 2L).rem == -1);
  __extension__ const long long huge = -5000000000LL;
  CHECK(std::abs(huge) == -huge && abs(-2.5) == 2.5 && std::abs(-2L) == 2 && std::abs(-0.5f) == 0.5f);
  int exponent = 0;
  CHECK(std::frexp(8.0f, &exponent) == 0.5f && exponent == 4 && std::frexp(16, &exponent) == 0.5 && exponent == 5);
  CHECK(std::ldexp(e, 1) == 4.5L && std::ldexp(3, 2) == 12.0 && std::modf(f, &whole) == 0.25f && whole == 2.0f);
}

static std::jmp_buf place;
static volatile int visits;

// A function of the user's with a try block is left by the jump; the next exception must find its handler.
static void leave_a_try() {
  try {
    std::longjmp(place, visits == 1 ? 0 : 7);
  } catch (int) { CHECK(!"a handler of a frame that is gone"); }
}
static void jumps() {
  const int got = setjmp(place);
  visits = visits + 1;
  CHECK_INT(got, visits == 1 ? 0 : visits == 2 ? 1 : 7);  // a value of 0 becomes 1
  if (visits < 3) leave_a_try();
  try {
    throw 3;
  } catch (int k) { CHECK_INT(k, visits); }
}

static void say(const char *word) {
  std::fputs(word, stdout);
  std::fflush(stdout);
}
static void first_function() { say("first "); }
static void second_function() { say("second "); }
struct announced {
  const char *name;
  explicit announced(const char *n) : name(n) {}
  ~announced() { say(name); }
};
// Newest first.
static void exits() {
  std::atexit(first_function);
  static announced object("object ");
  atexit(second_function);
  static announced late("late ");
  try {
    std::exit(3);
  } catch (...) { say("caught "); }
}

int main() {
  functions();
  forms();
  jumps();
  CHECK_ENDS(exits, 3, "late second object first ");
  CHECK_ABORTS(fails, "test_checks < 0");
  CHECK_ENDS(passes, 0, "");
  return TEST_RESULT();
}
