// SPDX-License-Identifier: MIT
// The product of two complex numbers, which compiled code calls for. An infinite operand gives an
// infinite product even where the plain formula has no number (C11, annex G.5.1).
#include <math.h>

namespace {

// An infinity becomes a unit in its direction, anything else a zero.
double Direction(double part) { return copysign(isinf(part) ? 1.0 : 0.0, part); }

double ZeroForNaN(double part) { return isnan(part) ? copysign(0.0, part) : part; }

struct Number {
  double real;
  double imaginary;

  bool IsInfinite() const { return isinf(real) || isinf(imaginary); }
  bool IsNaN() const { return isnan(real) && isnan(imaginary); }
};

Number Plain(const Number& a, const Number& b) {
  return {a.real * b.real - a.imaginary * b.imaginary, a.real * b.imaginary + a.imaginary * b.real};
}

// One partial product may be infinite although no operand is.
bool Overflows(const Number& a, const Number& b) {
  return isinf(a.real * b.real) || isinf(a.imaginary * b.imaginary) ||
         isinf(a.real * b.imaginary) || isinf(a.imaginary * b.real);
}

Number Infinite(Number a, Number b) {
  const bool is_a_infinite = a.IsInfinite();
  const bool is_b_infinite = b.IsInfinite();
  if (is_a_infinite) a = {Direction(a.real), Direction(a.imaginary)};
  if (is_b_infinite) b = {Direction(b.real), Direction(b.imaginary)};
  if (!is_a_infinite) a = {ZeroForNaN(a.real), ZeroForNaN(a.imaginary)};
  if (!is_b_infinite) b = {ZeroForNaN(b.real), ZeroForNaN(b.imaginary)};
  const Number product = Plain(a, b);
  return {INFINITY * product.real, INFINITY * product.imaginary};
}

Number Product(const Number& a, const Number& b) {
  const Number product = Plain(a, b);
  const bool is_infinite = a.IsInfinite() || b.IsInfinite() || Overflows(a, b);
  return product.IsNaN() && is_infinite ? Infinite(a, b) : product;
}

}  // namespace

extern "C" __extension__ _Complex double __muldc3(double a, double b, double c, double d) {
  const Number product = Product({a, b}, {c, d});
  __extension__ _Complex double result;
  __real__ result = product.real;
  __imag__ result = product.imaginary;
  return result;
}
