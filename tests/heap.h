/* The C library's heap behind counters and a switch that makes it fail, for tests that want to know what is taken from
 * it and when. malloc and its kin are defined here, in the program, where the library's calls find them too. Under a
 * sanitizer that brings its own heap nothing is defined and HEAP_IS_COUNTED is 0. */
#ifndef TESTS_HEAP_H
#define TESTS_HEAP_H

#include "harness.h"

#define HEAP_IS_COUNTED 1
#if defined(__SANITIZE_ADDRESS__)
#undef HEAP_IS_COUNTED
#define HEAP_IS_COUNTED 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#undef HEAP_IS_COUNTED
#define HEAP_IS_COUNTED 0
#endif
#endif

/* Volatile, since compilers know allocation functions by name and take them to leave the program's variables alone. */
static volatile int heap_calls TEST_UNUSED;         /* calls of malloc */
static volatile int heap_live TEST_UNUSED;          /* blocks not freed */
static volatile size_t heap_bytes TEST_UNUSED;      /* requested in all */
static volatile int heap_fails_at TEST_UNUSED = -1; /* calls that still succeed, all later ones fail; -1: none fails */

#if HEAP_IS_COUNTED
#ifdef __cplusplus
extern "C" {
#endif
extern void *__libc_malloc(size_t);
extern void *__libc_calloc(size_t, size_t);
extern void *__libc_realloc(void *, size_t);
extern void __libc_free(void *);

static int heap_refuses(void) {
  if (heap_fails_at < 0) return 0;
  if (heap_fails_at == 0) return 1;
  heap_fails_at = heap_fails_at - 1;
  return 0;
}
void *malloc(size_t bytes) {
  void *block;
  heap_calls = heap_calls + 1;
  if (heap_refuses()) return 0;
  block = __libc_malloc(bytes);
  if (block) {
    heap_live = heap_live + 1;
    heap_bytes = heap_bytes + bytes;
  }
  return block;
}
void *calloc(size_t count, size_t bytes) {
  void *block = heap_refuses() ? 0 : __libc_calloc(count, bytes);
  if (block) heap_live = heap_live + 1;
  return block;
}
void *realloc(void *old, size_t bytes) {
  void *block = heap_refuses() ? 0 : __libc_realloc(old, bytes);
  if (block && !old) heap_live = heap_live + 1;
  return block;
}
void free(void *block) {
  if (block) heap_live = heap_live - 1;
  __libc_free(block);
}
#ifdef __cplusplus
}
#endif
#endif

#endif
