// Writes a random C++98 program about exceptions to standard output: generate SEED. The program prints a trace of
// everything that happens: constructions, destructions, copies, handlers, values of locals (of each round its start
// and a checksum of all). The same seed gives the same program, and every correct compiler and library gives the
// program the same trace: nothing in it depends on the order of evaluation, on elided copies, or on what
// std::terminate does.
//
// With PART defined as 0 and 1 the program becomes two: a third of its functions stands in a shared object. Frames of
// libraries and of generated C between are scenes' affair (scenes/scenes.h).
//
// A program has classes of exceptions in a random hierarchy (virtual, private and ambiguous bases), classes of
// objects with members and constructors that fail, and functions that call each other with decreasing fuel.
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

static unsigned long long state;

static unsigned next_random() {
  state = state * 6364136223846793005ULL + 1442695040888963407ULL;
  return (unsigned)(state >> 33);
}
static int below(int n) { return (int)(next_random() % (unsigned)n); }
static bool chance(int percent) { return below(100) < percent; }
static int between(int low, int high) { return low + below(high - low + 1); }

static int depth;  // of indentation

static void write(const char *before, const char *format, va_list arguments, const char *after) {
  std::printf("%*s%s", 2 * depth, "", before);
  std::vprintf(format, arguments);
  std::puts(after);
}
#define WRITER(name, down, before, after, up) \
  static void name(const char *format, ...) { \
    va_list arguments;                        \
    va_start(arguments, format);              \
    depth -= down;                            \
    write(before, format, arguments, after);  \
    depth += up;                              \
    va_end(arguments);                        \
  }
WRITER(line, 0, "", "", 0)
WRITER(open, 0, "", " {", 1)
WRITER(close_open, 1, "} ", " {", 1)
static void close(const char *after = "") {
  --depth;
  line("}%s", after);
}

enum { max_exceptions = 8, max_objects = 5, max_functions = 9 };
static int exceptions, objects, functions;
static bool has_virtual_base[max_exceptions];  // directly or further up
static bool from_library;                      // X0 is a std::exception

// Where a statement stands.
struct context {
  int nesting;         // of blocks
  bool in_handler;     // lexically: throw; may stand here
  bool in_loop;        // break and continue may stand here
  bool in_destructor;  // nothing may leave
  bool returns;        // return may stand here, with a value
  int locals;          // v0 to v<locals - 1> may be named
  int highest_object;  // objects o of these classes may be constructed: below this number
};

static int labels;  // numbers for trace points and names

static void statements(context c, int count);

static void trace_point(const context &c) {
  if (c.locals && chance(50)) {
    line("T(\"t%d:%%d\", v%d);", labels++, below(c.locals));
  } else if (chance(30)) {
    line("T(\"t%d:u%%d\", (int)std::uncaught_exception());", labels++);
  } else {
    line("T(\"t%d\");", labels++);
  }
}

static void throw_something() {
  switch (below(9)) {
    case 0: line("throw %d;", below(100)); break;
    case 1: line("throw (const char *)\"s%d\";", below(100)); break;
    case 2: line("throw &g%d;", below(exceptions)); break;
    case 3: line("throw g%d;", below(exceptions)); break;
    case 4: line("throw (const X%d *)&h%d;", exceptions - 1, exceptions - 1); break;
    case 5: line("fail_in_library(R(3));"); break;
    default: line("throw X%d(R(1000));", below(exceptions)); break;
  }
}

// Opens a handler and reports what it can tell of its parameter; returns whether it takes everything.
static bool handler() {
  const int k = below(exceptions), kind = below(14);
  static const char *const plain[] = {
      "int n",           "const char *s",         "...", "std::bad_exception &", "std::exception &",
      "std::bad_cast &", "const std::bad_alloc &"};
  static const char *const reports[] = {":%%d\", n", ":%%s\", s", "\"", "\"", "\"", "\"", "\""};
  if (kind < 7) {
    close_open("catch (%s)", plain[kind]);
    line("H h;");
    std::printf("%*sT(\"h%d", 2 * depth, "", labels++);
    std::printf(reports[kind], 0);
    std::puts(");");
    return kind == 2;
  }
  const bool constant = kind == 8 || kind == 10, pointer = kind == 9 || kind == 10;
  close_open("catch (%sX%d %se)", constant ? "const " : "", k, pointer ? "*" : kind == 7 ? "" : "&");
  line("H h;");
  line("T(\"h%d:%%d\", e%sX%d::tag);", labels++, pointer ? "->" : ".", k);
  if (!pointer && !constant && chance(40)) line("e.X%d::tag += %d;", k, between(1, 9) * 1000);
  return false;
}

