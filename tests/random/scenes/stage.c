/* Plays scenes, with a choice of worlds for their nodes, and prints their traces; WORLDS is 1 for generated C alone, 2
 * for C++ alone, 3 for both.
 *
 *   program CHOICES FIRST    each line of standard input, KIND|SCENE|UNEXPECTED|TERMINATE (see ../scenes.rules; what
 * the two handlers run), with so many choices from the FIRST on, until a trace differs */
#include "scenes.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

unsigned char _ZSt18uncaught_exceptionv(void);
void (*_ZSt14set_unexpectedPFvvE(void (*)(void)))(void);
void (*_ZSt13set_terminatePFvvE(void (*)(void)))(void);

static char text[20000];
static int alive, ending; /* faults, and those whose destructors run */
static const char *kind;
fault pointed = {0x0FA17000, 77, "}"};
a_place *place;
#pragma weak nodes_c
#pragma weak nodes_cpp

void say(const char *format, ...) {
  size_t used = strlen(text);
  va_list arguments;
  if (used > sizeof text - 100) return;
  va_start(arguments, format);
  vsprintf(text + used, format, arguments);
  va_end(arguments);
  /* Whether bad_exception is in flight already when what it stands for ends, libraries see differently. */
  strcat(text, _ZSt18uncaught_exceptionv() && !(ending && *kind == 'b') ? "* " : " ");
}

const char *block(const char *node, int which) {
  int depth = 0;
  for (;; ++node) {
    if (*node == '}') --depth;
    if (*node == '{' && depth++ == 0 && which-- == 0) return node + 1;
  }
}
static const char *after(const char *node) {
  int depth = 0;
  if (strchr(".rj", *node)) return node + (*node == '.' ? 2 : 1);
  while (*node != '{') ++node;
  for (; depth > 0 || *node == '{'; ++node) depth += (*node == '{') - (*node == '}');
  return node;
}

static int is_of_cpp(const char *node) {
  return *node == 'L' || (*node == '!' && strchr("bo", node[1])) || (*node == 't' && node[1] == 'v');
}
static unsigned choice;
void run(const char *script) {
  static const char letters[] = "t?+F!LJjr";
  a_place *const outer = place;
  a_player *const *players;
  for (; *script && *script != '}'; script = after(script)) {
    place = outer; /* whatever ended before */
    if (*script == '.') {
      say(".%c", script[1]);
      continue;
    }
    choice = choice * 5 + 1;
    players = (WORLDS == 3 ? is_of_cpp(script) || choice >> 13 & 1 : WORLDS == 2) ? nodes_cpp : nodes_c;
    players[strchr(letters, *script) - letters](script);
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

static void play(const char *script) {
  text[0] = 0;
  alive = 0;
  run(script);
  if (alive) say("%d-alive", alive);
#if WORLDS & 1
  if (!is_quiet_c()) say("not-quiet");
#endif
}
static const char *field(char **rest) {
  const char *const found = strsep(rest, "|\n");
  return found ? found : "";
}
int main(int count, char **words) {
  static char line[sizeof text], first[sizeof text];
  const int choices = atoi(words[count - 2]), first_choice = atoi(words[count - 1]) * choices;
  int number, i;
  _ZSt14set_unexpectedPFvvE(not_expected);
  _ZSt13set_terminatePFvvE(terminated);
  for (number = 0; fgets(line, sizeof line, stdin); ++number) {
    char *rest = line;
    const char *scene;
    kind = field(&rest);
    scene = field(&rest);
    replacement = field(&rest);
    last_words = field(&rest);
    if (WORLDS == 1 && *kind) continue;
    first[0] = text[0] = 0;
    for (i = 0; i < choices && strcmp(first, text) == 0; ++i) {
      choice = (number + first_choice + i) * 2654435761u;
      play(scene);
      if (i == 0) strcpy(first, text);
    }
    printf("%s|%s => ", kind, scene);
    show();
    putchar('\n');
  }
  return 0;
}
