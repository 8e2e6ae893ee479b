// Frames of unusual shape that catch: variable length arrays, alloca, over-aligned locals, large frames, frames with
// many arguments, struct returns, variable arguments, register pressure, other calling conventions.
// prints: 1 lines
// test-variants: -O0 | -O2 -fomit-frame-pointer | -O3 -msse2 -mfpmath=sse
#include <alloca.h>
#include <stdarg.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

static void may_throw(int n) {
  if (n) throw n;
}
static void (*volatile hidden)(int) = may_throw;

struct noisy {
  int n;
  explicit noisy(int k) : n(k) {}
  ~noisy() { printf("~%d ", n); }
};

// The stack pointer moves while the frame is live; after the catch everything below must still be there.
static int variable_length(int count, int fail) {
  int array[count];
  for (int i = 0; i < count; ++i) array[i] = i;
  try {
    noisy local(1);
    int inner[count * 2];
    for (int i = 0; i < count * 2; ++i) inner[i] = -1;
    hidden(fail);
    return -inner[count];
  } catch (int n) {
    int in_handler[n];
    for (int i = 0; i < n; ++i) in_handler[i] = n;
    try {
      hidden(in_handler[n - 1]);
    } catch (int again) {
      int sum = again;
      for (int i = 0; i < count; ++i) sum += array[i];
      return sum;
    }
  }
  return 0;
}
static int alloca_in_loop(int rounds) {
  int sum = 0;
  char *last = 0;
  for (int i = 1; i <= rounds; ++i) {
    char *block = (char *)alloca(i * 16);
    memset(block, i, i * 16);
    try {
      hidden(i % 2);
      sum += block[i * 16 - 1];
    } catch (int) {
      sum += 1000 + block[0];
      if (last && last[0] != i - 1) return -1;
    }
    last = block;
  }
  return sum;
}
static void moving_stack() {
  printf("%d ", (int)(variable_length(10, 0)));
  printf("%d ", (int)(variable_length(10, 5)));
  printf("%d ", (int)(alloca_in_loop(20)));
}

// Over-aligned locals: the frame is realigned, so the landing code must find it again.
struct __attribute__((__aligned__(64))) wide {
  unsigned char bytes[64];
  explicit wide(int n) { memset(bytes, n, sizeof bytes); }
  ~wide() { printf("~w%d ", bytes[63]); }
};
static int misaligned(const volatile void *p, int to) { return (int)((uintptr_t)p % to); }
static int aligned_frame(int fail) {
  wide w(3);
  __attribute__((__aligned__(32))) int numbers[5] = {1, 2, 3, 4, 5};
  if (misaligned(&w, 64) || misaligned(numbers, 32)) return -1;
  try {
    wide inner(4);
    if (misaligned(&inner, 64)) return -2;
    hidden(fail);
    return numbers[1];
  } catch (int n) {
    wide in_handler(5);
    if (misaligned(&w, 64) || misaligned(numbers, 32) || misaligned(&in_handler, 64)) return -3;
    return w.bytes[10] + numbers[4] + n;
  }
}
static int aligned_and_moving(int count, int fail) {
  wide w(6);
  char array[count];
  memset(array, 7, count);
  try {
    char more[count * 3];
    memset(more, 8, count * 3);
    hidden(fail);
    return more[count];
  } catch (int n) {
    return misaligned(&w, 64) ? -1 : w.bytes[1] + array[count - 1] + n;
  }
}
static void aligned() {
  printf("%d ", (int)(aligned_frame(0)));
  printf("%d ", (int)(aligned_frame(9)));
  printf("%d ", (int)(aligned_and_moving(100, 0)));
  printf("%d ", (int)(aligned_and_moving(100, 9)));
}

struct large {
  int values[5000];
};
static large big_frame(int fail) {
  large result;
  large scratch;
  for (int i = 0; i < 5000; ++i) {
    result.values[i] = i;
    scratch.values[i] = -i;
  }
  try {
    hidden(fail);
  } catch (int n) {
    result.values[4999] = n - scratch.values[100];
  }
  return result;
}

static int many(int a, char b, double c, long long d, short e, large f, float g, const char *h, int i) {
  try {
    noisy local(a);
    hidden(i);
    return a + b;
  } catch (int n) {
    return a + b + (int)c + (int)d + e + f.values[7] + (int)g + (int)strlen(h) + i + n;
  }
}
static int variable_arguments(int count, ...) {
  va_list arguments;
  va_start(arguments, count);
  int sum = 0;
  for (int i = 0; i < count; ++i) {
    try {
      hidden(va_arg(arguments, int));
    } catch (int n) {
      sum = sum * 10 + n;
    }
  }
  va_end(arguments);
  return sum;
}
__attribute__((__fastcall__)) static int in_registers(int a, int b) {
  try {
    hidden(a);
  } catch (int n) {
    return n * 10 + b;
  }
  return b;
}
__attribute__((__stdcall__, __noinline__)) static int callee_pops(int a, int b) {
  noisy local(a);
  hidden(b);
  return a;
}
__attribute__((__regparm__(3), __noinline__)) static int three_registers(int a, int b, int c) {
  try {
    return callee_pops(a, b) + c;
  } catch (int n) {
    return n + a * 100 + c;
  }
}
static void conventions() {
  printf("%d ", (int)(big_frame(7).values[4999]));
  printf("%d ", (int)(big_frame(0).values[4999]));
  printf("%d ", (int)(many(1, 2, 3.0, 4, 5, big_frame(0), 7.0f, "eight", 9)));
  printf("%d ", (int)(variable_arguments(4, 1, 0, 2, 3)));
  printf("%d ", (int)(in_registers(4, 2)));
  printf("%d ", (int)(three_registers(1, 2, 3)));
  printf("%d ", (int)(three_registers(1, 0, 3)));
}

// More live values than registers, integer and floating, across a call that throws.
static double pressure(int seed) {
  int a = seed, b = a * 3 + 1, c = b ^ a, d = c + b, e = d * a, f = e - c, g = f + d, h = g ^ e;
  double p = a / 2.0, q = b / 4.0, r = c / 8.0, s = d / 16.0, t = p * q, u = r + s, v = t - u, w = v * p;
  try {
    hidden(seed % 2);
    a = 0;
  } catch (int) {
    h += 1;
  }
  return a + b * 2 + c * 3 + d * 4 + e * 5 + f * 6 + g * 7 + h * 8 + p + q + r + s + t + u + v + w;
}
static void registers() {
  for (int seed = 0; seed < 20; ++seed) printf("%.10g ", pressure(seed));
}

// The floating-point stack is in use when a call throws, again and again: it must not overflow.
static double floating(int n) {
  hidden(n % 2);
  return n;
}
static void floating_stack() {
  double sum = 0;
  for (int i = 0; i < 100; ++i) {
    try {
      sum += 1.5 * floating(i) + 2.5 * (floating(2) + floating(i + 1) / 3.0);
    } catch (int) {
      sum += 0.5;
    }
  }
  printf("%g\n", sum);
}

int main() {
  moving_stack();
  aligned();
  conventions();
  registers();
  floating_stack();
  return 0;
}
