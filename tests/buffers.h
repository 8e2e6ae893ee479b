// Stream buffers and facets of a program's own, for the tests of streams and locales, with every C++ library. A
// `scripted` buffer shows its text in get areas as large as it is told, takes characters into a put area or by
// overflow, counts what is asked of it, and fails or throws at a chosen call.
#ifndef TESTS_BUFFERS_H
#define TESTS_BUFFERS_H

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

#include <locale>
#include <streambuf>
#include <string>

// What is thrown here; counted, so that a lost one is seen.
struct thrown {
  static int live;
  thrown() { ++live; }
  thrown(const thrown &) { ++live; }
  ~thrown() { --live; }
};
int thrown::live;

#define BUFFER_CALLS underflows, uflows, xsgetns, pbackfails, showmanycs, overflows, xsputns, seeks, syncs
enum a_buffer_call { BUFFER_CALLS, buffer_calls };
#define NAMES_OF(...) #__VA_ARGS__
#define NAMES(...) NAMES_OF(__VA_ARGS__)

class scripted : public std::streambuf {
public:
  int calls[buffer_calls];
  int most;                       // characters that overflow takes
  int spoilt;                     // of the room, which nobody had used
  std::ios_base::openmode asked;  // of the last position
  explicit scripted(const std::string &text = "", std::size_t step = 0, std::size_t room = 0)
      : most(1 << 30), spoilt(0), text_(text), at_(0), step_(step), room_(room, '.') {
    let_fail(buffer_calls, 0, false);
    memset(calls, 0, sizeof calls);
    show_room();
  }
  // That call, once `calm` of its kind have gone well, throws or fails, from then on or only `once`.
  void let_fail(a_buffer_call what, int calm, bool by_exception, bool once = false) {
    fault_ = what, calm_ = calm, throws_ = by_exception, once_ = once, fired_ = false;
  }
  bool has_failed() const { return fired_; }
  std::size_t position() const { return at_ - (egptr() - gptr()); }
  std::string rest() const { return text_.substr(position()); }
  // What was written since the last time.
  std::string taken() {
    std::string all = taken_ + std::string(pbase(), pptr());
    taken_ = "";
    show_room();
    return all;
  }

protected:
  virtual int_type underflow() {
    const bool ended = fired_ && fault_ == uflows && !throws_;
    if (fails(underflows) || ended || at_ >= text_.size()) return -1;
    if (step_ == 0) return byte(at_);
    show(at_, step_);
    return byte(position());
  }
  virtual int_type uflow() {
    if (fails(uflows)) return -1;
    if (step_ != 0) return std::streambuf::uflow();
    return at_ < text_.size() ? byte(at_++) : -1;
  }
  virtual std::streamsize xsgetn(char *to, std::streamsize n) {
    return fails(xsgetns) ? 0 : std::streambuf::xsgetn(to, n);
  }
  virtual int_type pbackfail(int_type c) {
    const std::size_t before = position();
    if (fails(pbackfails) || before == 0) return -1;
    if (c != -1) text_[before - 1] = static_cast<char>(c);
    step_ == 0 ? (void)--at_ : show(before - 1, 1);
    return byte(before - 1);
  }
  virtual std::streamsize showmanyc() {
    return fails(showmanycs) ? -1 : static_cast<std::streamsize>(text_.size() - at_);
  }
  virtual int_type overflow(int_type c) {
    if (fails(overflows) || most-- <= 0) return -1;
    taken_ = taken();
    if (c != -1) taken_ += static_cast<char>(c);
    return c == -1 ? 0 : c & 0xFF;
  }
  virtual std::streamsize xsputn(const char *from, std::streamsize n) {
    return fails(xsputns) ? n - 1 : std::streambuf::xsputn(from, n);
  }
  virtual std::streampos seekoff(std::streamoff off, std::ios_base::seekdir, std::ios_base::openmode which) {
    asked = which;
    return fails(seeks) ? std::streamoff(-1) : off + 7;
  }
  virtual std::streampos seekpos(std::streampos to, std::ios_base::openmode which) {
    asked = which;
    return fails(seeks) ? std::streampos(-1) : to;
  }
  virtual int sync() { return fails(syncs) ? -1 : 0; }

private:
  bool fails(a_buffer_call now) {
    ++calls[now];
    if (now != fault_ || (once_ && fired_) || calm_-- > 0) return false;
    fired_ = true;
#ifdef __EXCEPTIONS  // not in fuzzers, whose buffers do not fail
    if (throws_) throw thrown();
#endif
    return true;
  }
  void show(std::size_t from, std::size_t n) {
    if (n > text_.size() - from) n = text_.size() - from;
    setg(&text_[from], &text_[from], &text_[from] + n);
    at_ = from + n;
  }
  void show_room() {
    for (const char *at = pptr(); at && at < epptr(); ++at) spoilt += *at != '.';
    if (!room_.empty()) room_.assign(room_.size(), '.'), setp(&room_[0], &room_[0] + room_.size());
  }
  int byte(std::size_t at) const { return static_cast<unsigned char>(text_.data()[at]); }

