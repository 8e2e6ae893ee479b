// messages: no locale holds it by itself; catalogs made by gencat; texts that are not there; catalogs that are not
// open.

#include <unistd.h>

#include <locale>
#include <stdexcept>
#include <typeinfo>

#include "locale_check.h"

typedef std::messages<char> messages;

static std::string folder;

// False when there is no gencat.
static bool make_catalog() {
  char made[] = "/tmp/messages.XXXXXX";
  if (!mkdtemp(made)) return false;
  folder = made;
  const std::string command = "cd " + folder +
                              " && printf '$set 1\\n1 first\\n2\\n$set 3\\n7 of another set\\n' > source && " +
                              "gencat catalog source > /dev/null 2>&1";
  return system(command.c_str()) == 0;
}

static void test_catalog(const messages &facet, const std::locale &loc) {
  // Catalogs that are open at once, as many as it takes for more room.
  int catalogs[20];
  for (int i = 0; i < 20; ++i) {
    catalogs[i] = facet.open(folder + "/catalog", loc);
    CHECK(catalogs[i] >= 0);
    for (int k = 0; k < i; ++k) CHECK(catalogs[k] != catalogs[i]);
  }
  for (int i = 0; i < 20; ++i) {
    CHECK_TEXT(facet.get(catalogs[i], 1, 1, "none").c_str(), "first");
    CHECK_TEXT(facet.get(catalogs[i], 3, 7, "none").c_str(), "of another set");
    CHECK_TEXT(facet.get(catalogs[i], 2, 1, "none").c_str(), "none");
    if (i % 2) facet.close(catalogs[i]);
  }
  CHECK_TEXT(facet.get(catalogs[3], 1, 1, "closed").c_str(), "closed");
  facet.close(catalogs[3]);
  CHECK_TEXT(facet.get(catalogs[4], 1, 1, "none").c_str(), "first");
  CHECK_INT(facet.open(folder + "/catalog", loc), catalogs[1]);
}

int main() {
  CHECK_THROWS(std::bad_cast, "Facet not present\n", std::use_facet<messages>(std::locale()));
  const std::locale loc(std::locale(), new std::messages_byname<char>("C"));
  const messages &facet = std::use_facet<messages>(loc);
  CHECK(facet.open("/no/such/catalog", loc) < 0);
  CHECK_TEXT(facet.get(-1, 1, 1, "none").c_str(), "none");
  CHECK_TEXT(facet.get(1000, 1, 1, "none").c_str(), "none");
  facet.close(-1);
  if (make_catalog())
    test_catalog(facet, loc);
  else
    fprintf(stderr, "skipped: there is no gencat\n");
  if (!folder.empty()) (void)!system(("rm -rf " + folder).c_str());
  return TEST_RESULT();
}
