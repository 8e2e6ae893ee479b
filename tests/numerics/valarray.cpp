// test-variants: -O0 | -O2 | -O2 -std=gnu++11 | -O2 -std=gnu++20
// valarray and its parts, by values: every operator and function against a loop over plain arrays, the four kinds of
// parts read and written, shifts by any amount.
// test-peer: gnu++98
#include <complex>
#include <valarray>

#include <limits.h>

#include "harness.h"

// Every member compiles, used or not.
template class std::valarray<int>;
template class std::slice_array<int>;
template class std::gslice_array<int>;
template class std::mask_array<int>;
template class std::indirect_array<int>;

namespace {

typedef std::valarray<int> ints;
typedef std::valarray<double> reals;
typedef std::valarray<bool> bools;
typedef std::valarray<size_t> sizes;

// An array as text: the values with blanks between.
template <class T> const char *shown(const std::valarray<T> &array) {
  static char text[1000];
  text[0] = 0;
  for (size_t i = 0; i < array.size(); ++i)
    sprintf(text + strlen(text), i ? " %g" : "%g", static_cast<double>(array[i]));
  return text;
}
// The host's library has results of operators in types of its own, which become arrays.
#define CHECK_VALUES(array, want) CHECK_TEXT(shown(ints(array)), want)
#define CHECK_REALS(array, want) CHECK_TEXT(shown(reals(array)), want)
#define CHECK_BOOLS(array, want) CHECK_TEXT(shown(bools(array)), want)

ints counted(int n, int first = 0) {
  ints result(n);
  for (int i = 0; i < n; ++i) result[i] = first + i;
  return result;
}

void construction() {
  const int values[] = {3, 1, 2};
  CHECK_VALUES(ints(values, 3), "3 1 2");
  CHECK_VALUES(ints(7, 2), "7 7");
  CHECK_VALUES(ints(3), "0 0 0");
  CHECK_VALUES(ints(), "");
  ints a(values, 3), b(a);
  a[0] = 9;
  CHECK_VALUES(b, "3 1 2");
  b = a;
  CHECK_VALUES(b, "9 1 2");
  b = 4;
  CHECK_VALUES(b, "4 4 4");
  const ints &same = a;
  a = same;
  CHECK_VALUES(a, "9 1 2");
  a.resize(2);
  CHECK_VALUES(a, "0 0");
  a.resize(4, 5);
  CHECK_VALUES(a, "5 5 5 5");
  a.resize(0);
  CHECK(a.size() == 0 && (a + a).size() == 0 && a.shift(1).size() == 0 && a.cshift(1).size() == 0);
}

#define CHECK_OPERATOR(symbol)                                                          \
  do {                                                                                  \
    ints both(a), with_value(a), of_value(5, 6);                                        \
    for (int i = 0; i < 6; ++i) both[i] = a[i] symbol b[i], with_value[i] = a[i] symbol 3; \
    for (int i = 0; i < 6; ++i) of_value[i] = 97 symbol b[i];                           \
    CHECK(((a symbol b) == both).min() && ((a symbol 3) == with_value).min());          \
    CHECK(((97 symbol b) == of_value).min());                                           \
    ints changed(a);                                                                    \
    changed symbol##= b;                                                               \
    CHECK((changed == both).min());                                                     \
    changed = a;                                                                        \
    changed symbol##= 3;                                                               \
    CHECK((changed == with_value).min());                                               \
  } while (false)
#define CHECK_COMPARISON(symbol)                                                                     \
  do {                                                                                               \
    bools both(6), with_value(6), of_value(6);                                                       \
    for (int i = 0; i < 6; ++i) both[i] = a[i] symbol b[i], with_value[i] = a[i] symbol 12;            \
    for (int i = 0; i < 6; ++i) of_value[i] = 3 symbol b[i];                                         \
    CHECK(((a symbol b) == both).min() && ((a symbol 12) == with_value).min());                      \
    CHECK(((3 symbol b) == of_value).min());                                                         \
  } while (false)

void operators() {
  const int left[] = {12, 7, 100, 0, 31, 8}, right[] = {5, 7, 3, 2, 1, 9};
  const ints a(left, 6), b(right, 6);
  CHECK_OPERATOR(*);
  CHECK_OPERATOR(/);
  CHECK_OPERATOR(%);
  CHECK_OPERATOR(+);
  CHECK_OPERATOR(-);
  CHECK_OPERATOR(^);
  CHECK_OPERATOR(&);
  CHECK_OPERATOR(|);
  CHECK_OPERATOR(<<);
  CHECK_OPERATOR(>>);
  CHECK_COMPARISON(==);
  CHECK_COMPARISON(!=);
  CHECK_COMPARISON(<);
  CHECK_COMPARISON(>);
  CHECK_COMPARISON(<=);
  CHECK_COMPARISON(>=);
  CHECK_VALUES(-a, "-12 -7 -100 0 -31 -8");
  CHECK_VALUES(+a, "12 7 100 0 31 8");
  CHECK_VALUES(~b, "-6 -8 -4 -3 -2 -10");
  CHECK_BOOLS(!a, "0 0 0 1 0 0");
  CHECK_BOOLS(a && b, "1 1 1 0 1 1");
  CHECK_BOOLS(a || 0, "1 1 1 0 1 1");
  CHECK_BOOLS(0 && a, "0 0 0 0 0 0");
  CHECK(a.sum() == 158 && a.min() == 0 && a.max() == 100);
  CHECK(ints(5, 1).sum() == 5 && ints(5, 1).max() == 5);
#ifdef PLX_CONFIG_H
  // A value may be an element of the array that changes, or of another type.
  ints own(b);
  own *= own[0];
  CHECK_VALUES(own, "25 35 15 10 5 45");
  CHECK_REALS(reals(1.5, 2) * 2 - 1, "2 2");
#endif
}

double half(double x) { return x / 2; }
double twice(const double &x) { return x * 2; }

void functions() {
  const double values[] = {0.25, 0.5, 0.75};
  const reals a(values, 3);
  reals got[16];
  for (int i = 0; i < 16; ++i) got[i].resize(3);
  got[0] = abs(-a), got[1] = acos(a), got[2] = asin(a), got[3] = atan(a), got[4] = cos(a), got[5] = cosh(a);
  got[6] = exp(a), got[7] = log(a), got[8] = log10(a), got[9] = sin(a), got[10] = sinh(a), got[11] = sqrt(a);
  got[12] = tan(a), got[13] = tanh(a), got[14] = atan2(a, reals(2.0, 3)), got[15] = pow(a, reals(3.0, 3));
  for (int i = 0; i < 3; ++i) {
    const double x = values[i];
    const double want[] = {x,       acos(x), asin(x), atan(x), cos(x), cosh(x), exp(x),      log(x),
                           log10(x), sin(x), sinh(x), sqrt(x), tan(x), tanh(x), atan2(x, 2), pow(x, 3)};
    for (int f = 0; f < 16; ++f) CHECK(fabs(got[f][i] - want[f]) < 1e-14);
  }
  CHECK_REALS(atan2(reals(0.0, 2), 1.0), "0 0");
  CHECK_REALS(pow(2.0, reals(3.0, 2)), "8 8");
  CHECK_REALS(pow(reals(3.0, 2), 2.0), "9 9");
  CHECK_REALS(a.apply(half), "0.125 0.25 0.375");
  CHECK_REALS(a.apply(twice), "0.5 1 1.5");

  typedef std::complex<double> complex;
  std::valarray<complex> z(complex(0, 2), 2);
  z = z * z + complex(1);
  CHECK(z[1] == complex(-3));
  z = sqrt(z * complex(3));
  CHECK(abs(z[0] - complex(0, 3)) < 1e-15 && abs(pow(z, complex(2))[1] + complex(9)) < 1e-14);
}

void shifts() {
  const ints a = counted(5, 1);
  CHECK_VALUES(a.shift(2), "3 4 5 0 0");
  CHECK_VALUES(a.shift(-2), "0 0 1 2 3");
  CHECK_VALUES(a.shift(0), "1 2 3 4 5");
  CHECK_VALUES(a.shift(5), "0 0 0 0 0");
  CHECK_VALUES(a.shift(-5), "0 0 0 0 0");
  CHECK_VALUES(a.cshift(2), "3 4 5 1 2");
  CHECK_VALUES(a.cshift(-2), "4 5 1 2 3");
  CHECK_VALUES(a.cshift(5), "1 2 3 4 5");
  CHECK_VALUES(a.cshift(-5), "1 2 3 4 5");
#ifdef PLX_CONFIG_H
  CHECK_VALUES(a.shift(INT_MAX), "0 0 0 0 0");
  CHECK_VALUES(a.shift(INT_MIN), "0 0 0 0 0");
  CHECK_VALUES(a.cshift(7), "3 4 5 1 2");
  CHECK_VALUES(a.cshift(-7), "4 5 1 2 3");
  CHECK_VALUES(a.cshift(INT_MIN), "3 4 5 1 2");  // 2^31 is 3 modulo 5, to the right
#endif
}

void slices() {
  ints a = counted(10);
  const ints &fixed = a;
  const std::slice odd(1, 5, 2), even(0, 5, 2);
  CHECK(odd.start() == 1 && odd.size() == 5 && odd.stride() == 2 && std::slice().size() == 0);
  CHECK_VALUES(fixed[odd], "1 3 5 7 9");
  CHECK_VALUES(a[std::slice(9, 4, static_cast<size_t>(-3))], "9 6 3 0");
  a[odd] = ints(fixed[even]);
  CHECK_VALUES(a, "0 0 2 2 4 4 6 6 8 8");
  a[odd] = 1;
  a[even] += ints(10, 5);
  CHECK_VALUES(a, "10 1 12 1 14 1 16 1 18 1");
  a[odd] -= counted(5), a[even] /= ints(2, 5), a[odd] *= ints(3, 5), a[even] %= ints(4, 5);
  CHECK_VALUES(a, "1 3 2 0 3 -3 0 -6 1 -9");
  a = counted(10);
  a[odd] ^= ints(1, 5), a[even] |= ints(16, 5), a[odd] <<= ints(1, 5), a[even] >>= ints(1, 5), a[odd] &= ints(12, 5);
  CHECK_VALUES(a, "8 0 9 4 10 8 11 12 12 0");
  // One part to another, and within a part.
  a = counted(10);
  a[even] = a[odd];
  CHECK_VALUES(a, "1 1 3 3 5 5 7 7 9 9");
#ifdef PLX_CONFIG_H
  a = counted(10);
  a[std::slice(1, 9, 1)] = a[std::slice(0, 9, 1)];
  CHECK_VALUES(a, "0 0 1 2 3 4 5 6 7 8");
  a[std::slice(9, 10, static_cast<size_t>(-1))] = a;
  CHECK_VALUES(a, "8 7 6 5 4 3 2 1 0 0");
  a = a[std::slice(2, 3, 2)];
  CHECK_VALUES(a, "6 4 2");
#endif
}

void generalized_slices() {
  ints a = counted(24);
  const ints &fixed = a;
  const size_t lengths[] = {2, 3, 2}, strides[] = {12, 4, 1};
  const std::gslice part(2, sizes(lengths, 3), sizes(strides, 3));
  CHECK(part.start() == 2 && part.size().size() == 3 && part.stride()[1] == 4);
  CHECK_VALUES(fixed[part], "2 3 6 7 10 11 14 15 18 19 22 23");
  CHECK_VALUES(a[std::gslice(5, sizes(size_t(4), 1), sizes(size_t(5), 1))], "5 10 15 20");
  a[part] = counted(12, 100);
  CHECK_VALUES(a, "0 1 100 101 4 5 102 103 8 9 104 105 12 13 106 107 16 17 108 109 20 21 110 111");
  a[part] -= ints(100, 12), a[part] = -1;
  CHECK(a.sum() == 126 - 12 && a.min() == -1);
#ifdef PLX_CONFIG_H
  CHECK(ints(fixed[std::gslice()]).size() == 0);
  const size_t with_zero[] = {2, 0};
  CHECK(ints(fixed[std::gslice(0, sizes(with_zero, 2), sizes(strides, 2))]).size() == 0);
#endif
}

void masks_and_lists() {
  ints a = counted(6);
  const ints &fixed = a;
  CHECK_VALUES(fixed[a % 2 == 1], "1 3 5");
  CHECK_VALUES(fixed[a > 9], "");
  a[a > 3] = ints(7, 2);
  a[a < 2] = 8;
  CHECK_VALUES(a, "8 8 2 3 7 7");
  a[a == 7] *= counted(2, 2);
  CHECK_VALUES(a, "8 8 2 3 14 21");

  const size_t places[] = {4, 0, 3};
  const sizes list(places, 3);
  CHECK_VALUES(fixed[list], "14 8 3");
  a[list] = counted(3);
  CHECK_VALUES(a, "1 8 2 2 0 21");
  a[list] += ints(10, 3), a[list] >>= ints(1, 3);
  CHECK_VALUES(a, "5 8 2 6 5 21");
  a[list] = 0;
  CHECK_VALUES(a, "0 8 2 0 0 21");
  ints taken(3);
  taken = a[list];
  CHECK_VALUES(taken, "0 0 0");
  taken = a[a > 1];
  CHECK_VALUES(taken, "8 2 21");
}

// Results of operators have the const members of arrays, refer to arrays and not to copies, and may be assigned to what
// they are made of.
void expressions() {
  ints a = counted(4, 1), b(10, 4);
  CHECK((a * b + 1).size() == 4 && (a * b + 1)[2] == 31 && (2 * a - b).sum() == -20);
  CHECK((b - a).min() == 6 && (-(a + a)).max() == -2 && (a * a == 4).max());
  CHECK_VALUES((a + b).shift(1), "12 13 14 0");
  CHECK_VALUES((a + b).cshift(-1), "14 11 12 13");
  CHECK_VALUES((a + b)[std::slice(1, 2, 2)], "12 14");
  CHECK_VALUES((a + b)[a > 2], "13 14");
  CHECK_BOOLS((!(a > 2) && b > 3) || a == 4, "1 1 0 1");
  a = b - a;
  CHECK_VALUES(a, "9 8 7 6");
  a = a + a.shift(1) * 2;
  CHECK_VALUES(a, "25 22 19 6");
  a -= a * 2 - b;
  CHECK_VALUES(a, "-15 -12 -9 4");
  a[a < -10] += ints(b - 3);
  CHECK_VALUES(a, "-8 -5 -9 4");
  reals r = sqrt(reals(16.0, 2)) * pow(reals(2.0, 2), 3.0) - exp(log(reals(2.0, 2)));
  CHECK(fabs(r[1] - 30) < 1e-12 && fabs((r / 3.0 + cos(r - r)).max() - 11) < 1e-12);
#ifdef PLX_CONFIG_H
  ints c;
  c = a + b;
  c = ints(c[std::slice(0, 2, 1)]) + ints(1, 2);  // fewer elements than before
  CHECK_INT(c.size(), 2);
#endif
}

#if __cplusplus >= 201103L
void later_dialects() {
  ints a = counted(4), b;
  int sum = 0;
  for (int x : a) sum += x;
  for (int &x : a) x += sum;
  swap(a, b);
  CHECK_VALUES(b, "6 7 8 9");
  a = static_cast<ints &&>(b);
  CHECK(a.size() == 4);
}
#endif

}  // namespace

int main() {
  construction();
  operators();
  functions();
  shifts();
  slices();
  generalized_slices();
  masks_and_lists();
  expressions();
#if __cplusplus >= 201103L
  later_dialects();
#endif
  return TEST_RESULT();
}
