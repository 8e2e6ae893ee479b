// Numbers written through streams: to a file, a string stream, and cout in both of the peer's modes. An iteration
// writes a thousand numbers; times are per number with the blank after it.
#include <iomanip>

#include "streams.h"

// Not unnamed: a template argument of 1998 needs external linkage.
namespace streams {

const int count = 1000;

struct numbers {
  int ints[count];
  double doubles[count];
  numbers() {
    bench_random random(7);
    for (int i = 0; i < count; ++i) {
      ints[i] = static_cast<int>(random.next() % 2000000) - 1000000;
      doubles[i] = (static_cast<double>(random.next()) - 8000000.0) / 1234.5;
    }
  }
} const values;

void ints(std::ostream &out) {
  for (int i = 0; i < count; ++i) out << values.ints[i] << ' ';
}

void small_unsigned(std::ostream &out) {
  for (int i = 0; i < count; ++i) out << static_cast<unsigned>(i & 127) << ' ';
}

void doubles(std::ostream &out) {
  for (int i = 0; i < count; ++i) out << values.doubles[i] << ' ';
}

void all_digits(std::ostream &out) {
  const std::streamsize before = out.precision(17);
  for (int i = 0; i < count; ++i) out << values.doubles[i] << ' ';
  out.precision(before);
}

void fixed_doubles(std::ostream &out) {
  out.setf(std::ios::fixed, std::ios::floatfield);
  out.precision(2);
  for (int i = 0; i < count; ++i) out << values.doubles[i] << ' ';
}

void padded(std::ostream &out) {
  out.fill('0');
  for (int i = 0; i < count; ++i) out << std::setw(9) << values.ints[i] << ' ';
  out.fill(' ');
}

void hexadecimal(std::ostream &out) {
  out.setf(std::ios::hex | std::ios::showbase, std::ios::basefield | std::ios::showbase);
  for (int i = 0; i < count; ++i) out << values.ints[i] << ' ';
  out.setf(std::ios::dec, std::ios::basefield | std::ios::showbase);
}

#define TO_ALL(what, write, target)                                                                                  \
  {what " to a file", target, count, to_file<write>}, {what " to a string stream", target, count, to_string<write>}, \
      {what " to cout", target, count, to_cout<write>}, {                                                            \
    what " to cout, not synchronised", target, count, to_unsynchronised_cout<write>                                  \
  }

const bench_case cases[] = {
    TO_ALL("int", ints, 3),
    TO_ALL("small unsigned", small_unsigned, 3),
    TO_ALL("double, general", doubles, 4),
    TO_ALL("double, fixed, 2 decimals", fixed_doubles, 4),
    {"double, 17 digits, to a file", 4, count, to_file<all_digits>},
    {"int, setw and fill, to a file", 1, count, to_file<padded>},
    {"int, setw and fill, to a string stream", 1, count, to_string<padded>},
    {"int, hex and showbase, to a file", 1, count, to_file<hexadecimal>},
    {"int, hex and showbase, to a string stream", 1, count, to_string<hexadecimal>},
};

}  // namespace streams

BENCH_MAIN(streams::cases)
