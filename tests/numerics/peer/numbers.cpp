// complex, valarray and numeric_limits against the host's library: every operator and function over values that meet
// the branch cuts, the ends of ranges and zero.
// prints: 716 lines
#include <stdio.h>

#include <complex>
#include <limits>
#include <valarray>

#include "../../random.h"

// ---- complex, to the digits that a function may lose

template <class T> static void print(const std::complex<T> &z, int less = 0) {
  const int digits = sizeof(T) == 4 ? 4 : sizeof(T) == 8 ? 11 : 14;
  const long double parts[] = {z.real(), z.imag()}, size = std::abs(std::complex<long double>(z.real(), z.imag()));
  for (int i = 0; i < 2; ++i) {
    long double part = parts[i];
    // What is nothing but the other part's rounding, and the sign of a zero, are left out.
    if (size < 1e4000L && part * part < size * size * (sizeof(T) == 4 ? 1e-10L : sizeof(T) == 8 ? 1e-24L : 1e-28L))
      part = 0;
    part != part ? printf(" nan") : printf(" %.*Lg", digits - less, part + 0);
  }
}
template <class T> static void print(const T &x) { print(std::complex<T>(x)); }

template <class T> static void complex_numbers() {
  typedef std::complex<T> c;
  const T zero = 0, inf = std::numeric_limits<T>::infinity(), big = std::numeric_limits<T>::max() / 4;
  const T parts[] = {T(0.5), T(-0.75), T(1.25), T(3), T(-2.5), T(0.0625), T(-7), zero, -zero, T(1)};
  for (int i = 0; i < 10; ++i)
    for (int j = 0; j < 10; ++j) {
      const c z(parts[i], parts[j]), w(parts[j], parts[(i + j + 3) % 7]);
      const T x = parts[(i * 3 + j) % 7];
#define EACH(f) print(std::f(z))
      EACH(cos), EACH(cosh), EACH(exp), EACH(sin), EACH(sinh), EACH(sqrt), EACH(tan), EACH(tanh), EACH(abs), EACH(arg);
      EACH(norm), EACH(conj), EACH(real), EACH(imag), print(std::polar(std::abs(z), std::arg(z)));
      print(std::pow(T(2.5), z), 2);
      for (int n = -3; n < 6 && z != T(); ++n) print(std::pow(z, n), 2);
      if (z != T())
        EACH(log), EACH(log10), print(std::pow(z, w), 2), print(std::pow(z, x), 2), print(w / z), print(x / z);
      print(z + w), print(z - w), print(z * w), print(+z), print(-z), print(z + x), print(x + z), print(z - x);
      print(x - z), print(z * x), print(x * z), print(z / x);
      c a(z);
      a += w, a -= x, a *= w, a += x, print(a), a /= x, a *= x, print(a), a += a, a *= a, a -= a, print(a);
      a = x, print(a), a = std::complex<float>(1, 2), a += std::complex<long double>(2, 2);
      a *= std::complex<float>(0, 1), print(a), a = z, a *= a.real(), print(a), a = w, a *= a.imag(), print(a);
      printf(" %d%d%d%d%d%d\n", z == w, z == x, x == z, z != w, z != parts[i], parts[i] != z);
    }
  const c extremes[] = {c(big, big),    c(-big, big / 3), c(1 / big, 3 / big),
                        c(inf, 1),      c(1, -inf),       c(inf, inf),
                        c(T(1e-30), 1), c(20, 1),         c(1, -20)};
  for (int i = 0; i < 9; ++i) {
    const c z = extremes[i];
    print(std::abs(z)), print(std::arg(z)), print(std::sqrt(z)), print(std::log(z)), print(z * c(0, 1)),
        print(z / c(big, big)), print(std::tanh(z)), print(std::tan(z));
    printf("\n");
  }
  print(std::polar(T(2))), print(c(std::complex<double>(3.5, -1))), print(c());
  printf("\n");
}

// ---- valarray

typedef std::valarray<int> ints;
typedef std::valarray<double> reals;
typedef std::valarray<size_t> places;

template <class T> static void print_all(const std::valarray<T> &v) {
  for (size_t i = 0; i < v.size(); ++i) printf(" %.12g", static_cast<double>(v[i]));
  printf(";");
}
static ints some(size_t n) {
  ints made(n);
  for (size_t i = 0; i < n; ++i) made[i] = static_cast<int>(random_below(30)) + 1;
  return made;
}
static int half(int x) { return x / 2; }
static int twice(const int &x) { return x * 2; }

template <class Part> static void change(ints &a, const Part &part, size_t n) {
  const ints &view = a;
  ints taken(n);
  print_all(ints(view[part])), taken = a[part], print_all(taken);
  a[part] = some(n), print_all(a), a[part] = 4, print_all(a);
  a[part] += some(n), a[part] *= some(n), a[part] -= some(n), a[part] ^= some(n), print_all(a);
  a[part] |= ints(16, n), a[part] &= ints(1023, n), a[part] <<= ints(1, n), a[part] >>= ints(2, n), print_all(a);
  a[part] = some(n), a[part] %= ints(3, n), a[part] /= some(n), print_all(a);
}

