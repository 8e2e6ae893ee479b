// codecvt<char, char, int> and codecvt<char, char, mbstate_t>: the conversion that converts nothing, and the way from
// the first to a program's facet that is derived from the second.

#include <string.h>

#include <plx/facets/codecvt.h>

#include "standard_facets.h"

namespace std {

typedef codecvt<char, char, int> identity;

locale::id codecvt<char, char, int>::id;

codecvt<char, char, int>::~codecvt() {}

identity::result identity::do_out(int &, const char *, const char *, const char *&, char *, char *, char *&) const {
  return noconv;
}

identity::result identity::do_unshift(int &, char *, char *, char *&) const { return noconv; }

identity::result identity::do_in(int &, const char *, const char *, const char *&, char *, char *, char *&) const {
  return noconv;
}

bool identity::do_always_noconv() const { return true; }

int identity::do_length(int &, const char *from, const char *from_end, size_t max) const {
  const size_t there = static_cast<size_t>(from_end - from);
  return static_cast<int>(there < max ? there : max);
}

int identity::do_max_length() const { return 1; }

typedef codecvt<char, char, mbstate_t> standard;

standard::~codecvt() {}

standard::result standard::do_out(mbstate_t &, const char *, const char *, const char *&, char *, char *,
                                  char *&) const {
  return noconv;
}

standard::result standard::do_unshift(mbstate_t &, char *, char *, char *&) const { return noconv; }

standard::result standard::do_in(mbstate_t &, const char *, const char *, const char *&, char *, char *,
                                 char *&) const {
  return noconv;
}

int standard::do_length(mbstate_t &, const char *from, const char *from_end, size_t max) const {
  int unused = 0;
  return identity::do_length(unused, from, from_end, max);
}

int standard::do_encoding() const { return 1; }

template <> const standard &use_facet<standard>(const locale &loc) {
  const identity &held = use_facet<identity>(loc);
  if (held._has_mark(locale::facet::_takes_mbstate)) return static_cast<const standard &>(held);
  // Made once and never destroyed.
  alignas(standard) static char storage[sizeof(standard)];
  static const standard *const plain = new (storage) standard(1);
  return *plain;
}

}  // namespace std

namespace __zor {

using std::mbstate_t;
typedef std::codecvt_base::result result;

namespace {

// A mbstate_t for the time of a call, from and to the int of the caller.
class whole_state {
public:
  explicit whole_state(int &word) : word_(word) {
    memset(&state_, 0, sizeof state_);
    memcpy(&state_, &word_, sizeof word_);
  }
  void store() { memcpy(&word_, &state_, sizeof word_); }
  mbstate_t &get() { return state_; }

private:
  int &word_;
  mbstate_t state_;
};

}  // namespace

_codecvt_by_mbstate::~_codecvt_by_mbstate() {}

result _codecvt_by_mbstate::do_out(int &state, const char *from, const char *from_end, const char *&from_next, char *to,
                                   char *to_end, char *&to_next) const {
  whole_state whole(state);
  const result done = do_out(whole.get(), from, from_end, from_next, to, to_end, to_next);
  whole.store();
  return done;
}

result _codecvt_by_mbstate::do_unshift(int &state, char *to, char *to_end, char *&to_next) const {
  whole_state whole(state);
  const result done = do_unshift(whole.get(), to, to_end, to_next);
  whole.store();
  return done;
}

result _codecvt_by_mbstate::do_in(int &state, const char *from, const char *from_end, const char *&from_next, char *to,
                                  char *to_end, char *&to_next) const {
  whole_state whole(state);
  const result done = do_in(whole.get(), from, from_end, from_next, to, to_end, to_next);
  whole.store();
  return done;
}

int _codecvt_by_mbstate::do_length(int &state, const char *from, const char *from_end, size_t max) const {
  whole_state whole(state);
  const int length = do_length(whole.get(), from, from_end, max);
  whole.store();
  return length;
}

}  // namespace __zor

const __zor::standard_facet __zor::codecvt_facet = {made_alike<std::codecvt<char, char, int>>,
                                                    &std::codecvt<char, char, int>::id};
