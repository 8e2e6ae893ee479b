// Output that goes wrong: buffers whose operations fail or throw, facets that are missing or throw, ties that fail,
// with and without an exception mask. What counts: the state, the width, that only failure is ever thrown, no exception
// leaks.
#include <istream>
#include <locale>
#include <plx/num_put.h>
#include <ostream>
#include <string>

#include "../fail_allocation.h"
#include "../harness.h"
#include "buffers.h"

namespace {

typedef std::ostream &(*an_insertion)(std::ostream &out);

std::ostream &a_long(std::ostream &out) { return out << 42L; }
std::ostream &a_double(std::ostream &out) { return out << 1.5; }
std::ostream &a_bool(std::ostream &out) { return out << true; }
std::ostream &a_pointer(std::ostream &out) { return out << static_cast<void *>(&out); }
std::ostream &a_long_long(std::ostream &out) {
  __extension__ const long long big = 1LL << 40;
  return out << big;
}
std::ostream &a_char(std::ostream &out) { return out << 'c'; }
std::ostream &a_text(std::ostream &out) { return out << "text"; }
std::ostream &a_string(std::ostream &out) { return out << std::string("string"); }
std::ostream &a_put(std::ostream &out) { return out.put('c'); }
std::ostream &a_write(std::ostream &out) { return out.write("block", 5); }
std::ostream &a_flush(std::ostream &out) { return out.flush(); }
std::ostream &a_seek(std::ostream &out) { return out.seekp(3); }
std::ostream &a_relative_seek(std::ostream &out) { return out.seekp(3, std::ios::cur); }
std::ostream &a_buffer(std::ostream &out) {
  char text[] = "xy";
  struct reading : std::streambuf {
    explicit reading(char *at) { setg(at, at, at + 2); }
  } from(text);
  return out << &from;
}

enum { good = 0, bad = std::ios::badbit, failed = std::ios::failbit };

// Each operation, the buffer's operation that it needs, the bit when that fails; when it throws the bit is always bad.
const struct {
  an_insertion insert;
  an_operation needs;
  int bit;
  bool resets_width;
} operations[] = {{a_long, overflow_operation, good, true},
                  {a_double, overflow_operation, good, true},
                  {a_bool, overflow_operation, good, false},
                  {a_pointer, overflow_operation, good, true},
                  {a_long_long, overflow_operation, good, true},
                  {a_char, overflow_operation, good, true},
                  {a_text, overflow_operation, good, true},
                  {a_string, xsputn_operation, failed, true},
                  {a_put, overflow_operation, bad, false},
                  {a_write, xsputn_operation, bad, false},
                  {a_flush, sync_operation, bad, false},
                  {a_seek, seek_operation, failed, false},
                  {a_relative_seek, seek_operation, failed, false},
                  {a_buffer, overflow_operation, failed, false}};
const unsigned operation_count = sizeof operations / sizeof *operations;

// Runs the insertion and returns whether it threw a failure; anything else thrown counts as a failed check.
bool throws_failure(std::ostream &out, an_insertion insert) {
  try {
    CHECK(&insert(out) == &out);
  } catch (const std::ios_base::failure &f) {
    CHECK_TEXT(f.what(), "Failure reported");
    return true;
  } catch (...) {
    CHECK(!"something else was thrown");
  }
  return false;
}

void failing_buffers() {
  for (unsigned i = 0; i < operation_count; ++i) {
    for (int throws = 0; throws < 2; ++throws) {
      for (int mask = 0; mask < 2; ++mask) {
        faulty buffer(operations[i].needs, throws != 0);
        std::ostream out(&buffer);
        out.exceptions(mask ? bad | failed : good);
        out.width(2);
        const int bit = throws ? bad : operations[i].bit;
        CHECK_INT(throws_failure(out, operations[i].insert), mask && bit != good);
        const int state = out.rdstate();
        if (state != bit) fprintf(stderr, "operation %u, throws %d, mask %d\n", i, throws, mask);
        CHECK_INT(state, bit);
        CHECK_INT(buffer_error::live, 0);
        if (!throws || operations[i].insert == a_bool) CHECK_INT(out.width(), operations[i].resets_width ? 0 : 2);
      }
    }
  }
}

// A stream that is not good gets failbit and writes nothing; without a buffer it is bad as well.
void bad_streams() {
  for (unsigned i = 0; i < operation_count; ++i) {
    const bool seeks = operations[i].needs == seek_operation;
    faulty buffer(operations[i].needs, true);
    std::ostream out(&buffer);
    out.setstate(std::ios::eofbit);
    if (!seeks) {
      CHECK(!throws_failure(out, operations[i].insert));
      CHECK_INT(out.rdstate(), std::ios::eofbit | failed | (operations[i].insert == a_put ? bad : good));
    }
    out.clear(failed);
    CHECK(!throws_failure(out, operations[i].insert));
    CHECK_INT(out.rdstate(), failed | (operations[i].insert == a_put ? bad : good));
    std::ostream none(0);
    none.width(2);
    CHECK(!throws_failure(none, operations[i].insert));
    CHECK_INT(none.rdstate(), seeks ? bad : bad | failed);
    // Only a character forgets the width of a stream that could not be written to.
    CHECK_INT(none.width(), operations[i].insert == a_char ? 0 : 2);
    if (!seeks) {
      none.clear();
      try {
        none.exceptions(failed);
      } catch (const std::ios_base::failure &) {}
      CHECK(throws_failure(none, operations[i].insert));
    }
  }
}

void positions() {
  faulty good_buffer(no_operation, false), bad_buffer(seek_operation, true);
  std::ostream out(&good_buffer), other(&bad_buffer);
  CHECK_INT(std::streamoff(out.tellp()), 7);
  out.setstate(std::ios::eofbit);
  CHECK_INT(std::streamoff(out.tellp()), 7);
  out.setstate(failed);
  CHECK_INT(std::streamoff(out.tellp()), -1);
  CHECK_INT(std::streamoff(other.tellp()), -1);
  CHECK_INT(other.rdstate(), bad);
}

// unitbuf: the synchronisation at the end fails like any other part.
void failing_unitbuf() {
  for (int throws = 0; throws < 2; ++throws) {
    faulty buffer(sync_operation, throws != 0);
    std::ostream out(&buffer);
    out.setf(std::ios::unitbuf);
    CHECK(!throws_failure(out, a_long));
    CHECK_INT(out.rdstate(), bad);
    out.clear();
    out.exceptions(bad);
    CHECK(throws_failure(out, a_text));
    CHECK_INT(buffer.syncs, 2);
    out.exceptions(good);
    out.clear();
    out.exceptions(bad);
    // The end of a user's own frame throws as well, but not while another exception is on its way.
    try {
      std::ostream::sentry s(out);
    } catch (const std::ios_base::failure &) {
      trace("failure");
    }
    out.exceptions(good);
    out.clear();
    out.exceptions(bad);
    try {
      std::ostream::sentry s(out);
      throw 5;
    } catch (int) {
      trace("int");
    }
    CHECK_TRACE("failure int");
    CHECK_INT(out.rdstate(), bad);
    CHECK_INT(buffer_error::live, 0);
  }
}

// What the flush of the tied stream throws by its own mask passes through the stream that waits for it.
void failing_ties() {
  faulty buffer(sync_operation, true), plain(no_operation, false);
  std::ostream tied(&buffer), out(&plain);
  out.tie(&tied);
  out << 1;
  CHECK(out.good());
  CHECK_INT(tied.rdstate(), bad);
  tied.clear();
  tied.exceptions(bad);
  CHECK(throws_failure(out, a_long));
  CHECK(out.good());
  // An input stream that waits for it becomes bad instead.
  struct reading : std::streambuf {
    virtual int underflow() { return '1'; }
    virtual int uflow() { return '1'; }
  } digits;
  std::istream in(&digits);
  in.tie(&tied);
  tied.clear();
  CHECK_INT(in.get(), -1);
  CHECK_INT(in.rdstate(), bad | failed);
  CHECK_INT(tied.rdstate(), bad);
  CHECK_INT(buffer_error::live, 0);
}

// A buffer that is written out throws: what came before it counts.
void failing_sources() {
  for (int peeks = 0; peeks < 2; ++peeks) {
    struct throwing : std::streambuf {
      bool peeks;
      int left;
      virtual int underflow() {
        if (peeks && left == 0) throw buffer_error();
        return 'a';
      }
      virtual int uflow() {
        if (left-- == 0) throw buffer_error();
        return 'a';
      }
    } from;
    from.peeks = peeks != 0;
    from.left = 2;
    taking buffer;
    std::ostream out(&buffer);
    out << &from;
    CHECK_INT(out.rdstate(), bad);
    CHECK_TEXT(buffer.taken(), peeks ? "aa" : "aaa");
    CHECK_INT(buffer_error::live, 0);
  }
}

typedef std::num_put<char, std::ostreambuf_iterator<char> > a_num_put;

class throwing_num_put : public a_num_put {
protected:
  virtual iter_type do_put(iter_type out, std::ios_base &, char, long) const {
    *out = '!';
    throw buffer_error();
  }
  virtual iter_type do_put(iter_type out, std::ios_base &str, char, double) const {
    str.width(0);
    *out++ = 'D';
    return out;
  }
};

void facets() {
  taking buffer;
  std::ostream out(&buffer);
  out.imbue(std::locale(std::locale::classic(), new throwing_num_put));
  out << 1.5 << 2u << true;
  CHECK_TEXT(buffer.taken(), "D21");
  CHECK(!throws_failure(out, a_long));
  CHECK_INT(out.rdstate(), bad);
  CHECK_TEXT(buffer.taken(), "!");
  out.clear();
  out.exceptions(bad);
  CHECK(throws_failure(out, a_long));
  CHECK_INT(buffer_error::live, 0);
}

// Users' operators: what they throw passes, and the sentry ends the frame on the way.
struct thrower {};

std::ostream &operator<<(std::ostream &out, const thrower &) {
  std::ostream::sentry s(out);
  if (s) {
    out << "half";
    throw 7;
  }
  return out;
}

void users_operators() {
  taking buffer;
  std::ostream out(&buffer);
  int caught = 0;
  try {
    out << thrower();
  } catch (int n) {
    caught = n;
  }
  CHECK_INT(caught, 7);
  CHECK(out.good());
  CHECK_TEXT(buffer.taken(), "half");
}

// A stream that writes while another exception unwinds is as good as ever, and its own errors stay inside.
struct writes_at_the_end {
  std::ostream &out;
  explicit writes_at_the_end(std::ostream &o) : out(o) {}
  ~writes_at_the_end() { out << 1 << "text" << 'c'; }
};

void while_unwinding() {
  faulty throwing(overflow_operation, true);
  taking buffer;
  std::ostream broken(&throwing), out(&buffer);
  try {
    writes_at_the_end first(out), second(broken);
    throw 3;
  } catch (int n) {
    CHECK_INT(n, 3);
  }
  CHECK_TEXT(buffer.taken(), "1textc");
  CHECK_INT(broken.rdstate(), bad | failed);
  CHECK_INT(buffer_error::live, 0);
}

// Nothing in the frame or in the formatting of numbers needs the heap.
void allocations() {
  taking buffer;
  std::ostream out(&buffer);
  out << 1;
  const long before = allocation_calls;
  for (unsigned i = 0; i < operation_count; ++i)
    if (operations[i].insert != a_string) operations[i].insert(out);
  CHECK_INT(allocation_calls, before);
}

}  // namespace

int main() {
  std::locale::classic();  // its blocks stay
  const long before = live_blocks;
  failing_buffers();
  bad_streams();
  positions();
  failing_unitbuf();
  failing_ties();
  failing_sources();
  facets();
  users_operators();
  while_unwinding();
  allocations();
  CHECK(live_blocks - before <= 2);
  return TEST_RESULT();
}
