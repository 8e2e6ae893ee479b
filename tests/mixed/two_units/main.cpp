// One type in two C++ files: types made of a class that a file knows by name only are those of the file that defines
// it, instantiations and local classes of inline functions are one type, while classes of unnamed namespaces stay two
// types whatever they are called.
// test-variants: -O0 | -O2
#include "shared.h"

#include <typeinfo>

#include "../../harness.h"

namespace {
struct hidden {
  int n;
};
}  // namespace

static const char *first_catches(int what) {
  try {
    second_throws(what);
  } catch (hidden &) {
    return "hidden: another file's class";
  } catch (hidden *) {
    return "hidden *: another file's class";
  } catch (hidden **) {
    return "hidden **: another file's class";
  } catch (pair_of<int> &p) {
    return p.b == 2 ? "pair_of<int>" : "wrong pair_of<int>";
  } catch (keyed &k) {
    return k.key == 4 ? "keyed" : "wrong keyed";
  } catch (opaque_other **p) {
    return p ? "wrong opaque_other **" : "opaque_other **";
  } catch (opaque **p) {
    return *p == make_opaque() ? "opaque **" : "wrong opaque **";
  } catch (const opaque *const *p) {
    return *p == make_opaque() ? "const opaque *const *" : "wrong const opaque *const *";
  } catch (colour c) {
    return c == green ? "colour" : "wrong colour";
  } catch (int opaque_other::*) {
    return "int opaque_other::*";
  } catch (int opaque::*) {
    return "int opaque::*";
  } catch (opaque_other (*)(opaque *)) {
    return "other function";
  } catch (opaque (*)(opaque *)) {
    return "function";
  } catch (void *) {
    return "void *";
  } catch (...) {
    return "any";
  }
  return "nothing";
}

static void first_throws(int what) {
  static opaque *pointer = make_opaque();
  static const opaque *const_pointer = make_opaque();
  static opaque_other *other = make_opaque_other();
  switch (what) {
    case 0: throw &pointer;
    case 1: throw &const_pointer;
    case 2: throw static_cast<opaque *const *>(&pointer);
    case 3: throw &other;
    case 4: {
      hidden h = {1};
      throw h;
    }
    case 5: throw static_cast<int opaque::*>(0);
    case 6: {
      keyed_leaf k;
      k.key = 44;
      throw k;
    }
    case 7: throw_local_of_inline(true);
    case 8: throw static_cast<int opaque_other::*>(0);
  }
}

int main() {
  CHECK_TEXT(first_catches(0), "opaque **");
  CHECK_TEXT(first_catches(1), "any");
  CHECK_TEXT(first_catches(2), "pair_of<int>");
  CHECK_TEXT(first_catches(3), "void *");
  CHECK_TEXT(first_catches(4), "keyed");
  CHECK_TEXT(first_catches(5), "any");
  CHECK_TEXT(first_catches(6), "colour");
  CHECK_TEXT(first_catches(7), "any");
  CHECK_TEXT(first_catches(8), "const opaque *const *");
  CHECK_TEXT(first_catches(9), "opaque_other **");
  CHECK_TEXT(first_catches(10), "int opaque::*");
  CHECK_TEXT(first_catches(11), "any");
  CHECK_TEXT(first_catches(12), "function");

  CHECK_INT(second_catches(first_throws, 0), 12 + 3);
  CHECK_INT(second_catches(first_throws, 1), 12 + 1000);
  CHECK_INT(second_catches(first_throws, 2), 12 + 4);
  CHECK_INT(second_catches(first_throws, 3), 100);
  CHECK_INT(second_catches(first_throws, 4), -1);
  CHECK_INT(second_catches(first_throws, 5), 5);
  CHECK_INT(second_catches(first_throws, 6), 44);
  CHECK_INT(second_catches(first_throws, 7), 5000);
  CHECK_INT(second_catches(first_throws, 8), -1);

  CHECK(typeid(opaque **) != typeid(opaque_other **));
  CHECK(typeid(opaque **) == second_type_of_opaque());
  CHECK(typeid(int opaque::*) == second_type_of_member());
  CHECK(!typeid(opaque **).before(second_type_of_opaque()));
  CHECK(!second_type_of_opaque().before(typeid(opaque **)));
  return TEST_RESULT();
}
