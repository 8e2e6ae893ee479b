// test-variants: -O0 | -O2
// vector, deque and list when copies of elements or allocations fail, each N-th one of every operation: nothing leaks, the
// container stays usable, and what the standard promises to leave alone is as before.
// test-peer: gnu++98

#include "fail_allocation.h"

#include "containers/sequence_check.h"

// What leaves the sequence unchanged when it fails: push_back and whatever adds one element at an end, and all
// insertions into a list.
template <class Sequence> struct promises {
  static bool strong(unsigned int kind, bool) { return kind <= 2 || kind == 11; }
};
template <class T> struct promises<std::deque<T> > {
  static bool strong(unsigned int kind, bool at_end) {
    return kind <= 2 || kind == 5 || kind == 11 || ((kind == 4 || kind == 9) && at_end);
  }
};
template <class T> struct promises<std::list<T> > {
  static bool strong(unsigned int kind, bool) { return kind <= 2 || (kind >= 4 && kind <= 11); }
};

// Fails the N-th copy, or with `allocations` the N-th allocation, of one step on a copy of `start`.
template <class Sequence> void fail_step(const Sequence &start, const model &start_model, unsigned int kind, int p, int q,
                                         int number, bool allocations) {
  for (long n = 1; n < 10000; ++n) {
    const long live_before = tracked::live, blocks_before = live_blocks;
    bool failed = false;
    {
      Sequence s(start);
      model m = start_model;
      (allocations ? allocation_to_fail : tracked::copies_to_fail) = n;
      try {
        step(s, m, kind, p, q, number);
      } catch (const copy_failed &) {
        failed = true;
      } catch (const std::bad_alloc &) {
        failed = true;
      }
      allocation_to_fail = tracked::copies_to_fail = 0;
      if (failed && !promises<Sequence>::strong(kind, p == start_model.n || p == 0)) read_back(s, m);
      if (failed && promises<Sequence>::strong(kind, p == start_model.n || p == 0)) m = start_model;
      const bool good = same(s, m);
      if (!good) fprintf(stderr, "kind %u at %d of %d, failure %ld of %s\n", kind, p, start_model.n, n, allocations ? "allocations" : "copies");
      CHECK(good);
      // It goes on as if nothing had been.
      s.push_back(tracked(5));
      s.insert(s.begin(), tracked(6));
      m.insert(m.n, 1, 5);
      m.insert(0, 1, 6);
      CHECK(same(s, m));
    }
    CHECK_INT(tracked::live, live_before);
    CHECK_INT(live_blocks, blocks_before);
    if (!failed || test_failures > 10) return;
  }
  CHECK(!"a step that fails without end");
}

template <class Sequence> void fail_all() {
  const int sizes[] = {0, 1, 7, 45};
  for (int i = 0; i < 4; ++i) {
    Sequence start;
    model m;
    m.n = 0;
    for (int k = 1; k <= sizes[i]; ++k) start.push_back(tracked(k)), m.insert(m.n, 1, k);
    for (unsigned int kind = 0; kind < step_kinds; ++kind) {
      const int places[] = {0, sizes[i] / 3, sizes[i] * 3 / 4, sizes[i]};
      for (int k = 0; k < 4; ++k) {
        fail_step(start, m, kind, places[k], 4, 50, false);
        fail_step(start, m, kind, places[k], 4, 50, true);
        fail_step(start, m, kind, places[k], 33, 50, false);
      }
    }
  }
}

// push_front, and constructors.
template <class Sequence> struct pushing_front {
  Sequence s;
  void run() {
    for (int i = 0; i < 30; ++i) s.push_front(typename Sequence::value_type(i));
  }
  void check(bool failed) {
    CHECK(validate(s) && (failed || s.size() == 30));
    int next = static_cast<int>(s.size());
    for (typename Sequence::iterator at = s.begin(); at != s.end(); ++at) CHECK(*at == typename Sequence::value_type(--next));
  }
};
template <class Sequence> struct constructing {
  void run() {
    const Sequence s(50, typename Sequence::value_type(7));
    const Sequence copy(s);
    const Sequence part(++copy.begin(), copy.end());
    CHECK(part.size() == 49 && copy == s);
    Sequence assigned;
    assigned = part;
    assigned.insert(++assigned.begin(), 60, typename Sequence::value_type(3));
  }
  void check(bool) {}
};

// Strings that cannot be shared are copied when the vector copies them, and that allocates.
struct unshareable {
  std::vector<std::string> v;
  unshareable() : v(12, std::string(100, 'x')) {
    v[3][0] = 'y';
  }
  void run() {
    v.push_back(v[3]);
    v.insert(v.begin() + 2, v[3]);
    v.insert(v.begin() + 2, 3, v[4]);
    std::vector<std::string> other(v);
    other.insert(other.begin() + 5, v.begin(), v.end());
    v.swap(other);
  }
  void check(bool failed) {
    CHECK(validate(v) && (failed || v.size() == 34));
    for (unsigned int i = 0; i < v.size(); ++i) CHECK(v[i].size() == 100 && v[i][99] == 'x');
  }
};

int main() {
  fail_all<std::vector<tracked> >();
  fail_all<std::deque<tracked> >();
  fail_all<std::list<tracked> >();
  // Those that the library carries as well.
  CHECK(fail_each_allocation<constructing<std::list<int> > >() >= 200);
  CHECK(fail_each_allocation<constructing<std::deque<int> > >() > 7);
  CHECK(fail_each_allocation<constructing<std::deque<char> > >() > 7);
  CHECK(fail_each_allocation<constructing<std::vector<long> > >() >= 4);
  CHECK(fail_each_allocation<constructing<std::vector<bool> > >() >= 4);
  CHECK(fail_each_allocation<constructing<std::deque<tracked> > >() > 7);
  fail_each_allocation<pushing_front<std::deque<int> > >();
  fail_each_allocation<pushing_front<std::deque<tracked> > >();
  fail_each_allocation<pushing_front<std::list<tracked> > >();
  fail_each_allocation<unshareable>();
  CHECK_INT(tracked::live, 0);
  CHECK_INT(live_blocks, 0);
  return TEST_RESULT();
}
