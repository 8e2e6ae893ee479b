/* Plays scenes, with a choice of worlds for their nodes, and prints their traces; WORLDS is 1 for generated C alone, 2
 * for C++ alone, 3 for both.
 *
 *   program FIRST COUNT                         scenes at random
 *   program SCENE UNEXPECTED TERMINATE CHOICE   this one with many choices until a trace differs, and what handlers run
 */
#include "scenes.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include "../../random.h"

unsigned char _ZSt18uncaught_exceptionv(void);
void (*_ZSt14set_unexpectedPFvvE(void (*)(void)))(void);
void (*_ZSt13set_terminatePFvvE(void (*)(void)))(void);

static char text[20000];
static int alive, ending;          /* faults, and those whose destructors run */
static const char *specifications; /* the two kinds that this scene has */
fault pointed = {0x0FA17000, 77, "}"};
const char *element_node;
int element_index;
a_place *place;

void say(const char *format, ...) {
  size_t used = strlen(text);
  va_list arguments;
  if (used > sizeof text - 100) return;
  va_start(arguments, format);
  vsprintf(text + used, format, arguments);
  va_end(arguments);
  /* Whether bad_exception is in flight already when what it stands for ends, libraries see differently. */
  strcat(text, _ZSt18uncaught_exceptionv() && !(ending && *specifications == 'b') ? "* " : " ");
}

const char *block(const char *node, int which) {
  int depth = 0;
  for (;; ++node) {
    if (*node == '}') --depth;
    if (*node == '{' && depth++ == 0 && which-- == 0) return node + 1;
  }
}
/* The characters of each node before its blocks, and how many blocks it has. */
static const struct {
  char letter;
  int words, blocks;
} shapes[] = {{'t', 3, 2}, {'?', 2, 2}, {'+', 2, 2}, {'a', 2, 2}, {'F', 1, 2}, {'L', 2, 1},
              {'!', 2, 1}, {'J', 2, 1}, {'r', 1, 0}, {'j', 1, 0}, {'.', 2, 0}};
static const char *after(const char *node) {
  int i = 0, blocks, depth = 0;
  while (shapes[i].letter != *node) ++i;
  node += shapes[i].words;
  for (blocks = shapes[i].blocks; blocks; ++node) {
    if (*node == '{') ++depth;
    if (*node == '}' && --depth == 0) --blocks;
  }
  return node;
}

