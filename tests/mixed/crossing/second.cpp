// The unit that defines what main.cpp does not know, and has a class of the same name as one of main's.
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
hidden a_hidden;
hidden *const a_hidden_pointer = 0;
}  // namespace

static opaque the_opaque = {12};
static opaque *pointer = &the_opaque;
opaque *make_opaque() { return &the_opaque; }
const std::type_info &second_type_of_opaque() { return typeid(opaque **); }
const std::type_info &second_type_of_member() { return typeid(int opaque::*); }

void second_throws(int what) {
  const pair_of<int> pair = {1, 2};
  keyed_leaf leaf;
  leaf.key = 4;
  switch (what) {
    case 0: throw &pointer;
    case 1: throw a_hidden;
    case 2: throw pair;
    case 3: throw &a_hidden;
    case 4: throw leaf;
    case 5: throw static_cast<hidden *const *>(&a_hidden_pointer);
    case 6: throw green;
    case 7: local_of_inline(true);
    case 8: throw static_cast<opaque *const *>(&pointer);
    case 9: throw static_cast<opaque_other **>(0);
    case 10: throw &opaque::n;
    case 11: throw hidden_derived();
    case 12: throw static_cast<opaque (*)(opaque *)>(0);
  }
}

void second_catches(thrower throws, int what) {
  try {
    throws(what);
  } catch (hidden &) {
    say("hidden");
  } catch (opaque **p) {
    say("opaque**%d", (*p)->n);
  } catch (opaque *const *p) {
    say("opaque*const*%d", (*p)->n);
  } catch (const opaque *const *p) {
    say("const%d", (*p)->n);
  } catch (int opaque::*p) {
    say("member%d", p ? the_opaque.*p : 0);
  } catch (pair_of<int> &p) {
    say("pair%d", p.b);
  } catch (keyed &k) {
    say("keyed%d", k.key);
  } catch (void *) {
    say("void*");
  } catch (...) {
    local_of_inline(false);
  }
}
