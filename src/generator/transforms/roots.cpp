#include "generator/transforms/roots.h"

namespace rvn::generator
{

namespace
{

// pi in three parts of 53 bits.
constexpr Quad pi = static_cast<Quad>(0x1.921fb54442d18p+1) + 0x1.1a62633145c07p-53 -
                    static_cast<Quad>(0x1.f1976b7ed8fbcp-109);

// The Taylor series  x^first/first! - x^(first+2)/(first+2)! + ...  for |x| up to pi/4: cos x from
// first = 0, sin x from first = 1.
Quad alternatingSeries(Quad x, int first)
{
    constexpr int lastPower = 40; // (pi/4)^40 / 40! is below 2^-170
    Quad term = first == 0 ? Quad{1} : x;
    Quad sum = term;
    for (int power = first + 2; power <= lastPower; power += 2) {
        term *= -x * x / (power * (power - 1));
        sum += term;
    }
    return sum;
}

} // namespace

QuadComplex operator+(QuadComplex a, QuadComplex b)
{
    return {a.re + b.re, a.im + b.im};
}

QuadComplex operator*(QuadComplex a, QuadComplex b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

QuadComplex rootOfUnity(long exponent, long length)
{
    const long reduced = (exponent % length + length) % length;
    const long quadrant = 4 * reduced / length;
    const long rest = 4 * reduced % length; // the angle within the quadrant is rest/length * pi/2
    const bool beyondOctant = 2 * rest > length;
    const Quad angle =
        pi / 2 * static_cast<Quad>(beyondOctant ? length - rest : rest) / static_cast<Quad>(length);
    const Quad near = alternatingSeries(angle, 0);
    const Quad far = alternatingSeries(angle, 1);
    const Quad c = beyondOctant ? far : near;
    const Quad s = beyondOctant ? near : far;
    switch (quadrant) {
    case 0:
        return {c, -s};
    case 1:
        return {-s, -c};
    case 2:
        return {-c, s};
    default:
        return {s, c};
    }
}

double cosine(long exponent, long length)
{
    return static_cast<double>(rootOfUnity(exponent, length).re);
}

double sine(long exponent, long length)
{
    return static_cast<double>(-rootOfUnity(exponent, length).im);
}

} // namespace rvn::generator
