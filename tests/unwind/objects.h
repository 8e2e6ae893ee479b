// What the program and the objects that it loads know of each other.
#include <cstdio>
#include <stdexcept>
#include <typeinfo>

struct shared_base {
  int n;
  explicit shared_base(int k) : n(k) {}
  virtual ~shared_base() {}
};
struct shared_error : shared_base {
  explicit shared_error(int k) : shared_base(k) {}
};
struct side {
  virtual ~side() {}
};
struct both : shared_base, side {
  explicit both(int k) : shared_base(k) {}
};
template <class T> struct wrapped { int n; };
namespace {
struct internal {
  int n;
};
}  // namespace
// Of a function that others do not see; clang's names do not tell it.
static const std::type_info &hidden_type() {
  struct local {};
#ifdef __clang__
  return typeid(internal);
#else
  return typeid(local);
#endif
}
struct opaque;  // defined in plugin.cc only

typedef void (*thrower)(int kind);
struct services {
  thrower throw_one;
  int (*catch_one)(thrower, int kind);
  shared_base *(*make)();
  bool (*is_type)(const std::type_info &, bool hidden);
};

// Throws and catches, the same in the program and in each object.
enum { kinds = 11 };
static void throw_one(int kind) {
  static both object(NUMBER);
  static opaque *const pointer = 0;
  switch (kind) {
    case 0: throw shared_error(NUMBER);
    case 1: throw internal();
    case 2: throw static_cast<side *>(&object);
    case 3: throw std::runtime_error("runtime");
    case 4: throw wrapped<shared_error>();
    case 5: throw wrapped<internal>();
    case 6: throw static_cast<const internal *const *>(0);
    case 7: throw &pointer;
    case 8: throw static_cast<int opaque::*>(0);
    case 9: throw static_cast<void (wrapped<opaque>::*)()>(0);
    default: throw both(NUMBER);
  }
}
static int catch_one(thrower f, int kind) {
  // A frame that differs from object to object.
  volatile char room[NUMBER * 40 + 1];
  room[NUMBER * 40] = 1;
  struct cleanup {
    volatile char *last;
    ~cleanup() { ++*last; }
  } local = {room + NUMBER * 40};
  try {
    cleanup inner = local;
    f(kind);
    // clang-format off
  } catch (internal &) { return 100;
  } catch (shared_error &e) { return 200 + e.n + room[NUMBER * 40] * 1000;
  } catch (side *s) { return 300 + (dynamic_cast<both *>(s) ? dynamic_cast<shared_base &>(*s).n : 99);
  } catch (std::logic_error &) { return 400;
  } catch (std::exception &e) { return 500 + e.what()[1];
  } catch (wrapped<shared_error> &) { return 600;
  } catch (wrapped<internal> &) { return 700;
  } catch (const internal *const *) { return 800;
  } catch (side &s) { return 900 + dynamic_cast<shared_base &>(s).n;
  } catch (const wrapped<opaque> *const *) { return 1000;
  } catch (opaque **) { return 1001;
  } catch (const opaque *const *) { return 1002;
  } catch (const int opaque::*) { return 1003;
  } catch (void (wrapped<opaque>::*)()) { return 1005;
  } catch (...) { return 1;
  }
  // clang-format on
  return 0;
}