static void arrays() {
  for (int n = 1; n < 60; ++n) {
    const size_t size = static_cast<size_t>(n);
    ints a = some(size), b = some(size), c(a), d(7, size);
#define OPERATOR(symbol)                                                                  \
  print_all(ints(a symbol b)), print_all(ints(a symbol 3)), print_all(ints(97 symbol b)), \
      c = a, c symbol## = b, print_all(c), c symbol## = 3, print_all(c)
    OPERATOR(*), OPERATOR(/), OPERATOR(%), OPERATOR(+), OPERATOR(-), OPERATOR(^), OPERATOR(&), OPERATOR(|);
    a %= 5, b %= 5;
    OPERATOR(<<), OPERATOR(>>);
    printf("\n");
#define COMPARISON(symbol)                                                                \
  print_all(std::valarray<bool>(a symbol b)), print_all(std::valarray<bool>(a symbol 3)), \
      print_all(std::valarray<bool>(3 symbol b))
    COMPARISON(==), COMPARISON(!=), COMPARISON(<), COMPARISON(>), COMPARISON(<=), COMPARISON(>=), COMPARISON(&&),
        COMPARISON(||);
    print_all(ints(-a)), print_all(ints(+a)), print_all(ints(~b)), print_all(std::valarray<bool>(!a)),
        print_all(ints(a.apply(half))), print_all(ints(a.apply(twice)));
    printf(" %d %d %d %d\n", a.sum(), (a.min)(), (a.max)(), ((a + b) * 2).sum());
    for (int s = -n; s <= n; s += 1 + n / 7) print_all(a.shift(s)), print_all(a.cshift(s));
    printf("\n");
    // Parts: a slice, a mask, places, and a box of a matrix of three dimensions.
    a = some(size);
    const size_t first = random_below(static_cast<unsigned int>(n)), step = 1 + random_below(4),
                 lengths[] = {1 + random_below(4), 1 + random_below(5), 1 + random_below(3)}, strides[] = {30, 6, 2};
    const std::slice part(first, (size - first + step - 1) / step, step);
    const std::gslice box(random_below(2), places(lengths, 3), places(strides, 3));
    places list(size / 2 + 1);
    for (size_t i = 0; i < list.size(); ++i) list[i] = (i * 7 + 3) % size;
    change(a, part, part.size());
    if (n % 7 != 0) change(a, list, list.size());
    const std::valarray<bool> mask = a > 9;
    size_t chosen = 0;
    for (size_t i = 0; i < size; ++i) chosen += mask[i];
    if (chosen != 0) change(a, mask, chosen);
    ints matrix = some(120);
    change(matrix, box, lengths[0] * lengths[1] * lengths[2]);
    printf(" %u %u %u", unsigned(part.start()), unsigned(part.size()), unsigned(part.stride()));
    printf(" %u %u %u\n", unsigned(box.start()), unsigned(box.size()[1]), unsigned(box.stride()[2]));
    a.resize(size / 2 + 1, n), print_all(a), a.resize(2), print_all(a), d = 5, print_all(d);
    printf("%u\n", unsigned(ints().size()));
    // Expressions that are assigned to what they are made of, and functions.
    a = some(size), b = some(size);
    a = b - a, a -= a * 2 - b, a = a + ints(a.shift(1)) * 2, print_all(a);
    reals x(size), y(1.5, size);
    for (size_t i = 0; i < size; ++i) x[i] = (random_below(99) + 1) / 100.0;
#define EACH_OF(f) print_all(reals(f(x)))
    EACH_OF(acos), EACH_OF(asin), EACH_OF(atan), EACH_OF(log), EACH_OF(log10), EACH_OF(tan), EACH_OF(tanh);
    print_all(reals(abs(-x))), print_all(reals(cos(x) + cosh(x) * exp(x))),
        print_all(reals(sin(x) - sinh(x) / sqrt(x)));
#define BOTH_OF(f) print_all(reals(f(x, y))), print_all(reals(f(x, 2.0))), print_all(reals(f(2.0, x)))
    BOTH_OF(atan2), BOTH_OF(pow), printf("\n");
  }
}

// ---- numeric_limits

template <class T> static void limits(const char *name) {
  typedef std::numeric_limits<T> l;
  printf("%s %d%d%d%d%d%d%d%d%d%d %d %d %d %d %d %d %d %d %d\n", name, l::is_specialized, l::is_signed, l::is_integer,
         l::is_exact, l::has_infinity, l::has_quiet_NaN, l::has_signaling_NaN, l::is_iec559, l::is_bounded,
         l::is_modulo, l::digits, l::digits10, l::radix, l::min_exponent, l::min_exponent10, l::max_exponent,
         l::max_exponent10, l::has_denorm, l::round_style);
  printf(" %La %La %La %La %La %La %d", static_cast<long double>((l::min)()), static_cast<long double>((l::max)()),
         static_cast<long double>(l::epsilon()), static_cast<long double>(l::round_error()),
         static_cast<long double>(l::infinity()), static_cast<long double>(l::denorm_min()),
         l::quiet_NaN() != l::quiet_NaN());
  const int *const addresses[] = {&l::digits, &l::max_exponent10};
  printf(" %d %d\n", *addresses[0], *addresses[1]);
}

int main() {
  complex_numbers<float>();
  complex_numbers<double>();
  complex_numbers<long double>();
  arrays();
#define LIMITS(type) limits<type>(#type)
  LIMITS(bool), LIMITS(char), LIMITS(signed char), LIMITS(unsigned char), LIMITS(wchar_t), LIMITS(short);
  LIMITS(unsigned short), LIMITS(int), LIMITS(unsigned int), LIMITS(long), LIMITS(unsigned long), LIMITS(long long);
  LIMITS(unsigned long long), LIMITS(float), LIMITS(double), LIMITS(long double);
  return 0;
}
