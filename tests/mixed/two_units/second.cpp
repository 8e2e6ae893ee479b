// The second file: defines what the first does not know, and has a class of the same name as one of the first's.
#include "shared.h"

#pragma clang diagnostic ignored "-Wexceptions"  // clauses that must be passed over

struct opaque {
  int n;
};
namespace {
struct hidden {
  int n;
};
struct hidden_derived : hidden {};
}  // namespace

static opaque the_opaque = {12};
static opaque *pointer = &the_opaque;
opaque *make_opaque() { return &the_opaque; }
opaque_other *make_opaque_other() { return reinterpret_cast<opaque_other *>(&the_opaque); }
const std::type_info &second_type_of_opaque() { return typeid(opaque **); }
const std::type_info &second_type_of_member() { return typeid(int opaque::*); }

void second_throws(int what) {
  switch (what) {
    case 0: throw &pointer;
    case 1: {
      hidden h = {1};
      throw h;
    }
    case 2: {
      pair_of<int> p = {1, 2};
      throw p;
    }
    case 3: {
      static hidden h;
      throw &h;
    }
    case 4: {
      keyed_leaf k;
      k.key = 4;
      throw k;
    }
    case 5: {
      static hidden *h = 0;
      throw static_cast<hidden *const *>(&h);
    }
    case 6: throw green;
    case 7: throw_local_of_inline(true);
    case 8: throw static_cast<opaque *const *>(&pointer);
    case 9: throw static_cast<opaque_other **>(0);
    case 10: throw &opaque::n;
    case 11: throw hidden_derived();
    case 12: throw static_cast<opaque (*)(opaque *)>(0);
  }
}

int second_catches(void (*thrower)(int), int what) {
  try {
    thrower(what);
  } catch (hidden &) {
    return 2;
  } catch (opaque **p) {
    return (*p)->n + 3;
  } catch (opaque *const *p) {
    return (*p)->n + 4;
  } catch (const opaque *const *p) {
    return (*p)->n + 1000;
  } catch (int opaque::*p) {
    return p ? the_opaque.*p : 5;
  } catch (pair_of<int> &p) {
    return p.b;
  } catch (keyed &k) {
    return k.key;
  } catch (void *) {
    return 100;
  } catch (...) {
    return catch_local_of_inline();
  }
  return -2;
}
