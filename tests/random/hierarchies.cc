// Writes a random C++98 program about class hierarchies to standard output: hierarchies SEED. The program makes an
// object of each class, tries dynamic_cast from each of its subobjects to each class, and compares with a model: the
// constructors record which subobject is a base of which, and the rules of 5.2.7 are applied to that graph. It also
// throws each class and compares each handler with the compiler's own answer to whether, and to where, a pointer
// converts. It prints what is wrong.
#include <cstdio>
#include <cstdlib>

static unsigned long long state;
static int below(int n) {
  state = state * 6364136223846793005ULL + 1442695040888963407ULL;
  return (int)((unsigned)(state >> 33) % (unsigned)n);
}

enum { max_classes = 9 };

int main(int argc, char **argv) {
  int seed = argc > 1 ? std::atoi(argv[1]) : 1;
  state = (unsigned long long)seed * 0x9E3779B97F4A7C15ULL + 777;
  for (int i = 0; i < 10; ++i) below(2);
  int classes = 4 + below(max_classes - 3);
  int many_bases = 25 + below(40), often_virtual = below(70), often_private = below(30);
  bool has_virtual_base[max_classes] = {false};
  bool has_base[max_classes][max_classes] = {{false}};  // directly or further up

  std::printf("// Generated with seed %d.\n#define CLASSES %d\n", seed, classes);
  std::puts(
      "#include <cstdio>\n"
      "#include <typeinfo>\n"
      "// The subobjects of one object, in order of construction, and which is a direct base of which.\n"
      "struct entry { int number; void *place; };\n"
      "static entry entries[4000];\n"
      "static struct an_edge { int derived, base; bool is_public; } edges[8000];\n"
      "static int count, edge_count;\n"
      "static int find(int number, void *place) {\n"
      "  for (int i = 0; i < count; ++i)\n"
      "    if (entries[i].number == number && entries[i].place == place) return i;\n"
      "  std::puts(\"WRONG: a base that was not constructed\");\n"
      "  return 0;\n"
      "}\n"
      "static void enter(int number, void *place) {\n"
      "  entries[count].number = number;\n"
      "  entries[count++].place = place;\n"
      "}\n"
      "static void has(int number, void *place, int base, void *base_place, bool is_public) {\n"
      "  an_edge e = {find(number, place), find(base, base_place), is_public};\n"
      "  edges[edge_count++] = e;\n"
      "}\n"
      "static bool leads(int from, int to, bool publicly) {\n"
      "  if (from == to) return true;\n"
      "  for (int i = 0; i < edge_count; ++i)\n"
      "    if (edges[i].derived == from && (edges[i].is_public || !publicly) && leads(edges[i].base, to, publicly))\n"
      "      return true;\n"
      "  return false;\n"
      "}\n"
      "// Where a cast from a subobject to a class must lead; -1: nowhere.\n"
      "static int model(int source, int target) {\n"
      "  int whole = count - 1, containing = -1, containing_count = 0, found = -1, found_count = 0;\n"
      "  for (int i = 0; i < count; ++i) {\n"
      "    if (entries[i].number != target) continue;\n"
      "    found = i;\n"
      "    ++found_count;\n"
      "    if (leads(i, source, false)) {\n"
      "      containing = i;\n"
      "      ++containing_count;\n"
      "    }\n"
      "  }\n"
      "  if (containing_count == 1 && leads(containing, source, true)) return containing;\n"
      "  if (leads(whole, source, true) && found_count == 1 && leads(whole, found, true)) return found;\n"
      "  return -1;\n"
      "}");
  for (int k = 0; k < classes; ++k) {
    std::printf("struct C%d", k);
    const char *separator = " : ";
    bool direct[max_classes], is_public[max_classes];
    for (int b = 0; b < k; ++b) direct[b] = below(100) < many_bases;
    // A direct base that is an indirect one as well could not be named.
    for (int b = 0; b < k; ++b)
      for (int other = b + 1; other < k; ++other)
        if (direct[other] && has_base[other][b]) direct[b] = false;
    for (int b = 0; b < k; ++b) {
      if (!direct[b]) continue;
      // A private virtual base could not be destroyed by the most derived class.
      bool is_virtual = below(100) < often_virtual;
      is_public[b] = is_virtual || has_virtual_base[b] || below(100) >= often_private;
      has_virtual_base[k] |= is_virtual || has_virtual_base[b];
      for (int further = 0; further < b; ++further) has_base[k][further] |= has_base[b][further];
      has_base[k][b] = true;
      std::printf("%s%s%sC%d", separator, is_public[b] ? "public " : "private ", is_virtual ? "virtual " : "", b);
      separator = ", ";
    }
    const char *member = below(3) ? "int" : below(2) ? "double" : "char";
    std::printf(" {\n  %s m%d;\n  C%d() {\n    enter(%d, this);\n", member, k, k, k);
    for (int b = 0; b < k; ++b)
      if (direct[b])
        std::printf("    has(%d, this, %d, static_cast<C%d *>(this), %s);\n", k, b, b, is_public[b] ? "true" : "false");
    std::printf("  }\n  virtual ~C%d() {}\n};\n", k);
  }
  std::puts(
      "template <class To, class From, bool up> struct caster {\n"
      "  static void *cast(void *p) { return dynamic_cast<To *>(static_cast<From *>(p)); }\n"
      "};\n"
      "// Upwards a cast is the compiler's affair, and may be ill-formed.\n"
      "template <class To, class From> struct caster<To, From, true> {\n"
      "  static void *cast(void *p) { return p; }\n"
      "};\n"
      "typedef void *(*cast_function)(void *);\n"
      "#define CAST(from, to) caster<to, from, __is_base_of(to, from)>::cast,");
  std::puts("static cast_function const casts[][12] = {");
  for (int from = 0; from < classes; ++from) {
    std::printf("  {");
    for (int to = 0; to < classes; ++to) std::printf("CAST(C%d, C%d) ", from, to);
    std::puts("},");
  }
  std::puts("};\nstatic bool const is_upwards[][12] = {");
  for (int from = 0; from < classes; ++from) {
    std::printf("  {");
    for (int to = 0; to < classes; ++to) std::printf("__is_base_of(C%d, C%d), ", to, from);
    std::puts("},");
  }
  std::puts(
      "};\n"
      "static int compared;\n"
      "template <class T> static void casts_of(const char *name) {\n"
      "  count = edge_count = 0;\n"
      "  T object;\n"
      "  for (int i = 0; i < count; ++i)\n"
      "    for (int to = 0; to < CLASSES; ++to) {\n"
      "      void *result = casts[entries[i].number][to](entries[i].place);\n"
      "      if (is_upwards[entries[i].number][to]) continue;\n"
      "      int expected = model(i, to);\n"
      "      ++compared;\n"
      "      if (result != (expected < 0 ? (void *)0 : entries[expected].place))\n"
      "        std::printf(\"%s: WRONG: from C%d at %d to C%d: %p\\n\", name, entries[i].number,\n"
      "                    (int)((char *)entries[i].place - (char *)&object), to, result);\n"
      "    }\n"
      "}\n"
      "#ifdef __clang__  // the only one to answer\n"
      "template <class From, class To, bool converts> struct converter {\n"
      "  static int offset(From *p) { return (int)((char *)static_cast<To *>(p) - (char *)p); }\n"
      "};\n"
      "template <class From, class To> struct converter<From, To, false> {\n"
      "  static int offset(From *) { return -1; }\n"
      "};\n"
      "template <class From, class To> static void handler(const char *names) {\n"
      "  static From object;\n"
      "  int expected = converter<From, To, __is_convertible_to(From *, To *)>::offset(&object);\n"
      "  int got = -1, by_pointer = -1;\n"
      "  try {\n"
      "    count = edge_count = 0;\n"
      "    throw From();\n"
      "  } catch (To &part) {\n"
      "    got = (int)((char *)&part - (char *)entries[count - 1].place);\n"
      "  } catch (...) {\n"
      "  }\n"
      "  try {\n"
      "    throw &object;\n"
      "  } catch (To *part) {\n"
      "    by_pointer = (int)((char *)part - (char *)&object);\n"
      "  } catch (...) {\n"
      "  }\n"
      "  ++compared;\n"
      "  if (got != expected || by_pointer != expected)\n"
      "    std::printf(\"%s: WRONG: caught at %d, as pointer at %d, converts to %d\\n\", names, got, by_pointer,\n"
      "                expected);\n"
      "}\n"
      "#else\n"
      "template <class From, class To> static void handler(const char *) {}\n"
      "#endif\n"
      "int main() {");
  for (int k = 0; k < classes; ++k) std::printf("  casts_of<C%d>(\"C%d\");\n", k, k);
  for (int from = 0; from < classes; ++from)
    for (int to = 0; to < classes; ++to) std::printf("  handler<C%d, C%d>(\"C%d by C%d\");\n", from, to, from, to);
  std::puts("  std::printf(\"%d compared\\n\", compared);\n  return 0;\n}");
  return 0;
}
