// messages<char>, by the C library's catopen, catgets and catclose. Their handles are pointers, which do not fit a
// catalog's number: below 0 means failure. So numbers are places in a table, which closed catalogs leave free.

#include <nl_types.h>
#include <stdlib.h>

#include <plx/facets/messages.h>

namespace std {

locale::id messages<char>::id;

namespace {

const nl_catd not_open = reinterpret_cast<nl_catd>(-1);

// Of the process, because any messages<char> may get and close what another opened. It is no part of what programs
// count that replace operator new.
struct a_table {
  nl_catd *catalogs;
  unsigned size;

  nl_catd *place(int number) {
    const unsigned at = static_cast<unsigned>(number);
    return at < size && catalogs[at] != not_open ? catalogs + at : nullptr;
  }
  int add(nl_catd opened) {
    unsigned at = 0;
    while (at < size && catalogs[at] != not_open) ++at;
    if (at == size) {
      void *const grown = realloc(catalogs, (size + 8) * sizeof *catalogs);
      if (!grown) return -1;
      catalogs = static_cast<nl_catd *>(grown);
      for (unsigned end = size + 8; size < end; ++size) catalogs[size] = not_open;
    }
    catalogs[at] = opened;
    return static_cast<int>(at);
  }
} table;

}  // namespace

messages<char>::~messages() {}

messages_base::catalog messages<char>::do_open(const string &name, const locale &) const {
  const nl_catd opened = catopen(name.c_str(), NL_CAT_LOCALE);
  if (opened == not_open) return -1;
  const int number = table.add(opened);
  if (number < 0) catclose(opened);
  return number;
}

string messages<char>::do_get(catalog number, int set, int id, const string &instead) const {
  const nl_catd *const from = table.place(number);
  if (!from) return instead;
  const char *const text = catgets(*from, set, id, nullptr);
  return text ? string(text) : instead;
}

void messages<char>::do_close(catalog number) const {
  nl_catd *const from = table.place(number);
  if (!from) return;
  catclose(*from);
  *from = not_open;
}

}  // namespace std
