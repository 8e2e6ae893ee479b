// Manipulators of flags, and those with an argument, on both kinds of streams.
#include <iomanip>
#include <ios>
#include <istream>
#include <ostream>

#include "../harness.h"
#include "buffers.h"

namespace {

typedef std::ios_base &(*a_manipulator)(std::ios_base &);

void flags() {
  typedef std::ios b;
  const struct {
    a_manipulator set, clear;
    b::fmtflags flag;
  } single[] = {{std::boolalpha, std::noboolalpha, b::boolalpha}, {std::showbase, std::noshowbase, b::showbase},
                {std::showpoint, std::noshowpoint, b::showpoint}, {std::showpos, std::noshowpos, b::showpos},
                {std::skipws, std::noskipws, b::skipws},          {std::uppercase, std::nouppercase, b::uppercase},
                {std::unitbuf, std::nounitbuf, b::unitbuf}};
  const struct {
    a_manipulator set;
    b::fmtflags flag, field;
  } one_of[] = {{std::internal, b::internal, b::adjustfield},
                {std::left, b::left, b::adjustfield},
                {std::right, b::right, b::adjustfield},
                {std::dec, b::dec, b::basefield},
                {std::hex, b::hex, b::basefield},
                {std::oct, b::oct, b::basefield},
                {std::fixed, b::fixed, b::floatfield},
                {std::scientific, b::scientific, b::floatfield}};
  const b::fmtflags all = 0x7FFF;
  taking buffer;
  std::ostream out(&buffer);
  std::istream in(&buffer);
  for (unsigned i = 0; i < sizeof single / sizeof *single; ++i) {
    out.flags(0);
    out << single[i].set;
    CHECK_INT(out.flags(), single[i].flag);
    in.flags(all);
    in >> single[i].clear;
    CHECK_INT(in.flags(), all & ~single[i].flag);
  }
  for (unsigned i = 0; i < sizeof one_of / sizeof *one_of; ++i) {
    out.flags(all);
    out << one_of[i].set;
    CHECK_INT(out.flags(), (all & ~one_of[i].field) | one_of[i].flag);
  }
}

void with_an_argument() {
  taking buffer;
  std::ostream out(&buffer);
  std::istream in(&buffer);
  CHECK(&(out << std::setw(7) << std::setprecision(-3) << std::setfill(0x141)) == &out);
  CHECK_INT(out.width(), 7);
  CHECK_INT(out.precision(), -3);
  CHECK_INT(out.fill(), 0x41);
  CHECK(&(in >> std::setw(9) >> std::setprecision(1) >> std::setfill('-')) == &in);
  CHECK_INT(in.width(), 9);
  CHECK_INT(in.precision(), 1);
  CHECK_INT(in.fill(), '-');
  out << std::setiosflags(std::ios::hex | std::ios::showbase);
  CHECK_INT(out.flags(), std::ios::skipws | std::ios::dec | std::ios::hex | std::ios::showbase);
  in >> std::resetiosflags(std::ios::skipws);
  CHECK_INT(in.flags(), std::ios::dec);
  static const struct {
    int base;
    std::ios::fmtflags flag;
  } bases[] = {{8, std::ios::oct}, {10, std::ios::dec}, {16, std::ios::hex}, {2, 0}, {0, 0}};
  for (unsigned i = 0; i < sizeof bases / sizeof *bases; ++i) {
    out.flags(std::ios::basefield | std::ios::left);
    out << std::setbase(bases[i].base);
    CHECK_INT(out.flags(), bases[i].flag | std::ios::left);
  }
  // On a stream that has failed they still work: they write nothing.
  out.setstate(std::ios::failbit);
  out << std::setw(3) << std::oct;
  CHECK_INT(out.width(), 3);
  CHECK_INT(out.rdstate(), std::ios::failbit);
  // Their results are plain objects, which may be kept.
  const std::smanip<long> width = std::setw(12);
  CHECK_INT(width.arg, 12);
  CHECK(&width.pf(out, 5) == &out);
  CHECK_INT(out.width(), 5);
}

std::ios &twice_as_wide(std::ios &stream) {
  stream.width(stream.width() * 2);
  return stream;
}
std::ostream &greeting(std::ostream &out) { return out << "hi"; }

void users_manipulators() {
  taking buffer;
  std::ostream out(&buffer);
  out << std::setw(2) << twice_as_wide << greeting;
  CHECK_TEXT(buffer.taken(), "hi  ");
}

}  // namespace

int main() {
  flags();
  with_an_argument();
  users_manipulators();
  return TEST_RESULT();
}
