// codecvt<char, char, int>: the conversion that converts nothing.

#include <plx/codecvt.h>

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

}  // namespace std
