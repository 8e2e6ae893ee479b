/* The C library's heap behind counters and a switch that makes it fail, for tests that want to know what is taken from
 * it and when. malloc and its kin are defined here, in the program, where the library's calls find them too. Under a
 * sanitizer that brings its own heap nothing is defined and HEAP_IS_COUNTED is 0. */
#ifndef TESTS_HEAP_H
#define TESTS_HEAP_H

#include "harness.h"

#ifndef __has_feature
#define __has_feature(name) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
#define HEAP_IS_COUNTED 0
#else
#define HEAP_IS_COUNTED 1
#endif

/* Volatile, since compilers know allocation functions by name and take them to leave the program's variables alone. */
static volatile int heap_live TEST_UNUSED;          /* blocks not freed */
static volatile size_t heap_bytes TEST_UNUSED;      /* requested of malloc in all */
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
  if (heap_fails_at <= 0) return heap_fails_at == 0;
  heap_fails_at = heap_fails_at - 1;
  return 0;
}
static void *heap_counted(void *block) {
  heap_live = heap_live + (block != 0);
  return block;
}
void *malloc(size_t bytes) {
  if (heap_refuses()) return 0;
  heap_bytes = heap_bytes + bytes;
  return heap_counted(__libc_malloc(bytes));
}
void *calloc(size_t count, size_t bytes) { return heap_refuses() ? 0 : heap_counted(__libc_calloc(count, bytes)); }
void *realloc(void *old, size_t bytes) {
  void *block = heap_refuses() ? 0 : __libc_realloc(old, bytes);
  return old ? block : heap_counted(block);
}
void free(void *block) {
  heap_live = heap_live - (block != 0);
  __libc_free(block);
}
#ifdef __cplusplus
}
#endif
#endif

#endif
