// messages: no locale holds it by itself; catalogs made by gencat, many at once; texts that are not there; catalogs
// that are not open.
#include <algorithm>

#include "locale_check.h"

typedef std::messages<char> messages;

int main() {
  CHECK_THROWS(std::bad_cast, "Facet not present\n", std::use_facet<messages>(std::locale()));
  const std::locale loc(std::locale(), new std::messages_byname<char>("C"));
  const messages &facet = std::use_facet<messages>(loc);
  CHECK(facet.open("/no/such/catalog", loc) < 0);
  CHECK(facet.get(-1, 1, 1, "none") == "none" && facet.get(1000, 1, 1, "none") == "none");
  facet.close(-1);
  char made[] = "/tmp/messages.XXXXXX";
  const std::string folder = mkdtemp(made), catalog = folder + "/catalog";
  const std::string make =
      "cd " + folder + " && printf '$set 1\\n1 first\\n2\\n$set 3\\n7 of another set\\n' > source " +
      "&& gencat catalog source || (echo skipped: there is no gencat; rm -r " + folder + "; exit 1)";
  if (system(make.c_str()) != 0) return TEST_RESULT();
  int open[20];
  for (int i = 0; i < 20; ++i) open[i] = facet.open(catalog, loc);
  for (int i = 0; i < 20; ++i) {
    CHECK(open[i] >= 0 && std::count(open, open + 20, open[i]) == 1);
    CHECK(facet.get(open[i], 1, 1, "none") == "first" && facet.get(open[i], 3, 7, "none") == "of another set");
    if (i % 2) facet.close(open[i]), facet.close(open[i]);
    CHECK(facet.get(open[i], i % 2, 1, "none") == "none" && facet.get(open[i], 2, 1, "none") == "none");
  }
  CHECK(facet.get(open[4], 1, 1, "none") == "first" && facet.open(catalog, loc) == open[1]);
  CHECK_INT(system(("rm -r " + folder).c_str()), 0);
  return TEST_RESULT();
}
