// What typeid and type_info say, and dynamic_cast where random/hierarchies has none: through protected bases, of null,
// by reference, while constructors and destructors run.
// prints: 16 lines
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
struct joined : derived, second { double d; };
struct node : base { int n; };
struct node_a : node {};
struct node_b : node {};
struct nodes : node_a, node_b, third {};
struct secret : private base, public second { base *inside() { return this; } };
struct hides : protected joined, public third { base *inside() { return this; } joined *hidden() { return this; } };
// clang-format on

// Without its class a compiler cannot know the answer.
template <class To, class From> static void cast(From *volatile from, const void *whole) {
  From *p = from;
  const char *to = (const char *)dynamic_cast<To *>(p);
  if (to)
    printf("%d", (int)(to - (const char *)whole));
  else
    putchar('-');
  try {
    if (!p) return;
    printf("%s", (const char *)&dynamic_cast<const To &>(*p) == to ? " " : "! ");
  } catch (std::bad_cast &e) { printf("%s", to || typeid(e) != typeid(std::bad_cast) ? "! " : " "); }
}
template <class From> static void from(const char *name, From *p, const void *whole) {
  printf("%s, %d: ", name, (int)((char *)p - (const char *)whole));
  cast<base>(p, whole), cast<second>(p, whole), cast<third>(p, whole), cast<derived>(p, whole);
  cast<joined>(p, whole), cast<secret>(p, whole), cast<hides>(p, whole), cast<node>(p, whole), cast<node_b>(p, whole);
  From *volatile hidden = p;
  printf("%d %s\n", dynamic_cast<const void *>(hidden) == whole, hidden ? typeid(*hidden).name() : "");
}
#define FROM(type, object) from<type>(#type, static_cast<type *>(&object), &object)

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
  joined j;
  nodes n;
  secret s;
  hides h;
  derived p;
  FROM(base, p);
  FROM(base, j);
  FROM(second, j);
  from<base>("secret", s.inside(), &s);
  FROM(second, s);
  from<base>("hides", h.inside(), &h);
  FROM(third, h);
  FROM(third, n);
  from<base>("a", static_cast<node_a *>(&n), &n);
  from<base>("null", 0, 0);
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
                                   &typeid(hides),
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
