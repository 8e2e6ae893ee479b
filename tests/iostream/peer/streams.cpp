// The same random operations on buffers of every kind: one that shows single characters and has no quick way, pieces of
// several sizes, strings, files, arrays, each also as a derived class, files with a codecvt. With plx each must give
// the same values, states, counts and widths, flush as often, leave the same to be read, and hold the same in the end.
// Half of the rounds are of operations on which plx and the standard of 1998 agree: these are printed, and
// two libraries can be compared. Not done there are moves in an empty buffer, and groups in texts without a point.
//
// prints: 124809 lines
// test-variants: -O0 | -O1
#include "../../locale/reading.h"
#include "../operations.h"

using namespace operations;

namespace {

#ifdef PLX_CONFIG_H
const bool is_plx = true;
#else
const bool is_plx = false;
#endif
const int in = std::ios_base::in, out = std::ios_base::out, app = std::ios_base::app, trunc = std::ios_base::trunc;

std::ios_base::openmode as_mode(int mode) { return std::ios_base::openmode(mode); }

struct derived_string : std::stringbuf {
  derived_string(const std::string &text, int mode) : std::stringbuf(text, as_mode(mode)) {}
};
struct derived_file : std::filebuf {};
struct derived_array : std::strstreambuf {
  derived_array() {}
  derived_array(const char *text, int n) : std::strstreambuf(text, n) {}
};

// Leaves everything as it is, but says so only when it is asked.
typedef std::codecvt<char, char, std::mbstate_t> conversion;
struct silent : conversion {
  virtual bool do_always_noconv() const throw() { return false; }
};
std::string converted(const std::string &text) {
  std::string made;
  int shifted = 0;
  for (unsigned i = 0; i < text.size(); ++i) made += converting::of(text[i], shifted);
  return shifted ? made + '>' : made;
}

// 'w' and the null character are white space, too; a line ends with ';', and digits may be others.
struct letters : std::ctype<char> {
  const int digits;
  explicit letters(int other_digits) : std::ctype<char>(own_table()), digits(other_digits) {}
  static const mask *own_table() {
    static mask own[table_size];
    std::copy(classic_table(), classic_table() + table_size, own);
    own[int('w')] |= space, own[0] |= space;
    return own;
  }
  virtual char do_widen(char c) const {
    return static_cast<char>(c == '\n' ? ';' : c >= '0' && c <= '9' ? c ^ digits : c);
  }
  virtual const char *do_widen(const char *from, const char *end, char *to) const {
    for (; from != end; ++from) *to++ = do_widen(*from);
    return end;
  }
};

// A file that is read and written in any order ends where an array does.
// What was put back stands before the position, but never before the beginning; a move, a write and sync drop it.
class array_file : public std::streambuf {
public:
  array_file(const std::string &content, int mode)
      : text((mode & trunc) || mode == out ? "" : content), mode_(mode), at_(mode & app ? text.size() : 0) {}
  std::string text;

protected:
  virtual int underflow() {
    if (!(mode_ & in)) return -1;
    if (!back_.empty()) return static_cast<unsigned char>(back_[back_.size() - 1]);
    return at_ < text.size() ? static_cast<unsigned char>(text[at_]) : -1;
  }
  virtual int uflow() {
    const int c = underflow();
    if (c != -1) back_.empty() ? void(++at_) : back_.resize(back_.size() - 1);
    return c;
  }
  virtual int pbackfail(int c) {
    if (c == -1) return go(place() - 1) == -1 ? -1 : 0;
    if (!(mode_ & in)) return -1;
    back_ += static_cast<char>(c);
    return c;
  }
  virtual int overflow(int c) {
    if (!(mode_ & out)) return -1;
    go(mode_ & app ? static_cast<long>(text.size()) : place());
    if (at_ > text.size()) text.resize(at_);
    text.replace(at_++, 1, 1, static_cast<char>(c));
    return c;
  }
  virtual std::streampos seekoff(std::streamoff by, std::ios_base::seekdir way, std::ios_base::openmode) {
    const long size = static_cast<long>(text.size());
    if (way == std::ios_base::cur && by == 0) return place();
    if ((way == std::ios_base::beg && by < 0) || (way == std::ios_base::end && by > 0)) return -1;
    return go(by + (way == std::ios_base::beg ? 0 : way == std::ios_base::cur ? place() : size));
  }
  virtual std::streampos seekpos(std::streampos to, std::ios_base::openmode) { return go(std::streamoff(to)); }
  virtual int sync() { return go(place()), 0; }
  virtual std::streamsize showmanyc() {
    const long left = static_cast<long>(text.size()) - place();
    return left > 0 ? left : -1;
  }

private:
  long place() const { return at_ < back_.size() ? 0 : static_cast<long>(at_ - back_.size()); }
  long go(long to) {
    if (to < 0) return -1;
    at_ = to;
    back_ = "";
    return to;
  }