static void handlers(context c, bool catch_all) {
  int count = catch_all ? below(3) : between(1, 3);
  c.in_handler = true;
  bool last = false;
  for (int i = 0; i < count && !last; ++i) {
    last = handler();
    statements(c, below(3));
  }
  if (catch_all && !last) {
    close_open("catch (...)");
    line("H h;");
    trace_point(c);
    statements(c, below(2));
  }
  close();
}

static void try_block(context c, bool catch_all) {
  context body = c;
  body.in_handler = false;  // throw; in the body would be legal too, but rarely says more
  if (c.in_handler && chance(30)) body.in_handler = true;
  open("try");
  statements(body, between(1, 3));
  handlers(c, catch_all);
}

static void statement(context c) {
  const bool objects_may_stand = !c.in_destructor && c.highest_object > 0;
  const int object = objects_may_stand ? below(c.highest_object) : 0;
  // What leaves a destructor ends the program, so calls and throws stand in try blocks there.
  switch (below(c.nesting++ >= 4 ? 9 : 22)) {
    case 2:
    case 3:
      if (c.in_destructor) break;
      line("T(\"r%d:%%d\", F%s(f%d)(d - 1));", labels++, chance(30) ? "" : "0", below(functions));
      return;
    case 4:
      if (c.in_destructor) break;
      if (chance(50)) line("if (R(%d) == 0)", between(2, 5));
      throw_something();
      return;
    case 5:
    case 6:
      if (c.in_handler)
        line(c.in_destructor || chance(50) ? "sort_out();" : "if (R(2)) RETHROW;");
      else if (c.in_loop)
        line("if (R(3) == 0) %s;", chance(50) ? "break" : "continue");
      else
        break;
      return;
    case 7:
      if (!c.locals) break;
      line("v%d = v%d * 3 + R(%d);", below(c.locals), below(c.locals), between(2, 50));
      return;
    case 8:
      if (!c.returns) break;
      line("if (R(4) == 0) return %d;", below(1000));
      return;
    case 9:
      open("if (R(%d))", between(2, 4));
      statements(c, between(1, 3));
      if (chance(50)) {
        close_open("else");
        statements(c, between(1, 3));
      }
      return close();
    case 10:
      ++labels;
      open("for (int loop%d = 0; loop%d < %d; ++loop%d)", labels, labels, between(2, 3), labels);
      c.in_loop = true;
      statements(c, between(1, 3));
      return close();
    case 11:
    case 12:
    case 13:
      open("");
      if (objects_may_stand && chance(60))
        line(chance(30) ? "O%d o%d[2];" : "O%d o%d(d - 1);", object, labels++);
      else
        line("N n%d(%d), m%d(%d);", labels, labels, labels, labels + 1);
      labels += 2;
      statements(c, between(1, 4));
      return close();
    case 14:
    case 15:
      if (!objects_may_stand) break;
      line(chance(50) ? "delete new O%d(d - 1);" : "delete[] new O%d[%d];", object, between(1, 4));
      return;
    case 16: {
      const int name = labels++;
      open("");
      line("char w%d[R(60) + 1];", name);
      line("std::memset(w%d, %d, sizeof w%d);", name, between(1, 100), name);
      statements(c, between(1, 3));
      line("T(\"w%d:%%d:%%d\", (int)sizeof w%d, w%d[sizeof w%d - 1]);", name, name, name, name);
      return close();
    }
    case 17:
      open("switch (R(4))");
      c.in_loop = false;
      for (int i = 0, cases = between(1, 3); i < cases; ++i) {
        open("case %d:", i);
        statements(c, between(1, 2));
        close(chance(70) ? " break;" : "");
      }
      return close();
    case 0:
    case 1: break;
    default: return try_block(c, c.in_destructor || chance(25));
  }
  trace_point(c);
}

// A try block in a destructor holds everything in; its handlers must not let out either.
static void contained(context c) {
  int name = labels++;
  line("int kept%d = rethrown, base%d = rethrown_before;", name, name);
  line("rethrown_before = rethrown;");
  open("try");
  context body = c;
  body.in_destructor = false;
  body.in_handler = false;
  body.returns = false;
  body.in_loop = false;
  statements(body, between(1, 3));
  close_open("catch (...)");
  line("T(\"c%d\");", labels++);
  if (chance(40)) line("sort_out();");
  close();
  line("rethrown = kept%d, rethrown_before = base%d;", name, name);
}

