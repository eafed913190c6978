// What the transform builders speak in, and the recursion in which the families meet.
//
// A complex prime length runs through real transforms of its parts, and a real composite length
// has complex columns: three functions, each from values to values, call one another. Every family
// implements its own; this header is all that one knows of another.
#pragma once

#include "kernelgen/builder.h"

#include <numeric>

namespace rvn::kernelgen
{

struct ComplexValue {
    Value re;
    Value im;
};

using ComplexValues = std::vector<ComplexValue>;
using ComplexView = std::span<const ComplexValue>;

ComplexValue operator+(ComplexValue x, ComplexValue y);
ComplexValue operator-(ComplexValue x, ComplexValue y);
ComplexValue conjugate(ComplexValue x);
ComplexValue timesI(ComplexValue x); // a relabelling: no operation
ComplexValue timesMinusI(ComplexValue x);

// x * (re + i im), with 4 multiplications and 2 additions.
ComplexValue multiply(ComplexValue x, double re, double im);

// x * e^(-2 pi i exponent / length). Quarter turns only relabel, odd eighths cost 2 multiplications
// and 2 additions, multiplying first, all others the general product.
ComplexValue twiddle(ComplexValue x, long exponent, long length);

// The same where a part of x that is a product is replaced by its factors, their constants merged
// into those of the rotation.
ComplexValue twiddleProducts(ComplexValue x, long exponent, long length);

// The bins 0 to length/2 of a spectrum with X[length - k] = conj X[k]. Bin 0 and, for even length,
// bin length/2 are real: their imaginary parts do not exist.
struct HalfSpectrum {
    int length;
    ComplexValues bins;

    explicit HalfSpectrum(int N) : length(N), bins(N / 2 + 1) {}

    ComplexValue at(int k) const; // any k from 0; above length/2 the conjugate partner's
    void set(int k, ComplexValue x);
};

enum class Method { Butterfly, Direct, CooleyTukey, GoodThomas, Rader };

// How the stage of one length inside a longer transform runs, first factor first. Two stages have
// another form: of two conjugate classes of frequencies an inverse Cooley-Tukey stage transforms
// the upper one, with other twiddle factors; an inverse Rader stage takes its second plan.
struct Stage {
    int length = 0; // 0: unused place in a row
    Method method = Method::Butterfly;
    int first = 0;
    int last = 0;
    bool otherForm = false;
};

// Whether the factors of a stage are those of its length, and coprime where they must be.
constexpr bool isSplit(const Stage& stage)
{
    const bool isProduct = stage.first * stage.last == stage.length;
    switch (stage.method) {
    case Method::GoodThomas:
        return isProduct && std::gcd(stage.first, stage.last) == 1;
    case Method::CooleyTukey:
        return isProduct;
    default:
        return true;
    }
}

// What a real transform hands down to its stages: the stages that do not run as the table of their
// own length says, and, inside Rader's method, that Good-Thomas splits of the forward transform map
// indices by residues and not by the equal maps of the complex one.
struct Nesting {
    std::span<const Stage> stages = {};
    bool byResidues = false;
};

// X[k] = sum over n of x[n] e^(-2 pi i t n k / N), with t coprime to N, the size of x.
ComplexValues complexDft(ComplexView x, int t);

// y[n] = sum over k of X[k] e^(+2 pi i n k / N): the forward transform with the parts exchanged.
ComplexValues inverseComplexDft(ComplexView x);

// X[k] = sum over n of x[n] e^(-2 pi i t n k / N), k = 0 to N/2, of real x.
HalfSpectrum realDft(ValuesView x, int t, const Nesting& inner);

// y[n] = R(0) + sum over k of (r(k) cos(2 pi n k / N) - s(k) sin(2 pi n k / N)) + (-1)^n R(N/2),
// k from 1 to (N-1)/2, of the half spectrum whose inner bins (r, s) are doubled already.
Values inverseRealDft(const HalfSpectrum& X, const Nesting& inner);

} // namespace rvn::kernelgen
