// Allocation of over-aligned types in all its forms, its failure, and objects of the one thread: in later dialects.
// test-variants: -O0 -std=gnu++17 | -O2 -std=gnu++20
#include <new>

#include "../harness.h"

struct alignas(64) wide {
  char bytes[64];
};

static bool is_aligned(const void *p) { return reinterpret_cast<size_t>(p) % 64 == 0; }

static void forms() {
  wide *kept[8][4];
  for (auto &row : kept) {
    row[0] = new wide;
    row[1] = new wide[3];
    row[2] = new (std::nothrow) wide;
    row[3] = new (std::nothrow) wide[3];
    for (wide *p : row) CHECK(p && is_aligned(p));
  }
  for (auto &row : kept) {
    delete row[0];
    delete[] row[1];
    delete row[2];
    delete[] row[3];
  }
}

struct failing : wide {
  failing() { throw 5; }
};

static void failures() {
  const std::align_val_t wide_alignment{64};
  volatile size_t too_much = 0xF0000000u;
  bool caught = false;
  try {
    void *volatile p = ::operator new(too_much, wide_alignment);
    CHECK(p == nullptr);
  } catch (std::bad_alloc &) {
    caught = true;
  }
  CHECK(caught);
  CHECK(::operator new(too_much, wide_alignment, std::nothrow) == nullptr);
  try {
    failing *volatile p = new (std::nothrow) failing;
    CHECK(p == nullptr);
  } catch (int code) {
    CHECK_INT(code, 5);
  }
}

struct noisy {
  ~noisy() { printf("~thread "); }
};
static void ends() {
  static thread_local noisy object;
  (void)&object;
  exit(4);
}

int main() {
  forms();
  failures();
  CHECK_ENDS(ends, 4, "~thread ");
  return TEST_RESULT();
}
