// What a program's facets throw, from each of their virtual operations. Inside of a stream's operation it becomes
// badbit, or failure when exceptions() asks for that; where the program calls a facet itself, or makes a stream, it
// passes. Nothing leaks, and the stream works afterwards.
// test-variants: -O0 | -O2
#include <fstream>
#include <iostream>
#include <locale>
#include <sstream>
#include <strstream>

#include "../fail_allocation.h"

namespace {

struct thrown {
  static int live;
  thrown() { ++live; }
  thrown(const thrown &) { ++live; }
  ~thrown() { --live; }
};
int thrown::live;

// The name of the operation that throws, once.
const char *armed = "";
void at(const char *name) {
  if (strcmp(name, armed) != 0) return;
  armed = "";
  throw thrown();
}

class digits : public std::numpunct<char> {
protected:
  virtual char do_decimal_point() const { return at("point"), '.'; }
  virtual char do_thousands_sep() const { return at("separator"), ','; }
  virtual std::string do_grouping() const { return at("grouping"), "\3"; }
  virtual std::string do_truename() const { return at("true"), std::string(60, 'y'); }
  virtual std::string do_falsename() const { return at("false"), std::string(60, 'n'); }
};

class letters : public std::ctype<char> {
protected:
  virtual char do_widen(char c) const { return at("widen"), c; }
  virtual const char *do_widen(const char *lo, const char *hi, char *to) const {
    at("widen all");
    return std::ctype<char>::do_widen(lo, hi, to);
  }
  virtual char do_narrow(char c, char) const { return at("narrow"), c; }
};

typedef std::ostreambuf_iterator<char> out_iterator;
typedef std::istreambuf_iterator<char> in_iterator;

#define PUT(type) \
  virtual out_iterator do_put(out_iterator out, std::ios_base &, char, type) const { return at("put " #type), out; }
class writer : public std::num_put<char> {
protected:
  PUT(bool) PUT(long) PUT(unsigned long) PUT(double) PUT(long double) PUT(const void *)
};

#define GET(type)                                                                                                    \
  virtual in_iterator do_get(in_iterator in, in_iterator, std::ios_base &, std::ios_base::iostate &, type &) const { \
    return at("get " #type), in;                                                                                     \
  }
class reader : public std::num_get<char> {
protected:
  GET(bool)
  GET(unsigned short) GET(unsigned) GET(long) GET(unsigned long) GET(float) GET(double) GET(long double) GET(void *)
};

class converter : public std::codecvt<char, char, int> {
protected:
  virtual result do_out(int &, const char *, const char *, const char *&, char *, char *, char *&) const {
    return at("out"), noconv;
  }
  virtual bool do_always_noconv() const { return at("always_noconv"), false; }
  virtual int do_max_length() const { return at("max_length"), 1; }
};

class order : public std::collate<char> {
protected:
  virtual int do_compare(const char *, const char *, const char *, const char *) const { return at("compare"), 0; }
};

class money : public std::moneypunct<char, false> {
protected:
  virtual char do_decimal_point() const { return at("money point"), '.'; }
  virtual char do_thousands_sep() const { return at("money separator"), ','; }
  virtual std::string do_grouping() const { return at("money grouping"), std::string(50, '\3'); }
  virtual std::string do_curr_symbol() const { return at("symbol"), std::string(50, '$'); }
  virtual std::string do_positive_sign() const { return at("plus"), std::string(50, '+'); }
  virtual std::string do_negative_sign() const { return at("minus"), std::string(50, '-'); }
  virtual int do_frac_digits() const { return at("decimals"), 2; }
  virtual pattern do_pos_format() const { return at("plus format"), get_pat(); }
  virtual pattern do_neg_format() const { return at("minus format"), get_pat(); }
};

// A stream whose locale has these facets, or the library's where the program's own would be in the way.
struct a_stream : std::stringstream {
  a_stream() : std::stringstream("12 ") {
    imbue(std::locale(getloc(), new digits));
    imbue(std::locale(getloc(), new letters));
    imbue(std::locale(getloc(), new order));
    imbue(std::locale(getloc(), new money));
    imbue(std::locale(getloc(), new converter));
    setf(std::ios::boolalpha | std::ios::showbase);
    width(5);
  }
};
struct a_stream_of_own_numbers : a_stream {
  a_stream_of_own_numbers() {
    imbue(std::locale(getloc(), new writer));
    imbue(std::locale(getloc(), new reader));
  }
};

template <class T> void insert(std::iostream &s) { s << T(); }
template <class T> void extract(std::iostream &s) {
  T value = T();
  s >> value;
}
void insert_true(std::iostream &s) { s << true; }
void insert_half(std::iostream &s) { s << 0.5; }
void line(std::iostream &s) {
  char text[9];
  s.getline(text, 9);
}
void string_line(std::iostream &s) {
  std::string text;
  std::getline(s, text);
}
void part(std::iostream &s) {
  char text[9];
  s.get(text, 9);
}
void into_buffer(std::iostream &s) {
  std::stringbuf to;
  s.get(to);
}
void write_file(std::iostream &s) {
  std::filebuf file;
  file.open("/dev/null", std::ios::out);
  file.pubimbue(s.getloc());
  std::streambuf *const before = s.rdbuf();
  s.std::ios::rdbuf(&file);
  try {
    s.write("abc", 3);
  } catch (...) {
    s.exceptions(std::ios::goodbit);
    s.std::ios::rdbuf(before);
    s.clear(std::ios::badbit);
    throw;
  }
  const int state = s.rdstate();
  s.std::ios::rdbuf(before);
  s.setstate(state);
}

struct a_case {
  const char *operation;
  void (*run)(std::iostream &);
};

void in_operations(const a_case *one, const a_case *end, bool own_numbers) {
  for (; one != end; ++one)
    for (int mask = 0; mask < 2; ++mask) {
      const long before = live_blocks;
      {
        a_stream plain;
        a_stream_of_own_numbers with_own;
        std::iostream &s = own_numbers ? static_cast<std::iostream &>(with_own) : plain;
        if (mask) s.exceptions(std::ios::badbit);
        bool failed = false;
        armed = one->operation;
        try {
          one->run(s);
        } catch (const std::ios_base::failure &f) {
          failed = true;
          CHECK_TEXT(f.what(), "Failure reported");
        } catch (...) {
          CHECK(!"only failure is thrown");
        }
        if (*armed || !s.bad() || failed != (mask == 1)) fprintf(stderr, "%s, mask %d\n", one->operation, mask);
        CHECK_TEXT(armed, "");
        CHECK(s.bad());
        CHECK(failed == (mask == 1));
        CHECK_INT(thrown::live, 0);
        // The next operation is as good as ever.
        s.exceptions(std::ios::goodbit);
        s.clear();
        s.seekg(0);
        s.put('3');
        CHECK(s.good());
      }
      CHECK_INT(live_blocks, before);
    }
}

// clang-format off
const a_case with_library_numbers[] = {
    {"point", insert_half}, {"separator", insert<long>}, {"grouping", insert<int>}, {"grouping", insert<long double>},
    {"grouping", insert<long long>}, {"true", insert_true}, {"false", insert<bool>}, {"point", extract<float>},
    {"separator", extract<double>}, {"grouping", extract<short>}, {"separator", extract<unsigned>},
    {"grouping", extract<void *>}, {"true", extract<bool>}, {"false", extract<bool>}, {"widen", line},
    {"widen", string_line}, {"widen", part}, {"widen", into_buffer}};
// clang-format on
// clang-format off
const a_case with_own_numbers[] = {
    {"put bool", insert<bool>}, {"put long", insert<short>}, {"put long", insert<int>}, {"put long", insert<long>},
    {"put long", insert<long long>}, {"put unsigned long", insert<unsigned short>},
    {"put unsigned long", insert<unsigned>}, {"put unsigned long", insert<unsigned long>},
    {"put double", insert<float>}, {"put double", insert<double>}, {"put long double", insert<long double>},
    {"put const void *", insert<void *>}, {"get bool", extract<bool>}, {"get long", extract<short>},
    {"get unsigned short", extract<unsigned short>}, {"get long", extract<int>}, {"get unsigned", extract<unsigned>},
    {"get long", extract<long>}, {"get unsigned long", extract<unsigned long>}, {"get float", extract<float>},
    {"get double", extract<double>}, {"get long double", extract<long double>}, {"get void *", extract<void *>}};
// clang-format on
// clang-format off
const a_case on_files[] = {
    {"always_noconv", write_file}, {"max_length", write_file}, {"out", write_file}};
// clang-format on

// Called by the program: what is thrown passes.
void put_money(std::iostream &s) {
  std::use_facet<std::money_put<char> >(s.getloc()).put(s, false, s, ' ', std::string("1234567"));
}
void put_debt(std::iostream &s) {
  std::use_facet<std::money_put<char> >(s.getloc()).put(s, false, s, ' ', -1234567.0L);
}
void get_money(std::iostream &s) {
  std::ios_base::iostate state = std::ios_base::goodbit;
  std::string amount;
  std::use_facet<std::money_get<char> >(s.getloc()).get(s, in_iterator(), false, s, state, amount);
}
void put_time(std::iostream &s) {
  const tm t = tm();
  const char format[] = "%d";
  std::use_facet<std::time_put<char> >(s.getloc()).put(s, s, ' ', &t, format, format + 2);
}
void compare(std::iostream &s) { CHECK(!s.getloc()(std::string(200, 'a'), std::string(200, 'b'))); }
void end_line(std::iostream &s) { s << std::endl; }
template <class T> void make(std::iostream &s) {
  struct a_default {
    const std::locale before;
    explicit a_default(const std::locale &loc) : before(std::locale::global(loc)) {}
    ~a_default() { std::locale::global(before); }
  } set(s.getloc());
  T made(0);
}
template <class T> struct over_text : T {
  explicit over_text(int) : T(std::string(100, 'x')) {}
};
template <class T> struct over_file : T {
  explicit over_file(int) : T("/dev/null") {}
};
template <class T> struct over_nothing : T {
  explicit over_nothing(int) {}
};

void in_the_open() {
  // clang-format off
  static const a_case cases[] = {
    {"money point", put_money}, {"money separator", put_money}, {"money grouping", put_money}, {"symbol", put_money},
    {"plus", put_money}, {"minus", put_debt}, {"decimals", put_money}, {"plus format", put_money},
    {"minus format", put_debt}, {"widen", put_money}, {"widen all", put_debt}, {"money point", get_money},
    {"money separator", get_money}, {"money grouping", get_money}, {"symbol", get_money}, {"plus", get_money},
    {"minus", get_money}, {"decimals", get_money}, {"minus format", get_money}, {"widen all", get_money},
    {"narrow", put_time}, {"compare", compare}, {"widen", end_line}, {"widen", make<std::istream>},
    {"widen", make<std::ostream>}, {"widen", make<std::iostream>}, {"widen", make<std::isstream>},
    {"widen", make<over_nothing<std::ifstream> >}, {"widen", make<over_file<std::ofstream> >},
    {"widen", make<over_file<std::fstream> >}, {"widen", make<over_text<std::istringstream> >},
    {"widen", make<over_text<std::stringstream> >}, {"widen", make<over_nothing<std::ostrstream> >}};
  // clang-format on
  for (const a_case *one = cases; one != cases + sizeof cases / sizeof *cases; ++one) {
    const long before = live_blocks;
    {
      a_stream s;
      bool passed = false;
      armed = one->operation;
      try {
        one->run(s);
      } catch (const thrown &) {
        passed = true;
      }
      if (!passed) fprintf(stderr, "%s did not pass\n", one->operation);
      CHECK(passed);
      CHECK(s.good());
    }
    CHECK_INT(thrown::live, 0);
    CHECK_INT(live_blocks, before);
  }
}

// A complete object and a part of another one are made by different constructors.
void complete_objects() {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new letters));
  const long blocks = live_blocks;
  for (int kind = 0; kind < 6; ++kind) {
    armed = "widen";
    bool passed = false;
    try {
      switch (kind) {
        case 0: std::istream(static_cast<std::streambuf *>(0)); break;
        case 1: std::ostream(static_cast<std::streambuf *>(0)); break;
        case 2: std::iostream(static_cast<std::streambuf *>(0)); break;
        case 3: std::ofstream("/dev/null"); break;
        case 4: std::ostringstream(std::string(100, 'x')); break;
        case 5: std::istrstream("text"); break;
      }
    } catch (const thrown &) {
      passed = true;
    }
    CHECK(passed);
  }
  CHECK_INT(live_blocks, blocks);
  std::locale::global(before);
}

template <class T, unsigned n> const T *end_of(const T (&cases)[n]) { return cases + n; }

}  // namespace

int main() {
  std::locale::classic();  // its blocks stay
  in_operations(with_library_numbers, end_of(with_library_numbers), false);
  in_operations(with_own_numbers, end_of(with_own_numbers), true);
  in_operations(on_files, end_of(on_files), false);
  in_the_open();
  const long before = live_blocks;
  complete_objects();
  CHECK_INT(live_blocks, before);
  return TEST_RESULT();
}
