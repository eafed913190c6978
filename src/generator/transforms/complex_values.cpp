#include "generator/transforms/complex_values.h"

#include "generator/transforms/roots.h"

namespace rvn::generator
{

ComplexValue operator+(ComplexValue x, ComplexValue y)
{
    return {x.re + y.re, x.im + y.im};
}

ComplexValue operator-(ComplexValue x, ComplexValue y)
{
    return {x.re - y.re, x.im - y.im};
}

ComplexValue conjugate(ComplexValue x)
{
    return {x.re, -x.im};
}

ComplexValue timesI(ComplexValue x)
{
    return {-x.im, x.re};
}

ComplexValue timesMinusI(ComplexValue x)
{
    return {x.im, -x.re};
}

ComplexValue multiply(ComplexValue x, double re, double im)
{
    // Named, since the order in which nodes come to be is the order of the kernel's text.
    const Value p = re * x.re;
    const Value q = im * x.im;
    const Value u = re * x.im;
    const Value v = im * x.re;
    return {p - q, u + v};
}

ComplexValue twiddle(ComplexValue x, long exponent, long length)
{
    const long e = (exponent % length + length) % length;
    if (4 * e % length == 0) {
        for (long quarter = 0; quarter < 4 * e / length; ++quarter)
            x = timesMinusI(x);
        return x;
    }
    if (8 * e % length == 0) { // (+-1 +-i)/sqrt 2
        const double c = cosine(1, 8);
        const Value p = c * x.re;
        const Value q = c * x.im;
        const double cosineSign = cosine(e, length) > 0 ? 1 : -1;
        const double sineSign = sine(e, length) > 0 ? 1 : -1;
        return {cosineSign * p + sineSign * q, cosineSign * q - sineSign * p};
    }
    return multiply(x, cosine(e, length), -sine(e, length));
}

ComplexValue twiddleProducts(ComplexValue x, long exponent, long length)
{
    const double c = cosine(exponent, length);
    const double s = -sine(exponent, length);
    if (c == 0 || s == 0)
        return twiddle(x, exponent, length);
    const auto [re, reConstant] = factors(x.re);
    const auto [im, imConstant] = factors(x.im);
    const Value p = (c * reConstant) * re;
    const Value q = (s * imConstant) * im;
    const Value u = (c * imConstant) * im;
    const Value v = (s * reConstant) * re;
    return {p - q, u + v};
}

} // namespace rvn::generator