  const int mode_;
  std::string::size_type at_;
  std::string back_;
};

unsigned sum_of(const std::string &text) {
  unsigned sum = 0;
  for (std::string::size_type i = 0; i < text.size(); ++i) sum = sum * 31 + static_cast<unsigned char>(text[i]);
  return sum;
}
void print(const std::string &text) {
  printf("%u %u:", unsigned(text.size()), sum_of(text));
  for (unsigned i = 0; i < text.size() && i < 60; ++i) printf(text[i] < ' ' ? "\\%02x" : "%c", (unsigned char)text[i]);
  printf("\n");
}

bool same(const std::string &got, const std::string &want, const char *what, int at) {
  CHECK(got == want);
  if (got != want) fprintf(stderr, "%s %d:\n  got  %.300s\n  want %.300s\n", what, at, got.c_str(), want.c_str());
  return got == want;
}

// Streams whose buffers hold the same. An operation is done to each, and what it did to the first, which is printed
// when it is comparable, is what it must do to all. With the host's library there is one.
class crowd {
public:
  crowd(bool comparable, std::streambuf *const *buffers, unsigned n) : comparable_(comparable), tied_(&flushed_) {
    for (unsigned k = 0; k < (is_plx ? n : 1); ++k) streams_.push_back(new std::iostream(buffers[k]));
  }
  ~crowd() {
    for (unsigned k = 0; k < size(); ++k) delete streams_[k];
  }
  std::iostream &operator[](unsigned k) { return *streams_[k]; }
  unsigned size() const { return unsigned(streams_.size()); }
  std::ostream *tied() { return is_plx ? &tied_ : 0; }
  void step(const an_operation &o) {
    std::string want;
    int flushes = 0;
    for (unsigned k = 0; k < size(); ++k) {
      flushed_.calls[syncs] = 0;
      const std::string got = operations::step(*streams_[k], o, comparable_);
      if (k == 0) want = got, flushes = flushed_.calls[syncs];
      same(got, want, "stream", int(k));
      CHECK_INT(flushed_.calls[syncs], flushes);
    }
    if (comparable_) print(want);
  }

private:
  const bool comparable_;
  std::vector<std::iostream *> streams_;
  scripted flushed_;
  std::ostream tied_;
};

void reading(int round, bool comparable, const own_file &path) {
  const std::string text = random_text(comparable);
  path.hold(text);
  scripted one(text), two(text, 1), three(text, 3), some(text, 2 + random_below(60));
  std::stringbuf string(text, std::ios_base::in), both(text);
  derived_string derived(text, in);
  std::filebuf file;
  derived_file other_file;
  file.open(path.name(), std::ios_base::in);
  other_file.open(path.name(), std::ios_base::in);
  const char *const characters = text.empty() ? "" : before_nothing(text);
  std::strstreambuf array(characters, static_cast<int>(text.size()));
  derived_array other_array(characters, static_cast<int>(text.size()));
  std::streambuf *const buffers[] = {&string, &one,     &file,       &three, &two,        &some,
                                     &both,   &derived, &other_file, &array, &other_array};
  crowd all(comparable, buffers, text.empty() ? 9 : 11);  // an empty array has no end
  for (unsigned k = 0; k < all.size(); ++k) {
    if (round % 4 == 0) all[k].tie(all.tied());
    if (round % 6 == 5) all[k].imbue(std::locale(std::locale::classic(), new letters(0)));
  }
  for (int i = 0; i < 30 && !test_failures; ++i) {
    const an_operation o =
        comparable ? random_operation(comparable_reads, comparable_reads_end, true) : random_operation(0, reads, false);
    one.calls[pbackfails] = 0;
    all.step(o);
    CHECK(o.what == take_and_give || o.what == give_back || one.calls[pbackfails] == 0);
  }
  const std::string rest = one.rest();
  for (unsigned k = 0; k < all.size() && is_plx; ++k) {
    const std::istreambuf_iterator<char> from(all[k]), end;
    same(std::string(from, end), rest, "rest of stream", int(k));
  }
}

void writing(int round, bool comparable, const own_file *path) {
  scripted one, small("", 0, 7), larger("", 0, 64);
  std::stringbuf string(std::ios_base::out), both;
  derived_string derived("", out);
  std::strstreambuf array;
  std::filebuf files[3];
  derived_file other_file;
  files[1].pubimbue(std::locale(std::locale::classic(), new silent));
  files[2].pubimbue(std::locale(std::locale::classic(), new converting(false)));
  for (int i = 0; i < 3; ++i) files[i].open(path[i].name(), std::ios_base::out);
  other_file.open(path[3].name(), std::ios_base::out);
  std::streambuf *const buffers[] = {&string, files,   files + 1, files + 2, &other_file, &one,
                                     &small,  &larger, &both,     &derived,  &array};
  crowd all(comparable, buffers, 11);
  const bool groups = round % 5 == 1;
  static const char *const groupings[] = {"\3", "\2\3", "\1"};
  for (unsigned k = 0; k < all.size(); ++k) {
    const std::locale old = all[k].rdbuf()->getloc();
    if (groups)
      all[k].imbue(std::locale(std::locale::classic(),
                               new chosen_punctuation(groupings[round / 5 % 3], round / 5 % 2 ? ',' : '.', '\'')));
    if (round % 5 == 2) all[k].imbue(std::locale(old, new letters(0x40)));
    all[k].rdbuf()->pubimbue(old);
    if (round % 7 == 0) all[k].tie(all.tied());
  }
  for (int i = 0; i < 30 && !test_failures; ++i) {
    const unsigned last = !comparable ? writes : groups ? unsigned(out_pointer) : comparable_writes_end;
    an_operation o = random_operation(reads, last, comparable);
    if (groups && comparable && o.what >= out_float && o.what <= out_long_double) {
      o.flags = (o.flags & ~(base::floatfield | base::uppercase)) | base::fixed | base::showpoint;
      if (o.real * 0 != 0) o.real = 1e9 / 7;
    }
    if (round % 3 == 0) o.flags |= base::unitbuf;
    all.step(o);
  }
  for (int i = 0; i < 3; ++i) CHECK(files[i].close() == files + i);
  CHECK(other_file.close() == &other_file);
  const std::string want = string.str();
  if (comparable) print(want);
  const std::string ends[] = {
      path[0].content(), path[1].content(), path[3].content(),
      one.taken(),       small.taken(),     larger.taken(),
      both.str(),        derived.str(),     std::string(array.str() ? array.str() : "", array.pcount())};
  for (int k = 0; k < 9 && is_plx; ++k) same(ends[k], want, "content", k);
  CHECK(small.spoilt + larger.spoilt == 0 && one.calls[xsputns] == small.calls[xsputns]);
  CHECK(!is_plx || one.calls[xsputns] == larger.calls[xsputns]);
  if (is_plx) same(path[2].content(), converted(want), "converted file", 0);
  array.freeze(!is_plx), delete[] array.str();
}

// Whole numbers without signs are read where libraries are compared: what a lone sign or an exponent without digits
// means is not agreed on.
std::string without_signs(std::string text) {
  for (std::string::size_type i = 0; i < text.size(); ++i)
    if (strchr("+-eE", text[i])) text[i] = '.';
  return text;
}
an_operation any_operation(int mode, bool comparable) {
  if (!comparable) {
    const an_operation o = random_operation(0, random_below(3) ? unsigned(kinds) : reads, false);
    return random_below(3) ? o : random_operation(writes, kinds, false);
  }
  const unsigned kind = mode == in ? 5 + random_below(7) : random_below(12);
  an_operation o = kind < 5 ? random_operation(reads, comparable_writes_end, true)
                            : random_operation(comparable_reads, comparable_reads_end, true);
  if (kind >= 9) o.what = move_get + kind - 9;
  if (o.what == in_double) o.what = in_string;
  if ((o.what >= out_float && o.what <= out_long_double) || o.what == out_line) o.what = out_string;
  o.text = without_signs(o.text);
  o.flags &= ~base::showpos;
  o.fill = '*';
  if (o.integer < 0) o.integer = -(o.integer + 1);
  if (o.what >= reads) o.integer %= 30000;
  return o;
}

// Reading, writing and moving in any order, as far as a class and one derived from it can be compared; and files with
// the model.
void both_ways(int round, bool comparable, const own_file *path) {
  static const int modes[] = {in | out, in | out | app, out, in, in | out, in | out | trunc, out | app};
  const int mode = modes[round % (comparable ? 5 : 7)], size = round % 3 ? 0 : random_below(2) ? 20000 : 70000;
  std::string text = random_text(comparable).substr(0, random_below(300));
  if (comparable) text = without_signs(text);
  for (int i = 0; i < size && !comparable; ++i) text += "abcdefghij 12345\n"[i % 17];
  std::stringbuf string(text, as_mode(mode));
  derived_string other(text, mode);
  std::streambuf *const strings[] = {&string, &other};
  crowd all(comparable, strings, 2);
  for (int i = 0; i < 60 && !test_failures && (comparable || text.size() <= 300); ++i) {
    const an_operation o = any_operation(mode, comparable);
    if (comparable && (o.what == move_get || o.what == move_put || o.what == tell_both) &&
        (string.str().empty() || (mode == out && o.what == move_get)))
      continue;
    all.step(o);
    if (comparable) print(string.str());
    if (is_plx) same(string.str(), other.str(), "text", i);
    if (random_below(40) != 0) continue;
    const std::string anew = comparable ? without_signs(random_text(true)) : random_text(false);
    string.str(anew), other.str(anew);
  }
  if (!is_plx) return;
  std::strstreambuf array;
  derived_array other_array;
  const int file_mode = mode == (in | out | app) ? in | out : mode;
  array_file model(text, file_mode);
  std::filebuf file;
  derived_file other_file;
  path[0].hold(text), path[1].hold(text);
  CHECK(file.open(path[0].name(), as_mode(file_mode)) && other_file.open(path[1].name(), as_mode(file_mode)));
  std::streambuf *const buffers[] = {&array, &other_array, &model, &file, &other_file};
  crowd arrays(false, buffers, 2), files(false, buffers + 2, 3);
  for (int i = 0; i < 60 && !test_failures; ++i) {
    const an_operation o = any_operation(mode, false);
    arrays.step(o), files.step(o);
  }
  file.close(), other_file.close();
  for (int i = 0; i < 2; ++i) same(path[i].content(), model.text, "file", i);
  delete[] array.str(), delete[] other_array.str();
}

// Streams without operations: states, masks, formats, words, callbacks and locales.
void tell(base::event what, std::ios_base &of, int index) { printf("%d:%d:%ld ", what, index, of.iword(index)); }
void bases() {
  using namespace std;
  static ios_base &(*const manipulators[])(ios_base &) = {FLAGS,     noboolalpha, noshowbase,  noshowpoint,
                                                          noshowpos, noskipws,    nouppercase, nounitbuf};
  const std::locale locales[] = {std::locale::classic(), std::locale(std::locale::classic(), new letters(0))};
  std::stringbuf buffers[2];
  std::ostream tied(buffers);
  std::iostream *all[] = {new std::iostream(buffers), new std::iostream(buffers), new std::iostream(0)};
  for (int i = 0; i < 6000; ++i) {
    const unsigned what = random_below(14), n = random_below(8);
    std::iostream *&a = all[random_below(3)], &b = *all[random_below(3)];
    const char *thrown = "";
    printf("%u of %u: ", what, n);
    try {
      switch (what) {
        case 0: a->setstate(base::iostate(n)); break;
        case 1: a->clear(base::iostate(n)); break;
        case 2: a->exceptions(base::iostate(random_below(4) ? 0 : n)); break;
        case 3: a->iword(n * n) += i; break;
        case 4: a->pword(n) = &tied; break;
        case 5: a->register_callback(tell, n); break;
        case 6: a->imbue(locales[n % 2]); break;
        case 7: a->copyfmt(b); break;
        case 8: *a >> setw(n) >> setprecision(i - 99) >> setfill(char('a' + n)) >> setbase(int(n + 1) * 2); break;
        case 9: *a << manipulators[random_below(22)]; break;
        case 10: a->rdbuf(n < 2 ? 0 : buffers + n % 2); break;
        case 11: a->tie(n % 2 ? &tied : 0); break;
        case 12: *a << setiosflags(flags::all[n * 2]) << resetiosflags(flags::all[random_below(15)]); break;
        case 13: delete a, a = 0, a = new std::iostream(n ? buffers + n % 2 : 0); break;
      }
    } catch (const std::ios_base::failure &) { thrown = "failure"; }
    printf("%s %d %d %d ", thrown, a->rdstate(), a->exceptions(), a->good() + 2 * a->fail() + 4 * !*a + 8 * a->eof());
    printf("%d %d %c %d ", int(a->width()), int(a->precision()), a->fill(), a->getloc() == locales[0]);
    for (int k = 0; k < 15; ++k) printf("%d ", (a->flags() & flags::all[k]) != 0);
    printf("%ld %ld %d ", a->iword(n), a->iword(n * n), a->pword(n) == 0 ? 0 : a->pword(n) == &tied ? 1 : 2);
    printf("%d %d\n", (a->rdbuf() == buffers) + 2 * !a->rdbuf(), a->tie() == &tied);
  }
  for (int i = 0; i < 3; ++i) delete all[i];
  for (unsigned i = 0; i < 20; ++i) {
    scripted own("abc\xFF\xFExyz \xFF", i % 4, i % 5);
    for (int k = 0; k < 12; ++k) printf("%d ", own.snextc());
  }
  printf("\n");
}

// What is read into the place it is read from, by each means, with each distance.
void in_place() {
  for (int distance = -40; distance <= 40; ++distance)
    for (int length = 0; length < 1400; length += length < 60 ? 5 : 300)
      for (int how = 0; how < 8; ++how) {
        char text[3000];
        for (int i = 0; i < 3000; ++i) text[i] = static_cast<char>('a' + i % 23);
        if (how < 6) text[50 + length] = '\n';
        const std::string want(text + 50, length);
        std::strstreambuf buffer(text + 50, 2900);
        std::istream s(&buffer);
        char *const to = text + 50 + distance, before = to[-1];
        switch (how) {
          case 0: s.getline(to, 2000); break;
          case 1: s.get(to, 2000); break;
          case 2: s.getline(to, 2000, '\n'); break;
          case 3: s.getline(to, length + 1); break;
          case 4: s.get(to, length + 1, '|'); break;
          case 5: s.getline(to, length + 2, '\n'); break;
          case 6: s.read(to, length); break;
          case 7: s.readsome(to, length); break;
        }
        if (how < 6) CHECK_INT(to[length], 0);
        if (want != std::string(to, length)) fprintf(stderr, "distance %d, length %d, by %d\n", distance, length, how);
        CHECK(want == std::string(to, length) && to[-1] == before);
      }
}

}  // namespace

int main() {
  const own_file paths[] = {own_file("same.a"), own_file("same.b"), own_file("same.c"), own_file("same.d")};
  for (int round = 0; round < 1400 && !test_failures; ++round)
    for (int comparable = 0; comparable < 2; ++comparable) {
      if (!comparable && (!is_plx || round % 4 != round / 4 % 4)) continue;
      random_state = round * 2 + comparable;
      if (round < 700) reading(round, comparable, *paths);
      random_state = ~random_state;
      if (round < 500) writing(round, comparable, paths);
      random_state = ~random_state * 7;
      if (round >= 700) both_ways(round, comparable, paths);
    }
  random_state = 1;
  bases();
  if (is_plx) in_place();
  return test_failures != 0;
}
