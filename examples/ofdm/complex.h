// complex.h - arithmetic of the library's complex numbers, without std::complex's care for
// infinity.
#ifndef OFDM_COMPLEX_H
#define OFDM_COMPLEX_H

#include <cmath>
#include <rvngenmx.h>

namespace ofdm
{

using Complex = Rvn32fc;

inline Complex plus(Complex a, Complex b)
{
    return {a.re + b.re, a.im + b.im};
}

inline Complex minus(Complex a, Complex b)
{
    return {a.re - b.re, a.im - b.im};
}

inline Complex times(Complex a, Complex b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

inline Complex times(Complex a, float factor)
{
    return {a.re * factor, a.im * factor};
}

inline Complex conjugate(Complex a)
{
    return {a.re, -a.im};
}

inline float power(Complex a)
{
    return a.re * a.re + a.im * a.im;
}

inline double angle(Complex a)
{
    return std::atan2(static_cast<double>(a.im), static_cast<double>(a.re));
}

// exp(i angle), rounded once from binary64.
inline Complex unit(double angle)
{
    return {static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle))};
}

} // namespace ofdm

#endif
