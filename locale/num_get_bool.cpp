// num_get's scanner of the names of true and false (1998, 22.2.2.1.2).
#include <plx/facets/num_get.h>
#include <plx/facets/numpunct.h>

#include "../libC/eh_tools.h"
#include "character_cursor.h"
#include "ios_base_access.h"

using namespace std;

namespace __zor {
namespace {

// A name that the text read so far is the beginning of. Empty names match nothing.
struct candidate {
  explicit candidate(const string &of) : name(of.data()), length(of.size()), alive(length != 0) {}
  bool complete(unsigned int read) const { return alive && read == length; }
  bool goes_on_with(char c, unsigned int read) const { return alive && read < length && name[read] == c; }

  const char *name;
  unsigned int length;
  bool alive;
};

// Made by the call alone, so that a throwing operation leaves nothing behind.
struct true_name {
  explicit true_name(const numpunct<char> &punct) : text(punct.truename()) {}
  const string text;
};
struct false_name {
  explicit false_name(const numpunct<char> &punct) : text(punct.falsename()) {}
  const string text;
};

ios_base::iostate scan(character_cursor &in, candidate yes, candidate no, bool &v) {
  ios_base::iostate state = ios_base::goodbit;
  for (unsigned int read = 0; yes.alive || no.alive; ++read) {
    // Looks for one more character unless the only name left is complete.
    const bool unique = yes.alive != no.alive;
    bool further = !(unique && (yes.complete(read) || no.complete(read)));
    if (further && in.at_end()) {
      state = ios_base::eofbit;
      further = false;
    }
    const bool yes_next = further && yes.goes_on_with(*in, read), no_next = further && no.goes_on_with(*in, read);
    if (!yes_next && !no_next) {
      if (yes.complete(read) == no.complete(read)) break;  // none, or both
      v = yes.complete(read);
      return state;
    }
    yes.alive = yes_next;
    no.alive = no_next;
    in.pass();
  }
  return state | ios_base::failbit;
}

}  // namespace

ios_base::iostate _scan_name_of_bool(_character_source &from, ios_base &str, bool &v) {
  const numpunct<char> &punct = use_facet<numpunct<char>>(_ios_base_access::loc(str));
  eh_local<true_name> yes(punct);
  eh_local<false_name> no(punct);
  character_cursor in(from);
  const ios_base::iostate state = scan(in, candidate(yes->text), candidate(no->text), v);
  in.done();
  return state;
}

}  // namespace __zor
