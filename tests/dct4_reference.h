// The DCT-IV and the odd-frequency transform in long double, by their definitions. And the order of
// the factors in a table, as a list.
#pragma once

#include "reference.h"

namespace rvn::tests
{

// Re e^(2 pi i turns / whole) for all turns.
class CosineTable
{
public:
    explicit CosineTable(int whole)
    {
        for (int turns = 0; turns < whole; ++turns)
            values_.push_back(unitRoot(turns, whole).real());
    }

    long double at(long turns) const { return values_[turns % std::ssize(values_)]; }

private:
    std::vector<long double> values_;
};

// One output: X[k] = sum over n of x[n] cos(pi (2n + 1)(2k + 1) / (4N)).
template <typename Real>
long double dct4Output(const std::vector<Real>& x, int k, const CosineTable& cosines)
{
    long double sum = 0;
    for (long n = 0; n < std::ssize(x); ++n)
        sum += static_cast<long double>(x[n]) * cosines.at((2 * n + 1) * (2L * k + 1));
    return sum;
}

template <typename Real> std::vector<Wide> dct4BySum(const std::vector<Real>& x)
{
    const int N = static_cast<int>(x.size());
    const CosineTable cosines(8 * N);
    std::vector<Wide> X;
    for (int k = 0; k < N; ++k)
        X.emplace_back(dct4Output(x, k, cosines));
    return X;
}

// Y(q) = sum over t of u[t] e^(i pi t (2q + 1) / L), q < L/2; u[t] is at t + L/2, from -L/2 on.
template <typename Value> std::vector<Wide> oddFrequencySum(const std::vector<Value>& u)
{
    const int L = static_cast<int>(u.size());
    std::vector<Wide> root;
    for (int turns = 0; turns < 2 * L; ++turns)
        root.push_back(unitRoot(turns, 2 * L));
    std::vector<Wide> Y(L / 2);
    for (int q = 0; q < L / 2; ++q)
        for (int place = 0; place < L; ++place) {
            const int turns = (place - L / 2) * (2 * q + 1) % (2 * L);
            Y[q] += static_cast<long double>(u[place]) * root[(turns + 2 * L) % (2 * L)];
        }
    return Y;
}

// W[s] = Re sum over j of T[j] e^(i pi (2j + 1) s / (2r)), s = -r to r - 1, at s + r.
inline std::vector<Wide> topRowSum(const std::vector<Wide>& T)
{
    const int r = static_cast<int>(T.size());
    std::vector<Wide> W(2 * r);
    for (int s = -r; s < r; ++s)
        for (int j = 0; j < r; ++j)
            W[s + r] += (T[j] * unitRoot((2L * j + 1) * s, 4 * r)).real();
    return W;
}

// The pairs of a row of the top split's table belong to these values of the row.
inline std::vector<int> pairOrder(int r)
{
    if (r == 32)
        return {0, 31, 16, 15, 4, 27, 20, 11, 8, 23, 24, 7, 12, 19, 28, 3,
                1, 30, 17, 14, 5, 26, 21, 10, 9, 22, 25, 6, 13, 18, 29, 2};
    std::vector<int> order;
    for (int g = 0; g < (r + 1) / 2; ++g) {
        order.push_back(g);
        if (r > 1)
            order.push_back(r - 1 - g);
    }
    return order;
}

} // namespace rvn::tests
