// dynamic_cast: up, down and across, to void *, of references with bad_cast, through virtual, repeated, private and
// ambiguous bases, of objects under construction, and in a hierarchy too deep to be guessed at.
// test-variants: -O0 | -O2 | -O3 | -O1 -std=gnu++17 | -O2 -static
#include <typeinfo>

#include "../harness.h"

#pragma clang diagnostic ignored "-Winaccessible-base"  // ambiguous bases are what is tested

struct base {
  int tag;
  base() : tag(1) {}
  virtual ~base() {}
};
struct second {
  int tag;
  second() : tag(2) {}
  virtual ~second() {}
};
struct third {
  int tag;
  third() : tag(3) {}
  virtual ~third() {}
};
struct plain_part {
  int tag;
  plain_part() : tag(4) {}
};
struct derived : base {
  int more;
};
struct sibling : base {};
struct joined : derived, second {
  double d;
};
struct final_class : plain_part, third, joined {
  char c;
};
struct stranger {
  virtual ~stranger() {}
};

// dynamic_cast that the compiler cannot resolve.
template <class To, class From> static To *cast(From *p) {
  From *volatile hidden = p;
  return dynamic_cast<To *>(const_cast<From *>(hidden));
}

static void single_and_multiple() {
  base b;
  derived d;
  sibling s;
  joined j;
  final_class f;
  CHECK(cast<derived>(&b) == 0);
  CHECK(cast<derived>(static_cast<base *>(&d)) == &d);
  CHECK(cast<sibling>(static_cast<base *>(&d)) == 0);
  CHECK(cast<sibling>(static_cast<base *>(&s)) == &s);
  CHECK(cast<joined>(static_cast<base *>(&d)) == 0);
  CHECK(cast<base>(&j) == static_cast<base *>(&j));
  CHECK(cast<joined>(static_cast<second *>(&j)) == &j);
  CHECK(cast<second>(static_cast<base *>(&j)) == static_cast<second *>(&j));
  CHECK(cast<derived>(static_cast<second *>(&j)) == static_cast<derived *>(&j));
  CHECK(cast<third>(static_cast<base *>(&f)) == static_cast<third *>(&f));
  CHECK(cast<plain_part>(static_cast<second *>(&f)) == static_cast<plain_part *>(&f));
  CHECK_INT(cast<plain_part>(static_cast<second *>(&f))->tag, 4);
  CHECK(cast<final_class>(static_cast<second *>(&f)) == &f);
  CHECK(cast<joined>(static_cast<third *>(&f)) == static_cast<joined *>(&f));
  CHECK(cast<stranger>(static_cast<third *>(&f)) == 0);
  CHECK(cast<third>(static_cast<base *>(&j)) == 0);
  CHECK(cast<derived>((base *)0) == 0);
  const base *constant = &j;
  CHECK(dynamic_cast<const second *>(constant) == static_cast<second *>(&j));
}

static void to_void() {
  final_class f;
  joined j;
  CHECK(dynamic_cast<void *>(static_cast<third *>(&f)) == &f);
  CHECK(dynamic_cast<void *>(static_cast<second *>(&f)) == &f);
  CHECK(dynamic_cast<const void *>(static_cast<const base *>(&j)) == &j);
  base *volatile null = 0;
  CHECK(dynamic_cast<void *>(null) == 0);
}

static void references() {
  joined j;
  base *volatile p = &j;
  CHECK(&dynamic_cast<second &>(*p) == static_cast<second *>(&j));
  int caught = 0;
  try {
    trace("%d", dynamic_cast<third &>(*p).tag);
  } catch (std::bad_cast &e) {
    ++caught;
    CHECK(e.what()[0] != 0);
  }
  try {
    trace("%d", dynamic_cast<const third &>(*p).tag);
  } catch (std::exception &e) {
    ++caught;
    CHECK(typeid(e) == typeid(std::bad_cast));
  }
  CHECK_INT(caught, 2);
  CHECK_TRACE("");
}

// A virtual base is left by dynamic_cast only, to wherever the complete object has put the derived part.
struct v_left : virtual base {
  int l;
};
struct v_right : virtual base {
  int r;
};
struct diamond : v_left, v_right {
  int d;
};
struct below : virtual diamond, second {};
struct lowest : third, below {
  int n;
};
static void virtual_bases() {
  diamond d;
  lowest w;
  base *top = &d;
  CHECK(cast<diamond>(top) == &d);
  CHECK(cast<v_right>(top) == static_cast<v_right *>(&d));
  CHECK(cast<v_left>(static_cast<v_right *>(&d)) == static_cast<v_left *>(&d));
  CHECK(cast<lowest>(top) == 0);
  top = &w;
  CHECK(cast<lowest>(top) == &w);
  CHECK(cast<diamond>(top) == static_cast<diamond *>(&w));
  CHECK(cast<v_right>(top) == static_cast<v_right *>(&w));
  CHECK(cast<second>(top) == static_cast<second *>(&w));
  CHECK(cast<third>(static_cast<second *>(&w)) == static_cast<third *>(&w));
  CHECK(cast<base>(static_cast<third *>(&w)) == static_cast<base *>(&w));
  CHECK(cast<below>(static_cast<third *>(&w)) == static_cast<below *>(&w));
}

