/* Writes scenes, plays each with a choice of worlds for its nodes, prints scene and trace. Arguments: the first scene and
 * how many; WORLDS is 1 for generated C alone, 2 for C++ alone, 3 for both. */
#include "scenes.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "../../random.h"

unsigned char _ZSt18uncaught_exceptionv(void);
void (*_ZSt14set_unexpectedPFvvE(void (*)(void)))(void);

static char text[20000];
static int alive;
fault pointed = {0x0FA17000, 77, "}"};
const char *element_node;
int element_index;
jmp_buf *place;

void say(const char *format, ...) {
  size_t used = strlen(text);
  va_list arguments;
  if (used > sizeof text - 100) return;
  va_start(arguments, format);
  vsprintf(text + used, format, arguments);
  va_end(arguments);
  strcat(text, _ZSt18uncaught_exceptionv() ? "* " : " ");
}

const char *block(const char *node, int which) {
  int depth = 0;
  for (;; ++node) {
    if (*node == '}') --depth;
    if (*node == '{' && depth++ == 0 && which-- == 0) return node + 1;
  }
}
static const char *after(const char *node) {
  static const char *const shapes[] = {"t32", "?22", "+22", "a22", "F12", "L21", "!21", "J11", "r10", "j10", ".20"};
  int i = 0, blocks, depth = 0;
  while (shapes[i][0] != *node) ++i;
  node += shapes[i][1] - '0';
  for (blocks = shapes[i][2] - '0'; blocks; ++node) {
    if (*node == '{') ++depth;
    if (*node == '}' && --depth == 0) --blocks;
  }
  return node;
}

static unsigned choice;
void run(const char *script) {
  for (; *script && *script != '}'; script = after(script)) {
    if (*script == '.') {
      say(".%c", script[1]);
      continue;
    }
    choice = choice * 5 + 1;
#if WORLDS == 1
    node_c(script);
#elif WORLDS == 2
    node_cpp(script);
#else
    (*script != 'L' && choice >> 13 & 1 ? node_c : node_cpp)(script);
#endif
  }
}

void construct(fault *self, const char *node) {
  run(block(node, 0));
  self->alive = 0x0FA17000;
  self->id = node[2] - '0';
  self->script = block(node, 1);
  ++alive;
}
void destroy(fault *self) {
  const char *script = self->script;
  if (self->alive != 0x0FA17000) say("not-alive");
  run(script);
  if (self->alive != 0x0FA17000) say("not-alive-after");
  self->alive = 0;
  --alive;
  say("~e%d", self->id);
}
void report(int clause, fault *object, int value) {
  if (object) say("h%d:f%d", clause, object->id), object->id += 10;
  else say("h%d:%d", clause, value);
}
void end_of_local(int number, const char *script) {
  say("~%d", number);
  run(script);
}
void element(int *object) {
  const char *const node = element_node;
  const int index = element_index;
  if (index == (node[1] - '0') % 3) run(block(node, 0));
  element_node = node;
  element_index = index + 1;
  *object = 100 + index;
  say("+%d", *object);
}

static const char *replacement;
void not_expected(void) {
  say("U");
  run(replacement);
}

/* ---- random scenes */

static char scene[20000], *end;
static int fuel;
enum { in_handler = 1, may_jump = 2 };
static void put(const char *format, int argument) { end += sprintf(end, format, argument); }
static void write(int depth, int flags);
static void contained(int depth) {
  if (random_below(3)) return;
  put("?a{", 0);
  write(depth, 0);
  put("}{?a{", 0);
  write(depth, in_handler);
  put("}{}}", 0);
}
static void node(int depth, int flags) {
  switch (random_below(depth > 0 ? 16 : 3)) {
    case 0: put(".%d", random_below(10)); break;
    case 1:
      if (flags & in_handler) put("r", 0);
      else if (flags & may_jump) put("j", 0);
      else put(".x", 0);
      break;
    case 2:
    case 3:
    case 4: {
      const char type = "ffsbidp"[random_below(7)];
      const int has_blocks = strchr("fsb", type) != 0;
      put("t%c", type);
      put("%d{", random_below(10));
      if (has_blocks && random_below(3) == 0) write(depth - 1, 0);
      put("}{", 0);
      if (has_blocks && random_below(3) == 0) contained(depth - 1);
      put("}", 0);
      break;
    }
    case 5:
      put("J{?%c{", "fim"[random_below(3)]);
      write(depth - 1, may_jump);
      put("}{", 0);
      write(depth - 1, in_handler);
      put("}}", 0);
      break;
    case 6:
      put("!%c{", "im"[random_below(2)]);
      write(depth - 1, flags & in_handler);
      put("}", 0);
      break;
    case 7:
      put("a%d{", random_below(6));
      if (random_below(2)) write(depth - 1, flags & in_handler);
      put("}{", 0);
      write(depth - 1, flags & in_handler);
      put("}", 0);
      break;
    case 8:
    case 9:
      put("+%d{", random_below(10));
      write(depth - 1, flags & in_handler);
      put("}{", 0);
      contained(depth - 1);
      put("}", 0);
      break;
    case 10:
      put("F{", 0);
      write(depth - 1, flags & in_handler);
      put("}{", 0);
      write(depth - 1, in_handler);
      put("}", 0);
      break;
    case 11:
      put("L%d{", random_below(7));
      write(depth - 1, flags & in_handler);
      put("}", 0);
      break;
    default:
      put("?%c{", "fsimpqaa"[random_below(8)]);
      write(depth - 1, flags);
      put("}{", 0);
      write(depth - 1, in_handler);
      put("}", 0);
  }
}
static void write(int depth, int flags) {
  int count = 1 + random_below(3);
  while (count-- > 0 && fuel-- > 0) node(depth, flags);
}

int main(int count, char **words) {
  static const char *const replacements[] = {"ti7{}{}", "?a{tf8{}{}}{}ti7{}{}", "?a{r}{}ti7{}{}", "?a{r}{?a{?a{tb9{}{}}{r}}{}}ti7{}{}",
                                             "+5{ti6{?a{tf1{}{}}{}}{}}{}"};
  const unsigned first = count > 1 ? strtoul(words[1], 0, 10) : 1, scenes = count > 2 ? strtoul(words[2], 0, 10) : 5000;
  unsigned n, i;
  _ZSt14set_unexpectedPFvvE(not_expected);
  for (n = first; n < first + scenes; ++n) {
    random_state = n * 7919;
    for (i = 0; i < 3; ++i) random_below(2);
    end = scene;
    fuel = 40;
    replacement = replacements[random_below(5)];
    put("?a{", 0);
    write(7, 0);
    put("}{}", 0);
    choice = n;
    text[0] = 0;
    alive = 0;
    element_index = 0;
    run(scene);
    if (alive) say("%d-alive", alive);
#if WORLDS & 1
    if (!is_quiet_c()) say("not-quiet");
#endif
    printf("%u %s => %s\n", n, scene, text);
  }
  return 0;
}