static void statements(context c, int count) {
  if (c.nesting > 7) {
    line("T(\"deep\");");
    return;
  }
  for (int i = 0; i < count; ++i) statement(c);
}

// ---- The parts of a program

static void prologue(int seed) {
  std::printf("// Generated with seed %d.\n", seed);
  std::fputs(
      "#include <cstdarg>\n"
      "#include <cstdio>\n"
      "#include <cstring>\n"
      "#include <exception>\n"
      "#include <new>\n"
      "#include <typeinfo>\n\n"
      "#ifndef PART\n"
      "#define PART 2\n"
      "#define LOCAL static\n"
      "#define SHARED(declaration, initialiser) static declaration initialiser;\n"
      "#elif PART == 0\n"
      "#define LOCAL\n"
      "#define SHARED(declaration, initialiser) extern declaration; declaration initialiser;\n"
      "#else\n"
      "#define LOCAL\n"
      "#define SHARED(declaration, initialiser) extern declaration;\n"
      "#endif\n"
      "SHARED(unsigned long long rs, )\n"
      "static int R(int n) {\n"
      "  rs = rs * 6364136223846793005ULL + 1442695040888963407ULL;\n"
      "  return (int)((unsigned)(rs >> 33) % (unsigned)n);\n"
      "}\n"
      "SHARED(int live, ) SHARED(int calls, ) SHARED(int lines, ) SHARED(unsigned sum, )\n"
      // Handlers at work, and rethrown exceptions on their way out of one: what `throw;` means to a destructor then,
      // not every library knows.
      "SHARED(int handled, ) SHARED(int rethrown, ) SHARED(int rethrown_before, )\n"
      "struct H {\n"
      "  H() { ++handled; rethrown = rethrown_before; }\n"
      "  ~H() { --handled; rethrown = rethrown_before; }\n"
      "};\n"
      "#define RETHROW do { ++rethrown; throw; } while (0)\n"
      "static void sort_out();\n"
      "static void T(const char *format, ...) {\n"
      "  char text[200];\n"
      "  va_list a;\n"
      "  va_start(a, format);\n"
      "  vsnprintf(text, sizeof text, format, a);\n"
      "  va_end(a);\n"
      "  for (const char *p = text; *p; ++p) sum = sum * 31 + (unsigned char)*p;\n"
      "  if (++lines < 1000) std::puts(text);\n"
      "}\n"
      "#define CALL_LIMIT 200\n"
      "#define F0(f) f\n"
      "typedef int (*function)(int);\n"
      "static function hide(function f) { function volatile g = f; return g; }\n"
      "#define F(f) hide(f)\n"
      "struct P { virtual ~P() {} };\n"
      "struct Q : P {};\n"
      "static P p;\n"
      "static P *volatile cast_source = &p;\n"
      "static volatile size_t too_much = 0xF0000000u;\n"
      "static void fail_in_library(int n) {\n"
      "  if (n == 0) T(\"%p\", (void *)&dynamic_cast<Q &>(*cast_source));\n"
      "  if (n == 1) { void *volatile m = ::operator new(too_much); T(\"%p\", m); }\n"
      "  throw std::bad_alloc();\n"
      "}\n"
      "struct N {\n"
      "  int n;\n"
      "  explicit N(int k) : n(k) { ++live; }\n"
      "  ~N() {\n"
      "    --live;\n"
      "    T(\"~n%d:u%d\", n, (int)std::uncaught_exception());\n"
      "    if (n % 3 == 0 && handled && !rethrown) sort_out();\n"
      "  }\n"
      "private:\n"
      "  N(const N &);\n"
      "};\n\n",
      stdout);
}

