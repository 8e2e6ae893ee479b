// What typeid and type_info say, and dynamic_cast while constructors and destructors run.
// prints: 6 lines
// test-variants: -O0 | -O2
#include <stdio.h>
#include <string.h>
#include <typeinfo>

// clang-format off
struct base { int tag; virtual ~base() {} };
struct second { int tag; virtual ~second() {} };
struct third { int tag; virtual ~third() {} };
struct part { int tag; };
struct derived : base { int more; };
// clang-format on

// What a part is while its constructor and destructor run.
struct asks : third {
  asks() { ask("asks"); }
  ~asks() { ask("~asks"); }
  void ask(const char *when);
};
struct asks_more : second, asks {
  int n;
  asks_more() { ask("more"); }
  ~asks_more() { ask("~more"); }
};
struct asks_most : base, asks_more {
  asks_most() { ask("most"); }
};
void asks::ask(const char *when) {
  printf("%s: %s %d %d %d %d\n", when, typeid(*this).name(), dynamic_cast<second *>(this) != 0,
         dynamic_cast<asks_more *>(this) != 0, dynamic_cast<base *>(this) != 0, dynamic_cast<void *>(this) == this);
}

static int evaluated;
template <class T> static T &evaluate(T &object) { return ++evaluated, object; }

int main() {
  derived p;
  { asks_most m; }

  const std::type_info *types[] = {&typeid(int),
                                   &typeid(const int),
                                   &typeid(int &),
                                   &typeid(int *),
                                   &typeid(const int *),
                                   &typeid(int *const),
                                   &typeid(char),
                                   &typeid(signed char),
                                   &typeid(wchar_t),
                                   &typeid(int[3]),
                                   &typeid(int[4]),
                                   &typeid(void),
                                   &typeid(void (*)(int)),
                                   &typeid(void(int)),
                                   &typeid(int part::*),
                                   &typeid(int base::*),
                                   &typeid(void(part::*)()),
                                   &typeid(void(part::*)() const),
                                   &typeid(part),
                                   &typeid(base),
                                   &typeid(derived *)};
  const int count = sizeof types / sizeof types[0];
  int equal = 0, ordered = 0, transitive = 1;
  for (int i = 0; i < count; ++i)
    for (int k = 0; k < count; ++k) {
      equal += *types[i] == *types[k];
      ordered += types[i]->before(*types[k]) + types[k]->before(*types[i]) == (*types[i] != *types[k]);
      for (int m = 0; m < count; ++m)
        transitive &= !(types[i]->before(*types[k]) && types[k]->before(*types[m])) || types[i]->before(*types[m]);
    }
  printf("%d %d %d", equal, ordered, transitive);
  base &as_base = p;
  part no_virtuals, *volatile null_part = 0;
  base *volatile null = 0;
  printf(" %d%d", typeid(evaluate(no_virtuals)) == typeid(part) && typeid(*null_part) == typeid(part), evaluated);
  printf(" %s%d", typeid(evaluate(as_base)).name(), evaluated);
  try {
    puts(typeid(*null).name());
  } catch (std::exception &e) {
    puts(typeid(e) == typeid(std::bad_typeid) && dynamic_cast<std::bad_typeid *>(&e) &&
                 !dynamic_cast<std::bad_cast *>(&e)
             ? " bad_typeid"
             : " other");
  }
  return 0;
}
