// complex, valarray and numeric_limits against the host's library: every operator and function over values that meet
// the branch cuts, the ends of ranges and zero.
// prints: 738 lines
#include <stdio.h>

#include <complex>
#include <limits>
#include <valarray>

#include "../../random.h"

// ---- complex, to the digits that a function may lose

struct say {
  int less;
  explicit say(int by = 0) : less(by) {}
  template <class T> const say &operator<<(const std::complex<T> &z) const {
    const long double parts[] = {z.real(), z.imag()}, size = std::abs(std::complex<long double>(z));
    for (int i = 0; i < 2; ++i) {
      long double part = parts[i];
      // What is nothing but the other part's rounding, and the sign of a zero, are left out.
      if (size < 1e4000L && part * part < size * size * (sizeof(T) == 4 ? 1e-10L : sizeof(T) == 8 ? 1e-24L : 1e-28L))
        part = 0;
      const int digits = (sizeof(T) == 4 ? 4 : sizeof(T) == 8 ? 11 : 14) - less;
      part != part ? printf(" nan") : printf(" %.*Lg", digits, part + 0);
    }
    return *this;
  }
  template <class T> const say &operator<<(T x) const { return *this << std::complex<T>(x); }
};

template <class T> static void complex_numbers() {
  typedef std::complex<T> c;
  const T zero = 0, inf = std::numeric_limits<T>::infinity(), big = std::numeric_limits<T>::max() / 4;
  const T parts[] = {T(0.5), T(-0.75), T(1.25), T(3), T(-2.5), T(0.0625), T(-7), zero, -zero, T(1)};
  for (int i = 0; i < 10; ++i)
    for (int j = 0; j < 10; ++j) {
      const c z(parts[i], parts[j]), w(parts[j], parts[(i + j + 3) % 7]);
      const T x = parts[(i * 3 + j) % 7];
      say() << cos(z) << cosh(z) << exp(z) << sin(z) << sinh(z) << sqrt(z) << tan(z) << tanh(z) << abs(z) << arg(z)
            << norm(z) << conj(z) << std::polar(abs(z), arg(z)) << real(z) << imag(z) << z + w << z - w << z * w << +z
            << -z << z + x << x + z << z - x << x - z << z * x << x * z << z / x;
      say(2) << pow(T(2.5), z);
      if (z != T()) {
        say() << log(z) << log10(z) << pow(z, -1) << pow(z, 2) << w / z << x / z;
        say(2) << pow(z, w) << pow(z, x) << pow(z, 5) << pow(z, -3);
      }
      c a(z), b(z), d(w);
      a += w, a -= x, a *= w, a += x;
      say() << a << (a /= x) << (a *= x) << (a += a) << (a *= a) << (a -= a) << (a = x);
      a = std::complex<float>(1, 2), a += std::complex<long double>(2, 2), a *= std::complex<float>(0, 1);
      say() << a << (b *= b.real()) << (d *= d.imag());
      printf(" %d%d%d%d%d%d\n", z == w, z == x, x == z, z != w, z != parts[i], parts[i] != z);
    }
  const c extremes[] = {c(big, big), c(-big, big / 3), c(1 / big, 3 / big), c(inf, -inf), c(T(1e-30), 20)};
  for (int i = 0; i < 5; ++i) {
    const c z = extremes[i];
    say() << abs(z) << arg(z) << sqrt(z) << log(z) << z * c(0, 1) << tanh(z);
    printf("\n");
  }
  say() << std::polar(T(2)) << c(std::complex<double>(3.5, -1)) << c();
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

// Reads a part and changes it by each operator.
template <class Part> static void change(ints a, const Part &part, size_t count) {
  const ints &view = a;
  ints taken(count);
  taken = a[part], print_all(taken), print_all(ints(view[part]));
#define CHANGE(symbol, values) a[part] symbol ints(values), print_all(a)
#define BY(symbol) CHANGE(symbol, some(count))
  BY(=), BY(*=), BY(+=), BY(-=), BY(/=), CHANGE(%=, some(count) + 9), BY(^=), BY(|=), CHANGE(&=, some(count) + 999);
  BY(=), CHANGE(<<=, some(count) % 5), CHANGE(>>=, some(count) % 5);
  a[part] = 4, print_all(a);
  printf("\n");
}

static void arrays() {
  for (int n = 1; n < 60; ++n) {
    const size_t size = static_cast<size_t>(n);
    ints a = some(size), b = some(size), c(a), d(7, size);
#define EACH(type, symbol) print_all(type(a symbol b)), print_all(type(a symbol 3)), print_all(type(97 symbol b))
#define OPERATOR(symbol) EACH(ints, symbol), c = a, c symbol## = b, print_all(c), c symbol## = 3, print_all(c)
#define COMPARISON(symbol) EACH(std::valarray<bool>, symbol)
    OPERATOR(*), OPERATOR(/), OPERATOR(%), OPERATOR(+), OPERATOR(-), OPERATOR(^), OPERATOR(&), OPERATOR(|);
    a %= 5, b %= 5;
    OPERATOR(<<), OPERATOR(>>), COMPARISON(==), COMPARISON(!=), COMPARISON(<), COMPARISON(>), COMPARISON(<=);
    COMPARISON(>=), COMPARISON(&&), COMPARISON(||);
    print_all(ints(-a)), print_all(ints(+a)), print_all(ints(~b)), print_all(std::valarray<bool>(!a));
    print_all(ints(a.apply(half))), print_all(ints(a.apply(twice)));
    printf(" %d %d %d %d\n", a.sum(), (a.min)(), (a.max)(), ((a + b) * 2).sum());
    for (int s = -n; s <= n; s += 1 + n / 7) print_all(a.shift(s)), print_all(a.cshift(s));
    printf("\n");
    // Parts; a slice, what a mask chooses, places, and a box of a matrix of three dimensions.
    a = some(size);
    const size_t first = random_below(static_cast<unsigned int>(n)), step = 1 + random_below(4),
                 count = (size - first + step - 1) / step;
    const std::slice part(first, count, step);
    change(a, part, count);
    const std::valarray<bool> mask = a > 9;
    size_t chosen = 0;
    for (size_t i = 0; i < size; ++i) chosen += mask[i];
    if (chosen != 0) change(a, mask, chosen);
    places list(size / 2 + 1);
    for (size_t i = 0; i < list.size(); ++i) list[i] = (i * 7 + 3) % size;
    if (n % 7 != 0) change(a, list, list.size());
    const size_t lengths[] = {1 + random_below(4), 1 + random_below(5), 1 + random_below(3)}, strides[] = {30, 6, 2};
    const std::gslice box(random_below(3), places(lengths, 3), places(strides, 3));
    change(some(120), box, lengths[0] * lengths[1] * lengths[2]);
    const size_t all[] = {part.start(),  part.size(),     part.stride(), box.start(),
                          box.size()[1], box.stride()[2], size,          ints().size()};
    print_all(places(all, 8));
    a.resize(size / 2 + 1, n), print_all(a), a.resize(2), print_all(a), d = 5, print_all(d);
    // Expressions that are assigned to what they are made of, and functions.
    a = some(size), b = some(size);
    a = b - a, a -= a * 2 - b, a = a + ints(a.shift(1)) * 2, print_all(a);
    reals x(size), y(1.5, size);
    for (size_t i = 0; i < size; ++i) x[i] = (random_below(99) + 1) / 100.0;
    print_all(reals(abs(-x) + acos(x) * 2.0 + asin(x) * 3.0 + atan(x) * 4.0 + cos(x) * 5.0 + cosh(x) * exp(x)));
    print_all(reals(log(x) + log10(x) * 2.0 + sin(x) * 3.0 - sinh(x) / sqrt(x) + tan(x) * 4.0 + tanh(x) * 5.0));
    print_all(reals(atan2(x, y))), print_all(reals(atan2(x, 2.0))), print_all(reals(atan2(2.0, x)));
    print_all(reals(pow(x, y))), print_all(reals(pow(2.0, x))), print_all(reals(pow(x, 2.0)));
    printf("\n");
  }
}

// ---- numeric_limits

template <class T> static void limits() {
  typedef std::numeric_limits<T> l;
  const int all[] = {l::is_specialized, l::is_signed,         l::is_integer, l::is_exact,     l::has_infinity,
                     l::has_quiet_NaN,  l::has_signaling_NaN, l::is_iec559,  l::is_bounded,   l::is_modulo,
                     l::digits,         l::digits10,          l::radix,      l::min_exponent, l::min_exponent10,
                     l::max_exponent,   l::max_exponent10,    l::has_denorm, l::round_style};
  const T values[] = {(l::min)(), (l::max)(), l::epsilon(), l::round_error(), l::infinity(), l::denorm_min()};
  for (int i = 0; i < 19; ++i) printf("%d ", all[i]);
  for (int i = 0; i < 6; ++i) printf("%La ", static_cast<long double>(values[i]));
  // A signaling NaN has the bit clear that makes it quiet; only a long double is not made quiet on its way.
  const long double signaling = std::numeric_limits<long double>::signaling_NaN();
  printf("%d %d\n", reinterpret_cast<const unsigned char *>(&signaling)[7] >> 6, l::quiet_NaN() == l::quiet_NaN());
}

int main() {
  complex_numbers<float>(), complex_numbers<double>(), complex_numbers<long double>();
  arrays();
  limits<bool>(), limits<char>(), limits<signed char>(), limits<unsigned char>(), limits<wchar_t>(), limits<short>();
  limits<unsigned short>(), limits<int>(), limits<unsigned int>(), limits<long>(), limits<unsigned long>();
  limits<long long>(), limits<unsigned long long>(), limits<float>(), limits<double>(), limits<long double>();
  return 0;
}