static void exception_classes() {
  exceptions = between(3, max_exceptions);
  from_library = chance(40);
  for (int k = 0; k < exceptions; ++k) {
    char bases[200];
    int used = 0;
    for (int b = 0; b < k; ++b) {
      if (used > 120 || !chance(45)) continue;
      // A private virtual base could not be destroyed by the most derived class, and a shared base that has a private
      // path beside a public one is not found by every library.
      const char *kind = chance(40) ? "public virtual" : chance(15) && !has_virtual_base[b] ? "private" : "public";
      has_virtual_base[k] |= has_virtual_base[b] || kind[6] == ' ';
      used += std::sprintf(bases + used, "%s%s X%d", used ? ", " : " : ", kind, b);
    }
    bases[used] = 0;
    if (k == 0 && from_library) {
      std::strcpy(bases, " : public std::exception");
      has_virtual_base[0] = false;
    }
    open("struct X%d%s", k, bases);
    line("int tag;");
    if (chance(30)) line("char room%d[%d];", k, between(1, 300));
    line("explicit X%d(int n = %d) : tag(n * 10 + %d) { ++live; T(\"+x%d:%%d\", n); }", k, k, k, k);
    // The copy of a class with virtual bases names the bases by default constructors, so every subobject is counted.
    line("X%d(const X%d &o) : tag(o.tag + 1) { ++live; T(\"c%d:%%d\", tag); }", k, k, k);
    line("%s~X%d() throw() { --live; T(\"~x%d:%%d\", tag); }", chance(50) ? "virtual " : "", k, k);
    close(";");
  }
  for (int k = 0; k < exceptions; ++k) {
    line("SHARED(X%d g%d, (%d))", k, k, k + 500);
    line("SHARED(const X%d h%d, (%d))", k, k, k + 600);
  }
  std::putchar('\n');
  open("static void sort_out()");
  line("int kept = rethrown, base = rethrown_before;");
  open("try");
  line("throw;");
  for (int k = exceptions - 1; k >= 0; --k) {
    if (chance(40)) {
      close_open("catch (X%d &e)", k);
      line("T(\"sort%d:%%d\", e.X%d::tag);", k, k);
    }
  }
  close_open("catch (int n)");
  line("T(\"sort:%%d\", n);");
  close_open("catch (...)");
  line("T(\"sort\");");
  close();
  line("rethrown = kept, rethrown_before = base;");
  close();
}

static void object_classes() {
  objects = between(2, max_objects);
  for (int k = 0; k < functions; ++k) line("LOCAL int f%d(int d);", k);
  for (int k = 0; k < objects; ++k) {
    context c = context();
    c.highest_object = k;
    int base = k && chance(35) ? below(k) : -1;
    int member = k && chance(50) ? below(k) : -1;
    bool handler = chance(25);
    if (base >= 0)
      open("struct O%d : %sO%d", k, chance(30) ? "virtual " : "", base);
    else
      open("struct O%d", k);
    line("N n%d_a;", k);
    if (member >= 0) line("O%d m%d[%d];", member, k, between(1, 2));
    line("N n%d_b;", k);
    char initialisers[100];
    int used = 0;
    if (base >= 0) used = std::sprintf(initialisers, "O%d(d - 1), ", base);
    std::sprintf(initialisers + used, "n%d_a(%d), n%d_b(%d)", k, 10000 + k * 10, k, 10001 + k * 10);
    if (handler) {
      open("explicit O%d(int d = 2) try : %s", k, initialisers);
    } else {
      open("explicit O%d(int d = 2) : %s", k, initialisers);
    }
    line("++live;");
    line("if (d <= 0) { T(\"+o%d\"); return; }", k);
    line("++calls;");
    line("try {");
    ++depth;
    statements(c, between(1, 3));
    --depth;
    line("} catch (...) { --live; RETHROW; }");
    line("T(\"+o%d\");", k);
    if (handler) {
      close_open("catch (X%d &e)", below(exceptions));
      line("H h;");
      line("T(\"ctor%d\");", k);
      line("(void)e;");
      close_open("catch (int)");
      line("H h;");
      line("T(\"ctor%d:int\");", k);
      if (chance(50)) throw_something();
      close();
    } else {
      close();
    }
    open("~O%d()", k);
    line("--live;");
    line("T(\"~o%d:u%%d\", (int)std::uncaught_exception());", k);
    if (chance(40)) {
      line("if (calls++ > CALL_LIMIT) return;");
      line("int d = 2;");
      c.in_destructor = true;
      c.highest_object = k;
      contained(c);
    }
    close();
    depth--;
    std::fputs(" private:\n", stdout);
    depth++;
    line("O%d(const O%d &);", k, k);
    close(";");
  }
}