  std::string text_, taken_;
  std::size_t at_, step_;
  std::string room_;
  a_buffer_call fault_;
  int calm_;
  bool throws_, once_, fired_;
};

// Drops '-', doubles '*', makes 30 of 'q', and writes capital letters between '<' and '>', as small ones, until that is
// ended; says so only when it is asked, and may need several calls for one text. If it `refuses`, '!' is an error, '?'
// incomplete, and what begins with '#' is left alone; otherwise they are as all else.
struct converting : std::codecvt<char, char, std::mbstate_t> {
  const bool refuses, ends;
  explicit converting(bool r, bool e = true) : refuses(r), ends(e) {}
  // What becomes of a character.
  static std::string of(char c, int &shifted) {
    const bool capital = c >= 'A' && c <= 'Z';
    std::string made(c == '-' ? 0 : c == '*' ? 2 : c == 'q' ? 30 : 1, static_cast<char>(capital ? c + 32 : c));
    if (capital != (shifted != 0)) made.insert(std::string::size_type(0), 1, capital ? '<' : '>');
    shifted = capital;
    return made;
  }
  static int &shifted(std::mbstate_t &state) { return reinterpret_cast<int &>(state); }
  virtual bool do_always_noconv() const throw() { return false; }
  virtual result do_out(std::mbstate_t &state, const char *from, const char *end, const char *&next, char *to,
                        char *to_end, char *&to_next) const {
    int most = 1000;
    for (next = from, to_next = to; next != end; ++next) {
      int after = shifted(state);
      const std::string made = of(*next, after);
      if (refuses && *next && strchr("!?#", *next)) return *next == '!' ? error : *next == '?' ? partial : noconv;
      if (to_end - to_next < static_cast<long>(made.size()) || most-- == 0) return partial;
      to_next += made.copy(to_next, made.size());
      shifted(state) = after;
    }
    return ok;
  }
  virtual result do_unshift(std::mbstate_t &state, char *to, char *, char *&to_next) const {
    if (!ends) return error;
    to_next = to;
    if (shifted(state)) *to_next++ = '>';
    shifted(state) = 0;
    return ok;
  }
  virtual result do_in(std::mbstate_t &, const char *, const char *, const char *&, char *, char *, char *&) const {
    return error;
  }
};

// A copy of a text, in the upper or the lower half of the address space. Behind it there is no memory.
inline char *before_nothing(const std::string &text, bool low = false) {
  static size_t nexts[] = {0xD0000000u, 0x70000000u};
  size_t &next = nexts[low];
  const size_t room = (text.size() + 4096) / 4096 * 4096;
  void *at = MAP_FAILED;
  for (; next > 0x50000000u && at == MAP_FAILED; next -= room + 4096)
    at = mmap(reinterpret_cast<void *>(next - room), room, PROT_READ | PROT_WRITE,
              MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0);
  if (at == MAP_FAILED) abort();
  return static_cast<char *>(memcpy(static_cast<char *>(at) + room - text.size(), text.data(), text.size()));
}

// A file of this process's own, removed with the object.
struct own_file {
  std::string path;
  explicit own_file(const char *name, const std::string &text = "") {
    char number[40];
    sprintf(number, ".%d.tmp", static_cast<int>(getpid()));
    path = name + std::string(number);
    hold(text);
  }
  ~own_file() { remove(path.c_str()); }
  const char *name() const { return path.c_str(); }
  void hold(const std::string &text) const {
    FILE *const file = fopen(name(), "w");
    fwrite(text.data(), 1, text.size(), file);
    fclose(file);
  }
  std::string content() const {
    std::string text;
    FILE *const file = fopen(name(), "r");
    for (int c; file && (c = getc(file)) != EOF;) text += static_cast<char>(c);
    return file ? fclose(file), text : "(none)";
  }
};

#endif