// Repeated bases: down from one of them is unambiguous, across to them is not.
struct left : base {
  int l;
};
struct right : base {
  int r;
};
struct twice : left, right, second {};
struct twice_below : twice {};
struct once_more : base, twice {  // base is there three times
};
static void repeated_bases() {
  twice t;
  base *from_left = static_cast<left *>(&t), *from_right = static_cast<right *>(&t);
  CHECK(cast<twice>(from_left) == &t);
  CHECK(cast<twice>(from_right) == &t);
  CHECK(cast<left>(from_left) == static_cast<left *>(&t));
  CHECK(cast<right>(from_right) == static_cast<right *>(&t));
  CHECK(cast<right>(from_left) == static_cast<right *>(&t));  // across, from a public base
  CHECK(cast<left>(from_right) == static_cast<left *>(&t));
  CHECK(cast<second>(from_left) == static_cast<second *>(&t));
  CHECK(cast<base>(static_cast<second *>(&t)) == 0);
  twice_below b;
  CHECK(cast<base>(static_cast<second *>(&b)) == 0);
  CHECK(cast<right>(static_cast<second *>(&b)) == static_cast<right *>(&b));
  base *inner = static_cast<left *>(&b);
  CHECK(cast<twice_below>(inner) == &b);
}

// A target that is there twice: down from a base of one of them leads to that one, across is ambiguous.
struct node : base {
  int n;
};
struct node_a : node {};
struct node_b : node {};
struct nodes : node_a, node_b, third {};
static void repeated_targets() {
  nodes n;
  base *in_a = static_cast<node_a *>(&n), *in_b = static_cast<node_b *>(&n);
  CHECK(cast<node>(in_a) == static_cast<node *>(static_cast<node_a *>(&n)));
  CHECK(cast<node>(in_b) == static_cast<node *>(static_cast<node_b *>(&n)));
  CHECK(cast<node>(static_cast<third *>(&n)) == 0);
  CHECK(cast<node_b>(in_a) == static_cast<node_b *>(&n));
}

// Private and protected bases can be neither left nor reached, except down within a public part.
struct secret : private base, public second {
  base *inside() { return this; }
};
struct hides_joined : protected joined, public third {
  base *inside() { return this; }
  joined *part() { return this; }
};
struct v_public : virtual base {};
struct v_private : private virtual base {
  base *inside() { return this; }
};
struct v_both : v_private, v_public {};
static void access() {
  secret s;
  CHECK(cast<secret>(s.inside()) == 0);
  CHECK(cast<base>(static_cast<second *>(&s)) == 0);
  CHECK(cast<second>(s.inside()) == 0);
  CHECK(cast<secret>(static_cast<second *>(&s)) == &s);
  hides_joined h;
  CHECK(cast<joined>(h.inside()) == h.part());  // all within the hidden part
  CHECK(cast<second>(h.inside()) == 0);         // needs the complete object, where base is no public base
  CHECK(cast<hides_joined>(h.inside()) == 0);
  CHECK(cast<third>(h.inside()) == 0);
  CHECK(cast<joined>(static_cast<third *>(&h)) == 0);
  CHECK(cast<hides_joined>(static_cast<third *>(&h)) == &h);
  v_both b;
  base *top = static_cast<v_public *>(&b);
  CHECK(top == static_cast<v_private *>(&b)->inside());
  CHECK(cast<v_both>(top) == &b);
  CHECK(cast<v_public>(top) == static_cast<v_public *>(&b));
}

// In a constructor the complete object is what has been constructed so far.
struct asks {
  static void *result;
  asks() {}
  virtual ~asks() {}
  void ask();
};
void *asks::result;
struct asks_more : asks {
  int n;
  asks_more() { ask(); }
};
void asks::ask() { result = dynamic_cast<asks_more *>(this); }
struct asks_most : second, asks_more {
  asks_most() {
    CHECK(asks::result != 0);
    CHECK(dynamic_cast<void *>(static_cast<asks *>(this)) == this);
    result = dynamic_cast<second *>(static_cast<asks *>(this));
  }
};
struct early : asks {
  early() { result = dynamic_cast<asks_more *>(static_cast<asks *>(this)); }
};
static void under_construction() {
  asks_most m;
  CHECK(asks::result == static_cast<second *>(&m));
  early e;
  CHECK(asks::result == 0);
}

template <int N> struct level : level<N - 1> {
  int n;
};
template <> struct level<0> {
  virtual ~level() {}
};
template <int N> struct wide_level : wide_level<N - 1>, level<N> {};
template <> struct wide_level<0> {
  virtual ~wide_level() {}
};
static void deep() {
  level<40> d;
  level<0> *top = &d;
  CHECK(cast<level<40> >(top) == &d);
  CHECK(cast<level<20> >(top) == &d);
  CHECK(cast<level<41> >(top) == 0);
  wide_level<8> w;
  wide_level<0> *wide_top = &w;
  CHECK(cast<wide_level<5> >(wide_top) == &w);
  CHECK(cast<level<8> >(wide_top) == static_cast<level<8> *>(&w));
  CHECK(cast<level<3> >(wide_top) == 0);  // there six times
  CHECK(cast<stranger>(wide_top) == 0);
}

int main() {
  single_and_multiple();
  to_void();
  references();
  virtual_bases();
  repeated_bases();
  repeated_targets();
  access();
  under_construction();
  deep();
  return TEST_RESULT();
}