static void function_definitions() {
  for (int k = 0; k < functions; ++k) {
    context c = context();
    c.returns = true;
    c.highest_object = objects;
    std::printf("#if PART == 2 || PART == %d\n", k % 3 == 2);
    bool specified = chance(25), nothing = !specified && chance(8);
    bool function_try = !specified && !nothing && chance(10);
    if (specified) {
      // bad_exception in every list: whatever the unexpected handler throws leads somewhere. Not inlined, because
      // compilers may report one violation for two specifications that they merged.
      char list[120];
      int used = std::sprintf(list, "std::bad_exception");
      if (chance(40)) used += std::sprintf(list + used, ", int");
      if (chance(20)) used += std::sprintf(list + used, ", const char *");
      if (chance(50)) used += std::sprintf(list + used, ", X%d", below(exceptions));
      if (chance(30)) used += std::sprintf(list + used, ", const X%d *", below(exceptions));
      line("static int s%d(int d) throw(%s) __attribute__((__noinline__));", k, list);
      open("static int s%d(int d) throw(%s)", k, list);
    } else if (nothing) {
      line("static int s%d(int d) throw() __attribute__((__noinline__));", k);
      open("static int s%d(int d) throw()", k);
    } else if (function_try) {
      open("LOCAL int f%d(int d) try", k);
    } else {
      open("LOCAL int f%d(int d)", k);
    }
    line("if (d <= 0 || ++calls > CALL_LIMIT) return 0;");
    line("T(\"f%d\");", k);
    c.locals = below(4);
    for (int i = 0; i < c.locals; ++i) line("%s v%d = R(100);", chance(50) ? "unsigned" : "short", i);
    if (nothing) {
      c.returns = false;
      contained(c);
    } else {
      statements(c, between(2, 4));
    }
    for (int i = 0; i < c.locals; ++i) line("T(\"v%d:%%d\", v%d);", i, i);
    line("return %d;", k);
    if (function_try) {
      close_open("catch (X%d &e)", below(exceptions));
      line("H h;");
      line("T(\"function%d\");", k);
      line("(void)e;");
      line("return %d;", -k);
      close();
    } else {
      close();
    }
    if (specified || nothing) line("LOCAL int f%d(int d) { return s%d(d); }", k, k);
    std::puts("#endif");
  }
}

// It throws nothing that traces its destruction, and exceptions do not trace whether another is in flight: when
// exactly a violating exception and one that is replaced by bad_exception end, systems see differently.
static void unexpected_handler() {
  open("static void handle_unexpected()");
  line("T(\"unexpected:u%%d\", (int)std::uncaught_exception());");
  if (chance(50)) line("sort_out();");
  open("switch (R(4))");
  line("case 0: RETHROW;");
  line("case 1: throw std::bad_exception();");
  line("case 2: throw 7;");
  line("default: throw (const char *)\"unexpected\";");
  close();
  close();
}

static void main_function(int seed) {
  open("int main()");
  line("std::set_unexpected(handle_unexpected);");
  line("static char buffer[1 << 16];");
  line("std::setvbuf(stdout, buffer, _IOFBF, sizeof buffer);");
  line("int at_start = live;");
  open("for (int round = 0; round < 40; ++round)");
  line("rs = %uU + round * 977;", (unsigned)seed * 2654435761u);
  line("calls = lines = 0;");
  line("T(\"round %%d\", round);");
  open("try");
  line("function const all[] = {");
  for (int k = 0; k < functions; ++k) line("  f%d,", k);
  line("};");
  line("T(\"=%%d\", all[R(%d)](6));", functions);
  for (int k = exceptions - 1; k >= 0; --k)
    if (chance(30)) {
      close_open("catch (X%d &e)", k);
      line("T(\"top%d:%%d\", e.X%d::tag);", k, k);
    }
  close_open("catch (...)");
  line("T(\"top\");");
  close();
  line("lines = 0;");
  line("T(\"live %%d u%%d sum %%u\", live - at_start, (int)std::uncaught_exception(), sum);");
  close();
  line("lines = 0;");
  line("T(\"main ends\");");
  line("return 0;");
  close();
}

int main(int argc, char **argv) {
  int seed = argc > 1 ? std::atoi(argv[1]) : 1;
  state = (unsigned long long)seed * 0x9E3779B97F4A7C15ULL + 12345;
  for (int i = 0; i < 10; ++i) next_random();
  functions = between(4, max_functions);
  prologue(seed);
  exception_classes();
  object_classes();
  function_definitions();
  std::puts("#if PART != 1");
  unexpected_handler();
  main_function(seed);
  std::puts("#endif");
  return 0;
}
