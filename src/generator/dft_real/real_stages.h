// How real transforms inside a transform run: the words in which the plan tables of the real DFT
// and of Rader's method are written. A stage serves either direction, and says of the other
// nothing.
#pragma once

#include "generator/transforms/method.h"

namespace rvn::generator
{

struct RealStage;
struct RealRader;

// A factor of a split: a length that runs by its own row of the plan table, or a stage that does
// not.
struct Factor {
    int length = 1;
    const RealStage* departure = nullptr;

    constexpr Factor(int N) : length(N) {}
    constexpr Factor(const RealStage& stage); // which must outlive it
};

// The index maps of a forward Good-Thomas split: the same on both sides (Good 1958), with rotated
// roots in the stages; or bins by their residues (Thomas 1963), with none.
enum class IndexMap { Equal, Residues };

// Which of two conjugate classes of frequencies is formed.
enum class Classes { Lower, Upper };

// How a transform over the odd frequencies of twice its length n runs (odd_bins.h).
struct OddBins {
    enum class Form {
        Quarters,            // n = 2, forward: without arithmetic
        Eighths,             // n = 4, forward
        Alternate,           // n odd
        HalfComplex,         // n even
        HalfComplexMirrored, // the same, inverse, with the outputs taken backwards
        Interleaved,         // n = sequences * m
    };
    enum class Products { Rotated, MergedIntoRotation };

    Form form = Form::HalfComplex;
    int sequences = 1;                     // Interleaved: how many
    Classes classes = Classes::Lower;      // Interleaved, inverse
    const OddBins* middle = nullptr;       // Interleaved, inverse, m odd: else HalfComplex
    Products products = Products::Rotated; // Interleaved, forward: of a sequence's bins
    const RealStage* departure = nullptr;  // of the real transforms of odd size inside

    Factor real(int length) const { return departure ? Factor(*departure) : Factor(length); }
};

struct RealStage {
    int length;
    Method method;
    Factor a = 1;
    Factor b = 1;
    int negatedBin = 0;               // Direct, forward: see real_direct.cpp
    IndexMap map = IndexMap::Equal;   // Good-Thomas, forward
    Classes classes = Classes::Lower; // Cooley-Tukey, inverse
    OddBins middle = {};              // Cooley-Tukey: the odd bins of column a/2, or class b/2
    const RealRader* rader = nullptr; // Rader: null for the row of the prime
};

inline std::string nameOf(const RealStage& stage)
{
    const std::string name = nameOf(stage.method, stage.a.length, stage.b.length);
    return name + (stage.map == IndexMap::Residues ? " by residues" : "");
}

constexpr Factor::Factor(const RealStage& stage) : length(stage.length), departure(&stage) {}

// Rader's method on real data: the generator, the real transform of length prime - 1 on one side of
// the diagonal, and on the other the pair of length (prime - 1)/2 over even and over odd bins.
struct RealRader {
    int prime;
    int generator;
    RealStage whole;
    RealStage evenBins;
    OddBins oddBins;
};

// The notation of the tables.
namespace notation
{

constexpr RealStage direct(int N, int negatedBin = 0)
{
    return {.length = N, .method = Method::Direct, .negatedBin = negatedBin};
}

constexpr RealStage gt(int N, Factor a, Factor b)
{
    return {.length = N, .method = Method::GoodThomas, .a = a, .b = b};
}

constexpr RealStage residues(int N, Factor a, Factor b)
{
    return {.length = N, .method = Method::GoodThomas, .a = a, .b = b, .map = IndexMap::Residues};
}

constexpr RealStage ct(int N, Factor a, Factor b, OddBins::Form middle = OddBins::Form::HalfComplex,
                       int sequences = 1)
{
    return {
        .length = N, .method = Method::CooleyTukey, .a = a, .b = b, .middle = {middle, sequences}};
}

constexpr RealStage ctUpper(int N, Factor a, Factor b)
{
    return {.length = N, .method = Method::CooleyTukey, .a = a, .b = b, .classes = Classes::Upper};
}

constexpr RealStage rader(int prime)
{
    return {.length = prime, .method = Method::Rader};
}

constexpr RealStage raderBy(const RealRader& row)
{
    return {.length = row.prime, .method = Method::Rader, .rader = &row};
}

// The stages that depart from the row of their length in more than one place.
inline constexpr RealStage residues6 = residues(6, 3, 2);
inline constexpr RealStage residues15 = residues(15, 3, 5);
inline constexpr RealStage ct8 = ct(8, 2, 4);
inline constexpr RealStage inverseCt8 = ct(8, 2, 4, OddBins::Form::HalfComplexMirrored);
inline constexpr RealStage gt12 = gt(12, 4, 3);
inline constexpr RealStage upper9 = ctUpper(9, 3, 3);
inline constexpr RealStage direct11 = direct(11); // inverse
inline constexpr RealStage rader11 = rader(11);

} // namespace notation

} // namespace rvn::generator