static int is_of_cpp(const char *node) {
  return *node == 'L' || (*node == '!' && strchr("bo", node[1])) || (*node == 't' && node[1] == 'v');
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
    if (is_of_cpp(script) || choice >> 13 & 1)
      node_cpp(script);
    else
      node_c(script);
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
  --alive;
  ++ending;
  run(script);
  if (self->alive != 0x0FA17000) say("not-alive-after");
  self->alive = 0;
  say("~e%d", self->id);
  --ending;
}
void report(int clause, fault *object, int value) {
  if (object) {
    say("h%d:f%d", clause, object->id);
    object->id += 10;
  } else {
    say("h%d:%d", clause, value);
  }
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
static void show(void) {
  fputs(text, stdout);
  fflush(stdout);
  text[0] = 0;
}
static const char *last_words = "";
static void terminated(void) {
  say("terminate");
  show();
  if (!*last_words) _exit(3);
  run(last_words);
  show();
}

/* ---- random scenes */

static char scene[20000], *end;
static int fuel;
enum { in_handler = 1, may_jump = 2 };
static void put(const char *format, int argument) { end += sprintf(end, format, argument); }
static void write_nodes(int depth, int flags);
static void block_of(int depth, int flags) {
  put("{", 0);
  write_nodes(depth, flags);
  put("}", 0);
}
/* What nothing leaves. */
static void contained(int depth) {
  if (random_below(3)) return;
  put("?a", 0);
  block_of(depth, 0);
  put("{?a", 0);
  block_of(depth, in_handler);
  put("{}}", 0);
}
static void write_throw(int depth) {
  const char type = "ffsbvhidp"[random_below(9)];
  const int has_blocks = strchr("idp", type) == 0;
  put("t%c", type);
  put("%d{", random_below(10));
  if (has_blocks && random_below(3) == 0) write_nodes(depth, 0);
  put("}{", 0);
  if (has_blocks && random_below(3) == 0) contained(depth);
  put("}", 0);
}
static void write_node(int depth, int flags) {
  const int inside = flags & in_handler;
  switch (random_below(depth > 0 ? 17 : 3)) {
    case 0: put(".%d", random_below(10)); break;
    case 1:
      if (inside)
        put("r", 0);
      else if (flags & may_jump)
        put("j", 0);
      else
        put(".x", 0);
      break;
    case 2:
    case 3:
    case 4: write_throw(depth - 1); break;
    case 5:
      put("J%d{", random_below(10));
      put("?%c", "fim"[random_below(3)]);
      block_of(depth - 1, may_jump);
      block_of(depth - 1, in_handler);
      put("}", 0);
      break;
    case 6:
      put("!%c", specifications[random_below(2)]);
      block_of(depth - 1, inside);
      break;
    case 7:
      put("a%d{", random_below(6));
      if (random_below(2)) write_nodes(depth - 1, inside);
      put("}", 0);
      block_of(depth - 1, inside);
      break;
    case 8:
    case 9:
      put("+%d", random_below(10));
      block_of(depth - 1, inside);
      put("{", 0);
      contained(depth - 1);
      put("}", 0);
      break;
    case 10:
    case 11:
      put("F", 0);
      block_of(depth - 1, inside);
      block_of(depth - 1, in_handler);
      break;
    case 12:
      put("L%d", random_below(6));
      block_of(depth - 1, inside);
      break;
    default:
      put("?%c", "fsimpqaae"[random_below(9)]);
      block_of(depth - 1, flags);
      block_of(depth - 1, in_handler);
  }
}
static void write_nodes(int depth, int flags) {
  int count = 1 + random_below(3);
  while (count-- > 0 && fuel-- > 0) write_node(depth, flags);
}
static void write_scene(unsigned number) {
  /* What a specification lets pass is an int; where bad_exception may stand in, anything. */
  static const char *const ints[] = {"ti7{}{}", "?a{tf8{}{}}{}ti7{}{}", "?a{r}{}ti7{}{}",
                                     "?a{r}{?a{?a{tb9{}{}}{r}}{}}ti7{}{}", "+5{ti6{?a{tf1{}{}}{}}{}}{}"};
  static const char *const any[] = {"td7{}{}", "?a{tf8{}{}}{}tp7{}{}", "?a{r}{}r", "ti7{}{}", "+5{td6{}{}}{}"};
  int i;
  random_state = number * 7919;
  for (i = 0; i < 3; ++i) random_below(2);
  end = scene;
  fuel = 40;
  specifications = random_below(3) ? "im" : "bb";
  replacement = (*specifications == 'b' ? any : ints)[random_below(5)];
  put("?a", 0);
  block_of(7, 0);
  put("{}", 0);
}

static void play(const char *script) {
  text[0] = 0;
  alive = 0;
  element_index = 0;
  run(script);
  if (alive) say("%d-alive", alive);
#if WORLDS & 1
  if (!is_quiet_c()) say("not-quiet");
#endif
}
int main(int count, char **words) {
  _ZSt14set_unexpectedPFvvE(not_expected);
  _ZSt13set_terminatePFvvE(terminated);
  if (count == 5) {
    static char first[sizeof text];
    int i;
    specifications = "im";
    replacement = words[2];
    last_words = words[3];
    for (i = 0; i < 50 && strcmp(first, text) == 0; ++i) {
      choice = (strtoul(words[4], 0, 10) * 50 + i) * 2654435761u;
      play(words[1]);
      if (i == 0) strcpy(first, text);
    }
    show();
  } else {
    unsigned number = strtoul(words[1], 0, 10);
    const unsigned last = number + strtoul(words[2], 0, 10);
    for (; number < last; ++number) {
      write_scene(number);
      if (WORLDS == 1 && *specifications == 'b') continue;
      choice = number;
      play(scene);
      printf("%u %s => %s\n", number, scene, text);
    }
  }
  return 0;
}
