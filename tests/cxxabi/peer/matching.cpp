// Which clause takes which exception, and which specification lets it pass: every type of the list is thrown at every
// clause. A clause says what it sees through the reference or pointer that it got, so that a wrong address shows.
// Ambiguous and protected bases, random/hierarchies has.
// prints: 69 lines
// test-variants: -O0 | -O2
#include <exception>
#include <stdexcept>
#include <stdio.h>

// clang-format off
struct base { char tag; base() : tag('b') {} virtual ~base() {} };
struct plain { char tag; plain() : tag('p') {} };
struct second { char tag; second() : tag('s') {} virtual ~second() {} };
struct derived : plain, base { char tag; derived() : tag('d') {} };
struct joined : second, derived { char tag; joined() : tag('j') {} };
struct hidden : private base, second { char tag; hidden() : tag('h') {} };
struct left : virtual base { char tag; left() : tag('l') {} };
struct right : virtual base { char tag; right() : tag('r') {} };
struct diamond : left, right { char tag; diamond() : tag('D') {} };
struct lowest : second, virtual diamond { char tag; lowest() : tag('w') {} };
struct hides_virtually : private virtual base { char tag; hides_virtually() : tag('x') {} };
struct both_ways : hides_virtually, left { char tag; both_ways() : tag('y') {} };  // the public way counts
struct other_way : left, hides_virtually { char tag; other_way() : tag('z') {} };
template <class T> struct box : plain { char tag; box() : tag('o') {} };
namespace { struct local : base { char tag; local() : tag('L') {} }; }
namespace named { struct base : ::base { char tag; base() : tag('n') {} }; }
// clang-format on
struct incomplete;
enum number { zero };
enum other_number { other_zero };
union either {
  int i;
  char c;
};
void function() {}
int other_function(int n) { return n; }
typedef int three[3], (*row)[3];
typedef void (*plain_function)(), decaying(), (plain::*member)(), (plain::*const_member)() const;
typedef int (*int_function)(int), &(*int_maker)();
struct unlisted {};
void instead() { throw unlisted(); }

template <class T> T &the() {
  static T object;
  return object;
}
template <class T> const T &constant() { return the<T>(); }
template <class T> volatile T &changing() { return the<T>(); }

// Throws what has the number; returns how many there are.
static int throw_one(int which) {
  int n = 0;
#define THROW(value) \
  if (which == n++) throw value
  // clang-format off
  THROW(true); THROW('c'); THROW((signed char)1); THROW((unsigned char)1); THROW(L'w'); THROW((short)1);
  THROW((unsigned short)1); THROW(1); THROW(1u); THROW(1L); THROW(1UL); THROW(1LL); THROW(1ULL); THROW(1.0f);
  THROW(1.0); THROW(1.0L); THROW(zero); THROW(other_zero); THROW(either());
  THROW(&the<int>()); THROW(&constant<int>()); THROW(&changing<int>()); THROW((void *)0);
  THROW((const void *)0); THROW("text"); THROW((char *)0); THROW(the<char[3]>()); THROW((int(*)[3])0);
  THROW((int **)0); THROW((int *const *)0); THROW((const int **)0); THROW((const int *const *)0);
  THROW((base **)0); THROW((derived **)0); THROW(function); THROW(other_function);
  THROW((int plain::*)0); THROW((const int plain::*)0); THROW((int derived::*)0); THROW((void (plain::*)())0);
  THROW((void (plain::*)() const)0); THROW((box<int> *)0);
  THROW(base()); THROW(derived()); THROW(joined()); THROW(hidden());
  THROW(diamond()); THROW(lowest()); THROW(both_ways());
  THROW(box<int>()); THROW(box<char>()); THROW(local()); THROW(named::base()); THROW(std::bad_exception());
  THROW(&the<joined>()); THROW(&constant<joined>()); THROW(&changing<joined>()); THROW(&the<hidden>());
  THROW(&the<lowest>()); THROW(&the<both_ways>()); THROW((joined *)0);
  THROW(constant<joined>()); THROW((lowest *)0); THROW(other_way());
  THROW((int plain::**)0); THROW((int plain::*const *)0); THROW((plain_function *)0); THROW((int ***)0);
  THROW((int *__restrict *)0);
  // clang-format on
  return n;
}

#define CLAUSE(type, seen)                                           \
  {                                                                  \
    struct specified {                                               \
      static void run(int n) throw(type, unlisted) { throw_one(n); } \
    };                                                               \
    char got = '.';                                                  \
    try {                                                            \
      throw_one(which);                                              \
    } catch (type c) { got = seen; } catch (...) {                   \
    }                                                                \
    putchar(got);                                                    \
    try {                                                            \
      specified::run(which);                                         \
    } catch (unlisted) { got = '.'; } catch (...) {                  \
      got = got == '.' ? '!' : got;                                  \
    }                                                                \
    if (got == '!') printf(" passes " #type " ");                    \
    taken += got != '.';                                             \
  }
#define SAME(type) CLAUSE(type, '#')
#define CLASS(type)                                \
  CLAUSE(type &, c.tag)                            \
  CLAUSE(const type, c.tag)                        \
  CLAUSE(type *, c ? c->tag : '0')                 \
  CLAUSE(const type *, c ? c->tag : '0')           \
  CLAUSE(volatile type *const &, c ? c->tag : '0') \
  CLAUSE(const volatile type *const, c ? c->tag : '0')

int main() {
  std::set_unexpected(instead);
  for (int which = 0, count = throw_one(-1); which < count; ++which) {
    int taken = 0;
    printf("%2d ", which);
    // clang-format off
    SAME(bool) SAME(char) SAME(signed char) SAME(unsigned char) SAME(wchar_t) SAME(const short &) SAME(unsigned short)
    SAME(int) SAME(const int &) SAME(unsigned) SAME(long) SAME(unsigned long) SAME(long long) SAME(unsigned long long)
    SAME(float) SAME(double) SAME(long double) SAME(number) SAME(other_number) SAME(either &)
    putchar(' ');
    SAME(int *) SAME(const int *) SAME(volatile int *) SAME(const volatile int *) SAME(void *) SAME(const void *)
    SAME(volatile void *const &) SAME(char *) SAME(const char *) SAME(three) SAME(row) SAME(int **)
    SAME(int *const *) SAME(const int **) SAME(const int *const *) SAME(base **) SAME(derived **) SAME(void **)
    SAME(const base *const *) SAME(plain_function) SAME(int_function) SAME(decaying) SAME(int_maker) SAME(incomplete **)
    SAME(int plain::*) SAME(const int plain::*) SAME(int derived::*) SAME(member)
    SAME(const_member) SAME(box<char> *) SAME(int plain::*const *) SAME(int derived::*const *)
    SAME(const int plain::*const *) SAME(plain_function const *) SAME(int_function const *) SAME(const int **const *)
    SAME(const int *const *const *) SAME(int *__restrict *)
    putchar(' ');
    CLASS(base) CLASS(plain) CLASS(second) CLASS(derived) CLASS(joined) CLASS(hidden)
    putchar(' ');
    CLASS(left) CLASS(diamond) CLASS(hides_virtually) CLASS(box<int>)
    CLAUSE(local &, c.tag) CLAUSE(named::base &, c.tag) SAME(std::exception &) SAME(std::logic_error &)
        // clang-format on
        printf(" %d\n", taken);
  }
  return 0;
}
