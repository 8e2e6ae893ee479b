/* Functions of C between frames of C++, by gcc. */
typedef void (*callback)(int);

void plain_c(callback f, int n) {
  volatile int kept = n;
  f(kept);
  kept = 0;
}

static __attribute__((__noinline__)) void call(callback f, int n) {
  f(n);
  __asm__("" ::: "memory");
}
void nested_c(callback f, int n) {
  volatile int kept = n;
  void inner(int k) {
    f(k);
    kept = k;
  }
  call(inner, n);
  kept = 0;
}

void registers_c(callback f, int n) {
  int a = n, b = n * 2, c = n * 3;
  __asm__("" : "+b"(a), "+S"(b), "+D"(c));
  f(n);
  __asm__("" : : "b"(a), "S"(b), "D"(c));
}

/* The table is of C's own personality: its clean-ups are not run, and nothing is landed in. */
static void forget(int *n) { *n = 0; }
void with_cleanup_c(callback f, int n) {
  __attribute__((__cleanup__(forget))) int kept = n;
  f(kept);
}
