// Frames of every shape that an exception passes and is caught in; prints what happened and what locals held
// afterwards.
#include <alloca.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ucontext.h>

#define APART __attribute__((__noinline__))

typedef void (*callback)(int);
extern "C" {
void plain_c(callback f, int n);
void nested_c(callback f, int n);
void registers_c(callback f, int n);
void with_cleanup_c(callback f, int n);
}

struct noisy {
  int n;
  explicit noisy(int k) : n(k) {}
  ~noisy() { std::printf("~%d ", n); }
};

static volatile int zero;
static void APART leaf(int n) {
  if (n > 0) throw n + zero;
}
static callback volatile hidden = leaf;
static int value(int n) {
  hidden(n);
  return n + zero;
}

static void variable_length(int n) {
  char array[n * 10 + zero];
  std::memset(array, n, sizeof array);
  noisy local(1);
  char *const block = static_cast<char *>(alloca(n * 100));
  block[0] = 3;
  try {
    int inner[n + zero];
    inner[0] = n;
    hidden(inner[0]);
  } catch (int) {
    std::printf("array %d %d ", array[n * 10 - 1], block[0]);
    throw;
  }
}

struct __attribute__((__aligned__(64))) wide {
  double values[16];
};
static void realigned(int n) {
  wide local;
  noisy before(2);
  for (int i = 0; i < 16; ++i) local.values[i] = i * n;
  int array[n + zero];
  array[n - 1] = 4;
  try {
    hidden(n);
  } catch (int k) {
    std::printf("wide %d %d %g %d ", k, int(reinterpret_cast<unsigned long>(&local) % 64), local.values[15],
                array[n - 1]);
    throw;
  }
}

static int many(int a, double b, int c, long long d, const noisy &e, int f) {
  return a + int(b) + c + int(d) + e.n + f;
}
static void arguments(int n) {
  // Only one argument may leave a trace: their order is the compiler's.
  int sum = 0;
  const noisy fifth(5);
  try {
    sum = many(1, 2, value(0), 4, fifth, many(1, 2, value(0), 4, fifth, value(n)));
  } catch (int k) {
    std::printf("arguments %d %d ", k, sum);
    sum = many(1, 2, 3, 4, noisy(7), 6);
    many(sum, 2, value(0), 4, fifth, value(n));
  }
}

__attribute__((__cold__)) static void APART unlikely(int n) {
  noisy local(8);
  hidden(n);
}
static void split(int n) {
  noisy first(9);
  for (int i = 0; i < 3; ++i) {
    if (__builtin_expect(i == 2, 0)) {
      noisy second(10);
      try {
        unlikely(n);
      } catch (int k) {
        std::printf("cold %d ", k);
        unlikely(n);
      }
    }
    value(0);
  }
}

__attribute__((__regparm__(3))) static int APART by_registers(int a, int b, int c) {
  noisy local(a);
  return value(b) + c;
}
__attribute__((__fastcall__)) static int APART fast(int a, int b, int c) {
  noisy local(b);
  return by_registers(a, b, c) + c;
}
__attribute__((__stdcall__)) static int APART popped_by_callee(int a, int b, int c) {
  noisy local(c);
  return fast(a, b, c) + b;
}
static void conventions(int n) { popped_by_callee(11, n, 12); }

static void below_plain_c(int n) {
  noisy local(15);
  hidden(n);
}
static void in_plain_c(int n) {
  noisy local(16);
  plain_c(below_plain_c, n);
}
static void in_nested_c(int n) {
  noisy local(17);
  nested_c(in_plain_c, n);
}
static void in_registers_c(int n) {
  noisy local(18);
  registers_c(in_nested_c, n);
}
static void in_cleanup_c(int n) { with_cleanup_c(in_plain_c, n); }

// A signal that an instruction of the program raised; the handler's stack is the program's or one of its own. clang
// makes no landing pad for an instruction, so the frames that clean up are those that call.
static void on_signal(int) { throw 5; }
static int read_from(int *p) { return *p; }
static int (*volatile hidden_read)(int *) = read_from;
static void signals(int n) {
  static char other[1 << 16];
  for (int i = 0; i < 2; ++i) {
    stack_t stack = stack_t();
    stack.ss_sp = other;
    stack.ss_size = sizeof other;
    sigaltstack(&stack, 0);
    struct sigaction action = {};
    action.sa_handler = on_signal;
    action.sa_flags = SA_NODEFER | (i ? SA_ONSTACK : 0);
    sigaction(SIGSEGV, &action, 0);
    try {
      noisy local(19);
      std::printf("%d", hidden_read(reinterpret_cast<int *>(zero)));
    } catch (int k) { std::printf("signal %d ", k); }
  }
  hidden(n);
}

// A stack of its own, from which exceptions do not lead back.
static ucontext_t caller, coroutine;
static void run_coroutine() {
  try {
    noisy local(20);
    hidden(1);
  } catch (int k) { std::printf("coroutine %d ", k); }
}
static void coroutines(int n) {
  static char stack[1 << 16];
  getcontext(&coroutine);
  coroutine.uc_stack.ss_sp = stack;
  coroutine.uc_stack.ss_size = sizeof stack;
  coroutine.uc_link = &caller;
  makecontext(&coroutine, run_coroutine, 0);
  swapcontext(&caller, &coroutine);
  hidden(n);
}

// More clean-ups than a throw notes at once, with arguments on the stack that the table counts: the walk begins again
// from the last that was noted. By a pointer, lest a compiler passes arguments in registers.
static noisy &sixth = *new noisy(6);
static int passed;
static int far(int depth, int a, int b, int c);
static int (*volatile farther)(int, int, int, int) = far;
static int APART far(int depth, int a, int b, int c) {
  struct counted {
    int n;
    ~counted() { passed += n; }
  } local = {depth};
  return depth ? many(a, 2, farther(depth - 1, b, c, a), 4, sixth, b) + local.n : many(a, value(b), c, 4, sixth, a);
}
static void pushed(int n) {
  for (int depth = 28; depth < 36; ++depth) {
    try {
      far(depth, n, n, n);
    } catch (int k) { std::printf("pushed %d %d ", k, passed); }
  }
  hidden(n);
}

int main(int count, char **) {
  if (count > 1) std::setvbuf(stdout, 0, _IONBF, 0);
  static const struct {
    const char *name;
    callback run;
  } shapes[] = {// clang-format off
      {"variable length", variable_length}, {"realigned", realigned}, {"arguments", arguments}, {"hot and cold", split},
      {"conventions", conventions}, {"C", in_plain_c}, {"nested C", in_nested_c},
      {"registers of C", in_registers_c}, {"C that cleans up", in_cleanup_c}, {"signals", signals},
      {"coroutines", coroutines}, {"pushed", pushed}};
  // clang-format on
  wide local;
  for (int i = 0; i < 16; ++i) local.values[i] = i;
  for (unsigned i = 0; i < 2 * sizeof shapes / sizeof *shapes; ++i) {
    double kept = i * 1.5;
    try {
      noisy outer(99);
      shapes[i / 2].run(3 + i % 2);
      std::printf("nothing thrown ");
    } catch (int n) { std::printf("%s: %d, %g %g\n", shapes[i / 2].name, n, kept, local.values[i % 16]); }
  }
  return 0;
}
